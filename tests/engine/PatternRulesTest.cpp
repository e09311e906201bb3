#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DirectMateRows.h"
#include "HeuristicLine.h"
#include "engine/HeuristicChoice.h"
#include "engine/HeuristicRules.h"
#include "engine/MateSolver.h"
#include "engine/QueenMateSquares.h"

namespace {

using heuristictest::CLine;
using heuristictest::Set;

THeuristicSet Named(const char* text) {
  const heuristicchoice::TNamedSet named = heuristicchoice::ReadNamedSet(text);
  EXPECT_EQ(named.sError, "") << text;
  return named.set;
}

struct TMoveCase {
  const char* what;
  const char* fen;
  std::vector<std::string> moves;  // the last one is the move judged
  THeuristicSet set;
  std::uint32_t expected;
};

// Black replies: each pattern is left by the reply that frees Black, kept by the others.
TEST(PatternRules, BlackRepliesThatLeaveThePattern) {
  // Black king g1 near its start, pawns c5 (may take b4) and d4 (may push), knight a8.
  const char* kCage = "n7/8/8/2p5/1P1p4/8/8/K5k1 b - - 0 1";
  // Pawn d5 blocked by its own knight, h6 by a white pawn.
  const char* kBlocked = "8/8/7p/3p3P/3n4/8/8/K5k1 b - - 0 1";
  const TMoveCase cases[] = {
      {"zugzwang: king within its cage", kCage, {"g1h2"}, Set(shbit::kZugzwang), 0},
      {"zugzwang: king out of its cage",
       kCage,
       {"g1h2", "a1a2", "h2h3"},
       Set(shbit::kZugzwang),
       shbit::kZugzwang},
      {"zugzwang: pawn push", kCage, {"d4d3"}, Set(shbit::kZugzwang), 0},
      {"zugzwang: pawn capture", kCage, {"c5b4"}, Set(shbit::kZugzwang), shbit::kZugzwang},
      {"zugzwang: knight", kCage, {"a8b6"}, Set(shbit::kZugzwang), shbit::kZugzwang},
      {"single queen: king", kCage, {"g1h1"}, Set(shbit::kSingleQueenMate), 0},
      {"single queen: pawn",
       kCage,
       {"d4d3"},
       Set(shbit::kSingleQueenMate),
       shbit::kSingleQueenMate},
      {"blocked pawns, start count: a pawn freed",
       kBlocked,
       {"d4f3"},
       Set(shbit::kUseBlockBlackPawnsLevel),
       shbit::kUseBlockBlackPawnsLevel},
      {"blocked pawns, level 1: one stays blocked",
       kBlocked,
       {"d4f3"},
       Named("SH_USEBLOCKBLACKPAWNSLEVEL(1)"),
       0},
      {"blocked pawns: king", kBlocked, {"g1g2"}, Set(shbit::kUseBlockBlackPawnsLevel), 0},
  };
  for (const TMoveCase& c : cases) {
    CLine line(c.fen);
    const TChessboard& after = line.Play(c.moves);
    EXPECT_EQ(heuristicrules::BlackReplyBreaks(after, THeuristicContext(c.set, line.Root())).bit,
              c.expected)
        << c.what;
  }
}

// White's moves: the lone queen alone moves, key squares and lines are kept unless White
// checks, blocked pawns stay blocked unless taken.
TEST(PatternRules, WhiteMovesThatLeaveThePattern) {
  const char* kQueen = "6k1/5ppp/8/8/8/8/5PPP/3Q2K1 w - - 0 1";
  // Bishop f3 on the long diagonal, eyeing d5; rook a1 on the a-file and the first rank.
  const char* kKeys = "4k3/8/8/8/8/5B2/8/R3K3 w - - 0 1";
  const char* kPawn = "4k3/8/8/3p4/3B4/4N3/8/4K3 w - - 0 1";
  const TMoveCase cases[] = {
      {"single queen: queen", kQueen, {"d1d5"}, Set(shbit::kSingleQueenMate), 0},
      {"single queen: pawn",
       kQueen,
       {"h2h3"},
       Set(shbit::kSingleQueenMate),
       shbit::kSingleQueenMate},
      {"single queen: king",
       kQueen,
       {"g1f1"},
       Set(shbit::kSingleQueenMate),
       shbit::kSingleQueenMate},
      {"key square kept", kKeys, {"f3e4"}, Named("SH_KEYFIELD(d5)"), 0},
      {"key square given up", kKeys, {"f3g4"}, Named("SH_KEYFIELD(d5)"), shbit::kKeyField},
      {"key square given up with check", kKeys, {"f3h5"}, Named("SH_KEYFIELD(d5)"), 0},
      {"key square never held", kKeys, {"f3g4"}, Named("SH_KEYFIELD(h8)"), 0},
      {"key file kept", kKeys, {"a1a7"}, Named("SH_KEYLINE(a)"), 0},
      {"key file left", kKeys, {"a1b1"}, Named("SH_KEYLINE(a)"), shbit::kKeyLine},
      {"key rank kept", kKeys, {"a1b1"}, Named("SH_KEYLINE(1)"), 0},
      {"key rank left", kKeys, {"a1a4"}, Named("SH_KEYLINE(1)"), shbit::kKeyLine},
      {"key diagonal kept", kKeys, {"f3e4"}, Named("SH_KEYDIAGONAL(h1a8)"), 0},
      {"key diagonal left", kKeys, {"f3g4"}, Named("SH_KEYDIAGONAL(h1a8)"), shbit::kKeyDiagonal},
      {"key diagonal left with check", kKeys, {"f3h5"}, Named("SH_KEYDIAGONAL(h1a8)"), 0},
      {"blocked pawn freed",
       kPawn,
       {"d4c3"},
       Set(shbit::kUseBlockBlackPawnsLevel),
       shbit::kUseBlockBlackPawnsLevel},
      {"blocked pawn taken", kPawn, {"e3d5"}, Set(shbit::kUseBlockBlackPawnsLevel), 0},
  };
  for (const TMoveCase& c : cases) {
    CLine line(c.fen);
    const TChessboard& after = line.Play(c.moves);
    EXPECT_EQ(heuristicrules::WhiteMoveBreaks(after, THeuristicContext(c.set, line.Root())),
              c.expected)
        << c.what;
  }
}

// White nodes: a king too free for White's force three moves before the end, a king too far
// from the lone queen's mating squares.
TEST(PatternRules, WhiteNodesOutOfReach) {
  const struct {
    const char* what;
    const char* fen;
    std::uint16_t ply;
    std::uint32_t mask;
    std::uint32_t expected;
  } cases[] = {
      {"rook, king in the centre", "8/8/8/3k4/8/8/8/R3K3 w - - 0 1", 5, shbit::k3MovesToMate,
       shbit::k3MovesToMate},
      {"rook, king in the centre, four moves", "8/8/8/3k4/8/8/8/R3K3 w - - 0 1", 7,
       shbit::k3MovesToMate, 0},
      {"rook, king held by the king", "3k4/8/3K4/8/8/8/8/R7 w - - 0 1", 5, shbit::k3MovesToMate, 0},
      {"knight, king in the centre", "8/8/8/3k4/8/8/8/N3K3 w - - 0 1", 5, shbit::k3MovesToMate,
       shbit::k3MovesToMate},
      {"queen, king in the centre", "8/8/8/3k4/8/8/8/Q3K3 w - - 0 1", 5, shbit::k3MovesToMate,
       shbit::k3MovesToMate},
      {"queen, king held by the king", "3k4/8/3K4/8/8/8/8/Q7 w - - 0 1", 5, shbit::k3MovesToMate,
       0},
      {"queen, king on its mating square", "6k1/5ppp/8/8/8/8/8/3Q2K1 w - - 0 1", 3,
       shbit::kSingleQueenMate, 0},
      {"queen, king sealed off", "6nk/6pp/8/8/8/8/8/K2Q4 w - - 0 1", 9, shbit::kSingleQueenMate,
       shbit::kSingleQueenMate},
  };
  for (const auto& c : cases) {
    CLine line(c.fen, static_cast<std::uint16_t>(c.ply - 1));
    EXPECT_EQ(
        heuristicrules::WhiteNodeBreaks(line.Root(), THeuristicContext(Set(c.mask), line.Root())),
        c.expected)
        << c.what;
  }
}

// A queen that mates in one mates on a square of distance 0; a king that cannot be mated
// where it stands, or cannot be mated at all, is further off.
TEST(PatternRules, QueenMatingSquares) {
  const struct {
    const char* what;
    const char* fen;
    int nMinDistance, nMaxDistance;
  } cases[] = {
      {"back rank", "6k1/5ppp/8/8/8/8/8/3Q2K1 w - - 0 1", 0, 0},
      {"corner behind pawns", "k7/pp6/8/8/8/8/8/2Q3K1 w - - 0 1", 0, 0},
      {"open centre", "8/8/8/3k4/8/8/8/Q5K1 w - - 0 1", 1, 4},
      {"sealed king", "6nk/6pp/8/8/8/8/8/K2Q4 w - - 0 1", queenmate::kUnreachable,
       queenmate::kUnreachable},
      {"no queen", "6k1/5ppp/8/8/8/8/8/3R2K1 w - - 0 1", queenmate::kUnreachable,
       queenmate::kUnreachable},
  };
  for (const auto& c : cases) {
    const TChessboard board = matetest::Board(c.fen, 1);
    const int distance = queenmate::MateSquareDistances(board)[board.BlackKing()];
    EXPECT_GE(distance, c.nMinDistance) << c.what;
    EXPECT_LE(distance, c.nMaxDistance) << c.what;
  }
  const TChessboard tied = matetest::Board("6k1/8/5Q2/8/8/8/3p1pp1/3Kbrrb w - - 0 1", 33);
  EXPECT_TRUE(queenmate::SingleQueenPattern(tied, 17));
  EXPECT_FALSE(queenmate::SingleQueenPattern(tied, 2));
  EXPECT_FALSE(queenmate::SingleQueenPattern(
      matetest::Board("6k1/8/5Q2/8/8/8/3p1pp1/R2Kbrrb w - - 0 1", 33), 17));
}

TEST(PatternRules, ZugzwangCageIsAKingBesideItsPawnsWithoutPieces) {
  const struct {
    const char* fen;
    bool bCage;
  } cases[] = {
      {"8/8/8/8/8/8/ppQKPPP1/k7 w - - 0 1", true},
      {"B7/8/8/8/8/6p1/4K1pp/1N4k1 w - - 0 1", true},
      {"8/8/8/8/8/8/npQKPPP1/k7 w - - 0 1", false},      // a knight besides
      {"8/8/8/8/p7/K3p3/1B2p3/1k2N3 w - - 0 1", false},  // no pawn beside the king
  };
  for (const auto& c : cases)
    EXPECT_EQ(patternrules::ZugzwangCagePattern(matetest::Board(c.fen, 1)), c.bCage) << c.fen;
}

// The parameter words of the key lines and the pawn level, and their texts.
TEST(PatternRules, ParameterWordsAndTexts) {
  const struct {
    const char* text;
    const char* description;  // nullptr: the word is refused
  } cases[] = {
      {"SH_KEYLINE(d)", "SH_KEYLINE(D)"},
      {"SH_KEYLINE(4)", "SH_KEYLINE(4)"},
      {"SH_KEYLINE(a1h8)", nullptr},
      {"SH_KEYDIAGONAL(h8a1)", "SH_KEYDIAGONAL(A1-H8)"},
      {"SH_KEYDIAGONAL(B1-H7)", "SH_KEYDIAGONAL(B1-H7)"},
      {"SH_KEYDIAGONAL(a6f1)", "SH_KEYDIAGONAL(F1-A6)"},
      {"SH_KEYDIAGONAL(a1b3)", nullptr},
      {"SH_KEYDIAGONAL(a1a1)", nullptr},
      {"SH_KEYFIELD(c3)", "SH_KEYFIELD(C3)"},
      {"SH_USEBLOCKBLACKPAWNSLEVEL(3)", "SH_USEBLOCKBLACKPAWNSLEVEL(3)"},
      {"SH_USEBLOCKBLACKPAWNSLEVEL", "SH_USEBLOCKBLACKPAWNSLEVEL"},
      {"SH_USEBLOCKBLACKPAWNSLEVEL(9)", nullptr},
  };
  for (const auto& c : cases) {
    const heuristicchoice::TNamedSet named = heuristicchoice::ReadNamedSet(c.text);
    if (c.description == nullptr) {
      EXPECT_NE(named.sError, "") << c.text;
      continue;
    }
    EXPECT_EQ(heuristicset::Describe(named.set), c.description) << c.text;
  }
  EXPECT_NE(Named("SH_KEYLINE(a)").Params(), Named("SH_KEYLINE(b)").Params());
  EXPECT_NE(Named("SH_USEBLOCKBLACKPAWNSLEVEL(1)").Params(),
            Named("SH_USEBLOCKBLACKPAWNSLEVEL(2)").Params());
}

// Long mates of the patterns, found in the pass under their heuristic alone: the key is the
// published one.
TEST(PatternRules, PatternMatesFoundUnderTheirHeuristic) {
  const struct {
    const char* id;
    std::uint32_t mask;
  } cases[] = {{"mt-05273", shbit::kZugzwang}, {"mt-06005", shbit::kSingleQueenMate}};
  const auto rows = testdata::ReadTsv("moremovers.tsv");
  for (const auto& c : cases) {
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const testdata::TRow& r) { return r.at("id") == c.id; });
    ASSERT_NE(row, rows.end()) << c.id;
    // The doubtful answers are kept, as a solve keeps them: a line cut once stays cut.
    TAggregatedTemporaryChessboardRegister reg(1'000'000);
    CMateSolver solver(matetest::Root(*row), matetest::Moves(*row),
                       {.nMaxSolutions = 1,
                        .pRegister = &reg,
                        .pDoubtful = &reg,
                        .heuristicPasses = {Set(c.mask)},
                        .bPass2 = false});
    const TRootOutcome outcome = solver.Run();
    EXPECT_EQ(matetest::Texts(matetest::Root(*row), outcome.keys), matetest::PublishedKeys(*row))
        << c.id;
  }
}

}  // namespace
