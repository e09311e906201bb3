#include "engine/MovesLogger.h"

#include <algorithm>
#include <mutex>
#include <utility>

#include "core/ChessboardId.h"
#include "core/Notation.h"
#include "problems/HeuristicCatalogue.h"

namespace {

// One lock for every log file of the process.
std::mutex& LogMutex() {
  static std::mutex mutex;
  return mutex;
}

// Lines are gathered and written in pieces of about this size.
constexpr std::size_t kFlushBytes = 1 << 16;

// Plies beyond this can only come from a damaged record.
constexpr unsigned kMaxLoggedPlies = 600;

// "3." for White's move or node, "3 ... " for Black's move and "3 ..." for its node: the
// number counts the White moves still to come, k being the plies left after the first.
std::string NumberText(int k, const char* szBlackSeparator) {
  return std::to_string(k / 2 + 1) + (k % 2 == 0 ? "." : szBlackSeparator);
}

const char* ResultWord(MateResult result) {
  switch (result) {
    case mate::kMate:
      return "mate";
    case mate::kNoMate:
    case mate::kFilteredNoMate:
      return "no mate";
    case mate::kDoubtful:
      return "doubtful";
    case mate::kRepetition:
      return "position repetition";
    case mate::kForcedMateDepthEnd:
      return "end of FindForcedMate depth";
    default:
      return "result error";
  }
}

std::string ReasonText(std::uint32_t reason) {
  if (reason == doubtful::kRegisterNoMate || reason == doubtful::kRegisterDoubtful)
    return " (" + std::to_string(static_cast<std::int32_t>(reason)) + " (temp.reg.))";
  if (reason < doubtful::kFirstImpossibleLine)
    return " (" + std::string(heuristics::NameOfBit(reason)) + ")";
  return "/impossible (" + std::to_string(static_cast<std::int32_t>(reason)) + ")";
}

}  // namespace

namespace moveslog {

std::string FileName(int nProblem, int nThread) {
  return "MovesLogger_problem" + std::to_string(nProblem) + "_thread" + std::to_string(nThread) +
         ".log";
}

std::string PassText(const TLogPass& pass) {
  if (pass.nPass != 1) return std::to_string(pass.nPass);
  // The words are printed as the signed numbers the mask and parameters are stored as.
  return std::string("1") + static_cast<char>('a' + pass.nRelaxationStep) +
         " Heur=" + std::to_string(static_cast<std::int32_t>(pass.heuristics)) +
         " HeurParams=" + std::to_string(static_cast<std::int32_t>(pass.heurParams)) + " " +
         pass.description;
}

std::string MoveText(const TChessboard& mover, TMove move, const TChessboard* made,
                     std::string_view passText) {
  const int k = mover.ply - 1;
  std::string text = NumberText(k, " ... ");
  if (made == nullptr) {
    text += notation::SquareToText(move.from) + "-" + notation::SquareToText(move.to);
    return text;
  }
  std::string moveText = notation::MoveToText(mover, move);
  std::replace(moveText.begin(), moveText.end(), ':', 'x');
  text += moveText + " " + TChessboardId(*made).ToAlphanum6();
  // White's last move before the end of the stipulation names the pass it was searched in.
  if (k == 0) text += " Pass " + std::string(passText);
  return text;
}

std::string ResultText(std::uint16_t nPliesLeft, MateResult result, std::uint32_t reason) {
  std::string text = NumberText(nPliesLeft - 1, " ...") + ResultWord(result);
  if (result == mate::kDoubtful) text += ReasonText(reason);
  return text;
}

}  // namespace moveslog

CMovesLogger::CMovesLogger(const TMovesLogSettings& logSettings)
    : settings(logSettings), sPassText(moveslog::PassText(logSettings.pass)) {}

CMovesLogger::~CMovesLogger() {
  const std::lock_guard lock(LogMutex());
  Flush();
}

void CMovesLogger::Flush() {
  if (file && !pending.empty() && !file->Append(pending)) Fail();
  pending.clear();
}

void CMovesLogger::Fail() {
  error = file->Error();
  if (settings.pFailures != nullptr) settings.pFailures->Note(file->Path(), error);
}

std::string CMovesLogger::FlushLines() {
  const std::lock_guard lock(LogMutex());
  Flush();
  return std::exchange(error, std::string());
}

bool CMovesLogger::OpenForThread() {
  if (nOpenThread == nCurrentThread) return file != nullptr;
  const bool bHadFile = nOpenThread >= 0;
  Flush();
  nOpenThread = nCurrentThread;
  // Successive solves add to the files.
  file = std::make_unique<safefile::CFileAppender>(
      (settings.folder / moveslog::FileName(settings.nProblem, nCurrentThread)).string());
  if (!file->Open()) {
    Fail();
    file.reset();
    return false;
  }
  pending = std::string(52, '-') + "\n";
  if (bHadFile) pending += "NextMultithreadingLevel analysis...\n";
  return true;
}

void CMovesLogger::Write(unsigned nTabs, const std::string& text) {
  const std::lock_guard lock(LogMutex());
  if (!OpenForThread()) return;
  pending.append(nTabs, '\t');
  pending += text;
  pending += '\n';
  if (pending.size() >= kFlushBytes) Flush();
}

void CMovesLogger::MoveLine(const TChessboard& mover, TMove move, const TChessboard* made) {
  // A move that could not be made counts the plies left after it.
  const unsigned nPlies = made != nullptr ? mover.ply : mover.ply - 1u;
  if (nPlies > kMaxLoggedPlies) return;
  Write(mover.ply, moveslog::MoveText(mover, move, made, sPassText));
}

void CMovesLogger::ResultLine(const TChessboard& board, MateResult result, std::uint32_t reason) {
  if (board.ply > kMaxLoggedPlies + 1) return;
  Write(board.ply, moveslog::ResultText(board.ply, result, reason));
}

void CMovesLogger::TextLine(const TChessboard& board, std::string_view text) {
  if (board.ply > kMaxLoggedPlies + 1) return;
  Write(board.ply, std::string(text));
}
