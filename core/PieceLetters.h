#pragma once
#include "core/PieceCode.h"

// Static conversions between piece codes and letters. Table lookups never fail;
// the colourless move-letter and palette-column conversions throw std::runtime_error.
namespace letters {

// 'K','P','B','R','Q','N' to the white codes, lower case to the black ones, anything else 0.
PieceCode LetterToPiece(unsigned char letter);
// Upper-case letter for white codes ('E' for anything unknown), lower case for codes >= 0x80 ('e').
char PieceToLetter(PieceCode code);
// English K Q R B N P or Polish K H W G S P in either case to a type (1..16);
// other letters throw "Unknown figure letter: " followed by the letter.
PieceCode TypeFromMoveLetter(char letter);
// The same conversion for readers that refuse silently: 0 for any other letter.
PieceCode FindTypeOfMoveLetter(char letter);
// Capital English letter of a type as moves print it ('E' when unknown).
char TypeToLetter(PieceCode type);

// Palette of the board editor: king, queen, rook, bishop, knight, pawn, pawn.
// An empty square gives -1; the column gives the colourless type.
int PieceToColumn(PieceCode code);
PieceCode ColumnToPiece(int column);

}  // namespace letters
