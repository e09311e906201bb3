#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "core/ChessException.h"
#include "core/ChessboardId.h"
#include "core/Fen.h"
#include "core/PieceLetters.h"
#include "core/TextTwins.h"

namespace {

std::string Diagram(const TChessboard& board) {
  std::string text;
  for (int rank = 7; rank >= 0; --rank) {
    text += static_cast<char>('1' + rank);
    text += ' ';
    for (int file = 0; file < 8; ++file) {
      const PieceCode code = board.squares[square::Make(file, rank)];
      text += ' ';
      text += code == piece::kEmpty ? '.' : letters::PieceToLetter(code);
    }
    text += '\n';
  }
  return text + "   a b c d e f g h\n";
}

void ShowFen(const std::string& text) {
  TChessboard board;
  ClearChessboard(board);
  fen::TFenExtras extras;
  try {
    if (!fen::ReadFen(board, text, &extras)) {
      std::cerr << "Improper FEN code\n";
      throw CommandExit{2};
    }
    // The FEN's side to move stands in for a stipulation: one half-move for White, two for Black.
    board.ply = board.rootPlies = extras.bBlackToMove ? 2 : 1;
    fen::CheckStartPosition(board);
  } catch (const ChessException& e) {
    std::cerr << e.what() << "\n";
    throw CommandExit{2};
  }
  std::cout << Diagram(board) << (board.IsWhiteToMove() ? "White" : "Black") << " to move\n"
            << "Short FEN: " << fen::WriteShortFen(board) << "\n"
            << "Full FEN: " << fen::WriteFullFen(board) << "\n"
            << "Identifier: " << TChessboardId(board).ToAlphanum6() << "\n";
  if (fen::NeedsMaterialWarning(board))
    std::cout << fen::MaterialWarningText(kEnglishLanguageId) << "\n";
  if (fen::ExtrasDifferFromAssumed(board, extras)) std::cout << fen::kCastlingNoteText << "\n";
}

}  // namespace

// "longmate fen FEN": validates a position and shows how the program reads it.
void AddFenCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand(
      "fen", "Check a FEN position and show its diagram, FEN texts and identifier");
  auto fields = std::make_shared<std::vector<std::string>>();
  command->add_option("fen", *fields, "the FEN (quoted, or its fields as separate arguments)")
      ->required();
  command->callback([fields] {
    std::string text;
    for (const std::string& field : *fields) text += (text.empty() ? "" : " ") + field;
    ShowFen(text);
  });
}
