#pragma once
// FEN codes found in a text of any format (a problem file, a list, a page saved from a
// database): every run of eight ranks of piece letters and digits separated by slashes.
#include <string>
#include <string_view>
#include <vector>

struct TFenFound {
  std::string placement;  // the placement field as written
  int nLine = 0;          // from 1
};

std::vector<TFenFound> FindFens(std::string_view text);
