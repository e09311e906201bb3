#pragma once
// The text of one stored variant (a line of a problem's variants block): an optional name in
// brackets, then the moves as a move list reads them, each move optionally followed by a
// comment in braces: "[Try] 1. Qd1-d7+ {the obvious check} Ke8-f8 2. Qd7-d8#". The first
// line of the block is the main variant.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct TVariantLine {
  std::string name;   // empty for none
  std::string moves;  // the move list without the comments
  // The comments by the count of half-moves they follow (1 for the first move), in order.
  std::vector<std::pair<int, std::string>> comments;
};

namespace variantline {

TVariantLine Parse(std::string_view text);
// The stored text: the name in brackets when there is one, then movesWithComments as given
// (the moves with their comments already in braces). Braces and brackets in the name are
// dropped, for they would end it early.
std::string Compose(const std::string& name, const std::string& movesWithComments);
// The moves with their comments, as stored, without the name.
std::string WithoutName(std::string_view text);
// The name to show in a list: the name, or the first moves when it has none.
std::string Title(std::string_view text);

}  // namespace variantline
