#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/TextTwins.h"

namespace fen {

namespace {

constexpr TTextTwins kMaterialWarning{
    "Uwaga: Na szachownicy jest więcej niż 9 hetmanów i pionów tego samego koloru. Program "
    "poprawnie obsługuje tylko legalne pozycje (w których możliwych jest nie więcej niż 218 "
    "ruchów); w przeciwnym razie jego zachowanie może być nieprzewidywalne.",
    "Note: There are more than 9 queens and pawns of the same color. Program is able to properly "
    "handle only legal positions (in which no more than 218 moves are possible); otherwise its "
    "behaviour may be unpredictable.",
    "Примітка: на дошці більше 9 ферзів і пішаків одного кольору. Програма правильно обробляє "
    "лише легальні позиції (у яких можливо не більше 218 ходів); інакше її поведінка може бути "
    "непередбачуваною."};

}  // namespace

const char* MaterialWarningText(int nLanguageId) {
  return PickText(nLanguageId, kMaterialWarning);
}

const char* const kCastlingNoteText =
    "Note: Program does not consider additional information about castling or en passant "
    "(problems are solved in a standard way: all available castlings are treated as possible; "
    "en passant is not possible in the first move)";

void CheckStartPosition(const TChessboard& board) {
  if (board.IsWhiteToMove()) {
    if (board.IsBlackInCheck()) {
      throw ChessException("Black king cannot be checked in the mate task starting postition.");
    }
  } else if (board.IsWhiteInCheck()) {
    throw ChessException(
        "White king cannot be checked in the mate-defence task starting postition.");
  }
}

// Beyond nine pawns and queens a side could have more moves than the move buffers hold.
bool NeedsMaterialWarning(const TChessboard& board) {
  return board.nPieces[kWhitePawns] + board.nPieces[kWhiteQueens] > 9 ||
         board.nPieces[kBlackPawns] + board.nPieces[kBlackQueens] > 9;
}

}  // namespace fen
