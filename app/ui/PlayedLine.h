#pragma once
// The window's own copy of the position shown: a start position and the moves played on it,
// with the moves taken back kept for redo. The engine never sees this line.
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"

class TPlayedLine {
 public:
  TPlayedLine();
  // Starts again from board, keeping its side to move; the moves played and taken back go.
  void Reset(const TChessboard& board);

  const TChessboard& Start() const { return boards.front(); }
  const TChessboard& Current() const { return boards.back(); }
  // The position after nMoves of the moves played (0: the start).
  const TChessboard& Board(int nMoves) const { return boards[static_cast<std::size_t>(nMoves)]; }
  int MovesPlayed() const { return static_cast<int>(boards.size()) - 1; }
  bool CanRedo() const { return !undone.empty(); }

  // The legal moves of the side to move, promotions one entry per piece.
  std::vector<TMove> LegalMoves() const;
  // The legal moves from..to: empty, one, or the four promotions.
  std::vector<TMove> LegalMoves(SquareIndex from, SquareIndex to) const;
  // Plays a legal move (the promotion piece by its type bits); a different move than the one
  // taken back last drops the redo list. False for a move that is not legal here.
  bool Play(TMove move);
  bool Back();
  bool Redo();
  // Plays the moves of a text such as "1. e2-e4 e7-e5 2. Nf3", in the long or the short
  // notation, move numbers skipped, up to the first word that is no legal move here; a
  // stored variant's name is skipped and its comments ("{...}" after a move) are taken. The
  // number of moves played.
  int PlayText(std::string_view text);

  // The comment on the last move played, kept until the move is taken back; "" for none.
  void SetComment(const std::string& text);
  const std::string& Comment() const { return comments.back(); }

  // "1. e2-e4 e7-e5 2. Ng1-f3", numbered from the start ("1. ... e7-e5" when Black began);
  // in the short notation of other programs "1. e4 e5 2. Nf3". Each comment follows its move
  // in braces.
  std::string MoveListText(bool bShort = false) const;
  // Whether the side to move is mated now.
  bool IsMate() const;

 private:
  int PlayMoves(std::string_view text);

  // Successors link to their parents, so the boards must not move: a deque keeps them put.
  std::deque<TChessboard> boards;
  std::vector<TMove> undone;         // the last move taken back at the end
  std::deque<std::string> comments;  // one per board: the comment on the move that made it
};
