#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "app/IniFile.h"
#include "app/OptionKeys.h"
#include "app/Options.h"
#include "app/TempFolder.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint64_t kSixteenGiB = std::uint64_t{16} << 30;

std::map<std::string, std::string> EffectiveValues(const COptions& options) {
  std::map<std::string, std::string> values;
  for (const TOptionKey& key : OptionKeys()) values[key.szName] = EffectiveValueText(options, key);
  return values;
}

COptions Loaded(const std::string& fileText, std::vector<std::string>* warnings = nullptr) {
  CIniFile ini;
  ini.Parse(fileText);
  COptions options;
  auto produced = LoadOptions(ini, kSixteenGiB, options);
  if (warnings) *warnings = std::move(produced);
  return options;
}

TEST(Options, WithoutAFileEveryDefaultApplies) {
  const std::map<std::string, std::string> expected{{"LanguageId", "1"},
                                                    {"QuickMode", "1"},
                                                    {"WarningOnLichessDataRepetition", "0"},
                                                    {"SchedulerLevels", "6"},
                                                    {"CheckTempRegCoherency", "1"},
                                                    {"CustomScheduler", "1"},
                                                    {"ObserverLevels", "0"},
                                                    {"LichessLevels", "1"},
                                                    {"WarnAboutSecondInstanceOfProgram", "2"},
                                                    {"PromptHeuristics", "0"},
                                                    {"MaxMemRatioForTempReg", "20"},
                                                    {"ClearRegisterOnStartSolving", "1"},
                                                    {"MaxMemRatioForPrecalculatedData", "20"},
                                                    {"LetAnalyzeTheSameMoveInTwoThreads", "1"},
                                                    {"CommentCompatibilityMode", "0"},
                                                    {"ShowMainVariant", "1"},
                                                    {"UseMainVariantAsSortIndications", "0"},
                                                    {"LogMoves", "0"},
                                                    {"RegisterInfoLog", "0"},
                                                    {"TryRelaxSpecialHeuristicsLog", "0"},
                                                    {"MinimizeToTray", "2"},
                                                    {"AskForGlobalRegisterRecompression", "0"},
                                                    {"UseDataPackedForRandomAccess", "2"},
                                                    {"GlobalRegisterForceDiskAccess", "1"},
                                                    {"PrecalcPath", ""},
                                                    {"AskIfSaveAfterDecompressAllToMem", "0"},
                                                    {"MultithreadingLevels", "1"},
                                                    {"LogToFileTmpRegLoad", "1"},
                                                    {"CustomizedVersion", "0"},
                                                    {"EnableManualEngineControl", "0"},
                                                    {"ScalingWarningDismissed", "0"},
                                                    {"LichessScheme", "https"},
                                                    {"LichessHost", "tablebase.lichess.ovh"},
                                                    {"AlbrechtHost", "https://www.dieschwalbe.de/"},
                                                    {"GameknotHost", "https://gameknot.com/"},
                                                    {"MesonHost", "https://www.bstephen.me.uk"},
                                                    {"PdbHost", "https://www.softdecc.com/pdb/"},
                                                    {"ChessStarHost", "https://www.chessstar.com"},
                                                    {"YacpdbHost", "https://www.yacpdb.org"}};
  std::vector<std::string> warnings;
  const COptions options = Loaded("", &warnings);
  EXPECT_EQ(EffectiveValues(options), expected);
  EXPECT_EQ(OptionKeys().size(), expected.size());
  EXPECT_TRUE(options.keysFromFile.none());
  EXPECT_THAT(warnings, IsEmpty());
  EXPECT_EQ(EffectiveValues(DefaultOptions()), expected);
}

TEST(Options, KeysAreReadInTheirFileOrder) {
  std::vector<std::string> names;
  for (const TOptionKey& key : OptionKeys()) names.emplace_back(key.szName);
  EXPECT_EQ(names.front(), "LanguageId");
  EXPECT_EQ(names[3], "SchedulerLevels");
  EXPECT_EQ(names[24], "PrecalcPath");
  EXPECT_EQ(names[30], "ScalingWarningDismissed");
  EXPECT_EQ(names.back(), "YacpdbHost");
}

TEST(Options, FileValuesAndTheirQuirks) {
  const COptions options = Loaded(
      "[chess]\nQuickMode=0\nSchedulerLevels=8\nMultithreadingLevels=3\nObserverLevels=-2\n"
      "ShowMainVariant=7\nMinimizeToTray=9\nWarnAboutSecondInstanceOfProgram=-1\n"
      "LichessLevels=oops\nPrecalcPath= /data/precalc \n");
  EXPECT_FALSE(options.bQuickMode);
  EXPECT_EQ(options.nSchedulerLevels, 9);
  EXPECT_EQ(options.nMultithreadingLevels, 1);
  EXPECT_EQ(options.nObserverLevels, -2);
  EXPECT_TRUE(options.bShowMainVariant);
  EXPECT_EQ(options.nMinimizeToTray, 2);
  EXPECT_EQ(options.nWarnAboutSecondInstanceOfProgram, 0);
  EXPECT_EQ(options.nLichessLevels, 1);
  EXPECT_EQ(options.sPrecalcPath, "/data/precalc");
  const auto keys = OptionKeys();
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const std::string name = keys[i].szName;
    const bool bInFile = name == "QuickMode" || name == "SchedulerLevels" ||
                         name == "MultithreadingLevels" || name == "ObserverLevels" ||
                         name == "ShowMainVariant" || name == "MinimizeToTray" ||
                         name == "WarnAboutSecondInstanceOfProgram" || name == "PrecalcPath";
    EXPECT_EQ(options.keysFromFile[i], bInFile) << name;
  }
}

