#pragma once
#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "core/Chessboard.h"
#include "core/Move.h"
#include "problems/SortIndication.h"

// What a problem asks for and how many half-moves it spans.
struct TStipulation {
  static constexpr int kDirectMate = 1;  // "#N"
  static constexpr int kSelfmate = 2;    // "s#N"
  static constexpr int kMoveLine = 4;    // a position with a move line, no stipulation

  // Plies stay below the 255 that marks a position without a stipulation.
  static constexpr int kMaxMoves = 126;

  int type = kDirectMate;
  std::uint16_t plies = 3;

  static TStipulation DirectMate(int nMoves);
  static TStipulation Selfmate(int nMoves);
  static TStipulation MoveLine();
  // The N of "#N" or "s#N"; 0 for a move line.
  int Moves() const;
  // "#3", "s#2", or "" for a move line.
  std::string Text() const;
};

// Option flag bits of a problem.
namespace option {
constexpr std::uint16_t kNoMirror = 0x0001;
constexpr std::uint16_t kAllSolutions = 0x0002;
constexpr std::uint16_t kAnswerGiven = 0x0004;
constexpr std::uint16_t kStopOnDual = 0x0008;
constexpr std::uint16_t kStopOn3Sol = 0x0010;
constexpr std::uint16_t kUseMainVariantAsSortIndications = 0x0020;
constexpr std::uint16_t kNoGlobReg = 0x0040;
constexpr std::uint16_t kSafeMode = 0x0080;
constexpr std::uint16_t kMirrorOnly = 0x0100;
constexpr std::uint16_t kExpectedSortWhiteMoves = 0x0200;
constexpr std::uint16_t kExpectedSortWhiteMovesOnly = 0x0400;
constexpr std::uint16_t kGuiCheckBestDefence = 0x0800;
constexpr std::uint16_t kGuiCheck = 0x1000;
constexpr std::uint16_t kRequiresSyzygy = 0x2000;
constexpr std::uint16_t kAllSolutionsRequiresSyzygy = 0x4000;
}  // namespace option

// One problem of a collection. The problem owns a line of positions in which the move
// line builds successors: the successor of a position with p plies left lives in line[p].
// Because the positions point into the problem, a problem is neither copied nor moved;
// collections hold it through a pointer.
struct TProblem {
  static constexpr std::uint8_t kThreadsNotGiven = 255;

  TStipulation stipulation;
  int id = 0;
  TChessboard start;
  const TChessboard* current = &start;  // end of the move line, or the start
  // The text of the move line from the first move that could not be made, kept verbatim.
  std::string unreadMoveLine;
  std::vector<TMove> answer;
  std::uint16_t options = 0;
  std::uint8_t nThreads = kThreadsNotGiven;
  std::uint8_t nSecondLevelThreads = 0;
  std::uint8_t nSchedulerLevels = 0;
  int nLichessLevels = 0;
  int nGlobalRegisterMegabytes = 0;
  bool bStopRelaxingOnFirstSolution = false;
  bool bUseMainVariantAsSortIndications = false;
  std::string description;  // UTF-8
  int guiCheckLevel = 1;
  // Heuristic bit index -> its parameter words, or the single word "OFF".
  std::map<int, std::vector<std::string>> heuristicSettings;
  std::set<std::string> requiredResources;
  std::set<std::string> allSolutionsRequiredResources;
  std::vector<std::string> variants;  // the lines of the variants block, verbatim
  std::set<std::string> tags;         // UTF-8
  TSortIndications sortIndications;
  std::vector<TMove> expectedSortedWhiteMoves;
  bool bExpectedSortedWhiteMovesOnly = false;

  TProblem();
  TProblem(const TProblem&) = delete;
  TProblem& operator=(const TProblem&) = delete;

  bool HasFlag(std::uint16_t flag) const { return (options & flag) != 0; }
  // Sets the stipulation and gives the start position its ply values and a
  // fresh line long enough for every successor; drops any move line.
  void SetStipulation(const TStipulation& value);
  // Gives the start position its ply values and drops the move line, after its squares were
  // replaced.
  void ResetLine();
  // Where the successors of the move line go: the successor of a position with p plies left
  // is line[p].
  std::span<TChessboard> Line() { return line; }
  // The moves from the start to the current position, in order.
  std::vector<TMove> MoveLine() const;
  int PieceCount() const;
  // What a user should know about the problem before solving it (an over-full board), in the
  // interface language.
  std::vector<std::string> Notes(int nLanguageId) const;

 private:
  std::vector<TChessboard> line;
};
