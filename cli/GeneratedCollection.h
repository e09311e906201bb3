#pragma once
// The collection the benchmarks read and search: n problems with options, directives,
// descriptions and answers, over positions of varied material.
#include <string>

std::string GeneratedCollectionText(int nProblems);
