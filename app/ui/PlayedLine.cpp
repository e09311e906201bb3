#include "app/ui/PlayedLine.h"

#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "core/ShortAlgebraic.h"
#include "problems/VariantLine.h"

namespace {

// Plies allowed for moves played by hand: the most a record holds below the mark of a
// position without a stipulation, with the parity of the side to move.
std::uint16_t PlayingPlies(bool bWhiteToMove) {
  return bWhiteToMove ? kNoStipulationPly - 2 : kNoStipulationPly - 1;
}

}  // namespace

TPlayedLine::TPlayedLine() {
  TChessboard empty;
  ClearChessboard(empty);
  boards.push_back(empty);
  comments.emplace_back();
}

void TPlayedLine::Reset(const TChessboard& board) {
  boards.clear();
  comments.assign(1, std::string());
  undone.clear();
  TChessboard start = board;
  start.parent = nullptr;
  start.ply = start.rootPlies = PlayingPlies(board.IsWhiteToMove());
  boards.push_back(start);
}

std::vector<TMove> TPlayedLine::LegalMoves() const {
  return movemaking::LegalMoves(Current());
}

std::vector<TMove> TPlayedLine::LegalMoves(SquareIndex from, SquareIndex to) const {
  std::vector<TMove> matching;
  for (TMove move : LegalMoves())
    if (move.from == from && move.to == to) matching.push_back(move);
  return matching;
}

bool TPlayedLine::Play(TMove move) {
  for (TMove legal : LegalMoves()) {
    if (!legal.SameMove(move)) continue;
    TChessboard child;
    movemaking::MakeSuccessor(Current(), legal, child);
    boards.push_back(child);  // child links to Current(), which the deque keeps in place
    comments.emplace_back();
    if (!undone.empty() && undone.back().SameMove(legal))
      undone.pop_back();
    else
      undone.clear();
    return true;
  }
  return false;
}

bool TPlayedLine::Back() {
  if (boards.size() < 2) return false;
  undone.push_back(boards.back().lastMove);
  boards.pop_back();
  comments.pop_back();
  return true;
}

bool TPlayedLine::Redo() {
  if (undone.empty()) return false;
  return Play(undone.back());
}

int TPlayedLine::PlayText(std::string_view text) {
  const TVariantLine variant = variantline::Parse(text);
  const int nBefore = MovesPlayed();
  const int nPlayed = PlayMoves(variant.moves);
  for (const auto& [nAfter, comment] : variant.comments)
    if (nAfter > 0 && nAfter <= nPlayed)
      comments[static_cast<std::size_t>(nBefore + nAfter)] = comment;
  return nPlayed;
}

void TPlayedLine::SetComment(const std::string& text) {
  comments.back() = text;
}

int TPlayedLine::PlayMoves(std::string_view text) {
  int nPlayed = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n", at);
    if (begin == std::string_view::npos) break;
    at = std::min(text.find_first_of(" \t\r\n", begin), text.size());
    std::string_view word = text.substr(begin, at - begin);
    // "1." and "1..." number the moves; "1.e4" is a number and a move.
    word.remove_prefix(std::min(word.find_first_not_of("0123456789."), word.size()));
    if (word.empty()) continue;
    std::optional<TMove> move = shortalgebraic::TextToMove(Current(), word);
    for (TMove legal : LegalMoves())
      if (!move && notation::MoveToText(Current(), legal) == word) move = legal;
    if (!move || !Play(*move)) break;
    ++nPlayed;
  }
  return nPlayed;
}

std::string TPlayedLine::MoveListText(bool bShort) const {
  std::string text;
  int number = 1;
  for (std::size_t i = 1; i < boards.size(); ++i) {
    const TChessboard& before = boards[i - 1];
    if (!text.empty()) text += ' ';
    if (before.IsWhiteToMove())
      text += std::to_string(number) + ". ";
    else if (i == 1)
      text += "1. ... ";
    text += bShort ? shortalgebraic::MoveToText(before, boards[i].lastMove)
                   : notation::MoveToText(before, boards[i].lastMove);
    if (!comments[i].empty()) text += " {" + comments[i] + "}";
    if (!before.IsWhiteToMove()) ++number;
  }
  return text;
}

bool TPlayedLine::IsMate() const {
  return Current().IsSideToMoveInCheck() && !movemaking::HasLegalMove(Current());
}
