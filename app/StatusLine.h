#pragma once
// The status line shown while a problem is being solved.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

struct TStatusItems {
  std::string sPass = "2";  // "1", "1b", ... under heuristics, "2" without
  std::string sHeuristics;  // the special heuristics in force for the pass, by name
  bool bSafeMode = false;   // shown only when quick mode is configured and the pass runs safe
  std::optional<std::uint64_t> nGlobalRegisterBytes;  // when precalculated data is loaded
  int nMoves = 0;
  std::string sTypeMark;  // "#" for a direct mate
  int nExtraMoves = 0;    // moves being added beyond the stipulation, 0 for none
  std::size_t nThreads = 0;
  double dPercentDone = 0;  // share of the first-level moves done
  std::int64_t nPositions = 0;
  std::int64_t nElapsedSeconds = 0;
};

// The items left to right, separated by single blanks. A text wider than
// nWidth characters is cut so that it ends in "... " within the width.
std::string ComposeStatusLine(const TStatusItems& items, std::size_t nWidth);
