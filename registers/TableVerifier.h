#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "registers/TableLookup.h"

// Checks that every value of a table agrees with its successors: each legal position is
// valued again from its moves, made with the core's move generator and move makers, and the
// values the tables give for the positions they lead to.
struct TTableVerification {
  std::uint64_t nChecked = 0;
  std::uint64_t nWrong = 0;
  std::vector<std::string> examples;  // the first few disagreements, as text
  std::uint64_t nUnknown = 0;         // positions with a successor in a missing table
};

TTableVerification VerifyTable(const TEndgameTable& table, const CTableLookup::TFind& find,
                               int nThreads, const std::function<void(double)>& progress = {});
