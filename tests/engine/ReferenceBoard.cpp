#include "ReferenceBoard.h"

#include <cctype>
#include <initializer_list>
#include <sstream>
#include <utility>

namespace reference {
namespace {

constexpr int kWhiteShort = 1, kWhiteLong = 2, kBlackShort = 4, kBlackLong = 8;
constexpr int kE1 = 0x04, kA1 = 0x00, kH1 = 0x07, kE8 = 0x74, kA8 = 0x70, kH8 = 0x77;

constexpr int kKnightSteps[] = {33, 31, 18, 14, -33, -31, -18, -14};
constexpr int kKingSteps[] = {1, -1, 16, -16, 15, 17, -15, -17};
constexpr int kStraight[] = {1, -1, 16, -16};
constexpr int kDiagonal[] = {15, 17, -15, -17};

bool OnBoard(int square) {
  return (square & 0x88) == 0;
}

// Piece letters: capitals for White. Only letters are ever stored.
bool IsWhitePiece(char piece) {
  return piece >= 'A' && piece <= 'Z';
}

char Upper(char piece) {
  return static_cast<char>(piece & ~0x20);
}

char Lower(char piece) {
  return static_cast<char>(piece | 0x20);
}

constexpr std::pair<PieceCode, char> kLetters[] = {{piece::kKing, 'K'},   {piece::kQueen, 'Q'},
                                                   {piece::kRook, 'R'},   {piece::kBishop, 'B'},
                                                   {piece::kKnight, 'N'}, {piece::kPawn, 'P'}};

// White's letter of a piece type.
char LetterOf(PieceCode type) {
  for (const auto& [known, letter] : kLetters)
    if (known == type) return letter;
  return '?';
}

// The castling rights a move from or to square takes away.
int RightsLostAt(int square) {
  switch (square) {
    case kE1:
      return kWhiteShort | kWhiteLong;
    case kH1:
      return kWhiteShort;
    case kA1:
      return kWhiteLong;
    case kE8:
      return kBlackShort | kBlackLong;
    case kH8:
      return kBlackShort;
    case kA8:
      return kBlackLong;
    default:
      return 0;
  }
}

}  // namespace

bool CReferenceBoard::ReadFen(const std::string& text) {
  *this = CReferenceBoard();
  std::istringstream in(text);
  std::string placement, side = "w", rights = "-", passant = "-";
  in >> placement >> side >> rights >> passant;
  int rank = 7, file = 0;
  for (char c : placement) {
    if (c == '/') {
      --rank;
      file = 0;
    } else if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
      file += c - '0';
    } else {
      if (rank < 0 || file > 7) return false;
      squares[rank * 16 + file++] = c;
    }
  }
  bWhiteToMove = side != "b";
  for (char c : rights) {
    if (c == 'K') castling |= kWhiteShort;
    if (c == 'Q') castling |= kWhiteLong;
    if (c == 'k') castling |= kBlackShort;
    if (c == 'q') castling |= kBlackLong;
  }
  if (passant.size() == 2) enPassant = (passant[1] - '1') * 16 + (passant[0] - 'a');
  FindKings();
  return rank == 0;
}

CReferenceBoard CReferenceBoard::FromProblemStart(const TChessboard& board) {
  CReferenceBoard out;
  for (int s = 0; s < 64; ++s) {
    const PieceCode code = board.squares[s];
    if (code == piece::kEmpty) continue;
    const char letter = LetterOf(piece::TypeOf(code));
    out.squares[(s / 8) * 16 + s % 8] = piece::IsWhite(code) ? letter : Lower(letter);
  }
  const struct {
    int king, rook, right;
    char kingLetter, rookLetter;
  } homes[] = {{kE1, kH1, kWhiteShort, 'K', 'R'},
               {kE1, kA1, kWhiteLong, 'K', 'R'},
               {kE8, kH8, kBlackShort, 'k', 'r'},
               {kE8, kA8, kBlackLong, 'k', 'r'}};
  for (const auto& home : homes)
    if (out.squares[home.king] == home.kingLetter && out.squares[home.rook] == home.rookLetter)
      out.castling |= home.right;
  out.FindKings();
  return out;
}

