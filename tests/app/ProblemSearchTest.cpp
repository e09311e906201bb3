#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "TempFolder.h"
#include "app/FenScan.h"
#include "app/PositionSimilarity.h"
#include "app/ProblemSearch.h"
#include "app/SearchReport.h"
#include "core/ChessboardId.h"
#include "problems/HeuristicCatalogue.h"

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

// Problem 1: Kb1 Rh1 Pa2 b2 against Ka8 Pa7 (black king in the corner, 6 pieces).
// Problem 2: a full-ish middle game (black king in the middle).
// Problem 3: K+Q+R+R against K+N, the black king on the h-file.
// Problem 4: a selfmate; 5: a move line without stipulation.
const char* const kCollection = R"(UTF-8

1 #3 SAFEMODE SH_KEEPKINGONTHEEDGE(STRICT)
//#TAGS
//#Loyd
//#miniature
{
	Description: Sam Loyd, Le Sphinx 1859
	FEN: k7/p7/8/8/8/8/PP6/1K5R
	Answer: h1-h8
}

2 #12 SH_KEEPKINGONTHEEDGE(STRICT) SH_SWEEPINGWHITEROOK(2)
{
	Description: Long study of the middle king
	FEN: r3k2r/pppq1ppp/2n2n2/3p4/3P4/2N2N2/PPPQ1PPP/R3K2R
}

3 #5 SH_SWEEPINGWHITEROOK OFF
//#TAGS
//#loyd
{
	Description: rooks and queen, no pawns
	FEN: 7k/8/5n2/8/8/8/8/QRRK4
	Answer: b1-b8
}

4 s#2
{
	Description: a selfmate by LOYD
	FEN: 7k/8/8/8/8/8/8/K5Q1
}

5
{
	FEN: 7k/8/8/8/8/8/8/K5Q1
	Moves: 1. Qg1-g2 Kh8-h7
}
)";

class ProblemSearchTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_FALSE(collection.ReadText(kCollection, "search.cp")); }

  std::variant<TSearchQuery, std::string> Check(const TSearchCriteria& criteria) const {
    return CheckCriteria(criteria);
  }
  std::vector<int> Ids(const TSearchResult& result) const {
    std::vector<int> ids;
    for (const TSearchHit& hit : result.hits) ids.push_back(hit.pProblem->id);
    return ids;
  }
  TSearchResult Search(const TSearchCriteria& criteria) const {
    const auto checked = CheckCriteria(criteria);
    EXPECT_TRUE(std::holds_alternative<TSearchQuery>(checked)) << std::get<std::string>(checked);
    return CProblemSearch(std::get<TSearchQuery>(checked)).Run(collection);
  }

  TProblemCollection collection;
};

int HeuristicIndex(const char* name) {
  return heuristics::IndexOfName(name);
}

