// Every file the program saves or logs to outside the registers, failed at each step of the
// writing: problem files, options.ini, the tablebase cache, the search report and the logs.
#include <gtest/gtest.h>

#include "TempFolder.h"
#include "WriterFaults.h"
#include "app/GuiLog.h"
#include "app/LiChessCache.h"
#include "app/Options.h"
#include "app/RegressionLog.h"
#include "app/SearchReport.h"
#include "problems/Collection.h"

namespace {

using writerfaults::TWriter;

const std::string kFen = "8/8/8/8/8/8/8/K1k5 w - - 0 1";

std::string TextOf(const std::optional<std::string>& error) {
  return error.value_or("");
}

class WriterFaults : public testing::Test {
 protected:
  CTempFolder folder;
};

TEST_F(WriterFaults, SavedFilesStayWholeAndTheRetrySucceeds) {
  TProblemCollection collection;
  ASSERT_FALSE(collection.ReadText(TProblemCollection::NewFileTemplate(kEnglishLanguageId), "new"));
  const auto problems = folder / "problems.cp";
  const auto ini = folder / "options.ini";
  const auto cache = folder / "answers.lichess";
  const auto report = folder / kSearchProblemsLogName;
  const TWriter writers[] = {
      {"problem file", problems, [&] { return TextOf(collection.WriteFile(problems.string())); }},
      {"new problem file", problems,
       [&] {
         return TextOf(TProblemCollection::WriteNewFile(problems.string(), kEnglishLanguageId));
       }},
      {"options.ini", ini, [&] { return TextOf(WriteOptions(ini)); }},
      // A cache of another version is replaced as a whole.
      {"tablebase cache", cache,
       [&] { return TextOf(CLiChessCache(cache, false).Store(kFen, CLiChess{})); }},
      {"search report", report,
       [&] { return TextOf(WriteSearchReports(folder.Path(), TSearchQuery{}, TSearchResult{})); }},
  };
  for (const TWriter& writer : writers) {
    WriteTextFile(writer.file, "an earlier file\n");
    writerfaults::ExpectEachFaultKeepsTheOldFile(writer, 16);
    std::filesystem::remove(writer.file);
  }
}

TEST_F(WriterFaults, LogsKeepTheirEarlierLines) {
  const auto cache = folder / "answers.lichess";
  const auto guiLog = folder / kGuiLogFileName;
  const CRegressionLog regression(folder.Path());
  const TWriter writers[] = {
      {"tablebase cache", cache,
       [&] { return TextOf(CLiChessCache(cache, false).Store(kFen, CLiChess{})); }, true},
      {"program log", guiLog, [&] { return TextOf(AppendTimedLogLine(guiLog, "Program opened")); },
       true},
      {"regression log", regression.Path(),
       [&] { return TextOf(regression.Append("1: key Qa1-a8 as published\n")); }, true},
  };
  for (const TWriter& writer : writers) {
    ASSERT_EQ(writer.write(), "") << writer.name;  // the earlier lines
    writerfaults::ExpectEachFaultKeepsTheOldFile(writer, 8);
  }
}

}  // namespace
