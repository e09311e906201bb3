#include "engine/ZugzwangRules.h"

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "engine/HeuristicRules.h"

namespace zugzwangrules {
namespace {

constexpr int kSweepMaxBlackMoves = 3;
constexpr int kSnakeMinBlackMen = 6;
constexpr int kSnakeMaxBlackMoves = 6;
constexpr int kSnakeMaxKingMoves = 2;

bool OnEdge(SquareIndex s) {
  const int file = square::File(s), rank = square::Rank(s);
  return file == 0 || file == 7 || rank == 0 || rank == 7;
}

int BlackMen(const TChessboard& board) {
  int n = 0;
  for (int slot = kBlackQueens; slot <= kBlackPawns; slot += 2) n += board.nPieces[slot];
  return n;
}

// Black's legal moves written to out (kMoveBufferSize entries), as CountBlackMoves counts them.
int BlackMoves(const TChessboard& board, TMove* out) {
  TChessboard turned = board;
  if (board.IsWhiteToMove()) {
    turned.parent = nullptr;  // no en passant right for Black from White's last move
    turned.ply = static_cast<std::uint16_t>(board.ply + 1);
    if (!RecomputeChecks(turned) || turned.IsWhiteInCheck()) return 0;
  }
  TMove moves[kMoveBufferSize];
  const int n = turned.IsBlackInCheck() ? movegen::GenerateEvasions(turned, moves)
                                        : movegen::GenerateAllMoves(turned, moves);
  int nLegal = 0;
  TChessboard child;
  for (int i = 0; i < n; ++i)
    if (movemaking::MakeSuccessor(turned, moves[i], child)) out[nLegal++] = moves[i];
  return nLegal;
}

// The rook that sweeps keeps to the edge lines once it is there, other than to capture.
bool RookLeavesEdge(const TChessboard& after) {
  const TMove move = after.lastMove;
  return after.squares[move.to] == piece::kWhiteRook && OnEdge(move.from) && !OnEdge(move.to) &&
         after.parent->squares[move.to] == piece::kEmpty;
}

// While Black swings its pendulum, the white king keeps to a triangle: a king step must end
// next to where the king stood one move earlier.
bool KingLeavesTriangle(const TChessboard& after) {
  const TChessboard& before = *after.parent;
  if (after.squares[after.lastMove.to] != piece::kWhiteKing || before.parent == nullptr ||
      before.parent->parent == nullptr || !PendulumPattern(before))
    return false;
  return heuristicrules::Distance(after.lastMove.to, before.parent->parent->WhiteKing()) > 1;
}

}  // namespace

int CountBlackMoves(const TChessboard& board) {
  TMove moves[kMoveBufferSize];
  return BlackMoves(board, moves);
}

bool SweepingRookPattern(const TChessboard& board) {
  return board.nPieces[kWhiteRooks] == 1 && board.nPieces[kWhiteQueens] == 0 &&
         BlackMen(board) == board.nPieces[kBlackPawns] &&
         CountBlackMoves(board) <= kSweepMaxBlackMoves;
}

bool PendulumPattern(const TChessboard& board) {
  TMove moves[kMoveBufferSize];
  const int n = BlackMoves(board, moves);
  const TMove* swing = nullptr;
  for (int i = 0; i < n; ++i) {
    if (piece::TypeOf(board.squares[moves[i].from]) == piece::kPawn) continue;
    if (swing != nullptr && (swing->from != moves[i].from || swing->to != moves[i].to))
      return false;
    swing = &moves[i];
  }
  return swing != nullptr;
}

bool SeaSnakePattern(const TChessboard& board) {
  if (BlackMen(board) < kSnakeMinBlackMen) return false;
  TMove moves[kMoveBufferSize];
  const int n = BlackMoves(board, moves);
  int nKing = 0;
  for (int i = 0; i < n; ++i) nKing += moves[i].from == board.BlackKing() ? 1 : 0;
  return n <= kSnakeMaxBlackMoves && nKing <= kSnakeMaxKingMoves;
}

std::uint32_t WhiteMoveBreaks(const TChessboard& after, const THeuristicSet& set,
                              int nRootBlackMoves) {
  if (set.Has(shbit::kSweepingWhiteRook) && RookLeavesEdge(after)) return shbit::kSweepingWhiteRook;
  if (set.Has(shbit::kZugzwangTriangles) && KingLeavesTriangle(after))
    return shbit::kZugzwangTriangles;
  // The snake is walked while Black stays tied: a move that frees Black is not the way.
  if (set.Has(shbit::kSeaSnake) && CountBlackMoves(after) > nRootBlackMoves)
    return shbit::kSeaSnake;
  return 0;
}

}  // namespace zugzwangrules