TEST_F(ProblemSearchTest, EachCriterionAlone) {
  const auto Criteria = [](auto fill) {
    TSearchCriteria criteria;
    fill(criteria);
    return criteria;
  };
  const struct {
    const char* szName;
    TSearchCriteria criteria;
    std::vector<int> ids;
  } cases[] = {
      {"nothing asked", {}, {1, 2, 3, 4, 5}},
      {"text, any case", Criteria([](auto& c) { c.text = "loyd"; }), {1, 4}},
      {"text, case",
       Criteria([](auto& c) {
         c.text = "LOYD";
         c.bCaseSensitive = true;
       }),
       {4}},
      {"regex",
       Criteria([](auto& c) {
         c.text = "^(sam|long)\\b";
         c.bRegex = true;
       }),
       {1, 2}},
      {"regex, case",
       Criteria([](auto& c) {
         c.text = "^Sam";
         c.bRegex = true;
         c.bCaseSensitive = true;
       }),
       {1}},
      {"text as FEN, full",
       Criteria([](auto& c) { c.text = "7k/8/5n2/8/8/8/8/QRRK4 w - - 0 1"; }),
       {3}},
      {"text as FEN, end of the move line",
       Criteria([](auto& c) { c.text = "8/7k/8/8/8/8/6Q1/K7"; }),
       {5}},
      {"mate range",
       Criteria([](auto& c) {
         c.moves = {"3", "5"};
       }),
       {1, 3}},
      {"mate from",
       Criteria([](auto& c) {
         c.moves = {"5", ""};
       }),
       {2, 3}},
      {"mate up to, selfmates count",
       Criteria([](auto& c) {
         c.moves = {"", "2"};
       }),
       {4}},
      {"pieces, kings count",
       Criteria([](auto& c) {
         c.counts[kPiecesTotal] = {"6", "6"};
       }),
       {1, 3}},
      {"white pieces",
       Criteria([](auto& c) {
         c.counts[kPiecesWhite] = {"4", "4"};
       }),
       {1, 3}},
      {"black pieces",
       Criteria([](auto& c) {
         c.counts[kPiecesBlack] = {"1", "1"};
       }),
       {4, 5}},
      {"figures",
       Criteria([](auto& c) {
         c.counts[kFiguresTotal] = {"", "3"};
       }),
       {1, 4, 5}},
      {"white figures",
       Criteria([](auto& c) {
         c.counts[kFiguresWhite] = {"4", ""};
       }),
       {2, 3}},
      {"black figures",
       Criteria([](auto& c) {
         c.counts[kFiguresBlack] = {"2", "2"};
       }),
       {3}},
      {"majors",
       Criteria([](auto& c) {
         c.counts[kMajorsTotal] = {"3", "3"};
       }),
       {3}},
      {"white majors",
       Criteria([](auto& c) {
         c.counts[kMajorsWhite] = {"1", "1"};
       }),
       {1, 4, 5}},
      {"black majors",
       Criteria([](auto& c) {
         c.counts[kMajorsBlack] = {"1", ""};
       }),
       {2}},
      {"pawns",
       Criteria([](auto& c) {
         c.counts[kPawnsTotal] = {"1", "3"};
       }),
       {1}},
      {"white pawns",
       Criteria([](auto& c) {
         c.counts[kPawnsWhite] = {"7", ""};
       }),
       {2}},
      {"black pawns",
       Criteria([](auto& c) {
         c.counts[kPawnsBlack] = {"0", "0"};
       }),
       {3, 4, 5}},
      {"black king on the edge",
       Criteria([](auto& c) { c.bBlackKingOnEdge = true; }),
       {1, 2, 3, 4, 5}},
      {"unsolved", Criteria([](auto& c) { c.bUnsolvedOnly = true; }), {2, 4, 5}},
      {"FEN", Criteria([](auto& c) { c.fen = "k7/p7/8/8/8/8/PP6/1K5R"; }), {1}},
      {"tag, any case", Criteria([](auto& c) { c.tag = "LOYD"; }), {1, 3}},
      {"forced safe mode", Criteria([](auto& c) { c.bForcedSafeMode = true; }), {1}},
      {"all together",
       Criteria([](auto& c) {
         c.text = "loyd";
         c.moves = {"2", "3"};
         c.tag = "miniature";
         c.counts[kPawnsTotal] = {"3", ""};
       }),
       {1}},
  };
  for (const auto& c : cases)
    EXPECT_THAT(Ids(Search(c.criteria)), ElementsAreArray(c.ids)) << c.szName;
}

