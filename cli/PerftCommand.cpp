#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "core/Notation.h"
#include "core/Perft.h"

namespace {

struct TPerftArguments {
  std::string fen;
  int depth = 1;
  bool bDivide = false;
};

void RunPerft(const TPerftArguments& args) {
  const perft::CPerftPosition position(args.fen, args.depth);
  if (!args.bDivide) {
    std::cout << perft::Perft(position.Root(), args.depth) << "\n";
    return;
  }
  std::uint64_t total = 0;
  for (const auto& [move, nodes] : perft::Divide(position.Root(), args.depth)) {
    std::cout << notation::MoveToText(position.Root(), move) << ": " << nodes << "\n";
    total += nodes;
  }
  std::cout << "Total: " << total << "\n";
}

}  // namespace

void AddPerftCommand(CLI::App& app) {
  auto args = std::make_shared<TPerftArguments>();
  CLI::App* command = app.add_subcommand("perft", "Count the positions reachable in DEPTH plies");
  command->add_option("FEN", args->fen, "Position (the side to move is the FEN's own field)")
      ->required();
  command->add_option("DEPTH", args->depth, "Depth in plies")->required()->check(CLI::Range(1, 12));
  command->add_flag("--divide", args->bDivide, "Print the count under each first move");
  command->callback([args] { RunPerft(*args); });
}
