// The bundled sample file: it reads whole, is already in the canonical form, and every
// answer is the set of published keys of its position.
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

TEST_F(SampleProblems, AreDirectMatesFromTwoMovesToTheLongestOfTheData) {
  EXPECT_GE(collection.Size(), 40u);
  int nLongestInData = 0;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    if (!row.at("keys").empty()) nLongestInData = std::max(nLongestInData, std::stoi(row.at("n")));
  }
  int nShortest = 1000, nLongest = 0;
  for (const auto& [id, problem] : collection.Problems()) {
    EXPECT_EQ(problem->stipulation.type, TStipulation::kDirectMate) << id;
    EXPECT_FALSE(problem->description.empty()) << id;
    nShortest = std::min(nShortest, problem->stipulation.Moves());
    nLongest = std::max(nLongest, problem->stipulation.Moves());
  }
  EXPECT_EQ(nShortest, 2);
  EXPECT_EQ(nLongest, nLongestInData);
}

TEST_F(SampleProblems, AnswersAreThePublishedKeys) {
  std::map<std::string, testdata::TRow> rowByPlacement;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    if (!row.at("keys").empty()) rowByPlacement[Placement(row.at("fen"))] = row;
  }
  for (const auto& [id, problem] : collection.Problems()) {
    const auto found = rowByPlacement.find(fen::WriteShortFen(problem->start));
    ASSERT_NE(found, rowByPlacement.end()) << "problem " << id << " is not in the data";
    const testdata::TRow& row = found->second;
    EXPECT_EQ(problem->stipulation.Moves(), std::stoi(row.at("n"))) << id;
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
