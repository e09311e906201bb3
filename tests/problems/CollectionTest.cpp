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
  const auto error =
      collection.ReadText("3 #2 " + Body() + "3 #4 " + Body(), "f",
                          {.log = [&log](const std::string& line) { log.push_back(line); }});
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

TEST(Collection, NewFileTemplateReadsAsAMateInTwoWithTwoKingsInEachLanguage) {
  const struct {
    int nLanguageId;
    const char* description;
    const char* question;
    const char* title;
  } cases[] = {
      {0, "Kliknij, aby zmienić opis problemu",
       "Plik a.cp już istnieje.\nCzy chcesz go zastąpić nowym plikiem?", "Pytanie"},
      {1, "Click here to change problem description",
       "File a.cp already exists.\nDo you want to replace it with a new file?", "Question"},
      {2, "Натисніть, щоб змінити опис задачі",
       "Файл a.cp вже існує.\nБажаєте замінити його новим файлом?", "Питання"},
      {7, "Click here to change problem description",
       "File a.cp already exists.\nDo you want to replace it with a new file?", "Question"},
  };
  for (const auto& c : cases) {
    TProblemCollection collection;
    ASSERT_FALSE(collection.ReadText(TProblemCollection::NewFileTemplate(c.nLanguageId), "new"));
    const TProblem& p = *collection.Find(1);
    EXPECT_EQ(p.stipulation.type, TStipulation::kDirectMate);
    EXPECT_EQ(p.stipulation.Moves(), 2);
    EXPECT_EQ(fen::WriteShortFen(p.start), "4k3/8/8/8/8/8/8/4K3");
    EXPECT_EQ(p.description, c.description);
    EXPECT_EQ(p.options, 0);
    EXPECT_EQ(TProblemCollection::NewFileQuestion("a.cp", c.nLanguageId), c.question);
    EXPECT_STREQ(TProblemCollection::QuestionTitle(c.nLanguageId), c.title);
  }
}

TEST(Collection, NotesAndTranslatedErrorsFollowTheLanguage) {
  const std::string overfull = "1 #2 {\n\tFEN: 4k3/8/8/8/8/PPPPPPPP/8/QQ2K3\n}\n2 #2 " + Body();
  for (const int nLanguageId : {0, 1, 2}) {
    TProblemCollection collection;
    std::vector<std::string> notes;
    ASSERT_FALSE(
        collection.ReadText(overfull, "f",
                            {.note =
                                 [&](const TProblem& p, const std::vector<std::string>& found) {
                                   for (const std::string& note : found)
                                     notes.push_back(std::to_string(p.id) + ": " + note);
                                 },
                             .nLanguageId = nLanguageId}));
    EXPECT_EQ(notes,
              std::vector<std::string>{"1: " + std::string(fen::MaterialWarningText(nLanguageId))});
  }
  EXPECT_STREQ(fen::MaterialWarningText(0),
               "Uwaga: Na szachownicy jest więcej niż 9 hetmanów i pionów tego samego koloru. "
               "Program poprawnie obsługuje tylko legalne pozycje (w których możliwych jest nie "
               "więcej niż 218 ruchów); w przeciwnym razie jego zachowanie może być "
               "nieprzewidywalne.");

  const struct {
    std::string text;
    int nLanguageId;
    const char* error;
  } errors[] = {
      {"1 #2 {\n\tFEN: 4k3/8/8/8/8/8/8/4KK2\n}", 0,
       "2:7: Niepoprawny opis szachownicy: Illegal number of kings."},
      {"1 #2 {\n\tFEN: 4k3/8/8/8/8/8/8/4KK2\n}", 2,
       "2:7: Неправильний опис шахівниці: Illegal number of kings."},
      {"1 #2\n//@SortIndications: 0-0-\n" + Body(), 0,
       "2:1: Niepoprawny opis SortIndication: 0-0-"},
      {"1 #2\n//@SortIndications: 0-0-\n" + Body(), 1,
       "2:1: Invalid description of SortIndication: 0-0-"},
  };
  for (const auto& e : errors) {
    TProblemCollection collection;
    const auto error = collection.ReadText(e.text, "f", {.nLanguageId = e.nLanguageId});
    ASSERT_TRUE(error) << e.text;
    EXPECT_EQ(error->Describe(), "f:" + std::string(e.error));
  }
}

TEST_F(CollectionFiles, CreateIfMissingWritesTheTemplateOnce) {
  const std::string path = PathOf(TProblemCollection::kUserFileName);
  TProblemCollection collection;
  EXPECT_TRUE(collection.ReadFile(path, {}));  // not asked to create it
  EXPECT_FALSE(std::filesystem::exists(path));
  ASSERT_FALSE(collection.ReadFile(path, {.bCreateIfMissing = true, .log = nullptr}));
  EXPECT_EQ(Content(path), TProblemCollection::NewFileTemplate(kEnglishLanguageId));
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
