#include <gtest/gtest.h>

#include "HeuristicLine.h"
#include "engine/MateSearch.h"
#include "engine/TableReduction.h"
#include "registers/TableValue.h"

namespace {

using heuristictest::CLine;

// Tables of up to four pieces that know mates of up to three moves, found by the search.
class CShortMateProbe : public CTableProbe {
 public:
  std::optional<std::uint8_t> Probe(const TChessboard& board) override {
    int nPieces = 2;
    for (const std::uint8_t n : board.nPieces) nPieces += n;
    if (nPieces > 4) return std::nullopt;
    ++nHeld;
    for (std::uint8_t moves = 1; moves <= 3; ++moves) {
      TChessboard root = board;
      root.ply = root.rootPlies = static_cast<std::uint16_t>(2 * moves - 1);
      SearchContext context;
      CMateSearch search(context, root.ply);
      if (search.FindMate(root) == mate::kMate) return moves;
    }
    return tablevalue::kNoMate;
  }
  int nHeld = 0;
};

// The reduced positions judge the full one: a doubt where one of them has no mate in the
// moves left, none where they all mate in time, where none is held or the men cannot go.
TEST(TableReduction, ReducedPositionsJudgeTheFullOne) {
  const struct {
    const char* what;
    const char* fen;  // White to move
    std::uint16_t ply;
    bool bExpected;
    bool bProbed = true;
    bool bReducible = true;  // some reduction small enough for the tables
  } cases[] = {
      {"the queen mates without the pawn", "7k/p7/5K2/8/8/8/8/6Q1 w - - 0 1", 3, false},
      {"and without both pawns", "7k/pp6/5K2/8/8/8/8/6Q1 w - - 0 1", 3, false},
      {"a lone queen cannot mate in time", "8/p7/8/4k3/8/8/8/KQ6 w - - 0 1", 3, true},
      {"a knight never mates", "4k3/p7/8/8/8/8/8/1N2K3 w - - 0 1", 5, true},
      {"the pawn shields its king from the queen", "7k/8/8/8/3p4/8/8/Q1K5 w - - 0 1", 3, false,
       false},
      {"too near the end to ask", "8/p7/8/4k3/8/8/8/KQ6 w - - 0 1", 1, false, false},
      {"no men to take off", "8/8/8/4k3/8/8/8/KQ6 w - - 0 1", 3, false, false, false},
      {"too many men", "7k/8/8/8/pppp4/4p3/8/1N2K3 w - - 0 1", 5, false, false, false},
      {"a man beside its king may be a self-block", "7k/7p/5K2/8/8/8/8/6Q1 w - - 0 1", 3, false,
       false, false},
      {"castling rights", "4k3/p7/8/8/8/8/8/4K2R w K - 0 1", 3, false, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    CLine line(c.fen, static_cast<std::uint16_t>(c.ply - 1));
    CShortMateProbe tables;
    EXPECT_EQ(tablereduction::ReducedHasNoMate(line.Root(), tables), c.bExpected);
    EXPECT_EQ(tables.nHeld > 0, c.bProbed);
    EXPECT_EQ(tablereduction::MayReduce(line.Root()), c.bReducible);
  }
}

// In the search (the full position too big for the tables) the doubt names the rule, and a
// mate the reduction allows is still found.
TEST(TableReduction, SearchCutsWithTheRulesBit) {
  const auto Search = [](const char* fenText, std::uint16_t ply, std::uint32_t& reason) {
    CLine line(fenText, static_cast<std::uint16_t>(ply - 1));
    CShortMateProbe tables;
    SearchContext context;
    context.pTables = &tables;
    context.heuristics =
        THeuristicContext(heuristictest::Set(shbit::kReductionToTables), line.Root());
    CMateSearch search(context, line.Root().ply);
    const MateResult result = search.FindMate(line.Root());
    reason = context.doubtfulReason.load();
    return result;
  };
  std::uint32_t reason = 0;
  EXPECT_EQ(Search("4k3/pp6/8/8/8/8/8/1N2K3 w - - 0 1", 5, reason), mate::kDoubtful);
  EXPECT_EQ(reason, shbit::kReductionToTables);
  EXPECT_EQ(Search("7k/pp6/5K2/8/8/8/8/6Q1 w - - 0 1", 3, reason), mate::kMate);
}

}  // namespace
