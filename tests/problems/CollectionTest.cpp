#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ReadHelpers.h"
#include "core/Fen.h"
#include "problems/Collection.h"

namespace {

using problemtest::Body;

std::vector<int> Ids(const TProblemCollection& collection) {
  std::vector<int> ids;
  for (const auto& [id, problem] : collection.Problems()) ids.push_back(id);
  return ids;
}

class CollectionFiles : public testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() /
             ("longmate_collection_" + std::to_string(::getpid()) + "_" +
              testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::string PathOf(const std::string& name) const { return (folder / name).string(); }
  static std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }

  std::filesystem::path folder;
};

TEST(Collection, ProblemsAreWrittenInAscendingIdOrder) {
  TProblemCollection collection;
  ASSERT_FALSE(collection.ReadText("5 #2 " + Body() + "2 #2 " + Body() + "9 #3" + Body(), "f"));
  EXPECT_EQ(Ids(collection), (std::vector<int>{2, 5, 9}));
  const std::string text = collection.WriteText();
  EXPECT_LT(text.find("\n2 #2\n"), text.find("\n5 #2\n"));
  EXPECT_LT(text.find("\n5 #2\n"), text.find("\n9 #3\n"));
}

TEST(Collection, ARedefinedIdIsLoggedAndReplaced) {
  TProblemCollection collection;
  std::vector<std::string> log;
  const auto error = collection.ReadText("3 #2 " + Body() + "3 #4 " + Body(), "f",
                                         [&log](const std::string& line) { log.push_back(line); });
  ASSERT_FALSE(error);
  EXPECT_EQ(collection.Find(3)->stipulation.Moves(), 4);
  EXPECT_EQ(log, (std::vector<std::string>{"Problem 3 read from file.\n",
                                           "WARINING: Problem id=3 redefinition - overwriting.\n",
                                           "Problem 3 read from file.\n"}));
}

TEST(Collection, TheUtf8LineIsOptional) {
  for (const std::string start : {"UTF-8\n\n", "", "  \tUTF-8 ", "\xEF\xBB\xBFUTF-8\n"}) {
    TProblemCollection collection;
    EXPECT_FALSE(collection.ReadText(start + "4 #2 " + Body(), "f")) << start;
    EXPECT_EQ(Ids(collection), std::vector<int>{4}) << start;
  }
}

TEST(Collection, ABadProblemKeepsTheOnesReadBeforeIt) {
  TProblemCollection collection;
  const auto error =
      collection.ReadText("1 #2 " + Body() + "2 #2 Fast " + Body() + "3 #2 " + Body(), "f.cp");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Describe(),
            "f.cp:4:6: Opening bracket expected { or unrecognized option encountered: Fast");
  EXPECT_EQ(Ids(collection), std::vector<int>{1});
}

TEST(Collection, DefaultClausesApplyToProblemsOfTheirLength) {
  TProblemCollection collection;
  const std::string text =
      "UTF-8\n//!default #3 AllSolutions\n\n//!default #2 allsolutions\n"
      "1 #3 " +
      Body() + "2 s#3 " + Body() + "3 #4 " + Body() + "4 #2 " + Body() + "5 " + Body();
  ASSERT_FALSE(collection.ReadText(text, "f"));
  for (const auto& [id, problem] : collection.Problems()) {
    EXPECT_EQ(problem->HasFlag(option::kAllSolutions), id != 3 && id != 5) << id;
  }
}

TEST(Collection, DefaultClausesEndAtTheFirstOtherLine) {
  TProblemCollection collection;
  // After an ordinary comment a clause is a stray comment of the first problem's header.
  ASSERT_FALSE(collection.ReadText("// mine\n//!default #2 Fast\n1 #2 " + Body(), "f"));
  EXPECT_FALSE(collection.Find(1)->HasFlag(option::kAllSolutions));
}

TEST(Collection, NewFileTemplateReadsAsAMateInTwoWithTwoKings) {
  TProblemCollection collection;
  ASSERT_FALSE(collection.ReadText(TProblemCollection::kNewFileTemplate, "new"));
  const TProblem& p = *collection.Find(1);
  EXPECT_EQ(p.stipulation.type, TStipulation::kDirectMate);
  EXPECT_EQ(p.stipulation.Moves(), 2);
  EXPECT_EQ(fen::WriteShortFen(p.start), "4k3/8/8/8/8/8/8/4K3");
  EXPECT_EQ(p.description, "Click here to change problem description");
  EXPECT_EQ(p.options, 0);
}

TEST_F(CollectionFiles, CreateIfMissingWritesTheTemplateOnce) {
  const std::string path = PathOf(TProblemCollection::kUserFileName);
  TProblemCollection collection;
  EXPECT_TRUE(collection.ReadFile(path, {}));  // not asked to create it
  EXPECT_FALSE(std::filesystem::exists(path));
  ASSERT_FALSE(collection.ReadFile(path, {.bCreateIfMissing = true, .log = nullptr}));
  EXPECT_EQ(Content(path), TProblemCollection::kNewFileTemplate);
  EXPECT_EQ(Ids(collection), std::vector<int>{1});

  std::ofstream(path) << "7 #3 " << Body();
  TProblemCollection again;
  ASSERT_FALSE(again.ReadFile(path, {.bCreateIfMissing = true, .log = nullptr}));
  EXPECT_EQ(Ids(again), std::vector<int>{7});
}

TEST_F(CollectionFiles, MissingFileIsReportedWithItsPath) {
  TProblemCollection collection;
  const std::string path = PathOf("none.cp");
  const auto error = collection.ReadFile(path, {});
  ASSERT_TRUE(error);
  EXPECT_EQ(error->text, "Error opening file: " + path);
  EXPECT_EQ(error->line, 0);
  EXPECT_EQ(collection.ReadFile(folder.string(), {})->text,
            "Error opening file: " + folder.string());
}

TEST_F(CollectionFiles, WrittenFileReadsBackTheSameText) {
  TProblemCollection collection;
  ASSERT_FALSE(
      collection.ReadText("2 #2 " + Body("\tA: Ra1-a8\n") + "1 s#3 NoMirror " + Body(), "f"));
  const std::string path = PathOf("out.cp");
  ASSERT_FALSE(collection.WriteFile(path));
  TProblemCollection again;
  ASSERT_FALSE(again.ReadFile(path, {}));
  EXPECT_EQ(again.WriteText(), Content(path));
  EXPECT_EQ(Ids(again), (std::vector<int>{1, 2}));
}

}  // namespace
