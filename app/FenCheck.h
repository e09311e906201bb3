#pragma once
// Which FEN codes of a text of any format (a list, a page saved from a database, another
// problem file) are positions of the problems of a collection.
#include <string>
#include <string_view>
#include <vector>

#include "problems/Collection.h"

struct TFenCheckLine {
  int nLine = 0;              // of the text, from 1
  std::string placement;      // the FEN's placement as written
  std::vector<int> problems;  // the ids of the problems with that position
  bool bPosition = true;      // false when the FEN is no position at all
};

struct TFenCheck {
  std::vector<TFenCheckLine> lines;
  int nFound = 0;  // FEN codes with at least one problem
};

TFenCheck CheckFens(const TProblemCollection& collection, std::string_view text);
// "line 3: <placement>: problem 4, 7", "... not found" or "... not a position".
std::string FenCheckLineText(const TFenCheckLine& line);
// "2 of 5 FEN codes of <name> found".
std::string FenCheckSummary(const TFenCheck& check, const std::string& name);
