// Problems exchanged with other programs: what Longmate writes reads back as the same
// problems, hand-written files of the other programs read as their authors meant, and bad
// input is refused at its line with a reason.
#include <gtest/gtest.h>

#include <string>

#include "TestData.h"
#include "core/Fen.h"
#include "problems/ForeignFormat.h"
#include "problems/ProblemWriter.h"

namespace {

const std::string kSampleFile = std::string(LONGMATE_SOURCE_DIR) + "/data/sample_problems.cp";

// What a problem is, for comparison: position, stipulation, keys and description.
std::string Essence(const TProblem& p, bool bDescription) {
  std::string text = fen::WriteShortFen(p.start) + " " + p.stipulation.Text() + " keys:";
  if (p.HasFlag(option::kAnswerGiven))
    for (const TMove& key : p.answer) text += " " + problemwriter::AnswerText(p.start, key);
  return bDescription ? text + " / " + p.description : text;
}

std::vector<std::string> Essences(const TProblemCollection& collection, bool bDescription) {
  std::vector<std::string> out;
  for (const auto& [id, problem] : collection.Problems())
    out.push_back(Essence(*problem, bDescription));
  return out;
}

TProblemCollection Imported(const std::string& text, EProblemFormat format, int nDefaultMoves = 0) {
  TProblemCollection collection;
  const auto error = ImportText(text, "in", format, {.nDefaultMoves = nDefaultMoves}, collection);
  EXPECT_FALSE(error) << error->Describe() << "\n" << text;
  return collection;
}

TEST(ForeignFormat, SampleCollectionSurvivesARoundTrip) {
  TProblemCollection sample;
  ASSERT_FALSE(sample.ReadFile(kSampleFile, {}));
  for (const auto format : {EProblemFormat::kPopeye, EProblemFormat::kEpd}) {
    const TExportResult exported = ExportText(sample, format);
    EXPECT_TRUE(exported.warnings.empty()) << exported.warnings.front();
    EXPECT_EQ(Essences(Imported(exported.text, format), true), Essences(sample, true))
        << exported.text;
  }
  // A FEN list keeps everything but the descriptions.
  const TExportResult list = ExportText(sample, EProblemFormat::kFenList);
  EXPECT_EQ(list.warnings.size(), 1u);
  EXPECT_EQ(Essences(Imported(list.text, EProblemFormat::kFenList), false), Essences(sample, false))
      << list.text;
}

// Every format keeps the stipulation, long ones and selfmates included, and the answer: none
// recorded, known to have no key, one key or several.
TEST(ForeignFormat, StipulationsAndAnswersSurviveEveryFormat) {
  const char* stipulations[] = {"#1", "#2", "#3", "#7", "#12", "s#1", "s#2", "s#5"};
  const char* answers[] = {nullptr, "", "Qh5-a5", "Qh5-a5, Ne3-c4"};
  std::string cp = problemwriter::kFileHeader;
  int id = 0;
  for (const char* stipulation : stipulations)
    for (const char* answer : answers) {
      cp += "\n" + std::to_string(++id) + " " + stipulation +
            "\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n";
      if (answer) cp += std::string("\tAnswer: ") + answer + "\n";
      cp += "}\n";
    }
  TProblemCollection collection;
  const auto error = collection.ReadText(cp, "table.cp");
  ASSERT_FALSE(error) << error->Describe();
  for (const auto format :
       {EProblemFormat::kPopeye, EProblemFormat::kEpd, EProblemFormat::kFenList}) {
    const TExportResult exported = ExportText(collection, format);
    EXPECT_TRUE(exported.warnings.empty()) << exported.warnings.front();
    EXPECT_EQ(Essences(Imported(exported.text, format), false), Essences(collection, false))
        << exported.text;
  }
}

TEST(ForeignFormat, FenLinesOfOtherPrograms) {
  const TProblemCollection collection = Imported(
      "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - 0 1\n"
      "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n"
      "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - s#4\n"
      "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - 0 1 #3 Answer: Qa5, Nc4\n",
      EProblemFormat::kFenList, 2);
  EXPECT_EQ(
      Essences(collection, false),
      (std::vector<std::string>{"2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 #2 keys:",
                                "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 #2 keys:",
                                "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 s#4 keys:",
                                "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 #3 keys: Qh5-a5 Ne3-c4"}));
}

// Selfmates with several keys, and the published keys of direct mates, through EPD's short
// notation and back.
TEST(ForeignFormat, PublishedKeysSurviveEpd) {
  std::string cp = problemwriter::kFileHeader;
  int id = 0;
  for (const std::string file : {"selfmates.tsv", "directmates.tsv"}) {
    for (const testdata::TRow& row : testdata::ReadTsv(file)) {
      if (row.at("keys").empty()) continue;
      std::string keys;
      for (const std::string& key : testdata::Split(row.at("keys"), " ,"))
        keys += (keys.empty() ? " " : ", ") + key;
      const std::string prefix = file == "selfmates.tsv" ? "s#" : "#";
      cp += "\n" + std::to_string(++id) + " " + prefix + row.at("n") +
            "\n{\n\tFEN: " + row.at("fen").substr(0, row.at("fen").find(' ')) +
            "\n\tAnswer: " + keys + "\n}\n";
    }
  }
  TProblemCollection collection;
  const auto error = collection.ReadText(cp, "keys.cp");
  ASSERT_FALSE(error) << error->Describe();
  const TExportResult epd = ExportText(collection, EProblemFormat::kEpd);
  EXPECT_TRUE(epd.warnings.empty());
  EXPECT_EQ(Essences(Imported(epd.text, EProblemFormat::kEpd), false), Essences(collection, false));
}

TEST(ForeignFormat, HandWrittenSolverInputReads) {
  const std::string text =
      "beginprob\n"
      "author S. Loyd\norigin Le Sphinx 1866\n"
      "option NoBoard Variation\n"
      "stip #3\n"
      "pieces white ke1 Qd1 Sb1 Pa2b3\n"
      "  black Kh8 ph7\n"
      "Remark Key: Qd1-d8\n"
      "next\n"
      "Stipulation s#2 Pieces White Kc1 Black Ka1 Pa2 EndProblem\n";
  const TProblemCollection collection = Imported(text, EProblemFormat::kPopeye);
  ASSERT_EQ(collection.Size(), 2u);
  EXPECT_EQ(Essence(*collection.Find(1), true),
            "7k/7p/8/8/8/1P6/P7/1N1QK3 #3 keys: Qd1-d8 / S. Loyd; Le Sphinx 1866");
  EXPECT_EQ(Essence(*collection.Find(2), true), "8/8/8/8/8/8/p7/k1K5 s#2 keys: / ");
}

TEST(ForeignFormat, EpdNamesAndOperations) {
  const TProblemCollection collection = Imported(
      "6k1/5ppp/8/8/8/8/8/R5K1 w - - bm Ra8#; id \"back rank\"; acd 12;\n"
      "\n"
      "6k1/5ppp/8/8/8/8/8/R5K1 w - - dm 1; id \"40\"; c0 \"quoted; with semicolon\";\n",
      EProblemFormat::kEpd, 1);
  ASSERT_EQ(collection.Size(), 2u);
  EXPECT_EQ(Essence(*collection.Find(1), true),
            "6k1/5ppp/8/8/8/8/8/R5K1 #1 keys: Ra1-a8 / back rank");
  EXPECT_EQ(collection.Find(40)->description, "quoted; with semicolon");
}

TEST(ForeignFormat, FenListLinesOfAnyBlanksAreSkipped) {
  // Vertical tabs and form feeds separate words but are no blanks of a line's test.
  TProblemCollection collection;
  const auto error = ImportText("8/8/8/8/8/8/8/K6k #2\n\v\n \f\r\n\t\n8/8/8/8/8/8/8/K5k1 #3\n",
                                "blank.fen", EProblemFormat::kFenList, {}, collection);
  EXPECT_FALSE(error.has_value()) << error->Describe();
  EXPECT_EQ(collection.Size(), 2u);
}

TEST(ForeignFormat, BadInputNamesItsLine) {
  const struct {
    EProblemFormat format;
    const char* text;
    int nLine;
    const char* reason;
  } cases[] = {
      {EProblemFormat::kPopeye, "Stipulation #2\n", 1, "must begin with BeginProblem"},
      {EProblemFormat::kPopeye, "BeginProblem\nStipulation h#2\nEndProblem\n", 2,
       "Unsupported stipulation"},
      {EProblemFormat::kPopeye, "BeginProblem\nStipulation #2\nPieces White Ke1\n Nd4\n", 4,
       "Unsupported piece"},
      {EProblemFormat::kPopeye, "BeginProblem\nPieces White Ke1 Black Ke8\nEndProblem\n", 3,
       "without a stipulation"},
      {EProblemFormat::kPopeye,
       "BeginProblem\nStipulation #2\nPieces White Ke1 Pa1 Black Ke8\nEndProblem", 4,
       "Pawns cannot"},
      {EProblemFormat::kPopeye, "BeginProblem\nCondition Circe\n", 2, "Not supported here"},
      {EProblemFormat::kPopeye, "BeginProblem\nStipulation #2\nPieces White Ke1 Black Ke8\n", 3,
       "EndProblem missing"},
      {EProblemFormat::kPopeye, "BeginProblem\nStipulation #200\n", 2, "Improper number of moves"},
      {EProblemFormat::kPopeye, "BeginProblem\nStipulation", 2, "Unsupported stipulation"},
      {EProblemFormat::kPopeye, "BeginProblem\nStipulation s#\n", 2, "Unsupported stipulation"},
      {EProblemFormat::kEpd, "8/8/8/8/8/8/8/K6k w - - dm 2;\n8/8/8/8/8/8/8/K6k b - - dm 2;\n", 2,
       "White to move"},
      {EProblemFormat::kEpd, "6k1/5ppp/8/8/8/8/8/R5K1 w - - dm 1; bm Rb8#;\n", 1,
       "Not a legal move"},
      {EProblemFormat::kEpd, "6k1/5ppp/8/8/8/8/8/R5K1 w - - bm Ra8;\n", 1, "No \"dm\""},
      {EProblemFormat::kEpd, "6k1/5ppp/8/8/8/8/8/R5K1 w - - dm 1; c0 \"open;\n", 1, "Unterminated"},
      {EProblemFormat::kEpd, "6k1/5ppp/8/8 w\n", 1, "four position fields"},
      {EProblemFormat::kFenList, "8/8/8/8/8/8/8/K6k #2\n8/8/8/8/8/8/8/K6k\n", 2, "No stipulation"},
      {EProblemFormat::kFenList, "8/8/8/8/8/8/8/K6k #2\n\n8/8/8/9/8/8/8/K6k #2\n", 3,
       "Improper FEN"},
      {EProblemFormat::kFenList, "8/8/8/8/8/8/8/Kk6 #2\n", 1, "kings"},
      {EProblemFormat::kFenList, "8/8/8/8/8/8/8/K6k #2\n8/8/8/8/8/8/8/K6k #2 Answer: Kb3\n", 2,
       "Not a legal move"},
  };
  for (const auto& c : cases) {
    TProblemCollection collection;
    const auto error = ImportText(c.text, "bad", c.format, {}, collection);
    ASSERT_TRUE(error.has_value()) << c.text;
    EXPECT_EQ(error->line, c.nLine) << error->Describe();
    EXPECT_NE(error->text.find(c.reason), std::string::npos) << error->Describe();
  }
}

TEST(ForeignFormat, WhatAFormatCannotHoldIsReported) {
  TProblemCollection collection;
  ASSERT_FALSE(
      collection.ReadText(std::string(problemwriter::kFileHeader) +
                              "\n1 #2\n{\n\tDescription: say \"hi\"\n\tFEN: 4k3/8/8/8/8/8/8/R3K3\n"
                              "\tAnswer:  Qd1-d8\n}\n",
                          "odd.cp"));
  const TExportResult epd = ExportText(collection, EProblemFormat::kEpd);
  EXPECT_EQ(epd.warnings.size(), 2u);  // the key names no piece of the diagram; the quotes
  EXPECT_NE(epd.text.find("c0 \"say 'hi'\""), std::string::npos) << epd.text;
  // The key again, and the description.
  EXPECT_EQ(ExportText(collection, EProblemFormat::kFenList).warnings.size(), 2u);
  EXPECT_EQ(FormatFromFileName("a/b.EPD"), EProblemFormat::kEpd);
  EXPECT_EQ(FormatFromFileName("problems.cp"), std::nullopt);
}

}  // namespace
