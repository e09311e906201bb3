#include "app/OptionKeys.h"

#include <array>
#include <type_traits>

namespace {

using enum EOptionRule;
constexpr bool W = true;   // written back by the options dialog
constexpr bool R = false;  // read only

const std::array<TOptionKey, 39> kKeys{{
    {"LanguageId", &COptions::nLanguageId, 1, R, Plain},
    {"QuickMode", &COptions::bQuickMode, 1, W, Plain},
    {"WarningOnLichessDataRepetition", &COptions::bWarningOnLichessDataRepetition, 0, R, Plain},
    {"SchedulerLevels", &COptions::nSchedulerLevels, 5, W, LevelsStoredMinusOne},
    {"CheckTempRegCoherency", &COptions::bCheckTempRegCoherency, 1, R, Plain},
    {"CustomScheduler", &COptions::bCustomScheduler, 1, W, Plain},
    {"ObserverLevels", &COptions::nObserverLevels, 0, W, Plain},
    {"LichessLevels", &COptions::nLichessLevels, 1, W, Plain},
    {"WarnAboutSecondInstanceOfProgram", &COptions::nWarnAboutSecondInstanceOfProgram, 2, W,
     RangeZeroToTwo},
    {"PromptHeuristics", &COptions::bPromptHeuristics, 0, W, Plain},
    {"MaxMemRatioForTempReg", &COptions::nMaxMemRatioForTempReg, 20, W, Plain},
    {"ClearRegisterOnStartSolving", &COptions::bClearRegisterOnStartSolving, 1, W, Plain},
    {"MaxMemRatioForPrecalculatedData", &COptions::nMaxMemRatioForPrecalculatedData, 20, W, Plain},
    {"LetAnalyzeTheSameMoveInTwoThreads", &COptions::bLetAnalyzeTheSameMoveInTwoThreads, 1, W,
     Plain},
    {"CommentCompatibilityMode", &COptions::bCommentCompatibilityMode, 0, W, Plain},
    {"ShowMainVariant", &COptions::bShowMainVariant, 1, W, Plain},
    {"UseMainVariantAsSortIndications", &COptions::bUseMainVariantAsSortIndications, 0, W, Plain},
    {"LogMoves", &COptions::bLogMoves, 0, W, Plain},
    {"RegisterInfoLog", &COptions::bRegisterInfoLog, 0, W, Plain},
    {"TryRelaxSpecialHeuristicsLog", &COptions::bTryRelaxSpecialHeuristicsLog, 0, W, Plain},
    {"MinimizeToTray", &COptions::nMinimizeToTray, 2, W, RangeZeroToTwo},
    {"AskForGlobalRegisterRecompression", &COptions::nAskForGlobalRegisterRecompression, 0, R,
     Plain},
    {"UseDataPackedForRandomAccess", &COptions::nUseDataPackedForRandomAccess, 2, R, Plain},
    {"GlobalRegisterForceDiskAccess", &COptions::bGlobalRegisterForceDiskAccess, 1, W, Plain},
    {"PrecalcPath", &COptions::sPrecalcPath, 0, R, Plain},
    {"AskIfSaveAfterDecompressAllToMem", &COptions::bAskIfSaveAfterDecompressAllToMem, 0, R, Plain},
    {"MultithreadingLevels", &COptions::nMultithreadingLevels, 1, W, ReadAsSwitch},
    {"LogToFileTmpRegLoad", &COptions::bLogToFileTmpRegLoad, 1, R, Plain},
    {"CustomizedVersion", &COptions::bCustomizedVersion, 0, R, Plain},
    {"EnableManualEngineControl", &COptions::bEnableManualEngineControl, 0, W, Plain},
    {"ScalingWarningDismissed", &COptions::bScalingWarningDismissed, 0, R, Plain},
    {"LichessScheme", &COptions::sLichessScheme, 0, R, Plain, "https"},
    {"LichessHost", &COptions::sLichessHost, 0, R, Plain, "tablebase.lichess.ovh"},
    {"AlbrechtHost", &COptions::sAlbrechtHost, 0, R, Plain, "https://www.dieschwalbe.de/"},
    {"GameknotHost", &COptions::sGameknotHost, 0, R, Plain, "https://gameknot.com/"},
    {"MesonHost", &COptions::sMesonHost, 0, R, Plain, "https://www.bstephen.me.uk"},
    {"PdbHost", &COptions::sPdbHost, 0, R, Plain, "https://www.softdecc.com/pdb/"},
    {"ChessStarHost", &COptions::sChessStarHost, 0, R, Plain, "https://www.chessstar.com"},
    {"YacpdbHost", &COptions::sYacpdbHost, 0, R, Plain, "https://www.yacpdb.org"},
}};

static_assert(kKeys.size() <= decltype(COptions::keysFromFile){}.size());

// The member's value as an integer (switches as 1/0); strings are not asked.
long long IntegerValue(const COptions& options, const TOptionKey& key) {
  return std::visit(
      [&options](auto member) -> long long {
        const auto& value = options.*member;
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::string>)
          return 0;
        else
          return static_cast<long long>(value);
      },
      key.member);
}

}  // namespace

std::span<const TOptionKey> OptionKeys() {
  return kKeys;
}

std::string EffectiveValueText(const COptions& options, const TOptionKey& key) {
  if (const auto* text = std::get_if<std::string COptions::*>(&key.member)) return options.**text;
  return std::to_string(IntegerValue(options, key));
}

std::string StoredValueText(const COptions& options, const TOptionKey& key) {
  if (key.rule == EOptionRule::LevelsStoredMinusOne)
    return std::to_string(IntegerValue(options, key) - 1);
  return EffectiveValueText(options, key);
}
