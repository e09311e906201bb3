#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ReadHelpers.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "problems/ProblemTransforms.h"

namespace {

using problemtest::ReadOne;
using transforms::ETransform;

// Every part of a problem that names squares.
const std::string kProblem =
    "1 #2\n"
    "//!VARIANTS\n//!1.Ra1-a7 Ke8-f8 2.Ra7-a8#\n//!1...0-0 a12\n//!ENDVARIANTS\n"
    "//@SortIndications: 1. Ra1:a7+, ~Kh5\n"
    "{\n\tDescription: Test\n\tFEN: 4k3/8/8/8/8/8/8/R3K3\n\tAnswer: Ra1-a7\n"
    "\tSWM: Ke1-d2\n}\n";

struct TTransformCase {
  ETransform transform;
  const char* fen;
  const char* answer;
  const char* firstVariant;
  const char* sortIndications;
  const char* description;
  std::vector<std::string> notes;
};

TEST(ProblemTransforms, MoveEverySquareAndMarkTheDescription) {
  const std::string kVariantsNote =
      "Some variants that position contains were not rotated properly (castling)";
  const TTransformCase cases[] = {
      {ETransform::kMirrorFiles,
       "3k4/8/8/8/8/8/8/3K3R",
       "Rh1-h7",
       "1.Rh1-h7 Kd8-c8 2.Rh7-h8#",
       "~Ka5, 1. Rh1:h7+",
       "Test",
       {"Note: in the mirror position possibilities of castling are changed", kVariantsNote}},
      {ETransform::kSwapColours,
       "r3k3/8/8/8/8/8/8/4K3",
       "Ra8-a2",
       "1.Ra8-a2 Ke1-f1 2.Ra2-a1#",
       "~Kh4, 1. Ra8:a2+",
       "B&Wh.swapped: Test",
       {}},
      {ETransform::kRotate180,
       "3K3R/8/8/8/8/8/8/3k4",
       "Rh8-h2",
       "1.Rh8-h2 Kd1-c1 2.Rh2-h1#",
       "~Ka4, 1. Rh8:h2+",
       "Rotated Test",
       {kVariantsNote}},
      {ETransform::kRotate90,
       "R7/8/8/8/K6k/8/8/8",
       "Ra8-g8",
       "1.Ra8-g8 Kh4-h3 2.Rg8-h8#",
       "~Ke1, 1. Ra8:g8+",
       "Rotated 90Test",
       {kVariantsNote}},
  };
  for (const TTransformCase& c : cases) {
    TProblemCollection collection;
    TProblem& p = const_cast<TProblem&>(ReadOne(collection, kProblem));
    EXPECT_EQ(problemtransforms::Apply(c.transform, p, kEnglishLanguageId), c.notes);
    EXPECT_EQ(fen::WriteShortFen(p.start), c.fen);
    const std::string text = collection.WriteText();
    EXPECT_NE(text.find(std::string("\tAnswer:  ") + c.answer + "\n"), std::string::npos) << text;
    EXPECT_EQ(p.variants.at(0), c.firstVariant);
    EXPECT_EQ(sortindication::RenderList(p.sortIndications), c.sortIndications);
    EXPECT_EQ(p.description, c.description);
  }
}

TEST(ProblemTransforms, TwiceOrFourQuarterTurnsGiveBackTheProblem) {
  for (const ETransform transform : transforms::kTransforms) {
    TProblemCollection original, turned;
    ReadOne(original, kProblem);
    TProblem& p = const_cast<TProblem&>(ReadOne(turned, kProblem));
    for (int i = 0; i < transforms::Period(transform); ++i)
      problemtransforms::Apply(transform, p, 0);
    p.description = "Test";
    EXPECT_EQ(turned.WriteText(), original.WriteText());
  }
}

TEST(ProblemTransforms, ARefusedTurnLeavesTheProblemAsItWas) {
  TProblemCollection collection;
  TProblem& p = const_cast<TProblem&>(
      ReadOne(collection, "1 #2 {\n\tFEN: 4k3/8/8/8/8/8/P7/4K3\n\tAnswer: a2-a4\n}\n"));
  const std::string before = collection.WriteText();
  EXPECT_THROW(problemtransforms::Apply(ETransform::kRotate90, p, 1), ChessException);
  EXPECT_EQ(collection.WriteText(), before);
}

TEST(ProblemTransforms, TheEndOfALineTakenAloneIsComparedWithTheLine) {
  const std::string kDiffers =
      "Current position treated independently can be interpreted in another way than the "
      "original/starting position (castling and/or en-passant issues)";
  const struct {
    const char* fen;
    const char* moves;
    const char* start;  // the new start position
    bool bDiffers;
  } cases[] = {
      {"r3k2r/8/8/8/8/8/8/R3K2R", "1. Ke1-f1 Ke8-d8 2. Kf1-e1 Kd8-e8", "r3k2r/8/8/8/8/8/8/R3K2R",
       true},  // the kings came back: no castling in the line, castling alone
      {"r3k2r/8/8/8/8/8/8/R3K2R", "1. Ke1-f1", "r3k2r/8/8/8/8/8/8/R4K1R", false},
      {"4k3/3p4/8/4P3/8/8/8/4K3", "1. Ke1-e2 d7-d5", "4k3/8/8/3pP3/8/8/4K3/8", true},
      {"4k3/3p4/8/8/8/8/8/4K3", "1. Ke1-e2 d7-d5", "4k3/8/8/3p4/8/8/4K3/8", false},
  };
  for (const auto& c : cases) {
    TProblemCollection collection;
    TProblem& p = const_cast<TProblem&>(ReadOne(
        collection, std::string("1 {\n\tFEN: ") + c.fen + "\n\tMoves: " + c.moves + "\n}\n"));
    const std::vector<std::string> notes = problemtransforms::StartFromCurrent(p, 1);
    EXPECT_EQ(notes, c.bDiffers ? std::vector<std::string>{kDiffers} : std::vector<std::string>{})
        << c.moves;
    EXPECT_EQ(fen::WriteShortFen(p.start), c.start);
    EXPECT_EQ(p.current, &p.start);
  }
}

}  // namespace