TEST_F(ProblemSearchTest, BlackKingInTheMiddleIsNotOnTheEdge) {
  ASSERT_FALSE(collection.ReadText("UTF-8\n\n9 #2\n{\n\tFEN: 8/8/8/3k4/8/8/8/K6Q\n}\n", "more.cp"));
  TSearchCriteria criteria;
  criteria.bBlackKingOnEdge = true;
  EXPECT_THAT(Ids(Search(criteria)), ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(ProblemSearchTest, HeuristicsAsTheFileGivesThem) {
  const int edge = HeuristicIndex("SH_KEEPKINGONTHEEDGE");
  const int rook = HeuristicIndex("SH_SWEEPINGWHITEROOK");
  const int near = HeuristicIndex("SH_AREKINGSNEAR");
  const struct {
    std::vector<THeuristicWanted> wanted;
    bool bRelaxed;
    std::vector<int> ids;
  } cases[] = {
      {{{edge, EHeuristicUse::WithOthers}}, false, {1, 2}},
      {{{edge, EHeuristicUse::Alone}}, false, {1}},
      {{{edge, EHeuristicUse::Alone}, {rook, EHeuristicUse::WithOthers}}, false, {2}},
      {{{rook, EHeuristicUse::WithOthers}}, false, {2}},
      {{{rook, EHeuristicUse::WithOthers}}, true, {2, 3}},  // problem 3 turns it OFF
      {{{rook, EHeuristicUse::Alone}}, true, {3}},
      {{{near, EHeuristicUse::Partially}, {rook, EHeuristicUse::Partially}}, false, {2}},
      {{{near, EHeuristicUse::Partially}}, false, {}},
  };
  for (const auto& c : cases) {
    TSearchCriteria criteria;
    criteria.heuristics = c.wanted;
    criteria.bIncludeRelaxed = c.bRelaxed;
    EXPECT_THAT(Ids(Search(criteria)), ElementsAreArray(c.ids));
  }
}

TEST_F(ProblemSearchTest, PositionIdentifierInTheTextField) {
  TSearchCriteria criteria;
  criteria.text = TChessboardId(collection.Find(3)->start).ToAlphanum6();
  EXPECT_THAT(Ids(Search(criteria)), ElementsAre(3));
  criteria.text = TChessboardId(collection.Find(3)->start).ToAlphanum5();
  EXPECT_THAT(Ids(Search(criteria)), ElementsAre(3));
}

TEST(SearchCriteria, TheFirstImproperFieldIsNamedInFieldOrder) {
  TSearchCriteria criteria;
  criteria.counts[kPawnsBlack] = {"3", "2"};
  EXPECT_EQ(std::get<std::string>(CheckCriteria(criteria)),
            "Improper number of black pawns on chessboard.");
  criteria.counts[kFiguresWhite] = {"x", ""};
  EXPECT_EQ(std::get<std::string>(CheckCriteria(criteria)),
            "Improper number of white figures on chessboard.");
  criteria.counts[kPiecesTotal] = {"", "65"};
  EXPECT_EQ(std::get<std::string>(CheckCriteria(criteria)),
            "Improper number of pieces on chessboard.");
  criteria.moves = {"0", "3"};
  EXPECT_EQ(std::get<std::string>(CheckCriteria(criteria)), "Improper number of moves");
  criteria.fen = "8/8/8/8/8/8/8/8 w - - 0 1";  // no kings
  EXPECT_EQ(std::get<std::string>(CheckCriteria(criteria)), "Improper FEN code.");
}

TEST(SearchCriteria, RangesAndTextsThatAreAccepted) {
  const struct {
    TRangeText typed;
    bool bGood;
  } cases[] = {{{"", ""}, true},    {{"0", "0"}, true},   {{" 3 ", "5"}, true},
               {{"5", "3"}, false}, {{"-1", ""}, false},  {{"", "64"}, true},
               {{"", "65"}, false}, {{"1e1", ""}, false}, {{"99999", ""}, false}};
  for (const auto& c : cases) {
    TSearchCriteria criteria;
    criteria.counts[kMajorsTotal] = c.typed;
    EXPECT_EQ(std::holds_alternative<TSearchQuery>(CheckCriteria(criteria)), c.bGood)
        << c.typed.from << ".." << c.typed.to;
  }
  TSearchCriteria regex;
  regex.text = "(unclosed";
  regex.bRegex = true;
  EXPECT_THAT(std::get<std::string>(CheckCriteria(regex)),
              HasSubstr("Improper regular expression"));
  regex.bRegex = false;  // the same text as plain text is fine
  EXPECT_TRUE(std::holds_alternative<TSearchQuery>(CheckCriteria(regex)));
}

TEST_F(ProblemSearchTest, APositionNotFoundOffersSimilarOnes) {
  TSearchCriteria criteria;
  criteria.fen = "k7/p7/8/8/8/8/PP6/1K6";  // problem 1 without its rook
  TSearchResult result = Search(criteria);
  EXPECT_TRUE(result.bSimilarOnly);
  EXPECT_THAT(Ids(result), ElementsAre(1));
  EXPECT_THAT(ResultLines(result),
              ElementsAre("Only similar positions found", "Found similar problems: 1"));
  criteria.moves = {"4", ""};  // the other criteria still hold for similar positions
  result = Search(criteria);
  EXPECT_TRUE(result.hits.empty());
  EXPECT_FALSE(result.bSimilarOnly);
  EXPECT_THAT(ResultLines(result), ElementsAre("No problem found that matches search criteria"));
}

TEST(PositionSimilarity, Measure) {
  const auto Placement = [](const char* fen) { return *PlacementOf(fen); };
  const auto base = Placement("k7/p7/8/8/8/8/PP6/1K5R");
  const struct {
    const char* szOther;
    double similarity;
  } cases[] = {
      {"k7/p7/8/8/8/8/PP6/1K5R", 1.0},
      {"7k/7p/8/8/8/8/6PP/R5K1", 1.0},       // mirrored left to right
      {"k7/p7/8/8/8/8/PP6/1K6", 5.0 / 6},    // a piece missing
      {"k7/p7/8/8/8/8/PP6/1K4R1", 5.5 / 6},  // a piece one square away
      {"k7/p7/8/8/8/8/PP6/1K3R2", 5.0 / 6},  // two squares away: no pair
      {"k7/p7/8/8/8/8/PP6/1K5r", 5.0 / 6},   // the colour changed
      {"k7/p7/8/8/8/8/PP6/1K5R w", 1.0},
      {"4k3/8/8/8/8/8/8/4K3", 0.0},
  };
  for (const auto& c : cases)
    EXPECT_DOUBLE_EQ(PositionSimilarity(base, Placement(c.szOther)), c.similarity) << c.szOther;
}

TEST(FenScan, FindsPlacementsInAnyText) {
  const auto found = FindFens(
      "Problem list\nFEN: k7/p7/8/8/8/8/PP6/1K5R w - - 0 1\n"
      "date 1/2/3/4/5/6/7/8x and 8/8/8/8/8/8/8 (seven ranks)\n"
      "<td>7k/8/5n2/8/8/8/8/QRRK4</td> a/8/8/8/8/8/8/8\n");
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].placement, "k7/p7/8/8/8/8/PP6/1K5R");
  EXPECT_EQ(found[0].nLine, 2);
  EXPECT_EQ(found[1].placement, "7k/8/5n2/8/8/8/8/QRRK4");
  EXPECT_EQ(found[1].nLine, 4);
}

