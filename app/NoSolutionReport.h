#pragma once
// The result box text when a solve ends without a solution, with the reasons
// why a solution might have been missed.
#include <string>

#include "app/Language.h"

inline constexpr TTextTwins kMateSearchResultTitle{"Wynik szukania mata", "Mate search result",
                                                   "Результат пошуку мату"};

struct TNoSolutionCircumstances {
  int nMoves = 0;
  bool bRelaxationOff = false;  // only one pass with heuristics was run
  bool bPassWithoutHeuristicsSkipped = false;
  bool bQuickMode = false;  // repeated positions may yield false negatives
  bool bSelfmate = false;   // the stipulation is s#N, not #N
};

// "Not found any solutions for #N" (s#N for a selfmate), then a note with one line per reason that
// applies; without any reason the note is left out.
std::string NoSolutionReport(int nLanguageId, const TNoSolutionCircumstances& circumstances);
