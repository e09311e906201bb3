// The variants block of a problem: the first line is a FEN, the others variant lines. The main
// variant is played from the position as far as its moves are legal, each step in order.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/ChessException.h"
#include "core/Fen.h"
#include "problems/MainVariant.h"
#include "problems/Problem.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t lineEnd = input.find('\n');
  if (lineEnd == std::string_view::npos) return 0;
  TProblem problem;
  ClearChessboard(problem.start);
  try {
    if (!fen::ReadFen(problem.start, std::string(input.substr(0, lineEnd)))) return 0;
  } catch (const ChessException&) {
    return 0;
  }
  problem.SetStipulation(TStipulation::DirectMate(3));
  input.remove_prefix(lineEnd + 1);
  while (!input.empty()) {
    const std::size_t end = input.find('\n');
    problem.variants.emplace_back(input.substr(0, end));
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  }
  try {
    const auto steps = MainVariantSteps(problem);
    if (steps.size() > problem.start.ply) std::abort();
  } catch (const ChessException&) {
  }
  return 0;
}
