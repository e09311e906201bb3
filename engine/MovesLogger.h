#pragma once
// The moves log: the tree a search thread walks, written to a plain text file per problem and
// thread, so that a user can follow why a line was judged mate, no mate or doubtful.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "core/Chessboard.h"
#include "core/FileAppender.h"
#include "core/Move.h"
#include "core/WriteFailures.h"
#include "engine/MateResult.h"

// Why the last doubtful result was doubtful: 0 or 0xFFFFFFFF for the temporary register, a
// heuristic's bit, or a value from kFirstImpossibleLine up for an impossible line.
namespace doubtful {
constexpr std::uint32_t kRegisterNoMate = 0;
constexpr std::uint32_t kRegisterDoubtful = 0xFFFFFFFF;
constexpr std::uint32_t kFirstImpossibleLine = 0xFFFFFFE0;
}  // namespace doubtful

// The pass a log belongs to, as its lines name it.
struct TLogPass {
  int nPass = 1;            // 1 for the passes with heuristics (1, 1b, 1c ...), 2 without
  int nRelaxationStep = 0;  // 0 for pass 1, 1 for 1b, 2 for 1c ...
  std::uint32_t heuristics = 0;
  std::uint32_t heurParams = 0;
  std::string description = {};  // the heuristic set as text
};

// What every thread of one solve logs with.
struct TMovesLogSettings {
  std::filesystem::path folder = {};  // where the files go: the working folder by default
  int nProblem = 0;                   // 0 when the search runs without a problem record
  TLogPass pass;
  // Told of each file that cannot be opened or written; none when null.
  CWriteFailures* pFailures = nullptr;
};

namespace moveslog {

// "MovesLogger_problem12_thread3.log".
std::string FileName(int nProblem, int nThread);
// "1a Heur=4 HeurParams=0 SH_KEEPKINGONTHEEDGE" in pass 1, "2" in pass 2.
std::string PassText(const TLogPass& pass);
// The lines without their tabs and newline. A move line is numbered from the plies left to
// the side that moves; made is the position after it, null when it could not be made.
std::string MoveText(const TChessboard& mover, TMove move, const TChessboard* made,
                     std::string_view passText);
std::string ResultText(std::uint16_t nPliesLeft, MateResult result, std::uint32_t reason);

}  // namespace moveslog

// The log of one search thread. Every write of every logger takes one process-wide lock, so
// lines never interleave and no two files are written at the same instant.
class CMovesLogger {
 public:
  explicit CMovesLogger(const TMovesLogSettings& settings);
  ~CMovesLogger();
  CMovesLogger(const CMovesLogger&) = delete;
  CMovesLogger& operator=(const CMovesLogger&) = delete;

  // The thread number changes when the thread takes up another kind of work: its lines go to
  // the file of the new number, which the next line opens.
  void SetThread(int nThread) { nCurrentThread = nThread; }
  // Before a move's position is searched.
  void MoveLine(const TChessboard& mover, TMove move, const TChessboard* made);
  // When the node at board returns.
  void ResultLine(const TChessboard& board, MateResult result, std::uint32_t reason);
  // A note on its own line at board's indentation.
  void TextLine(const TChessboard& board, std::string_view text);
  // Writes the lines gathered so far; returns the message of the last failure, empty when the
  // file took every line. A file that cannot be written loses lines, and the search goes on.
  std::string FlushLines();

 private:
  // Under the lock: opens the file of the current thread number on first use; false when
  // it cannot be opened.
  bool OpenForThread();
  void Write(unsigned nTabs, const std::string& text);
  // Under the lock: appends the lines gathered so far.
  void Flush();
  // Under the lock: keeps the failure of the file for FlushLines and passes it on.
  void Fail();

  const TMovesLogSettings& settings;
  const std::string sPassText;
  std::unique_ptr<safefile::CFileAppender> file;
  std::string pending;   // whole lines not yet written
  std::string error;     // the last failure
  int nOpenThread = -1;  // the number file was opened for, -1 before the first
  int nCurrentThread = 0;
};
