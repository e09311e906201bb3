// The bundled sample file: it reads whole, is already in the canonical form, and every
// answer is the set of published keys of its position and stipulation.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "TestData.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "problems/Collection.h"

namespace {

const std::string kSampleFile = std::string(LONGMATE_SOURCE_DIR) + "/data/sample_problems.cp";

std::string Placement(const std::string& fenText) {
  return fenText.substr(0, fenText.find(' '));
}

class SampleProblems : public testing::Test {
 protected:
  void SetUp() override {
    const auto error = collection.ReadFile(kSampleFile, {});
    ASSERT_FALSE(error) << error->Describe();
  }
  TProblemCollection collection;
};

// Direct mates from two moves to the longest of the data, and a selfmate beside them.
TEST_F(SampleProblems, AreMatesFromTwoMovesToTheLongestOfTheData) {
  EXPECT_GE(collection.Size(), 40u);
  int nLongestInData = 0;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    if (!row.at("keys").empty()) nLongestInData = std::max(nLongestInData, std::stoi(row.at("n")));
  }
  int nShortest = 1000, nLongest = 0, nSelfmates = 0;
  for (const auto& [id, problem] : collection.Problems()) {
    EXPECT_FALSE(problem->description.empty()) << id;
    if (problem->stipulation.type == TStipulation::kSelfmate) {
      ++nSelfmates;
      continue;
    }
    EXPECT_EQ(problem->stipulation.type, TStipulation::kDirectMate) << id;
    nShortest = std::min(nShortest, problem->stipulation.Moves());
    nLongest = std::max(nLongest, problem->stipulation.Moves());
  }
  EXPECT_EQ(nShortest, 2);
  EXPECT_EQ(nLongest, nLongestInData);
  EXPECT_GE(nSelfmates, 1);
}

// Each problem is a row of the direct mates or of the selfmates, by its placement and
// stipulation.
TEST_F(SampleProblems, AnswersAreThePublishedKeys) {
  std::map<std::string, testdata::TRow> rowByPosition;
  for (const auto& [file, prefix] : {std::pair{"directmates.tsv", " #"}, {"selfmates.tsv", " s#"}})
    for (const auto& row : testdata::ReadTsv(file)) {
      if (!row.at("keys").empty())
        rowByPosition[Placement(row.at("fen")) + prefix + row.at("n")] = row;
    }
  for (const auto& [id, problem] : collection.Problems()) {
    const auto found =
        rowByPosition.find(fen::WriteShortFen(problem->start) + " " + problem->stipulation.Text());
    ASSERT_NE(found, rowByPosition.end()) << "problem " << id << " is not in the data";
    const testdata::TRow& row = found->second;
    EXPECT_TRUE(problem->HasFlag(option::kAnswerGiven)) << id;
    std::vector<std::uint32_t> expected, read;
    for (const std::string& key : testdata::Split(row.at("keys"), ",")) {
      expected.push_back(notation::FullDescriptionToMove(key, true).Code());
    }
    for (const TMove& move : problem->answer) read.push_back(move.Code());
    std::sort(expected.begin(), expected.end());
    std::sort(read.begin(), read.end());
    EXPECT_EQ(read, expected) << "problem " << id << " (" << row.at("id") << ")";
  }
}

TEST_F(SampleProblems, FileIsInTheCanonicalForm) {
  std::ifstream file(kSampleFile, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  EXPECT_EQ(collection.WriteText(), text.str());
}

}  // namespace
