#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/GuiLog.h"
#include "app/IniFile.h"
#include "app/ProgramState.h"
#include "app/Startup.h"
#include "app/TempFolder.h"
#include "app/platform/SingleInstanceLock.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

std::vector<std::string> NotesFor(const std::string& settingsText) {
  CIniFile settings;
  settings.Parse(settingsText);
  return SecondInstanceNotes(settings);
}

TEST(Startup, SecondInstanceNoteOnlyAboveOne) {
  const std::string english =
      "Note:\nProgram will be opened in read-only mode for .lichess files.\n";
  EXPECT_THAT(NotesFor("[chess]\nWarnAboutSecondInstanceOfProgram=1\nLanguageId=1\n"), IsEmpty());
  EXPECT_THAT(NotesFor("[chess]\nWarnAboutSecondInstanceOfProgram=0\n"), IsEmpty());
  const auto notes = NotesFor("[chess]\nWarnAboutSecondInstanceOfProgram=2\nLanguageId=1\n");
  ASSERT_EQ(notes.size(), 1u);
  EXPECT_TRUE(notes[0].starts_with(english));
  EXPECT_NE(notes[0].find(".cp"), std::string::npos);
  // Before the settings are loaded the language defaults to Polish.
  EXPECT_THAT(NotesFor(""), ElementsAre(SecondInstanceNoteText(0)));
  EXPECT_TRUE(SecondInstanceNoteText(0).starts_with("Uwaga:"));
}

TEST(Startup, LocalTimeFormat) {
  EXPECT_THAT(FormatLocalTime(std::time(nullptr)),
              MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}"));
}

TEST(Startup, SecondCopyIsFlaggedAndBothEndsAreLogged) {
  CTempFolder folder;
  WriteTextFile(folder / "options.ini", "[chess]\nLanguageId=1\n");
  platform::CSingleInstanceLock firstCopy(folder / platform::kInstanceLockFileName);

  const auto notes = StartProgram(folder.Path());
  EXPECT_TRUE(GetProgramState().bSecondInstance);
  EXPECT_THAT(notes, ElementsAre(SecondInstanceNoteText(1)));
  EXPECT_EQ(GetProgramState().guiLogPath, folder / "chessGUI.log");
  ShutDownProgram();

  const std::string stamp = "\\([0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\)";
  EXPECT_THAT(ReadTextFile(folder / "chessGUI.log"),
              MatchesRegex("Program opened " + stamp + "\nProgram close " + stamp + "\n"));
}

TEST(Startup, FirstCopyShowsNoNoteAndReleasesTheLockAtTheEnd) {
  CTempFolder folder;
  EXPECT_THAT(StartProgram(folder.Path()), IsEmpty());
  EXPECT_FALSE(GetProgramState().bSecondInstance);
  EXPECT_TRUE(
      platform::CSingleInstanceLock(folder / platform::kInstanceLockFileName).IsSecondInstance());
  ShutDownProgram();
  EXPECT_FALSE(
      platform::CSingleInstanceLock(folder / platform::kInstanceLockFileName).IsSecondInstance());
}

}  // namespace
