// Writing a problem and reading it back: what is written survives, what the canonical
// form leaves out is gone, and the canonical text itself is fixed byte for byte.
#include <gtest/gtest.h>

#include <string>

#include "ReadHelpers.h"
#include "core/Fen.h"
#include "core/Notation.h"

namespace {

using problemtest::Body;
using problemtest::ReadOne;

const std::string kEveryWrittenOption =
    "12 #3 NoMirror MirrorOnly AllSolutions StopOnDual StopOn3Sol "
    "UseMainVariantAsSortIndications GUICHECK 3 GUICHECKBESTDEFENCE THREADS 4 SAFEMODE "
    "RequiresSyzygy AllSolutionsRequiresSyzygy REQUIRES tb7 ONLYIFAVAIL net\n"
    "//#TAGS\n//#miniature\n//#Zugzwang\n"
    "//!VARIANTS\n//!1.Ra1-a7 Ke8-f8 2.Ra7-a8#\n//!  kept as written  \n//!ENDVARIANTS\n"
    "//@SortIndications: 2. Qd1:d7+; ~Rh5\n"
    "{\n\tDescription: A test, żółw\n\tFEN: 4k3/8/8/8/8/8/8/R3K3\n\tAnswer: Ra1-a7, Ke1-d2\n}\n";

// Reads text, writes the collection, reads that again; returns both texts written.
std::pair<std::string, std::string> WriteTwice(const std::string& text, TProblemCollection& again) {
  TProblemCollection first;
  ReadOne(first, text);
  const std::string written = first.WriteText();
  ReadOne(again, written);
  return {written, again.WriteText()};
}

TEST(RoundTrip, EveryWrittenOptionSurvives) {
  TProblemCollection again;
  const auto [written, rewritten] = WriteTwice(kEveryWrittenOption, again);
  EXPECT_EQ(written, rewritten);
  const TProblem& p = *again.Find(12);
  EXPECT_EQ(p.stipulation.type, TStipulation::kDirectMate);
  EXPECT_EQ(p.stipulation.plies, 5);
  EXPECT_EQ(p.options, 0x79BF);  // all but NOGLOBREG and the expected sorted moves
  EXPECT_EQ(p.guiCheckLevel, 3);
  EXPECT_EQ(p.nThreads, 4);
  EXPECT_TRUE(p.bUseMainVariantAsSortIndications);
  EXPECT_EQ(p.requiredResources, (std::set<std::string>{"net", "tb7"}));
  EXPECT_EQ(p.tags, (std::set<std::string>{"Zugzwang", "miniature"}));
  EXPECT_EQ(p.variants,
            (std::vector<std::string>{"1.Ra1-a7 Ke8-f8 2.Ra7-a8#", "  kept as written  "}));
  EXPECT_EQ(sortindication::RenderList(p.sortIndications), "~Rh5, 2. Qd1:d7+");
  EXPECT_EQ(p.description, "A test, żółw");
  EXPECT_EQ(fen::WriteShortFen(p.start), "4k3/8/8/8/8/8/8/R3K3");
  ASSERT_EQ(p.answer.size(), 2u);
  EXPECT_EQ(notation::MoveToText(p.start, p.answer[1]), "Ke1-d2");
}

TEST(RoundTrip, CanonicalTextHasAFixedOrder) {
  TProblemCollection collection;
  ReadOne(collection, kEveryWrittenOption);
  EXPECT_EQ(collection.WriteText(),
            "UTF-8\n\n\n"
            "12 #3 NoMirror MirrorOnly AllSolutions StopOnDual StopOn3Sol "
            "UseMainVariantAsSortIndications GUICHECK 3 GUICHECKBESTDEFENCE 3 THREADS 4 SAFEMODE "
            "RequiresSyzygy AllSolutionsRequiresSyzygy Requires net Requires tb7\n"
            "//#TAGS\n//#Zugzwang\n//#miniature\n"
            "//!VARIANTS\n//!1.Ra1-a7 Ke8-f8 2.Ra7-a8#\n//!  kept as written  \n//!ENDVARIANTS\n"
            "//@SortIndications: ~Rh5, 2. Qd1:d7+\n"
            "{\n\tDescription: A test, żółw\n\tFEN: 4k3/8/8/8/8/8/8/R3K3\n"
            "\tAnswer:  Ra1-a7,  Ke1-d2\n}\n");
}

TEST(RoundTrip, OptionsThatAreNotWrittenDoNotSurvive) {
  TProblemCollection first;
  const TProblem& read =
      ReadOne(first,
              "5 #2 NOGLOBREG GLOBREGMB 512 SCHEDULERLEVELS 3 LICHESSLEVELS 2 "
              "STOPRELAXHEURISTICSONFIRSTSOLUTION ALLSOLUTIONSREQUIRES tb7 THREADS 4^2 "
              "SH_FINDFORCEDMATE(#2-Preliminary) SH_keyfield OFF SH_KEEPKINGONTHEEDGE(STRICT, "
              "incl.corner) " +
                  Body("\tSWM: Ra1-a8, Ke1-d1\n\tEXPECTEDSORTWHITEMOVESONLY: Ke1-f1\n"));
  EXPECT_EQ(read.options, 0x0640);
  EXPECT_EQ(read.nGlobalRegisterMegabytes, 512);
  EXPECT_EQ(read.nSchedulerLevels, 3);
  EXPECT_EQ(read.nLichessLevels, 2);
  EXPECT_TRUE(read.bStopRelaxingOnFirstSolution);
  EXPECT_EQ(read.allSolutionsRequiredResources, std::set<std::string>{"tb7"});
  EXPECT_EQ(read.nSecondLevelThreads, 2);
  EXPECT_EQ(read.expectedSortedWhiteMoves.size(), 3u);
  EXPECT_TRUE(read.bExpectedSortedWhiteMovesOnly);
  using TSettings = std::map<int, std::vector<std::string>>;
  EXPECT_EQ(read.heuristicSettings,
            (TSettings{{9, {"#2-Preliminary"}}, {18, {"OFF"}}, {2, {"STRICT", "incl.corner"}}}));

  TProblemCollection again;
  const TProblem& p = ReadOne(again, first.WriteText());
  EXPECT_EQ(p.options, 0);
  EXPECT_EQ(p.nThreads, 4);
  EXPECT_EQ(p.nSecondLevelThreads, 0);
  EXPECT_EQ(p.nGlobalRegisterMegabytes, 0);
  EXPECT_EQ(p.nSchedulerLevels, 0);
  EXPECT_EQ(p.nLichessLevels, 0);
  EXPECT_FALSE(p.bStopRelaxingOnFirstSolution);
  EXPECT_TRUE(p.allSolutionsRequiredResources.empty());
  EXPECT_TRUE(p.heuristicSettings.empty());
  EXPECT_TRUE(p.expectedSortedWhiteMoves.empty());
}

struct THeaderCase {
  std::string header;
  int type;
  int plies;
  std::string written;  // the header line written back
};

TEST(RoundTrip, HeadersAreReadAndWrittenBack) {
  const THeaderCase cases[] = {
      {"12 #3 NoMirror THREADS 4^2", 1, 5, "12 #3 NoMirror THREADS 4"},
      {"7 s#2", 2, 5, "7 s#2"},
      {"7 S # 2", 2, 5, "7 s#2"},
      {"8 #2 GUICHECK 0", 1, 3, "8 #2 GUICHECK"},
      {"8 #2 guicheckbestdefenceandaux 2", 1, 3, "8 #2 GUICHECK 2"},
      {"9 nomirror", 4, 255, "9  NoMirror"},
      {"9", 4, 255, "9 "},
  };
  for (const THeaderCase& c : cases) {
    TProblemCollection collection;
    const TProblem& p = ReadOne(collection, c.header + "\n" + Body());
    EXPECT_EQ(p.stipulation.type, c.type) << c.header;
    EXPECT_EQ(p.stipulation.plies, c.plies) << c.header;
    EXPECT_EQ(p.start.ply, c.plies) << c.header;
    EXPECT_EQ(p.start.rootPlies, c.plies) << c.header;
    const std::string text = collection.WriteText();
    EXPECT_NE(text.find("\n" + c.written + "\n"), std::string::npos) << text;
  }
}

TEST(RoundTrip, AnswersAreWrittenSoThatTheyReadBackAsTheSameMoves) {
  const struct {
    const char* fen;
    const char* answers;
    const char* written;
  } cases[] = {
      {"r3k2r/1P6/8/3p4/4P3/8/8/R3K2R", "e4-d5, e4:d5, 0-0-0, 0-0, b7-b8Q, b7:a8N",
       "e4:d5,  e4:d5,  0-0-0,  0-0,  b7-b8Q,  b7:a8N"},
      // The diagram need not hold what an answer names.
      {"4k3/8/8/8/8/8/8/R3K3", "Qd1-d8, Kd1-d8", "d1-d8,  d1-d8"},
      {"4k3/8/8/8/8/8/8/R2K4", "0-0, 0-0-0", "e1-g1,  e1-c1"},
      {"r3k2r/8/8/8/8/8/8/4K3", "e8-g8", "e8-g8"},  // Black's castling in a White problem
      {"4k3/1P6/8/8/8/8/8/4K3", "b7-b8P, b7-b8K", "b7-b8P,  b7-b8K"},
      {"4k3/8/8/8/8/8/8/R3K3", "a1-a1, Ra1-a8Q", "a1-a1,  a1-a8Q"},
  };
  for (const auto& c : cases) {
    TProblemCollection collection;
    const TProblem& p =
        ReadOne(collection, std::string("1 #3 {\n\tFEN: ") + c.fen + "\n\tA: " + c.answers + "\n}");
    const std::string text = collection.WriteText();
    EXPECT_NE(text.find(std::string("\tAnswer:  ") + c.written + "\n"), std::string::npos) << text;
    TProblemCollection again;
    EXPECT_EQ(ReadOne(again, text).answer, p.answer) << c.answers;
  }
}

TEST(RoundTrip, PieceListsReadLikeTheirFen) {
  TProblemCollection lists, fenText;
  const TProblem& a =
      ReadOne(lists, "1 #2 {\n\tWH: Ke1, Hd1, wa1, Sb1, gc1, e2, pf2\n\tbl: ke8, Ra8\n}");
  const TProblem& b = ReadOne(fenText, "1 #2 {\n\tFEN: r3k3/8/8/8/8/8/4PP2/RNBQK3 w - - 0 1\n}");
  EXPECT_EQ(fen::WriteShortFen(a.start), fen::WriteShortFen(b.start));
  EXPECT_EQ(a.PieceCount(), 9);
}

TEST(RoundTrip, MoveLineOfAPositionIsKept) {
  TProblemCollection collection;
  const TProblem& p = ReadOne(
      collection, "3 {\n\tFEN: 4k3/4p3/8/8/8/8/4P3/4K1N1\n\tMoves: 1. e2-e4 e7-e5 2.Ng1-f3\n}");
  EXPECT_EQ(p.MoveLine().size(), 3u);
  EXPECT_EQ(p.current->ply, 252);
  const std::string text = collection.WriteText();
  EXPECT_NE(text.find("\n   Moves:    1. e2-e4 e7-e5 2. Ng1-f3\n}"), std::string::npos) << text;
  TProblemCollection again;
  EXPECT_EQ(fen::WriteShortFen(*ReadOne(again, text).current), fen::WriteShortFen(*p.current));
}

TEST(RoundTrip, MoveLineThatStopsEarlyKeepsItsPositionAndItsText) {
  const struct {
    const char* moves;
    int nMade;
    const char* written;  // the Moves line written back
  } cases[] = {
      {"1. e2-e4 2. Ng1-f3", 1, "1. e2-e4 2. Ng1-f3"},
      {"O-O", 0, "O-O"},
      {"1.e2-e4  e7-e5 2. Ke1-e3 Ke8-e7", 2, "1. e2-e4 e7-e5 2. Ke1-e3 Ke8-e7"},
      {"1.\xC2\xA0"
       "e2-e4\xC2\xA0"
       "e7-e5",
       2, "1. e2-e4 e7-e5"},
  };
  for (const auto& c : cases) {
    // The problem behind it is read too.
    TProblemCollection collection;
    ASSERT_FALSE(
        collection.ReadText(std::string("3 {\n\tFEN: 4k3/4p3/8/8/8/8/4P3/4K1N1\n\tMoves: ") +
                                c.moves + "\n}\n7 " + Body(),
                            "f"));
    ASSERT_NE(collection.Find(7), nullptr);
    EXPECT_EQ(collection.Find(3)->MoveLine().size(), static_cast<std::size_t>(c.nMade)) << c.moves;
    const std::string text = collection.WriteText();
    EXPECT_NE(text.find(std::string("\n   Moves:    ") + c.written + "\n}"), std::string::npos)
        << text;
    TProblemCollection again;
    ASSERT_FALSE(again.ReadText(text, "again"));
    EXPECT_EQ(again.WriteText(), text);
  }
}

TEST(RoundTrip, DirectiveCommentsOutsideTheHeaderAreOrdinaryComments) {
  TProblemCollection collection;
  const TProblem& p = ReadOne(collection,
                              "//#TAGS\n//#before\n1 #2\n//#stray\n//!stray\n//#TAGS\n//#kept\n"
                              "{\n\tFEN: 4k3/8/8/8/8/8/8/R3K3 // note\n//#TAGS\n//#inside\n}\n"
                              "//@SortIndications: e4\n");
  EXPECT_EQ(p.tags, std::set<std::string>{"kept"});
  EXPECT_TRUE(p.variants.empty());
  EXPECT_TRUE(p.sortIndications.empty());
}

TEST(RoundTrip, LineBreaksInTextsSetByTheProgramDoNotBreakTheFile) {
  TProblemCollection collection;
  auto problem = std::make_unique<TProblem>();
  ASSERT_TRUE(fen::ReadFen(problem->start, problemtest::kFen));
  problem->ResetLine();
  problem->id = 4;
  problem->description = "two\nlines";
  problem->tags.insert("a\r\nb");
  collection.Put(std::move(problem));
  TProblemCollection again;
  const TProblem& p = ReadOne(again, collection.WriteText());
  EXPECT_EQ(p.description, "two lines");
  EXPECT_EQ(p.tags, std::set<std::string>{"a  b"});
}

TEST(RoundTrip, TagsWithCarriageReturnsKeepTheirPlaceOnTheNextSave) {
  // A lone carriage return inside a tag line is written as a blank, which sorts after it; tags
  // that only differ by it, and blanks at the ends, collapse to one.
  TProblemCollection collection;
  ASSERT_FALSE(collection.ReadText("1 #2\n//#TAGS\n//#a\rz\n//#a y\n//#\ra y\r\n{\n\tFEN: " +
                                       std::string(problemtest::kFen) + "\n}\n",
                                   "cr.cp"));
  auto problem = std::make_unique<TProblem>();
  ASSERT_TRUE(fen::ReadFen(problem->start, problemtest::kFen));
  problem->ResetLine();
  problem->id = 2;
  problem->tags = {" \r\n", " b", "a\rz"};
  collection.Put(std::move(problem));
  const std::string text = collection.WriteText();
  EXPECT_NE(text.find("//#TAGS\n//#a y\n//#a z\n{"), std::string::npos) << text;
  EXPECT_NE(text.find("//#TAGS\n//#a z\n//#b\n{"), std::string::npos) << text;
  TProblemCollection again;
  ASSERT_FALSE(again.ReadText(text, "again"));
  EXPECT_EQ(again.WriteText(), text);
}

}  // namespace
