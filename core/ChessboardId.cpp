#include "core/ChessboardId.h"

#include "core/ChessException.h"
#include "core/PlainFileName.h"

namespace {

constexpr int kMaxBits = 8 * 40;
constexpr int kShortCodeBits = 4;
constexpr int kNoShortCode = -1;

// Short codes: kings 0/1, pawns 2/3, queens 4/5, rooks 6/7, bishops 8/9, knights 10/11,
// the white piece first.
constexpr PieceCode kShortCodePieces[12] = {
    piece::kWhiteKing,   piece::kBlackKing,   piece::kWhitePawn,   piece::kBlackPawn,
    piece::kWhiteQueen,  piece::kBlackQueen,  piece::kWhiteRook,   piece::kBlackRook,
    piece::kWhiteBishop, piece::kBlackBishop, piece::kWhiteKnight, piece::kBlackKnight};

int ShortCodeOf(PieceCode code) {
  for (int i = 0; i < 12; ++i) {
    if (kShortCodePieces[i] == code) return i;
  }
  return kNoShortCode;
}

bool BitAt(const std::uint8_t* bits, int i) {
  return ((bits[i >> 3] >> (i & 7)) & 1) != 0;
}

// Cuts the bit string into groups of groupBits, least significant bit first, the last
// group padded with zero bits.
template <typename DigitOf>
std::string GroupsToText(const std::uint8_t* bits, int nBits, int groupBits, DigitOf digitOf) {
  std::string text;
  for (int first = 0; first < nBits; first += groupBits) {
    int value = 0;
    for (int k = 0; k < groupBits && first + k < nBits; ++k) {
      value |= (BitAt(bits, first + k) ? 1 : 0) << k;
    }
    text += digitOf(value);
  }
  return text;
}

char Alphanum6Digit(int value) {
  if (value < 10) return static_cast<char>('0' + value);
  if (value < 36) return static_cast<char>('a' + value - 10);
  if (value < 62) return static_cast<char>('A' + value - 36);
  if (value == 62) return '(';
  if (value == 63) return ')';
  throw ChessException("Error in ToAlphanum6");
}

char Alphanum5Digit(int value) {
  if (value < 10) return static_cast<char>('0' + value);
  if (value < 32) return static_cast<char>('a' + value - 10);
  throw ChessException("Error in ToAlphanum5");
}

}  // namespace

TChessboardId::TChessboardId(const TChessboard& board) {
  const auto append = [this](int value, int count) {
    if (nBits + count > kMaxBits) throw ChessException("Exception in TChessboardId");
    for (int k = 0; k < count; ++k, ++nBits) {
      if ((value >> k) & 1) bits[nBits >> 3] |= static_cast<std::uint8_t>(1 << (nBits & 7));
    }
  };
  for (const PieceCode code : board.squares) {
    if (code == piece::kEmpty) {
      append(0, 1);
      continue;
    }
    const int shortCode = ShortCodeOf(code);
    if (shortCode == kNoShortCode) throw ChessException("Unknown figure code");
    append(1 | (shortCode << 1), 1 + kShortCodeBits);
  }
}

TChessboardId TChessboardId::FromBits(std::int16_t nBits, const std::uint8_t* bytes) {
  if (nBits < 0 || nBits > kMaxBits) throw ChessException("Wrong chessboard id");
  TChessboardId id;
  id.nBits = nBits;
  for (int i = 0; i < (nBits + 7) / 8; ++i) id.bits[i] = bytes[i];
  // Bits beyond the count stay zero so that equal identifiers compare equal.
  if ((nBits & 7) != 0) id.bits[nBits >> 3] &= static_cast<std::uint8_t>((1 << (nBits & 7)) - 1);
  return id;
}

void TChessboardId::DecodeTo(PieceCode* squares) const {
  int next = 0;
  const auto read = [this, &next](int count) {
    if (next + count > nBits) throw ChessException("Wrong chessboard id");
    int value = 0;
    for (int k = 0; k < count; ++k, ++next) value |= (BitAt(bits, next) ? 1 : 0) << k;
    return value;
  };
  for (int s = 0; s < 64; ++s) {
    if (read(1) == 0) {
      squares[s] = piece::kEmpty;
      continue;
    }
    const int shortCode = read(kShortCodeBits);
    if (shortCode >= 12) throw ChessException("Unknown figure short code");
    squares[s] = kShortCodePieces[shortCode];
  }
}

std::string TChessboardId::ToAlphanum6() const {
  return GroupsToText(bits, nBits, 6, Alphanum6Digit);
}

std::string TChessboardId::ToAlphanum5() const {
  return GroupsToText(bits, nBits, 5, Alphanum5Digit);
}

std::string TChessboardId::FileBaseName() const {
  return filename::Plain(ToAlphanum6() + "." + std::to_string(nBits));
}
