#include "engine/PatternRules.h"

#include "core/Attacks.h"
#include "engine/HeuristicRules.h"
#include "engine/KingSteps.h"
#include "engine/QueenMateSquares.h"

TPatternRoot::TPatternRoot(const THeuristicSet& set, const TChessboard& root)
    : blackKingStart(root.BlackKing()) {
  if (set.Has(shbit::kSingleQueenMate)) queenMateDistances = queenmate::MateSquareDistances(root);
  nBlockedPawnsLevel = set.nBlockedPawnsLevel != 0
                           ? set.nBlockedPawnsLevel
                           : static_cast<std::uint8_t>(patternrules::BlockedBlackPawns(root));
}

namespace patternrules {
namespace {

using heuristicrules::Distance;

// Whether a pawn level restriction sees the blocked pawns fall below its level.
bool FallsBelowLevel(const TChessboard& after, const TPatternRoot& root) {
  return BlockedBlackPawns(after) < root.nBlockedPawnsLevel &&
         BlockedBlackPawns(*after.parent) >= root.nBlockedPawnsLevel;
}

// Whether White still keeps the key line: a piece of its own stands on it that moves along it.
bool HoldsLine(const TChessboard& board, keyline::TLine line) {
  const PieceCode mover = keyline::IsDiagonal(line) ? piece::kBishop : piece::kRook;
  for (SquareIndex s = 0; s < 64; ++s) {
    const PieceCode p = board.squares[s];
    if (piece::IsWhite(p) && (piece::TypeOf(p) & mover) == mover && keyline::Contains(line, s))
      return true;
  }
  return false;
}

// The squares White's pieces could take away from the king in three moves: a queen three, a
// rook two, a minor piece or a pawn about to promote one, a white king near enough one.
int WhiteForce(const TChessboard& board) {
  int force = 3 * board.nPieces[kWhiteQueens] + 2 * board.nPieces[kWhiteRooks] +
              board.nPieces[kWhiteBishops] + board.nPieces[kWhiteKnights];
  for (SquareIndex s = 40; s < 56; ++s) force += board.squares[s] == piece::kWhitePawn;
  return force + (Distance(board.WhiteKing(), board.BlackKing()) <= 3 ? 1 : 0);
}

}  // namespace

int BlockedBlackPawns(const TChessboard& board) {
  int n = 0;
  for (SquareIndex s = 8; s < 64; ++s)
    n += board.squares[s] == piece::kBlackPawn && board.squares[s - 8] != piece::kEmpty;
  return n;
}

int FreeBlackKingSquares(const TChessboard& board) {
  int nFree = 0;
  ForKingSteps(board.BlackKing(), [&](SquareIndex s) {
    nFree +=
        !piece::IsBlack(board.squares[s]) && !attacks::IsAttacked(board.squares, s, piece::kWhite);
  });
  return nFree;
}

bool ZugzwangCagePattern(const TChessboard& start) {
  const int nPieces = start.nPieces[kBlackQueens] + start.nPieces[kBlackRooks] +
                      start.nPieces[kBlackBishops] + start.nPieces[kBlackKnights];
  bool bPawnBeside = false;
  ForKingSteps(start.BlackKing(),
               [&](SquareIndex s) { bPawnBeside |= start.squares[s] == piece::kBlackPawn; });
  return nPieces == 0 && bPawnBeside;
}

bool MateInThreeLooksHopeless(const TChessboard& board) {
  // One square to spare: the king's own steps may lead it into a corner.
  return FreeBlackKingSquares(board) > WhiteForce(board) + 1;
}

std::uint32_t BlackReplyBreaks(const TChessboard& after, const THeuristicSet& set,
                               const TPatternRoot& root) {
  const TMove move = after.lastMove;
  const PieceCode moved = after.squares[move.to];
  const PieceCode type = piece::TypeOf(moved);
  // The lone queen mates only while everything else stays put.
  if (set.Has(shbit::kSingleQueenMate) && type != piece::kKing) return shbit::kSingleQueenMate;
  if (set.Has(shbit::kZugzwang)) {
    // The king shuffles in its cage, the pawns push; anything else (a capture by a pawn, a
    // promotion, a piece) frees Black.
    const bool bCaged = type == piece::kKing ? Distance(move.to, root.blackKingStart) <= 1
                                             : type == piece::kPawn &&
                                                   square::File(move.from) == square::File(move.to);
    if (!bCaged) return shbit::kZugzwang;
  }
  if (set.Has(shbit::kUseBlockBlackPawnsLevel) && FallsBelowLevel(after, root))
    return shbit::kUseBlockBlackPawnsLevel;
  return 0;
}

std::uint32_t WhiteMoveBreaks(const TChessboard& after, const THeuristicSet& set,
                              const TPatternRoot& root) {
  const TChessboard& before = *after.parent;
  if (set.Has(shbit::kSingleQueenMate) && before.squares[after.lastMove.from] != piece::kWhiteQueen)
    return shbit::kSingleQueenMate;
  if (set.Has(shbit::kUseBlockBlackPawnsLevel) &&
      after.nPieces[kBlackPawns] == before.nPieces[kBlackPawns] && FallsBelowLevel(after, root))
    return shbit::kUseBlockBlackPawnsLevel;
  // A check may let go of a key square or line: the mate itself often does.
  if (after.IsBlackInCheck()) return 0;
  if (set.Has(shbit::kKeyField) && set.keySquare < 64 &&
      attacks::IsAttacked(before.squares, set.keySquare, piece::kWhite) &&
      !attacks::IsAttacked(after.squares, set.keySquare, piece::kWhite))
    return shbit::kKeyField;
  const std::uint32_t lineBit =
      keyline::IsDiagonal(set.keyLine) ? shbit::kKeyDiagonal : shbit::kKeyLine;
  if (set.Has(lineBit) && set.keyLine != keyline::kNone && HoldsLine(before, set.keyLine) &&
      !HoldsLine(after, set.keyLine))
    return lineBit;
  return 0;
}

std::uint32_t WhiteNodeBreaks(const TChessboard& board, const THeuristicSet& set,
                              const TPatternRoot& root) {
  const int nMovesLeft = (board.ply + 1) / 2;
  // Black moves once less than White before the mate: the king must be that near a mating
  // square.
  if (set.Has(shbit::kSingleQueenMate) &&
      root.queenMateDistances[board.BlackKing()] > nMovesLeft - 1)
    return shbit::kSingleQueenMate;
  if (set.Has(shbit::k3MovesToMate) && nMovesLeft == 3 && MateInThreeLooksHopeless(board))
    return shbit::k3MovesToMate;
  return 0;
}

int SearchedWhiteMoves(const TChessboard& board, int n, const THeuristicSet& set) {
  if (!set.Has(shbit::kSkipWorstWhiteMoves) || board.ply >= board.rootPlies) return n;
  return n - n / 3;
}

}  // namespace patternrules
