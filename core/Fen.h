#pragma once
#include <cstdint>
#include <string>

#include "core/Chessboard.h"

// FEN in and out. Only the placement fills the board; castling and en passant
// fields are reported, never used: every castling with king and rook at home is
// available, and en passant is never possible on the first move.
namespace fen {

struct TFenExtras {
  std::uint8_t castlingRights = 0;  // castling::kWhiteShort ... for the letters K, Q, k, q found
  bool bEnPassantGiven = false;
  bool bBlackToMove = false;  // the side-to-move field said 'b' (only tools such as perft use it)
};

// Fills the 64 squares from the placement field and runs Analyse with reset.
// False on malformed text (squares may then be partly overwritten: read into a scratch board).
// Analyse's ChessExceptions pass through.
bool ReadFen(TChessboard& board, const std::string& text, TFenExtras* extras = nullptr);
// Placement field only.
std::string WriteShortFen(const TChessboard& board);
// All six fields: side to move from the ply parity, castling from the home-square rule,
// en passant '-' (or the square when the last move in the line was a capturable double step).
std::string WriteFullFen(const TChessboard& board);

// Whether the castling and en passant fields read say something other than the
// program assumes for the position as a problem's start (see kCastlingNoteText).
bool ExtrasDifferFromAssumed(const TChessboard& board, const TFenExtras& extras);
// Whether the end of a line, taken as a start position of its own, would be judged
// otherwise: a castling the line has lost while king and rook stand at home, or an en passant
// capture the line allows now (a start position never has one).
bool LineEndDiffersAlone(const TChessboard& lineEnd);

// Throws ChessException when the side not to move is in check.
void CheckStartPosition(const TChessboard& board);
// More than 9 pawns plus queens of one colour.
bool NeedsMaterialWarning(const TChessboard& board);
// Its text in the interface language (0 Polish, 2 Ukrainian, else English).
const char* MaterialWarningText(int nLanguageId);
extern const char* const kCastlingNoteText;

}  // namespace fen
