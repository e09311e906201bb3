// The moves log: its line texts, its files (one per problem and thread, appended to, with the
// dashed opening line) and what a real solve writes into them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "SolveControlHelpers.h"
#include "WriterFaults.h"
#include "app/TempFolder.h"
#include "core/ChessboardId.h"
#include "core/MoveMaking.h"
#include "engine/MovesLogger.h"

namespace {

using solvecontrol::Position;

const std::string kDashes(52, '-');

std::vector<std::string> Lines(const std::filesystem::path& file) {
  std::istringstream in(ReadTextFile(file));
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TChessboard WithPly(const std::string& fen, std::uint16_t ply) {
  TChessboard board = Position(fen);
  board.ply = ply;
  return board;
}

TChessboard After(const TChessboard& board, const std::string& move) {
  TChessboard child;
  EXPECT_NE(notation::MakeMove(board, move, child), nullptr) << move;
  return child;
}

TEST(MovesLogger, ResultLinesNumberTheWhiteMovesLeftAndGiveTheDoubtfulReason) {
  struct TCase {
    std::uint16_t nPlies;
    MateResult result;
    std::uint32_t reason;
    const char* szExpected;
  };
  const TCase cases[] = {
      {5, mate::kMate, 0, "3.mate"},
      {4, mate::kNoMate, 0, "2 ...no mate"},
      {6, mate::kFilteredNoMate, 0, "3 ...no mate"},
      {1, mate::kRepetition, 0, "1.position repetition"},
      {6, mate::kForcedMateDepthEnd, 0, "3 ...end of FindForcedMate depth"},
      {6, 5, 0, "3 ...result error"},
      // The reason is printed for doubtful results only.
      {4, mate::kNoMate, 0x200, "2 ...no mate"},
      {4, mate::kDoubtful, 0x200, "2 ...doubtful (SH_FINDFORCEDMATE)"},
      {3, mate::kDoubtful, 0x4000, "2.doubtful (SH_SAVEQUEEN/ROOK)"},
      {3, mate::kDoubtful, 0, "2.doubtful (0 (temp.reg.))"},
      {3, mate::kDoubtful, 0xFFFFFFFF, "2.doubtful (-1 (temp.reg.))"},
      {2, mate::kDoubtful, 0xFFFFFFF0, "1 ...doubtful/impossible (-16)"},
      {2, mate::kDoubtful, 0xFFFFFFE0, "1 ...doubtful/impossible (-32)"},
      {2, mate::kDoubtful, 0x100, "1 ...doubtful (...)"},
      {2, mate::kDoubtful, 0x6, "1 ...doubtful (...)"},
  };
  for (const TCase& c : cases)
    EXPECT_EQ(moveslog::ResultText(c.nPlies, c.result, c.reason), c.szExpected)
        << c.nPlies << " " << int{c.result} << " " << c.reason;
}

TEST(MovesLogger, PassTextsOfTheHeuristicPassesAndOfThePassWithout) {
  EXPECT_EQ(moveslog::PassText(
                {.nPass = 1, .heuristics = 4, .description = "SH_KEEPKINGONTHEEDGE(STRICT)"}),
            "1a Heur=4 HeurParams=0 SH_KEEPKINGONTHEEDGE(STRICT)");
  EXPECT_EQ(moveslog::PassText({.nPass = 1,
                                .nRelaxationStep = 2,
                                .heuristics = 0x80000200,
                                .heurParams = 5,
                                .description = "SH_FINDFORCEDMATE(#2)"}),
            "1c Heur=-2147483136 HeurParams=5 SH_FINDFORCEDMATE(#2)");
  EXPECT_EQ(moveslog::PassText({.nPass = 2, .heuristics = 4}), "2");
}

TEST(MovesLogger, MoveLinesNumberTheMoverAndNameTheChildAndOnWhitesLastMoveThePass) {
  const TChessboard white = WithPly("r3k3/8/8/8/8/8/4P3/R3K3 w - - 0 1", 5);
  const TChessboard pawn = After(white, "e2-e4");
  const std::string pawnId = TChessboardId(pawn).ToAlphanum6();
  EXPECT_EQ(moveslog::MoveText(white, pawn.lastMove, &pawn, "2"), "3.e2-e4 " + pawnId);
  // An unmade move gives its squares only, numbered as if it had been made.
  EXPECT_EQ(moveslog::MoveText(white, pawn.lastMove, nullptr, "2"), "3.e2-e4");

  const TChessboard capture = After(pawn, "Ra8xa1");
  EXPECT_EQ(moveslog::MoveText(pawn, capture.lastMove, &capture, "2"),
            "2 ... Ra8xa1 " + TChessboardId(capture).ToAlphanum6());

  const TChessboard last = WithPly("4k3/8/8/8/8/8/8/R3K3 w - - 0 1", 1);
  const TChessboard mate = After(last, "Ra1-a8");
  EXPECT_EQ(moveslog::MoveText(last, mate.lastMove, &mate, "1b Heur=4 HeurParams=0 X"),
            "1.Ra1-a8 " + TChessboardId(mate).ToAlphanum6() + " Pass 1b Heur=4 HeurParams=0 X");
}

TEST(MovesLogger, FilesPerThreadWithTheDashedLineOnceAndTheLevelNoteOnEverySwitch) {
  const CTempFolder folder;
  const TMovesLogSettings settings{.folder = folder.Path(), .nProblem = 12, .pass = {.nPass = 2}};
  const TChessboard board = WithPly("4k3/8/8/8/8/8/8/R3K3 w - - 0 1", 3);
  {
    CMovesLogger logger(settings);
    logger.SetThread(3);
    logger.ResultLine(board, mate::kMate, 0);
    logger.TextLine(board, "Mate found (pos.in temp.reg.)");
    logger.SetThread(4);
    logger.ResultLine(board, mate::kNoMate, 0);
    logger.SetThread(3);
    logger.ResultLine(board, mate::kMate, 0);
    TChessboard corrupt = board;
    corrupt.ply = 602;
    logger.ResultLine(corrupt, mate::kMate, 0);
    logger.MoveLine(corrupt, TMove{0, 8, 0, 0}, nullptr);
  }
  EXPECT_THAT(
      Lines(folder / "MovesLogger_problem12_thread3.log"),
      ::testing::ElementsAre(kDashes, "\t\t\t2.mate", "\t\t\tMate found (pos.in temp.reg.)",
                             kDashes, "NextMultithreadingLevel analysis...", "\t\t\t2.mate"));
  EXPECT_THAT(
      Lines(folder / "MovesLogger_problem12_thread4.log"),
      ::testing::ElementsAre(kDashes, "NextMultithreadingLevel analysis...", "\t\t\t2.no mate"));

  // Another solve adds to the file.
  CMovesLogger(settings).ResultLine(board, mate::kDoubtful, 0x200);
  EXPECT_THAT(Lines(folder / "MovesLogger_problem12_thread0.log"),
              ::testing::ElementsAre(kDashes, "\t\t\t2.doubtful (SH_FINDFORCEDMATE)"));
  CMovesLogger(settings).ResultLine(board, mate::kMate, 0);
  EXPECT_EQ(Lines(folder / "MovesLogger_problem12_thread0.log").size(), 4u);
}

// Every line of a log: tabs as many as the plies left, then a move or result line.
void ExpectWellFormed(const std::vector<std::string>& lines) {
  const std::regex line(
      "(\\t*)([0-9]+)(\\.| \\.\\.\\. ?)(mate|no mate|"
      "(K|Q|R|B|N)?[a-h][1-8][-x][a-h][1-8][QRBN]? [0-9a-zA-Z()]+( Pass 2)?|0-0(-0)? .*|"
      "[a-h][1-8]-[a-h][1-8])");
  for (const std::string& text : lines) {
    if (text == kDashes || text == "NextMultithreadingLevel analysis..." ||
        text.find("(pos.in temp.reg.)") != std::string::npos)
      continue;
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(text, parts, line)) << text;
    const int nTabs = static_cast<int>(parts[1].length());
    const bool bWhite = parts[3] == ".";
    const bool bMove = parts[4] != "mate" && parts[4] != "no mate";
    EXPECT_EQ(nTabs % 2 == 1, bWhite) << text;  // White moves from odd plies
    EXPECT_EQ(std::stoi(parts[2]), (nTabs - 1) / 2 + 1) << text;
    EXPECT_EQ(parts[6].matched, bMove && nTabs == 1) << text;
  }
}

// A log that cannot be written loses the lines of the failed write, keeps the earlier ones
// and says why; the next solve writes again.
TEST(MovesLogger, AFailedWriteKeepsTheEarlierLines) {
  const CTempFolder folder;
  const TMovesLogSettings settings{.folder = folder.Path(), .nProblem = 9, .pass = {.nPass = 2}};
  const TChessboard board = WithPly("4k3/8/8/8/8/8/8/R3K3 w - - 0 1", 3);
  const writerfaults::TWriter writer{"moves log", folder / "MovesLogger_problem9_thread0.log",
                                     [&] {
                                       CMovesLogger logger(settings);
                                       logger.ResultLine(board, mate::kMate, 0);
                                       logger.TextLine(board, "Mate found (pos.in temp.reg.)");
                                       return logger.FlushLines();
                                     },
                                     true};
  ASSERT_EQ(writer.write(), "");
  writerfaults::ExpectEachFaultKeepsTheOldFile(writer, 32);
}

// However many lines and flushes fail, each file is told of once, by its name.
TEST(MovesLogger, AFileThatCannotBeWrittenIsToldOnce) {
  const TChessboard board = WithPly("4k3/8/8/8/8/8/8/R3K3 w - - 0 1", 3);
  const auto file = [](int nThread) { return moveslog::FileName(9, nThread); };
  const struct {
    const char* name;
    bool bFolderAtTheNames;             // the files cannot be opened
    int nFailingOperation;              // of the first file, counted from its opening
    std::vector<std::string> expected;  // the messages, with the folder's path left out
  } cases[] = {
      {"a folder at the names",
       true,
       0,
       {"Error opening file: " + file(0), "Error opening file: " + file(1)}},
      {"a full disk at the first write",
       false,
       2,
       {"Error writing file: " + file(0) + ": the disk is full"}},
      {"a full disk at the opening",
       false,
       1,
       {"Error opening file: " + file(0) + ": the disk is full"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const CTempFolder folder;
    const std::string prefix = folder.Path().string() + "/";
    if (c.bFolderAtTheNames)
      for (int nThread : {0, 1}) std::filesystem::create_directory(folder / file(nThread));
    std::vector<std::string> messages;
    CWriteFailures failures([&](const std::string& message) {
      messages.push_back(message);
      const auto at = messages.back().find(prefix);
      if (at != std::string::npos) messages.back().erase(at, prefix.size());
    });
    const TMovesLogSettings settings{
        .folder = folder.Path(), .nProblem = 9, .pass = {.nPass = 2}, .pFailures = &failures};
    safefile::TFaultSeam seam{.nFailingOperation = c.nFailingOperation, .nErrno = ENOSPC};
    safefile::SetFaultSeam(&seam);
    {
      CMovesLogger logger(settings);
      for (int nThread : {0, 1, 0}) {
        logger.SetThread(nThread);
        for (int nLine = 0; nLine < 3; ++nLine) {
          logger.ResultLine(board, mate::kMate, 0);
          logger.FlushLines();
        }
      }
    }
    safefile::SetFaultSeam(nullptr);
    EXPECT_EQ(messages, c.expected);
  }
}

TEST(MovesLogger, ASolveLogsItsTreeFromTheKeyToTheRootResult) {
  const CTempFolder folder;
  const TMovesLogSettings settings{.folder = folder.Path(), .nProblem = 7, .pass = {.nPass = 2}};
  const auto problem = solvecontrol::Row("directmates.tsv", "meson-182720");
  {
    CMateSolver solver(Position(problem.fen), problem.nMoves,
                       {.nThreads = 1, .pMovesLog = &settings});
    ASSERT_EQ(solver.Run().keys.size(), 1u);
  }  // the files are closed with the solver
  const std::vector<std::string> lines = Lines(folder / "MovesLogger_problem7_thread0.log");
  ASSERT_GE(lines.size(), 4u);
  EXPECT_EQ(lines.front(), kDashes);
  EXPECT_EQ(lines.back(), "\t\t\t2.mate");
  EXPECT_THAT(lines, ::testing::Contains(::testing::StartsWith("\t\t\t2.Ra5-a7 ")));
  EXPECT_THAT(lines, ::testing::Contains("\t\t1 ...mate"));
  ExpectWellFormed(lines);
}

// The moves log of a solve of a reference row with a checks-only pass, then pass 2: its
// lines and the number of keys the solve found.
struct TForcedPassLog {
  std::vector<std::string> lines;
  std::size_t nKeys = 0;
};
TForcedPassLog LogOfForcedPass(const char* id, const THeuristicSet& forced) {
  const CTempFolder folder;
  const TMovesLogSettings settings{.folder = folder.Path(), .nProblem = 5, .pass = {}};
  const auto problem = solvecontrol::Row("directmates.tsv", id);
  TForcedPassLog log;
  {
    CMateSolver solver(
        Position(problem.fen), problem.nMoves,
        {.nThreads = 1, .nMaxSolutions = 0, .pMovesLog = &settings, .heuristicPasses = {forced}});
    log.nKeys = solver.Run().keys.size();
  }  // the files are closed with the solver
  log.lines = Lines(folder / "MovesLogger_problem5_thread0.log");
  return log;
}

THeuristicSet ChecksOnly() {
  THeuristicSet forced;
  forced.mask = shbit::kFindForcedMate;
  return forced;
}

// Each pass of a solve names itself on White's last moves: the heuristic pass by its set.
TEST(MovesLogger, EveryPassOfASolveNamesItself) {
  const THeuristicSet forced = ChecksOnly();
  const TForcedPassLog log = LogOfForcedPass("meson-182720", forced);
  ASSERT_EQ(log.nKeys, 1u);
  const std::string heuristicPass = " Pass 1a Heur=" + std::to_string(shbit::kFindForcedMate) +
                                    " HeurParams=" + std::to_string(forced.Params()) + " " +
                                    heuristicset::Describe(forced);
  EXPECT_THAT(log.lines, ::testing::Contains(::testing::EndsWith(heuristicPass)));
  EXPECT_THAT(log.lines, ::testing::Contains(::testing::EndsWith(" Pass 2")));
}

// A line cut by a heuristic gives the heuristic as its reason; without a store of doubtful
// answers no reason is the register's.
TEST(MovesLogger, DoubtfulLinesNameTheHeuristicThatCutThem) {
  const TForcedPassLog log = LogOfForcedPass("meson-153314", ChecksOnly());
  EXPECT_THAT(log.lines, ::testing::Contains(::testing::EndsWith("doubtful (SH_FINDFORCEDMATE)")));
  EXPECT_THAT(log.lines, ::testing::Not(::testing::Contains(::testing::HasSubstr("temp.reg."))));
}

TEST(MovesLogger, ThreadsOfOneSolveWriteWholeLinesIntoFilesOfTheirOwn) {
  const CTempFolder folder;
  const TMovesLogSettings settings{.folder = folder.Path(), .nProblem = 4, .pass = {.nPass = 2}};
  const auto problem = solvecontrol::Row("directmates.tsv", "anon-4");
  {
    CMateSolver solver(Position(problem.fen), problem.nMoves,
                       {.nThreads = 2, .nMaxSolutions = 0, .pMovesLog = &settings});
    ASSERT_EQ(solver.Run().keys.size(), 1u);
  }
  int nFiles = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    ++nFiles;
    ExpectWellFormed(Lines(entry.path()));
  }
  EXPECT_GE(nFiles, 2);
}

}  // namespace
