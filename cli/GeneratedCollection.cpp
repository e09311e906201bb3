#include "cli/GeneratedCollection.h"

#include <iterator>

namespace {

// Positions with varied material, so that reading exercises the whole FEN reader.
const char* const kPositions[] = {
    "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8",
    "8/8/8/8/8/2k5/8/KR6",
    "r3k2r/pppq1ppp/2n2n2/3pp3/3PP3/2N2N2/PPPQ1PPP/R3K2R",
    "7k/5K2/6Q1/8/8/8/8/8",
    "1n2k3/2P5/8/8/8/8/5PPP/4K2R",
    "8/1p6/1P6/K1k5/8/8/8/8",
};

}  // namespace

std::string GeneratedCollectionText(int nProblems) {
  std::string text = "UTF-8\n\n";
  for (int id = 1; id <= nProblems; ++id) {
    const int moves = 2 + id % 7;
    text += std::to_string(id) + " #" + std::to_string(moves) +
            (id % 3 == 0 ? " NoMirror AllSolutions THREADS 4" : "") + "\n";
    if (id % 5 == 0) text += "//#TAGS\n//#generated\n//@SortIndications: 1. Qd1-d7+, ~Rh5\n";
    text += "{\n\tDescription: Generated problem number " + std::to_string(id) +
            "\n\tFEN: " + kPositions[id % std::size(kPositions)] + "\n";
    if (id % 2 == 0) text += "\tAnswer: a1-a2, b1-b3\n";
    text += "}\n";
  }
  return text;
}
