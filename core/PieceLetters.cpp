#include "core/PieceLetters.h"

#include <array>
#include <cctype>
#include <stdexcept>
#include <string>
#include <string_view>

namespace letters {
namespace {

// Both tables cover every byte value, so a lookup can never fail or read out of range.
constexpr std::array<PieceCode, 256> MakeLetterTable() {
  std::array<PieceCode, 256> table{};
  const char upper[] = "KPBRQN";
  const PieceCode types[] = {piece::kKing, piece::kPawn,  piece::kBishop,
                             piece::kRook, piece::kQueen, piece::kKnight};
  for (int i = 0; i < 6; ++i) {
    table[static_cast<unsigned char>(upper[i])] = piece::kWhite | types[i];
    table[static_cast<unsigned char>(upper[i] - 'A' + 'a')] = piece::kBlack | types[i];
  }
  return table;
}

constexpr char UpperLetterOfType(int type) {
  switch (type) {
    case piece::kKing:
      return 'K';
    case piece::kPawn:
      return 'P';
    case piece::kBishop:
      return 'B';
    case piece::kRook:
      return 'R';
    case piece::kQueen:
      return 'Q';
    case piece::kKnight:
      return 'N';
    default:
      return 'E';
  }
}

constexpr std::array<char, 256> MakePieceLetterTable() {
  std::array<char, 256> table{};
  for (int code = 0; code < 256; ++code) {
    const char upper = UpperLetterOfType(code & 63);
    table[code] = code >= 0x80 ? static_cast<char>(upper - 'A' + 'a') : upper;
  }
  return table;
}

constexpr std::array<PieceCode, 256> kLetterToPiece = MakeLetterTable();
constexpr std::array<char, 256> kPieceToLetter = MakePieceLetterTable();

}  // namespace

PieceCode LetterToPiece(unsigned char letter) {
  return kLetterToPiece[letter];
}

char PieceToLetter(PieceCode code) {
  return kPieceToLetter[code];
}

PieceCode FindTypeOfMoveLetter(char letter) {
  // English letters, then the Polish ones: G bishop, H queen, S knight, W rook.
  constexpr std::string_view kLetters = "KQRBNPHWGS";
  constexpr PieceCode kTypes[] = {piece::kKing,   piece::kQueen, piece::kRook,  piece::kBishop,
                                  piece::kKnight, piece::kPawn,  piece::kQueen, piece::kRook,
                                  piece::kBishop, piece::kKnight};
  const size_t i =
      kLetters.find(static_cast<char>(std::toupper(static_cast<unsigned char>(letter))));
  return i == std::string_view::npos ? piece::kEmpty : kTypes[i];
}

PieceCode TypeFromMoveLetter(char letter) {
  const PieceCode type = FindTypeOfMoveLetter(letter);
  if (type == piece::kEmpty)
    throw std::runtime_error(std::string("Unknown figure letter: ") + letter);
  return type;
}

char TypeToLetter(PieceCode type) {
  return UpperLetterOfType(type & piece::kTypeMask);
}

int PieceToColumn(PieceCode code) {
  if (code == piece::kEmpty) return -1;
  switch (piece::TypeOf(code)) {
    case piece::kKing:
      return 0;
    case piece::kQueen:
      return 1;
    case piece::kRook:
      return 2;
    case piece::kBishop:
      return 3;
    case piece::kKnight:
      return 4;
    case piece::kPawn:
      return 5;
    default:
      throw std::runtime_error("Unknown figure code passed to PieceToColumn.");
  }
}

PieceCode ColumnToPiece(int column) {
  static constexpr PieceCode kColumns[7] = {piece::kKing,   piece::kQueen,  piece::kRook,
                                            piece::kBishop, piece::kKnight, piece::kPawn,
                                            piece::kPawn};
  if (column < 0 || column > 6) throw std::runtime_error("Cannot convert column to piece.");
  return kColumns[column];
}

}  // namespace letters
