#pragma once
// The process-wide settings, read once from "options.ini" (section "chess") at
// start-up and written back when the user confirms the options dialog. Other
// code reads these members, never the file. The defaults live in the key
// table (OptionKeys.h) alone: a default-constructed COptions is all zeros,
// DefaultOptions() holds the defaults.
#include <bitset>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class CIniFile;

struct COptions {
  int nLanguageId = 0;
  bool bQuickMode = false;
  bool bWarningOnLichessDataRepetition = false;
  std::int16_t nSchedulerLevels = 0;  // levels, i.e. the file value + 1; 0 means off
  bool bCheckTempRegCoherency = false;
  bool bCustomScheduler = false;
  std::int16_t nObserverLevels = 0;
  std::int16_t nLichessLevels = 0;
  int nWarnAboutSecondInstanceOfProgram = 0;  // 0..2
  bool bPromptHeuristics = false;
  std::uint8_t nMaxMemRatioForTempReg = 0;  // percent
  bool bClearRegisterOnStartSolving = false;
  std::uint8_t nMaxMemRatioForPrecalculatedData = 0;  // percent
  bool bLetAnalyzeTheSameMoveInTwoThreads = false;
  bool bCommentCompatibilityMode = false;
  bool bShowMainVariant = false;
  bool bUseMainVariantAsSortIndications = false;
  bool bLogMoves = false;
  bool bRegisterInfoLog = false;
  bool bTryRelaxSpecialHeuristicsLog = false;
  int nMinimizeToTray = 0;  // 0 never, 1 always, 2 only with Ctrl
  std::uint8_t nAskForGlobalRegisterRecompression = 0;
  std::uint8_t nUseDataPackedForRandomAccess = 0;
  bool bGlobalRegisterForceDiskAccess = false;
  std::string sPrecalcPath;
  bool bAskIfSaveAfterDecompressAllToMem = false;
  std::uint8_t nMultithreadingLevels = 0;  // the file keeps only on/off of it, see OptionKeys
  bool bLogToFileTmpRegLoad = false;
  bool bCustomizedVersion = false;
  bool bEnableManualEngineControl = false;
  bool bScalingWarningDismissed = false;
  // Where the online tablebase answers ("https", "tablebase.lichess.ovh").
  std::string sLichessScheme;
  std::string sLichessHost;
  // The addresses before the query paths of the problem databases that descriptions link to.
  std::string sAlbrechtHost;
  std::string sGameknotHost;
  std::string sMesonHost;
  std::string sPdbHost;
  std::string sChessStarHost;
  std::string sYacpdbHost;

  // Derived from the machine's total physical memory when the file is read.
  std::uint64_t nTempRegQuotaMB = 0;
  std::uint64_t nTempRegSecondBoundMB = 0;  // always 20 % of the memory, whatever the ratio says
  std::uint64_t nPrecalcQuotaBytes = 0;

  // Bit i: key i of OptionKeys() took its value from the file rather than the default.
  std::bitset<64> keysFromFile;
};

// The settings of this process; they hold the defaults until ReadOptions runs.
COptions& Options();
COptions DefaultOptions();

// "options.ini" in the working folder.
std::filesystem::path DefaultOptionsPath();

// Reads every key into the process settings and returns the warnings to show.
std::vector<std::string> ReadOptions();
std::vector<std::string> ReadOptions(const std::filesystem::path& iniFile);
// Writes the keys the options dialog owns, keeping everything else in the file. Returns the
// error text naming the file, nothing on success; a file that cannot be read is left alone.
std::optional<std::string> WriteOptions();
std::optional<std::string> WriteOptions(const std::filesystem::path& iniFile);

// The same without the process settings and the machine: warnings come back in
// the language just read. A missing key takes its default; an empty PrecalcPath
// keeps the path already stored in `options`.
std::vector<std::string> LoadOptions(const CIniFile& ini, std::uint64_t nTotalPhysicalBytes,
                                     COptions& options);
void StoreOptions(const COptions& options, CIniFile& ini);
// The memory quotas from the ratio keys, again after the options dialog changed them.
void DeriveMemoryQuotas(std::uint64_t nTotalPhysicalBytes, COptions& options);
