#include <gtest/gtest.h>

#include <map>
#include <string>

#include "TestData.h"
#include "core/Fen.h"
#include "engine/PositionPattern.h"

namespace {

TChessboard Board(const std::string& fenText) {
  TChessboard board;
  ClearChessboard(board);
  EXPECT_TRUE(fen::ReadFen(board, fenText)) << fenText;
  return board;
}

// What the recognition counts, on positions small enough to count by hand.
TEST(PositionPattern, MeasuresTheBlackKingAndItsMen) {
  // Black king a1 behind its pawns a2 and b2, b1 covered by the bishop: no flight; the
  // knight h8 has two moves, the rook h1 many.
  const TPositionFeatures shut =
      positionpattern::Measure(Board("7n/8/8/8/8/8/ppK5/k4B1r w - - 0 1"));
  EXPECT_EQ(shut.nKingRing, 0);
  EXPECT_EQ(shut.nOwnBesideKing, 2);
  EXPECT_EQ(shut.nPawnsBesideKing, 2);
  EXPECT_EQ(shut.nKingFlights, 0);
  EXPECT_EQ(shut.nBlackOfficers, 2);
  EXPECT_EQ(shut.nStuckOfficers, 1);
  EXPECT_EQ(shut.nMen, 7);
  EXPECT_EQ(shut.nBlackMen, 4);
  EXPECT_EQ(shut.nWhiteMinors, 1);
  // A king in the middle with every square free, a column of five pawns.
  const TPositionFeatures open =
      positionpattern::Measure(Board("8/3p4/3p4/3p4/3pk3/3p4/8/K7 w - - 0 1"));
  EXPECT_EQ(open.nKingRing, 3);
  EXPECT_EQ(open.nKingFlights, 5);
  EXPECT_EQ(open.nLongestPawnFile, 5);
}

// The long problems of the reference set, each with the type its restrictions are chosen for,
// and a few positions of no particular type.
TEST(PositionPattern, RecognisesTheTypesOfTheLongProblems) {
  using enum EPositionPattern;
  const std::map<std::string, EPositionPattern> expected = {{"mt-04448", kKingShutInByPawns},
                                                            {"mt-04753", kKingShutInByPawns},
                                                            {"mt-05135", kKingShutInByPawns},
                                                            {"mt-05273", kKingShutInByPawns},
                                                            {"mt-05450", kBlockedBlackPieces},
                                                            {"mt-05235", kBlockedBlackPieces},
                                                            {"mt-05980", kLoneQueen},
                                                            {"mt-06005", kLoneQueen},
                                                            {"mt-06179", kLoneQueen},
                                                            {"mt-06327", kLoneQueen},
                                                            {"mt-06432", kLoneQueen},
                                                            {"mt-03945", kMinorMiniature},
                                                            {"mt-04408", kMinorMiniature},
                                                            {"mt-04560", kMinorMiniature},
                                                            {"mt-06366", kMinorMiniature},
                                                            {"mt-04312", kKingOnEdge},
                                                            {"mt-04595", kKingOnEdge},
                                                            {"mt-04991", kKingOnEdge},
                                                            {"mt-05345", kKingOnEdge},
                                                            {"mt-05457", kKingOnEdge},
                                                            {"mt-06419", kSeaSnake}};
  int nFound = 0;
  for (const auto& row : testdata::ReadTsv("moremovers.tsv")) {
    const auto it = expected.find(row.at("id"));
    if (it == expected.end()) continue;
    EXPECT_EQ(positionpattern::Detect(Board(row.at("fen"))), it->second) << row.at("id");
    ++nFound;
  }
  EXPECT_EQ(nFound, static_cast<int>(expected.size()));
  const struct {
    const char* fen;
    EPositionPattern pattern;
  } made[] = {{"8/8/8/3k4/8/8/8/K6R w - - 0 1", kGeneral},
              {"7k/8/8/8/8/8/8/K6R w - - 0 1", kKingOnEdge},
              {"8/8/8/3k4/8/8/8/KQ6 w - - 0 1", kGeneral},
              {"8/8/4n3/3k4/8/8/8/KB6 w - - 0 1", kGeneral}};
  for (const auto& c : made) EXPECT_EQ(positionpattern::Detect(Board(c.fen)), c.pattern) << c.fen;
}

}  // namespace
