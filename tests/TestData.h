#pragma once
// Access to the reference data kept beside the repository (perft counts,
// direct mates with published keys). Tests read it; the code under test never does.
#include <map>
#include <string>
#include <vector>

namespace testdata {

using TRow = std::map<std::string, std::string>;

// The path of a file of ../shared/data.
std::string PathOf(const std::string& fileName);

// Reads a tab-separated file of ../shared/data with a header line.
std::vector<TRow> ReadTsv(const std::string& fileName);

// Splits "a b c" or "a,b" at the given separators, dropping empty pieces.
std::vector<std::string> Split(const std::string& text, const std::string& separators);

}  // namespace testdata
