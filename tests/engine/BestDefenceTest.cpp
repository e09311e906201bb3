// Black's best defence: the rounds that strike defences out, the register round, the early
// answers and the stop; checked against the mate lengths of the tests' own minimax. And the
// note after the last move of the stipulation.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ReferenceMate.h"
#include "SolveControlHelpers.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "engine/BestDefence.h"
#include "engine/LastMoveReport.h"
#include "engine/RegisterKey.h"

namespace {

using reference::CReferenceBoard;
using solvecontrol::Position;

// Black to move with nPlies plies left in a problem of nRootPlies.
TChessboard BlackToMove(const std::string& fen, std::uint16_t nPlies,
                        std::uint16_t nRootPlies = 0) {
  TChessboard board = Position(fen);
  board.ply = nPlies;
  board.rootPlies = std::max(nRootPlies, nPlies);
  return board;
}

std::string MoveText(const TChessboard& board, TMove move) {
  return move == TMove{0, 0, 0, 0} ? "none" : notation::MoveToText(board, move);
}

// The first legal move of board in generation order.
TMove FirstDefence(const TChessboard& board) {
  TMove moves[kMoveBufferSize];
  const int n = board.IsBlackInCheck() ? movegen::GenerateEvasions(board, moves)
                                       : movegen::GenerateAllMoves(board, moves);
  for (int i = 0; i < n; ++i) {
    TChessboard child = board;
    if (movemaking::MakeBlackMove(child, moves[i]) > 0) return moves[i];
  }
  return TMove{0, 0, 0, 0};
}

// The positions after the published keys of the short problems, Black to move.
std::vector<TChessboard> AfterKeys(int nMaxMoves) {
  std::vector<TChessboard> positions;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    const int nMoves = std::stoi(row.at("n"));
    if (nMoves < 2 || nMoves > nMaxMoves || row.at("unique") != "yes") continue;
    TChessboard root = Position(row.at("fen"));
    root.ply = root.rootPlies = static_cast<std::uint16_t>(2 * nMoves - 1);
    TChessboard board;
    EXPECT_NE(notation::MakeMove(root, row.at("keys"), board), nullptr) << row.at("id");
    board.parent = nullptr;
    positions.push_back(board);
  }
  return positions;
}

TEST(BestDefence, ASingleDefenceOrNoneNeedsNoRound) {
  struct TCase {
    const char* szFen;
    const char* szBest;
  };
  const TCase cases[] = {
      {"k7/2Q5/1K6/8/8/8/8/8 b - - 0 1", "none"},    // stalemate
      {"k7/1Q6/1K6/8/8/8/8/8 b - - 0 1", "none"},    // mate
      {"k7/8/1K6/8/8/8/8/1R6 b - - 0 1", "Ka8-b8"},  // the only legal move
  };
  for (const TCase& c : cases) {
    SearchContext context;
    const TChessboard board = BlackToMove(c.szFen, 4);
    const TBestDefence best = FindBestDefence(board, context);
    EXPECT_EQ(MoveText(board, best.move), c.szBest) << c.szFen;
    EXPECT_EQ(best.nRound, 0) << c.szFen;
  }
}

