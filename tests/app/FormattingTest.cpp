#include <gtest/gtest.h>

#include "app/Formatting.h"
#include "app/NoSolutionReport.h"
#include "app/StatusLine.h"

namespace {

TEST(Formatting, CountBandsKeepTheirEdges) {
  const std::pair<std::uint32_t, const char*> cases[] = {
      {0, ""},
      {1, "1"},
      {949, "949"},
      {950, "1.0k"},
      {973, "1.0k"},
      {974, "0k"},
      {1023, "0k"},
      {1024, "1k"},
      {972799, "949k"},
      {972800, "1.0M"},
      {0x9FFFFF, "10.0M"},
      {0xA00000, "10M"},
      {996147199, "949M"},
      {996147200, "0.9G"},
      {0xFFFFFFFF, "4.0G"},
  };
  for (const auto& [count, text] : cases) EXPECT_EQ(FormatCount(count), text) << count;
}

TEST(Formatting, MemorySizeSwitchesToGigabytesAt1000MB) {
  const std::pair<std::uint64_t, const char*> cases[] = {
      {0, "0MB"},
      {(std::uint64_t{1} << 20) - 1, "0MB"},
      {std::uint64_t{999} << 20, "999MB"},
      {(std::uint64_t{1000} << 20) - 1, "999MB"},
      {std::uint64_t{1000} << 20, "1.0GB"},
      {std::uint64_t{16} << 30, "16.0GB"},
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(FormatMemorySize(bytes), text) << bytes;
}

TEST(Formatting, ElapsedTimeGainsHoursFromOneHour) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "0:00"},       {59, "0:59"},      {61, "1:01"},        {3599, "59:59"},
      {3600, "1:00:00"}, {3661, "1:01:01"}, {36000, "10:00:00"}, {100 * 3600 + 5, "100:00:05"},
  };
  for (const auto& [seconds, text] : cases) EXPECT_EQ(FormatElapsed(seconds), text) << seconds;
}

TStatusItems FullItems() {
  return {.sPass = "1b",
          .sHeuristics = "SH_DONTLETKINGMOVE",
          .bSafeMode = true,
          .nGlobalRegisterBytes = std::uint64_t{1500} << 20,
          .nMoves = 12,
          .sTypeMark = "#",
          .nExtraMoves = 2,
          .nThreads = 4,
          .dPercentDone = 12.345,
          .nPositions = 1234567890123,
          .nElapsedSeconds = 3725};
}

TEST(StatusLine, ShowsEveryItemWhenItFits) {
  EXPECT_EQ(ComposeStatusLine(FullItems(), 200),
            "Pass 1b SH(SH_DONTLETKINGMOVE) Safe mode ON GR=1.5GB 12#+2 Thrds=4 12.3% "
            "1234567890123 1:02:05");
  TStatusItems plain = FullItems();
  plain.bSafeMode = false;
  plain.nGlobalRegisterBytes.reset();
  plain.nExtraMoves = 0;
  plain.sHeuristics.clear();
  EXPECT_EQ(ComposeStatusLine(plain, 200), "Pass 1b SH() 12# Thrds=4 12.3% 1234567890123 1:02:05");
}

TEST(StatusLine, IsCutToTheWidthEndingInDots) {
  const std::string full = ComposeStatusLine(FullItems(), 1000);
  EXPECT_EQ(ComposeStatusLine(FullItems(), full.size()), full);
  const std::pair<std::size_t, std::string> cases[] = {
      {full.size() - 1, full.substr(0, full.size() - 5) + "... "},
      {10, "Pass 1... "},
      {4, "... "},
      {2, ".."},
      {0, ""},
  };
  for (const auto& [width, text] : cases) EXPECT_EQ(ComposeStatusLine(FullItems(), width), text);
}

TEST(NoSolutionReport, ListsEachReasonThatApplies) {
  const std::string relaxation =
      "\t* there was only one pass with heuristcs (relaxation of heuristics was switched off by "
      "user's request)\n";
  const std::string skipped = "\t* pass without heuristics has been skipped (on user's request)\n";
  const std::string quick =
      "\t* in Quick Mode (see menu Advanced->Options) there exists a small probability (~0.3%) of "
      "false negatives\n";
  const std::pair<TNoSolutionCircumstances, std::string> cases[] = {
      {{.nMoves = 7}, "Not found any solutions for #7"},
      {{.nMoves = 7, .bQuickMode = true}, "Not found any solutions for #7\n\nNote:\n" + quick},
      {{.nMoves = 30,
        .bRelaxationOff = true,
        .bPassWithoutHeuristicsSkipped = true,
        .bQuickMode = true},
       "Not found any solutions for #30\n\nNote:\n" + relaxation + skipped + quick},
      {{.nMoves = 3, .bPassWithoutHeuristicsSkipped = true},
       "Not found any solutions for #3\n\nNote:\n" + skipped},
      {{.nMoves = 4, .bSelfmate = true}, "Not found any solutions for s#4"},
  };
  for (const auto& [circumstances, text] : cases)
    EXPECT_EQ(NoSolutionReport(1, circumstances), text);
  EXPECT_TRUE(NoSolutionReport(0, {.nMoves = 3}).starts_with("Nie znaleziono"));
  EXPECT_TRUE(NoSolutionReport(5, {.nMoves = 3}).starts_with("Not found"));
}

}  // namespace
