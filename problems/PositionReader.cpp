#include "problems/PositionReader.h"

#include <string>

#include "core/Fen.h"
#include "core/PieceLetters.h"
#include "core/TextTwins.h"
#include "problems/ProblemFileError.h"
#include "problems/TextTools.h"

namespace positionreader {
namespace {

void ExpectColon(CLexer& lexer, const char* error) {
  const TToken token = lexer.NextRequired();
  if (!token.IsSymbol(':')) FailAt(token.offset, error);
}

constexpr TTextTwins kInvalidBoard{
    "Niepoprawny opis szachownicy: ", "Invalid chessboard definition: ",
    "Неправильний опис шахівниці: "};

[[noreturn]] void FailInvalidBoard(std::size_t offset, const std::exception& e, int nLanguageId) {
  FailAt(offset, PickText(nLanguageId, kInvalidBoard) + std::string(e.what()));
}

void ReadFen(CLexer& lexer, TChessboard& board, int nLanguageId) {
  ExpectColon(lexer, "Colon ':' expected after FEN identifier.");
  const std::string_view trimmed = text::Trim(lexer.RestOfCodeLine());
  const std::size_t offset = static_cast<std::size_t>(trimmed.data() - lexer.Source().data());
  const std::string fenText(trimmed);
  bool bRead = false;
  try {
    bRead = fen::ReadFen(board, fenText);
  } catch (const ChessException& e) {
    FailInvalidBoard(offset, e, nLanguageId);
  }
  if (!bRead) FailAt(offset, "Improper FEN code");
}

// "Ke1, Qd1, e2": the pieces of one side, colour from the side, letters in either case.
void ReadPieces(CLexer& lexer, TChessboard& board, bool bWhite) {
  const std::string side = bWhite ? "White" : "Black";
  const PieceCode colour = bWhite ? piece::kWhite : piece::kBlack;
  do {
    const TToken token = lexer.NextWord();
    const std::string_view pieceText = token.text;
    if (pieceText.size() != 2 && pieceText.size() != 3) {
      FailAt(token.offset, side + " figure specification is invalid: " + std::string(pieceText));
    }
    const PieceCode type =
        pieceText.size() == 2 ? piece::kPawn : letters::FindTypeOfMoveLetter(pieceText[0]);
    if (type == piece::kEmpty) {
      FailAt(token.offset, side + " figure specification is invalid: " + std::string(pieceText));
    }
    const std::string_view squareText = pieceText.substr(pieceText.size() - 2);
    const SquareIndex s = text::ReadSquare(squareText[0], squareText[1]);
    if (s == square::kNone) {
      FailAt(token.offset, side + " figure position is invalid: " + std::string(pieceText));
    }
    if (board.squares[s] != piece::kEmpty) {
      FailAt(token.offset, "Field " + text::SquareText(s) + " already occupied.");
    }
    board.squares[s] = colour | type;
  } while (lexer.Accept(','));
}

void ReadPieceLists(CLexer& lexer, TChessboard& board, int nLanguageId) {
  ExpectColon(lexer, "Colon ':' expected after white figures identifier.");
  ReadPieces(lexer, board, true);
  const TToken black = lexer.NextRequired();
  if (!black.IsWord({"B", "BL", "BLACK"})) {
    FailAt(black.offset, "Black figures identifier expected (B, BL or BLACK).");
  }
  ExpectColon(lexer, "Colon expected after black figures identifier.");
  ReadPieces(lexer, board, false);
  try {
    Analyse(board, true);
  } catch (const ChessException& e) {
    FailInvalidBoard(black.offset, e, nLanguageId);
  }
}

}  // namespace

void Read(CLexer& lexer, TProblem& problem, int nLanguageId) {
  TChessboard board;
  ClearChessboard(board);
  const TToken token = lexer.NextRequired();
  if (token.IsWord({"FEN"})) {
    ReadFen(lexer, board, nLanguageId);
  } else if (token.IsWord({"W", "WH", "WHITE"})) {
    ReadPieceLists(lexer, board, nLanguageId);
  } else {
    FailAt(token.offset, "White figures identifier expected (W, WH or WHITE).");
  }
  problem.start = board;
  problem.ResetLine();
}

}  // namespace positionreader