TEST(BestDefence, EveryDefenceSurvivingLeavesTheFirstGenerated) {
  SearchContext context;
  TChessboardRegister<bool> reg(100'000);
  context.pRegister = &reg;
  // Bare kings: White never mates, and the register knows nothing of these positions. At
  // ply 0 nothing is searched at all.
  for (const std::uint16_t nPlies : {0, 6}) {
    const TChessboard board = BlackToMove("4k3/8/8/8/8/8/8/4K3 b - - 0 1", nPlies, 21);
    const TBestDefence best = FindBestDefence(board, context);
    EXPECT_EQ(MoveText(board, best.move), MoveText(board, FirstDefence(board))) << nPlies;
    EXPECT_EQ(best.nRound, nPlies == 0 ? 0 : TBestDefence::kRegisterRound) << nPlies;
  }
}

TEST(BestDefence, TheRegisterRoundStrikesOutWhatTheRegisterKnowsMated) {
  // Beyond the deepest round only the register can tell the defences apart. Filed: mate
  // after every king move but two, no mate after Ke8-d8; nothing after unfiled.
  const TChessboard board = BlackToMove("4k3/8/8/8/8/8/8/4K3 b - - 0 1", 16, 21);
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateAllMoves(board, moves);
  for (const char* szUnfiled : {"Ke8-f7", "Ke8-d7"}) {
    TChessboardRegister<bool> reg(100'000);
    SearchContext context;
    context.pRegister = &reg;
    for (int i = 0; i < n; ++i) {
      const std::string text = MoveText(board, moves[i]);
      if (text == szUnfiled) continue;
      TChessboard child = board;
      child.parent = &board;
      ASSERT_GT(movemaking::MakeBlackMove(child, moves[i]), 0);
      reg.Insert(child.ply, registerkey::Build(child), text == "Ke8-d8" ? 0 : 1);
    }
    const TBestDefence best = FindBestDefence(board, context);
    EXPECT_EQ(best.nRound, TBestDefence::kRegisterRound) << szUnfiled;
    // Two survive: the one generated first is chosen.
    std::string firstSurvivor;
    for (int i = 0; i < n && firstSurvivor.empty(); ++i) {
      const std::string text = MoveText(board, moves[i]);
      if (text == szUnfiled || text == "Ke8-d8") firstSurvivor = text;
    }
    EXPECT_EQ(MoveText(board, best.move), firstSurvivor) << szUnfiled;
    EXPECT_GE(best.nRegisterAnswers, 1) << szUnfiled;
  }
}

TEST(BestDefence, AStopAnswersTheDefenceBeingTried) {
  int nDifferent = 0;
  for (const TChessboard& board : AfterKeys(3)) {
    SearchContext context;
    const TMove unstopped = FindBestDefence(board, context).move;
    context.run.Stop();
    const TMove stopped = FindBestDefence(board, context).move;
    EXPECT_EQ(MoveText(board, stopped), MoveText(board, FirstDefence(board)));
    nDifferent += unstopped == stopped ? 0 : 1;
  }
  EXPECT_GT(nDifferent, 0);  // else the stop was not seen to change anything
}

// The plies of White's shortest mate after the defence, by the reference minimax; nCap + 2
// when there is none within nCap.
int MateLength(const CReferenceBoard& afterDefence, int nCap) {
  int nPlies = 1;
  while (nPlies <= nCap && reference::MatingMoves(afterDefence, nPlies, nullptr) == 0) nPlies += 2;
  return nPlies;
}

TEST(BestDefence, TheChosenDefenceHoldsOutLongestAfterThePublishedKeys) {
  int nChecked = 0, nDeeperRounds = 0;
  for (const TChessboard& board : AfterKeys(3)) {
    const std::string where = fen::WriteFullFen(board);
    CReferenceBoard reference;
    ASSERT_TRUE(reference.ReadFen(where)) << where;
    SearchContext context;
    const TBestDefence best = FindBestDefence(board, context);
    const int nCap = std::min(kMaxBestDefencePlies, board.ply - 1);
    reference::TRefMove moves[CReferenceBoard::kMaxMoves];
    const int n = reference.LegalMoves(moves);
    int nLongest = 0, nChosen = -1;
    for (int i = 0; i < n; ++i) {
      const int nPlies = MateLength(reference.After(moves[i]), nCap);
      nLongest = std::max(nLongest, nPlies);
      if (CReferenceBoard::ToEngineMove(moves[i]).SameMove(best.move)) nChosen = nPlies;
    }
    EXPECT_EQ(nChosen, nLongest) << where << " " << MoveText(board, best.move);
    nDeeperRounds += best.nRound > 1 ? 1 : 0;
    ++nChecked;
  }
  EXPECT_GE(nChecked, 10);
  EXPECT_GT(nDeeperRounds, 0);
}

TEST(LastMoveReport, NamesTheRepliesToCheckInTheLanguageChosen) {
  struct TCase {
    const char* szFen;
    int nLanguageId;
    const char* szReport;
  };
  const TCase cases[] = {
      {"k7/8/2K5/8/8/8/8/1R6 b - - 0 1", 1, "Last move, no mate. "},
      {"k7/8/2K5/8/8/8/8/1R6 b - - 0 1", 0, "Ostatni ruch, brak mata. "},
      {"k6R/8/2K5/8/8/8/8/8 b - - 0 1", 1, "Last move, no mate. Defence: Ka8-a7"},
      {"k6R/8/2K5/8/8/8/8/8 b - - 0 1", 0, "Ostatni ruch, brak mata. Obrona: Ka8-a7"},
      {"k6R/8/8/8/8/8/8/K7 b - - 0 1", 1, "Last move, no mate. Defences: Ka8-a7, Ka8-b7"},
      {"k6R/8/8/8/8/8/8/K7 b - - 0 1", 0, "Ostatni ruch, brak mata. Obrony: Ka8-a7, Ka8-b7"},
      {"k6R/8/8/8/8/8/8/K7 b - - 0 1", 2, "Останній хід, мату немає. Захисти: Ka8-a7, Ka8-b7"},
  };
  for (const TCase& c : cases)
    EXPECT_EQ(LastMoveReport(BlackToMove(c.szFen, 0), c.nLanguageId), c.szReport) << c.szFen;
}

}  // namespace