TEST(Options, EmptyPrecalcPathKeepsTheStoredOneAndLongPathsAreCut) {
  CIniFile ini;
  ini.Parse("[chess]\nPrecalcPath=\n");
  COptions options;
  options.sPrecalcPath = "/kept";
  LoadOptions(ini, kSixteenGiB, options);
  EXPECT_EQ(options.sPrecalcPath, "/kept");

  std::string longPath;
  for (int i = 0; i < 300; ++i) longPath += "ł";
  EXPECT_EQ(Loaded("[chess]\nPrecalcPath=" + longPath + "\n").sPrecalcPath,
            longPath.substr(0, 254 * 2));
}

TEST(Options, MemoryQuotasFollowTheRatios) {
  const COptions options =
      Loaded("[chess]\nMaxMemRatioForTempReg=25\nMaxMemRatioForPrecalculatedData=30\n");
  EXPECT_EQ(options.nTempRegQuotaMB, 4096u);
  EXPECT_EQ(options.nTempRegSecondBoundMB, 3276u);  // 20 % whatever the ratio
  EXPECT_EQ(options.nPrecalcQuotaBytes, kSixteenGiB * 30 / 100);
}

TEST(Options, WarningsComeInOrderAndInTheLanguageRead) {
  std::vector<std::string> warnings;
  const COptions options = Loaded(
      "[chess]\nLogMoves=1\nAskForGlobalRegisterRecompression=3\nUseDataPackedForRandomAccess=2\n",
      &warnings);
  EXPECT_THAT(warnings,
              ElementsAre("Value of parameter AskForGlobalRegisterRecompression should not be "
                          "greater than UseDataPackedForRandomAccess.",
                          "Program has been opened with the option to write log of full analysis "
                          "- this option is not recommended (it makes solving last much longer "
                          "and produces large log files)"));
  EXPECT_EQ(options.nAskForGlobalRegisterRecompression, 2);

  Loaded("[chess]\nLanguageId=0\nLogMoves=1\n", &warnings);
  ASSERT_EQ(warnings.size(), 1u);
  EXPECT_TRUE(warnings[0].starts_with("Program został otwarty")) << warnings[0];
}

TEST(Options, StoreWritesOnlyDialogKeysInTheirStoredForm) {
  COptions options = Loaded("");
  options.nSchedulerLevels = 9;
  options.nMultithreadingLevels = 3;
  options.bQuickMode = false;
  CIniFile ini;
  ini.Parse("; settings\n[view]\nZoom=2\n\n[chess]\nLanguageId=0\n; mine\nLogToFileTmpRegLoad=0\n");
  StoreOptions(options, ini);
  EXPECT_EQ(ini.GetInt("chess", "SchedulerLevels", 0), 8);
  EXPECT_EQ(ini.GetInt("chess", "MultithreadingLevels", 0), 3);
  EXPECT_EQ(ini.GetString("chess", "QuickMode", ""), "0");
  EXPECT_EQ(ini.GetString("chess", "WarnAboutSecondInstanceOfProgram", ""), "2");
  EXPECT_EQ(ini.GetInt("chess", "LanguageId", 9), 0);  // not written by the dialog
  EXPECT_EQ(ini.GetInt("chess", "LogToFileTmpRegLoad", 9), 0);
  EXPECT_FALSE(ini.FindString("chess", "PrecalcPath"));
  EXPECT_TRUE(ini.Text().starts_with(
      "; settings\n[view]\nZoom=2\n\n[chess]\nLanguageId=0\n; mine\nLogToFileTmpRegLoad=0\n"
      "QuickMode=0\n"));
}

TEST(Options, ReadWriteRoundTripThroughTheProcessSettings) {
  CTempFolder folder;
  const auto path = folder / "options.ini";
  WriteTextFile(path, "[other]\nA=1\n[chess]\nSchedulerLevels=8\nMultithreadingLevels=3\n");
  const COptions saved = Options();
  EXPECT_THAT(ReadOptions(path), IsEmpty());
  EXPECT_EQ(Options().nSchedulerLevels, 9);
  ASSERT_FALSE(WriteOptions(path));
  const std::string written = ReadTextFile(path);
  EXPECT_TRUE(
      written.starts_with("[other]\nA=1\n[chess]\nSchedulerLevels=8\nMultithreadingLevels=1\n"))
      << written;
  const COptions first = Options();
  ReadOptions(path);
  EXPECT_EQ(EffectiveValues(Options()), EffectiveValues(first));
  Options() = saved;
}

}  // namespace
