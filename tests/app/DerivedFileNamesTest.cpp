// Names of the files kept per problem or per piece set come from problem data; whatever that
// data, each stays a plain entry of the folder it is meant for.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "TestData.h"
#include "app/LiChessCache.h"
#include "app/SolvingSession.h"
#include "core/Fen.h"
#include "core/PlainFileName.h"
#include "registers/SolvedPositionsFile.h"
#include "registers/TableFile.h"
#include "registers/TemporaryRegisterFile.h"

namespace {

TEST(PlainFileName, EveryWayOutOfTheFolderIsClosed) {
  const std::pair<std::string, std::string> cases[] = {
      {"KRK.lmt", "KRK.lmt"},
      {"1a(B)c.97", "1a(B)c.97"},
      {"", "_"},
      {".", "_"},
      {"..", "_"},
      {"...", "..."},
      {"../../etc/passwd", ".._.._etc_passwd"},
      {"/etc/passwd", "_etc_passwd"},
      {"..\\..\\boot.ini", ".._.._boot.ini"},
      {"C:autoexec.bat", "C_autoexec.bat"},
      {std::string("a\0b", 3), "a_b"},
      {"line\nbreak\r\t\x7f", "line_break___"},
      {"za\xC5\xBC\xC3\xB3\xC5\x82\xC4\x87", "za\xC5\xBC\xC3\xB3\xC5\x82\xC4\x87"},
  };
  for (const auto& [name, plain] : cases) {
    EXPECT_EQ(filename::Plain(name), plain) << name;
    EXPECT_TRUE(filename::IsPlain(filename::Plain(name))) << name;
    EXPECT_EQ(filename::IsPlain(name), name == plain) << name;
  }
}

// The name is one entry, directly in folder.
void ExpectEntryOf(const std::filesystem::path& folder, const std::filesystem::path& file) {
  EXPECT_EQ(file.parent_path(), folder) << file;
  EXPECT_TRUE(filename::IsPlain(file.filename().string())) << file;
}

TEST(PlainFileName, FilesOfEveryReferencePositionStayInTheirFolders) {
  const std::filesystem::path work = "/work folder";
  for (const testdata::TRow& row : testdata::ReadTsv("directmates.tsv")) {
    TProblem problem;
    ASSERT_TRUE(fen::ReadFen(problem.start, row.at("fen"))) << row.at("fen");
    problem.SetStipulation(TStipulation::DirectMate(std::stoi(row.at("n"))));
    ExpectEntryOf(work / CLiChessCache::kFolder, CLiChessCache::FileOf(work, problem.start));
    ExpectEntryOf(registerfile::kFolder, CSolvingSession::DefaultRegisterFile(problem));
    ExpectEntryOf(solvedpositions::kFolder,
                  solvedpositions::FileName(TChessboardId(problem.start)));
  }
  for (const char* name : {"KQK", "KRKP", "KBNKN", "KPPKP"}) {
    const std::filesystem::path table = tablefile::PathOf(work, TTableMaterial::Parse(name));
    ExpectEntryOf(table.parent_path(), table);
    ExpectEntryOf(work, table.parent_path());
  }
}

}  // namespace
