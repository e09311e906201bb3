// The tables service: files found in either folder, the quota, and the notices about
// files that cannot be used.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <stop_token>

#include "TempFolder.h"
#include "app/TablesReports.h"
#include "app/TablesService.h"
#include "registers/TableFile.h"

namespace {

class TablesService : public ::testing::Test {
 protected:
  TTablesSettings Settings(std::uint64_t nQuotaBytes) {
    TTablesSettings settings;
    settings.folder = folder / "Precalc";
    settings.nQuotaBytes = nQuotaBytes;
    settings.nThreads = 1;
    return settings;
  }
  CTablesService Service(std::uint64_t nQuotaBytes = 1 << 30, bool bDiskAccess = false) {
    TTablesSettings settings = Settings(nQuotaBytes);
    settings.bDiskAccess = bDiskAccess;
    return CTablesService(settings,
                          [this](const std::string& message) { messages.push_back(message); });
  }
  // White king a1, rook b2, Black king h8, White to move.
  static TChessboard KrkBoard() {
    TChessboard board;
    ClearChessboard(board);
    board.squares[0] = piece::kWhiteKing;
    board.squares[63] = piece::kBlackKing;
    board.squares[9] = piece::kWhiteRook;
    board.ply = 5;
    Analyse(board, true);
    return board;
  }

  CTempFolder folder;
  std::vector<std::string> messages;
};

TEST_F(TablesService, GeneratesWhatIsMissingAndProbesIt) {
  CTablesService service = Service();
  const auto generated =
      service.Generate({TTableMaterial::Parse("KRK"), TTableMaterial::Parse("KQK")});
  ASSERT_EQ(generated.size(), 2u);
  EXPECT_TRUE(generated[0].bGenerated);
  EXPECT_GT(generated[0].nBytes, 0u);
  EXPECT_TRUE(std::filesystem::exists(service.FileOf(TTableMaterial::Parse("KRK"))));
  // Already on disk: nothing is generated again.
  const auto again = service.Generate({TTableMaterial::Parse("KRK")});
  ASSERT_EQ(again.size(), 1u);
  EXPECT_FALSE(again[0].bGenerated);

  const auto answer = ProbeFen(service, "8/8/8/8/8/8/1Q6/k1K5 b - - 0 1");
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->valueText, "Black is mated");
  const auto mateInOne = ProbeFen(service, "k7/8/1K6/8/8/8/7Q/8 w - - 0 1");
  ASSERT_TRUE(mateInOne);
  EXPECT_EQ(mateInOne->valueText, "mate in 1");
  EXPECT_EQ(mateInOne->bestMoves, (std::vector<std::string>{"Qh2-h8"}));
  EXPECT_FALSE(ProbeFen(service, "k7/8/1K6/8/8/8/8/6RR w - - 0 1"));  // no KRRK table
  EXPECT_TRUE(messages.empty());
}

TEST_F(TablesService, LoadedTablesStayWithinTheQuota) {
  Service().Generate({TTableMaterial::Parse("KRK"), TTableMaterial::Parse("KQK")});
  const std::uint64_t nOneTable = 2 * 40960;
  CTablesService service = Service(nOneTable + 100);
  ASSERT_TRUE(service.Acquire(TTableMaterial::Parse("KRK")));
  ASSERT_TRUE(service.Acquire(TTableMaterial::Parse("KQK")));
  EXPECT_EQ(service.LoadedBytes(), nOneTable);
  ASSERT_EQ(service.Loaded().size(), 1u);
  EXPECT_EQ(service.Loaded()[0].name, "KQK");
  // A table larger than the whole quota is refused, once, with a notice.
  CTablesService small = Service(1000);
  EXPECT_FALSE(small.Acquire(TTableMaterial::Parse("KRK")));
  EXPECT_FALSE(small.Acquire(TTableMaterial::Parse("KRK")));
  EXPECT_EQ(messages.size(), 1u);
}

TEST_F(TablesService, AnUnusableFileIsReportedOnceByNameAndSkipped) {
  Service().Generate({TTableMaterial::Parse("KRK")});
  const auto file = tablefile::PathOf(folder / "Precalc", TTableMaterial::Parse("KRK"));
  std::filesystem::resize_file(file, 100);
  CTablesService service = Service();
  TChessboard board = KrkBoard();
  EXPECT_FALSE(service.Probe(board));
  EXPECT_FALSE(service.Probe(board));
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_NE(messages[0].find(file.string()), std::string::npos);
  // A set whose folder was never made is not news.
  board.squares[9] = piece::kWhiteQueen;
  Analyse(board, true);
  EXPECT_FALSE(service.Probe(board));
  EXPECT_EQ(messages.size(), 1u);
}

