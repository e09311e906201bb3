#include <gtest/gtest.h>

#include <memory>

#include "app/MainVariantCheck.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "engine/BestDefence.h"
#include "problems/Collection.h"
#include "problems/MainVariant.h"
#include "registers/ChessboardRegister.h"

namespace {

// 1.Kc6-b6 leaves Black the single reply Ka8-b8, which only Rh1-h8 mates.
constexpr const char* kForcedFen = "k7/8/2K5/8/8/8/8/7R";
// Loyd's mate in 2, key Qh5-a5: Black has many defences.
constexpr const char* kLoydFen = "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8";

// A collection of one problem, number 1.
std::unique_ptr<TProblemCollection> ReadProblem(const std::string& options,
                                                const std::string& variant, const char* fen) {
  const std::string text = "UTF-8\n\n1 #2" + options + "\n//!VARIANTS\n//!" + variant +
                           "\n//!ENDVARIANTS\n{\n\tFEN: " + fen + "\n}\n";
  auto collection = std::make_unique<TProblemCollection>();
  const auto error = collection->ReadText(text, "check.cp");
  EXPECT_FALSE(error.has_value()) << error->Describe();
  return collection;
}

// Black's best defence after Loyd's key, and another legal defence.
std::pair<std::string, std::string> LoydDefences() {
  const TVariantStep key =
      MainVariantSteps(*ReadProblem("", "1.Qh5-a5", kLoydFen)->Find(1)).front();
  TChessboard position;
  EXPECT_TRUE(movemaking::MakeSuccessor(key.before, key.move, position));
  position.parent = nullptr;
  TChessboardRegister<bool> reg(100'000);
  SearchContext context;
  context.pRegister = &reg;
  const TMove best = FindBestDefence(position, context).move;
  for (const TMove other : movemaking::LegalMoves(position))
    if (!other.SameMove(best))
      return {notation::MoveToText(position, best), notation::MoveToText(position, other)};
  ADD_FAILURE() << "Black has one defence only";
  return {};
}

TEST(MainVariantCheck, BestDefenceAndAuxiliaryMates) {
  const auto [best, other] = LoydDefences();
  const struct {
    const char* name;
    std::string options, variant;
    const char* fen;
    std::optional<std::string> failure;
  } cases[] = {
      {"no check asked", "", "1.Kc6-b6 Ka8-b8 2.Rh1-h7", kForcedFen, std::nullopt},
      {"variant holds", " GUICHECK", "1.Kc6-b6 Ka8-b8 2.Rh1-h8#", kForcedFen, std::nullopt},
      {"White's later move does not mate", " GUICHECK", "1.Kc6-b6 Ka8-b8 2.Rh1-h7", kForcedFen,
       "Error in auxMate:\n\nexpected Rh1-h7\nfound Rh1-h8"},
      {"best defence only: later White moves unchecked", " GUICHECKBESTDEFENCE",
       "1.Kc6-b6 Ka8-b8 2.Rh1-h7", kForcedFen, std::nullopt},
      {"Black's move is not the best defence", " GUICHECKBESTDEFENCE", "1.Qh5-a5 " + other,
       kLoydFen, "Error in best defence:\n\nexpected " + other + "\nfound " + best},
      {"Black's move is the best defence", " GUICHECKBESTDEFENCE", "1.Qh5-a5 " + best, kLoydFen,
       std::nullopt},
  };
  for (const auto& c : cases)
    EXPECT_EQ(MainVariantCheckFailure(*ReadProblem(c.options, c.variant, c.fen)->Find(1)),
              c.failure)
        << c.name;
}

}  // namespace