void CReferenceBoard::FindKings() {
  for (int s = 0; s < 128; ++s) {
    if (OnBoard(s) && squares[s] == 'K') whiteKing = s;
    if (OnBoard(s) && squares[s] == 'k') blackKing = s;
  }
}

bool CReferenceBoard::IsAttacked(int square, bool byWhite) const {
  const auto own = [&](char type) { return byWhite ? type : Lower(type); };
  // A white pawn attacks diagonally upwards, so it stands diagonally below its target.
  const int pawnFrom = byWhite ? -16 : 16;
  for (int side : {-1, 1}) {
    const int from = square + pawnFrom + side;
    if (OnBoard(from) && squares[from] == own('P')) return true;
  }
  for (int step : kKnightSteps)
    if (OnBoard(square + step) && squares[square + step] == own('N')) return true;
  for (int step : kKingSteps)
    if (OnBoard(square + step) && squares[square + step] == own('K')) return true;
  const auto slides = [&](const int(&steps)[4], char slider) {
    for (int step : steps) {
      for (int s = square + step; OnBoard(s); s += step) {
        if (squares[s] == 0) continue;
        if (squares[s] == own(slider) || squares[s] == own('Q')) return true;
        break;
      }
    }
    return false;
  };
  return slides(kStraight, 'R') || slides(kDiagonal, 'B');
}

bool CReferenceBoard::IsSideToMoveInCheck() const {
  const int king = bWhiteToMove ? whiteKing : blackKing;
  return king >= 0 && IsAttacked(king, !bWhiteToMove);
}

int CReferenceBoard::AddPawnMoves(int from, TRefMove* out) const {
  const int forward = bWhiteToMove ? 16 : -16;
  const int startRank = bWhiteToMove ? 1 : 6, lastRank = bWhiteToMove ? 7 : 0;
  int n = 0;
  const auto add = [&](int to) {
    if ((to >> 4) != lastRank) {
      out[n++] = {from, to, 0};
      return;
    }
    for (char promotion : {'Q', 'R', 'B', 'N'}) out[n++] = {from, to, promotion};
  };
  const int one = from + forward;
  if (OnBoard(one) && squares[one] == 0) {
    add(one);
    if ((from >> 4) == startRank && squares[one + forward] == 0) add(one + forward);
  }
  for (int side : {-1, 1}) {
    const int to = one + side;
    if (!OnBoard(to)) continue;
    const bool bEnemy = squares[to] != 0 && IsWhitePiece(squares[to]) != bWhiteToMove;
    if (bEnemy || to == enPassant) add(to);
  }
  return n;
}

int CReferenceBoard::AddCastlings(TRefMove* out) const {
  const int rank = bWhiteToMove ? 0 : 0x70;
  const int shortRight = bWhiteToMove ? kWhiteShort : kBlackShort;
  const int longRight = bWhiteToMove ? kWhiteLong : kBlackLong;
  const char king = bWhiteToMove ? 'K' : 'k', rook = bWhiteToMove ? 'R' : 'r';
  const auto empty = [&](std::initializer_list<int> files) {
    for (int f : files)
      if (squares[rank + f] != 0) return false;
    return true;
  };
  const auto safe = [&](std::initializer_list<int> files) {
    for (int f : files)
      if (IsAttacked(rank + f, !bWhiteToMove)) return false;
    return true;
  };
  int n = 0;
  if (squares[rank + 4] != king) return 0;
  if ((castling & shortRight) != 0 && squares[rank + 7] == rook && empty({5, 6}) && safe({4, 5, 6}))
    out[n++] = {rank + 4, rank + 6, 0};
  if ((castling & longRight) != 0 && squares[rank] == rook && empty({1, 2, 3}) && safe({4, 3, 2}))
    out[n++] = {rank + 4, rank + 2, 0};
  return n;
}