TEST_F(ProblemSearchTest, ReportsNameTheCriteriaAndTheHits) {
  TSearchCriteria criteria;
  criteria.moves = {"3", ""};
  criteria.counts[kMajorsWhite] = {"1", "2"};
  criteria.tag = "Loyd";
  criteria.heuristics = {{HeuristicIndex("SH_KEEPKINGONTHEEDGE"), EHeuristicUse::Alone}};
  const TSearchQuery query = std::get<TSearchQuery>(CheckCriteria(criteria));
  const TSearchResult result = CProblemSearch(query).Run(collection);
  EXPECT_THAT(CriteriaLines(query),
              ElementsAre("Search by stipulation (num.of moves) : from #3 to #126",
                          "Search by num.of white major figures on board: from 1 to 2",
                          "Search for problems tagged/labelled with: Loyd",
                          "Search by the following heuristics:",
                          "\tSH_KEEPKINGONTHEEDGE without other heuristics"));
  EXPECT_THAT(ResultLines(result),
              ElementsAre("Found problems that match criteria: 1 (use F3/Shift+F3 to navigate "
                          "to next/previous matching problem)"));
  CTempFolder folder;
  ASSERT_FALSE(WriteSearchReports(folder.Path(), query, result));
  EXPECT_THAT(ReadTextFile(folder / kSearchProblemsLogName),
              HasSubstr("     1  #3     6  Sam Loyd, Le Sphinx 1859\nFound problems"));
  EXPECT_THAT(ReadTextFile(folder / kSearchHeuristicsLogName),
              HasSubstr("\n1: SH_KEEPKINGONTHEEDGE(STRICT)\n"));
}

}  // namespace
