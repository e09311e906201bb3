#include <cstdio>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "app/LiChessHTTP.h"
#include "app/Options.h"
#include "cli/Commands.h"
#include "core/ChessException.h"
#include "core/Fen.h"

namespace {

// The FEN as the service takes it: every field, the missing ones as for a start position with
// White to move. Refuses what the program cannot read.
std::string QueryFen(const std::vector<std::string>& arguments) {
  std::vector<std::string> fields;
  for (const std::string& argument : arguments) {
    std::istringstream words(argument);
    for (std::string word; words >> word;) fields.push_back(word);
  }
  const char* const defaults[] = {"", "w", "-", "-", "0", "1"};
  if (fields.empty() || fields.size() > 6) {
    std::cerr << "Improper FEN code\n";
    throw CommandExit{2};
  }
  std::string text = fields[0];
  for (std::size_t i = 1; i < 6; ++i) text += ' ' + (i < fields.size() ? fields[i] : defaults[i]);
  TChessboard board;
  ClearChessboard(board);
  try {
    if (fen::ReadFen(board, text)) return text;
  } catch (const ChessException& e) {
    std::cerr << e.what() << "\n";
    throw CommandExit{2};
  }
  std::cerr << "Improper FEN code\n";
  throw CommandExit{2};
}

std::string DtmText(int dtm) {
  return dtm == lichess::kNoDtm ? "none" : std::to_string(dtm);
}

std::string DtzText(std::uint8_t dtz) {
  return dtz == lichess::kNoDtz ? "none" : std::to_string(dtz);
}

void PrintAnswer(const CLiChess& answer) {
  std::printf("value: %s\ndtm: %s\ndtz: %s\n", CLiChess::ValueText(answer.value),
              DtmText(answer.dtm).c_str(), DtzText(answer.dtz).c_str());
  if (answer.nMoves == lichess::kMalformedMoves) {
    std::printf("moves: malformed list\n");
    return;
  }
  // Each move's value is the opponent's after it: "loss" marks a winning move.
  std::printf("moves: %d (value for the side to move next)\n", answer.nMoves);
  for (const CLiChessMove& move : answer.moves)
    std::printf("  %-6s %-7s dtm %-5s dtz %s\n", CLiChess::MoveText(move).c_str(),
                CLiChess::ValueText(move.value), DtmText(move.dtm).c_str(),
                DtzText(move.dtz).c_str());
}

}  // namespace

// "longmate tablebase FEN": asks the online tablebase about one position.
void AddTablebaseCommand(CLI::App& app) {
  CLI::App* command =
      app.add_subcommand("tablebase", "Ask the online tablebase (up to 7 pieces) about a position");
  auto fields = std::make_shared<std::vector<std::string>>();
  auto bShowPage = std::make_shared<bool>(false);
  command->add_option("fen", *fields, "the FEN (quoted, or its fields as separate arguments)")
      ->required();
  command->add_flag("--page", *bShowPage, "print the service's answer as received");
  command->callback([fields, bShowPage] {
    const std::string fen = QueryFen(*fields);
    for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
    CLiChessHTTP service(LiChessSettingsFromOptions(Options()));
    TLiChessPage page;
    const CLiChess answer = service.Query(fen, &page);
    if (*bShowPage) std::printf("%s\n", page.body.c_str());
    PrintAnswer(answer);
    if (!page.Succeeded()) {
      std::cerr << service.Address(CLiChessHTTP::QueryPath(fen)) << ": " << page.sError << "\n";
      throw CommandExit{1};
    }
  });
}