int CReferenceBoard::PseudoMoves(TRefMove* out) const {
  int n = 0;
  for (int from = 0; from < 128; ++from) {
    const char piece = squares[from];
    if (!OnBoard(from) || piece == 0 || IsWhitePiece(piece) != bWhiteToMove) continue;
    const char type = Upper(piece);
    if (type == 'P') {
      n += AddPawnMoves(from, out + n);
      continue;
    }
    const auto target = [&](int to) {  // true while a slider may go on
      if (!OnBoard(to)) return false;
      if (squares[to] != 0 && IsWhitePiece(squares[to]) == bWhiteToMove) return false;
      out[n++] = {from, to, 0};
      return squares[to] == 0;
    };
    if (type == 'N' || type == 'K') {
      const int* steps = type == 'N' ? kKnightSteps : kKingSteps;
      for (int i = 0; i < 8; ++i) target(from + steps[i]);
      continue;
    }
    const auto slide = [&](const int(&steps)[4]) {
      for (int step : steps) {
        int to = from + step;
        while (target(to)) to += step;
      }
    };
    if (type != 'B') slide(kStraight);
    if (type != 'R') slide(kDiagonal);
  }
  return n + AddCastlings(out + n);
}

CReferenceBoard CReferenceBoard::After(const TRefMove& move) const {
  CReferenceBoard next = *this;
  const char piece = squares[move.from];
  const int forward = bWhiteToMove ? 16 : -16;
  if (Upper(piece) == 'P' && move.to == enPassant) next.squares[move.to - forward] = 0;
  next.squares[move.to] = piece;
  next.squares[move.from] = 0;
  if (piece == 'K') next.whiteKing = move.to;
  if (piece == 'k') next.blackKing = move.to;
  if (move.promotion != 0)
    next.squares[move.to] = bWhiteToMove ? move.promotion : Lower(move.promotion);
  if (Upper(piece) == 'K' && move.to - move.from == 2) {
    next.squares[move.from + 1] = next.squares[move.from + 3];
    next.squares[move.from + 3] = 0;
  } else if (Upper(piece) == 'K' && move.from - move.to == 2) {
    next.squares[move.from - 1] = next.squares[move.from - 4];
    next.squares[move.from - 4] = 0;
  }
  const bool bDoubleStep = Upper(piece) == 'P' && (move.to - move.from == 2 * forward);
  next.enPassant = bDoubleStep ? move.from + forward : -1;
  next.castling &= ~(RightsLostAt(move.from) | RightsLostAt(move.to));
  next.bWhiteToMove = !bWhiteToMove;
  return next;
}

bool CReferenceBoard::IsMoverKingSafe() const {
  const int king = bWhiteToMove ? blackKing : whiteKing;
  return king >= 0 && !IsAttacked(king, bWhiteToMove);
}

bool CReferenceBoard::MakeLegal(const TRefMove& move, CReferenceBoard& next) const {
  next = After(move);
  return next.IsMoverKingSafe();
}

int CReferenceBoard::LegalMoves(TRefMove* out) const {
  TRefMove pseudo[kMaxMoves];
  const int nPseudo = PseudoMoves(pseudo);
  CReferenceBoard next;
  int n = 0;
  for (int i = 0; i < nPseudo; ++i)
    if (MakeLegal(pseudo[i], next)) out[n++] = pseudo[i];
  return n;
}

bool CReferenceBoard::HasLegalMove() const {
  TRefMove pseudo[kMaxMoves];
  const int nPseudo = PseudoMoves(pseudo);
  CReferenceBoard next;
  for (int i = 0; i < nPseudo; ++i)
    if (MakeLegal(pseudo[i], next)) return true;
  return false;
}

std::uint64_t CReferenceBoard::Perft(int depth) const {
  TRefMove moves[kMaxMoves];
  const int n = LegalMoves(moves);
  if (depth <= 1) return depth <= 0 ? 1 : static_cast<std::uint64_t>(n);
  std::uint64_t nodes = 0;
  for (int i = 0; i < n; ++i) nodes += After(moves[i]).Perft(depth - 1);
  return nodes;
}

TMove CReferenceBoard::ToEngineMove(const TRefMove& move) {
  const auto square64 = [](int s) { return static_cast<SquareIndex>((s >> 4) * 8 + (s & 7)); };
  PieceCode promotion = piece::kEmpty;
  for (const auto& [type, letter] : kLetters)
    if (move.promotion != 0 && letter == move.promotion) promotion = type;
  return TMove{square64(move.from), square64(move.to), promotion, 0};
}

}  // namespace reference
