#include <algorithm>
#include <cctype>
#include <string_view>

#include "core/Blanks.h"
#include "core/CastlingRule.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/PieceLetters.h"

namespace fen {
namespace {

// Ranks from 8 down to 1, files a to h; every rank must fill exactly eight files.
bool ReadPlacement(PieceCode* squares, std::string_view placement) {
  std::fill(squares, squares + 64, piece::kEmpty);
  int rank = 7;
  int file = 0;
  for (const char c : placement) {
    if (c == '/') {
      if (file != 8 || rank == 0) return false;
      --rank;
      file = 0;
    } else if (c >= '1' && c <= '8') {
      file += c - '0';
      if (file > 8) return false;
    } else {
      const PieceCode type = letters::FindTypeOfMoveLetter(c);
      if (type == piece::kEmpty || file == 8) return false;
      const PieceCode colour =
          std::isupper(static_cast<unsigned char>(c)) ? piece::kWhite : piece::kBlack;
      squares[square::Make(file, rank)] = colour | type;
      ++file;
    }
  }
  return rank == 0 && file == 8;
}

// The fields behind the placement only tell what the text claims; they never set up the board.
TFenExtras ReadExtras(std::string_view rest) {
  TFenExtras extras;
  int field = 0;
  size_t pos = 0;
  while ((pos = text::SkipBlanks(rest, pos)) < rest.size()) {
    const size_t end = text::SkipWord(rest, pos);
    const std::string_view text = rest.substr(pos, end - pos);
    if (field == 0) extras.bBlackToMove = text == "b";
    if (field == 2) extras.bEnPassantGiven = text != "-";
    for (const char c : text)
      for (const TCastlingRule& rule : castling::kRules)
        if (c == rule.fenLetter) extras.castlingRights |= rule.right;
    ++field;
    pos = end;
  }
  return extras;
}

}  // namespace

bool ReadFen(TChessboard& board, const std::string& text, TFenExtras* extras) {
  // Fields are separated by any blank, the no-break space and line ends included: FEN texts
  // often come straight from a file line or a pasted text.
  std::string_view rest(text);
  rest.remove_prefix(text::SkipBlanks(rest, 0));
  const size_t blank = text::SkipWord(rest, 0);
  if (!ReadPlacement(board.squares, rest.substr(0, blank))) return false;
  if (extras != nullptr) *extras = ReadExtras(rest.substr(blank));
  Analyse(board, true);
  return true;
}

bool ExtrasDifferFromAssumed(const TChessboard& board, const TFenExtras& extras) {
  return extras.bEnPassantGiven || extras.castlingRights != movegen::CastlingRights(board);
}

bool LineEndDiffersAlone(const TChessboard& lineEnd) {
  TFenExtras fromLine;
  fromLine.castlingRights = movegen::CastlingRights(lineEnd);
  fromLine.bEnPassantGiven = movegen::EnPassantTarget(lineEnd) != square::kNone;
  TChessboard alone = lineEnd;
  alone.parent = nullptr;
  return ExtrasDifferFromAssumed(alone, fromLine);
}

}  // namespace fen