TEST_F(TablesService, ProbingInTheFilesAnswersAsTheLoadedTableAndLoadsNothing) {
  Service().Generate({TTableMaterial::Parse("KRK")});
  CTablesService loaded = Service();
  CTablesService onDisk = Service(1 << 20, true);
  TChessboard board;
  int nProbed = 0;
  // Every placement of the rook with the kings on a few squares, both sides to move.
  for (const auto& [whiteKing, blackKing] :
       {std::pair{18, 0}, std::pair{36, 63}, std::pair{0, 2}}) {
    for (int rook = 0; rook < 64; ++rook) {
      if (rook == whiteKing || rook == blackKing) continue;
      for (bool bWhite : {true, false}) {
        ClearChessboard(board);
        board.squares[whiteKing] = piece::kWhiteKing;
        board.squares[blackKing] = piece::kBlackKing;
        board.squares[rook] = piece::kWhiteRook;
        board.ply = bWhite ? 5 : 4;
        if (!TryAnalyse(board, true)) continue;
        EXPECT_EQ(onDisk.Probe(board), loaded.Probe(board)) << rook << " " << bWhite;
        ++nProbed;
      }
    }
  }
  EXPECT_GT(nProbed, 300);
  EXPECT_EQ(onDisk.LoadedBytes(), 0u);
  EXPECT_EQ(onDisk.DiskUse().nTables, 1u);
  EXPECT_GT(onDisk.DiskUse().nBlockBytes, 0u);
  EXPECT_TRUE(messages.empty());
}

TEST_F(TablesService, ACorruptFileProbedOnDiskIsReportedOnceAndSkipped) {
  Service().Generate({TTableMaterial::Parse("KRK")});
  const auto file = tablefile::PathOf(folder / "Precalc", TTableMaterial::Parse("KRK"));
  std::filesystem::resize_file(file, std::filesystem::file_size(file) - 3);
  CTablesService service = Service(1 << 20, true);
  TChessboard board = KrkBoard();
  EXPECT_FALSE(service.Probe(board));
  EXPECT_FALSE(service.Probe(board));
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_NE(messages[0].find(file.string()), std::string::npos);
}

// A stop ends the generation at the next look at it: the table being generated is not
// written, the tables finished before it are, whole, and nothing else is left in the folder
// (beside each table its generation log).
// KPK needs KQK, KRK, KBK and KNK first, in this order (a pawn promotes).
TEST_F(TablesService, AStopLeavesNoFileOfTheTableBeingGenerated) {
  const struct {
    const char* stopAt;  // the first progress report of this table stops; "" stops before
    std::size_t nWritten;
  } cases[] = {{"", 0}, {"KQK", 0}, {"KRK", 1}, {"KPK", 4}, {"none", 5}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.stopAt);
    std::filesystem::remove_all(folder / "Precalc");
    CTablesService service = Service();
    std::stop_source stop;
    if (*c.stopAt == '\0') stop.request_stop();
    std::vector<std::string> reportsAfterStop;
    const auto generated = service.Generate(
        {TTableMaterial::Parse("KPK")},
        [&](const std::string& name, double) {
          if (stop.stop_requested()) reportsAfterStop.push_back(name);
          if (name == c.stopAt) stop.request_stop();
        },
        stop.get_token());
    EXPECT_TRUE(reportsAfterStop.empty());  // no round ran after the stop
    ASSERT_EQ(generated.size(), c.nWritten);
    std::set<std::filesystem::path> expected, found;
    for (const TGeneratedTable& table : generated)
      expected.insert(service.FileOf(TTableMaterial::Parse(table.name)));
    if (std::filesystem::exists(folder / "Precalc"))
      for (const auto& entry : std::filesystem::recursive_directory_iterator(folder / "Precalc"))
        if (entry.is_regular_file() && entry.path().extension() != ".log")
          found.insert(entry.path());
    EXPECT_EQ(found, expected);
    if (c.nWritten == 5) {
      EXPECT_EQ(generated.back().name, "KPK");
    }
  }
}

TEST_F(TablesService, PrecalcPathIsTheFolderAndTheWorkingFolderIsStillRead) {
  COptions options;
  options.nPrecalcQuotaBytes = 1 << 20;
  options.sPrecalcPath = (folder / "elsewhere").string();
  options.bGlobalRegisterForceDiskAccess = true;
  const TTablesSettings settings = TablesSettingsFromOptions(options);
  EXPECT_TRUE(settings.bDiskAccess);
  EXPECT_EQ(settings.folder, folder / "elsewhere");
  EXPECT_EQ(settings.extraFolder, "Precalc");
  EXPECT_EQ(settings.nQuotaBytes, 1u << 20);
}

}  // namespace
