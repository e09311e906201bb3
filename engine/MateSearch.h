#pragma once
#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "core/Chessboard.h"
#include "engine/MateResult.h"
#include "engine/Scheduler.h"
#include "engine/SearchContext.h"
#include "engine/SplitBoard.h"
#include "engine/SplitPoint.h"

// The depth-limited AND-OR search of one thread: White's positions are OR nodes (one
// mating move suffices), Black's are AND nodes (every reply must be mated). In a selfmate
// "mate" means White forces the goal of the context (see MateGoal.h): the nodes are the
// same, only the ends of the lines differ. Each thread owns its line of positions; the
// register and run state are shared through the context.
//
// When the context asks for it, a line that returns to a position already on it is cut:
// White's shortest mates never repeat a position, so the cut loses no mate, but a "no mate"
// found under such a cut holds only for this line. It travels up as kRepetition, with the
// ply of the repeated position as its mark, and is filed nowhere until it reaches that
// position. A White node looks for shorter mates before the full depth (iterative
// deepening through the register).
class CMateSearch {
 public:
  CMateSearch(SearchContext& context, std::uint16_t rootPlies);
  CMateSearch(const CMateSearch&) = delete;
  CMateSearch& operator=(const CMateSearch&) = delete;

  // Dispatches on the side to move of board (odd ply: White).
  MateResult FindMate(const TChessboard& board);
  MateResult WhiteNode(const TChessboard& board);
  MateResult BlackNode(const TChessboard& board);
  // The White node after Black's reply child, unless the reply breaks a restriction of the
  // pass: then doubtful, or mate when White mates at once all the same.
  MateResult WhiteNodeAfterReply(const TChessboard& child);

  // Notes why a node cut its line, for this thread's moves log and for the solve.
  void NoteDoubtful(std::uint32_t reason) {
    doubtfulReason = reason;
    context.NoteDoubtful(reason);
  }
  // The moves log of this thread, written only when the solve logs moves. These write what
  // the root search walks outside this search's own recursion; what an interrupted search
  // returns is no result.
  void LogResult(const TChessboard& board, MateResult result) {
    if (logger && !Interrupted()) logger->ResultLine(board, result, doubtfulReason);
  }
  void LogMove(const TChessboard& mover, TMove move, const TChessboard* made) {
    if (logger) logger->MoveLine(mover, move, made);
  }
  // The log file this thread writes: a number of its own for each kind of work it takes up.
  void SetLogThread(int nThread) {
    if (logger) logger->SetThread(nThread);
  }

  // Gives back the buffers of the line once the search has ended (the counts stay).
  void ReleaseBuffers();

  // Pauses this thread alone, beside the pause of the whole solve, or lets it run again.
  void SetPausedAlone(bool bPaused);
  // The work this search is part of; once it is abandoned (settled elsewhere) the search gives up.
  void SetAbandonLink(const TAbandonLink* link) { abandon = link; }
  // Lets deep White nodes offer their moves to idle threads of the same solve.
  void SetSplitBoard(CSplitBoard* board) { splitBoard = board; }
  // Lets the White nodes the scheduler covers lend time to their runners-up, and hands this
  // thread's permit on at the end of its time slices.
  void SetScheduler(CScheduler* lender) { scheduler = lender; }
  // Whether results are no longer worth anything: the solve stops, or the work was abandoned.
  bool Interrupted() const {
    return context.run.IsStopping() || context.bPassTimeUp.load(std::memory_order_relaxed) ||
           (abandon != nullptr && abandon->IsSet());
  }
  // Takes moves of another thread's White node until none are left.
  void HelpAt(TSplitPoint& split);

  // The result of a Black node without a legal move: mate or stalemate in a direct mate, a
  // failure in a selfmate.
  MateResult NoReplyResult(const TChessboard& board) const;

  // Whether White, given the move again in after (Black to move), mates within nMoves moves:
  // the plain search of that position, restricted by nothing, so its answers are exact and
  // go to the register. nMoves must leave the plies of after's line untouched: at most
  // after.ply / 2.
  bool ThreatensMate(const TChessboard& after, int nMoves);

  // Legal positions made so far (read by the progress display from other threads).
  std::uint64_t Positions() const { return nPositions.load(std::memory_order_relaxed); }
  // Legal White successors of board in this thread's buffer for its ply, with the order
  // in which to search them.
  int OrderedWhiteChildren(const TChessboard& board, TChessboard*& children,
                           const TMoveIndex*& order);

 private:
  MateResult SearchWhiteNode(const TChessboard& board);
  // The selfmate's answer at a White node that ends the line: mate when Black's last move
  // mated White, no mate at ply 1 otherwise; nothing when the node is to be searched.
  std::optional<MateResult> SelfmateEnd(const TChessboard& board) const;
  TChessboardRegisterItem Key(const TChessboard& board) const;
  MateResult SearchBlackNode(const TChessboard& board);
  bool MateInOne(const TChessboard& board);
  bool HasShorterMate(const TChessboard& board);
  MateResult SearchBlackReplies(const TChessboard& board);
  // Searches one Black reply: nothing when White mates after it (or it is illegal),
  // otherwise the node's result. nLegal counts the legal replies.
  std::optional<MateResult> TryBlackReply(const TChessboard& board, TMove reply, int& nLegal);
  MateResult SettleWhiteFailure(const TChessboard& board, const TWhiteTally& tally);
  // Whether the pass's restrictions hold in this search (a threat search has none).
  bool Restricted() const { return context.HasHeuristics() && !bThreatSearch; }
  // Searches Black's pass of the one-colour reduction (see OneColourPlay.h) as TryBlackReply
  // searches a reply.
  std::optional<MateResult> TryPass(const TChessboard& board, int& nLegal);
  // What TryBlackReply returns for the child its reply (bMove) or pass made.
  std::optional<MateResult> SearchReply(const TChessboard& board, const TChessboard& child,
                                        bool bMove);
  // Searches one White move and notes what it gave.
  void EvaluateWhiteChild(const TChessboard& child, TWhiteTally& tally);
  void SearchWhiteChildrenShared(TSplitPoint& split);
  // Searches the moves of a node the scheduler covers, offering them to its threads once the
  // node has run long enough (see OfferRunnerUps).
  void SearchWhiteChildrenLendingTime(TSplitPoint& split);
  // At a Black node: opens the shallowest covered node of this line that has run longer than
  // the scheduler's delay, when a scheduler's thread waits for work.
  void OfferRunnerUps();
  void CountPosition() {
    nPositions.store(nPositions.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
  }
  void FileAnswer(const TChessboard& board, std::uint8_t answer);
  // Doubtful (or mate in one) when the pass's restrictions cut this White node; nothing when
  // it is to be searched.
  std::optional<MateResult> HeuristicCut(const TChessboard& board);
  void FileDefence(const TChessboard& board, std::uint8_t bDefence);
  bool UsesRegister(const TChessboard& board) const;
  // What the doubtful answers of the pass's selection say of board: mate, doubtful (noted as
  // the store's), or nothing.
  std::optional<MateResult> FindDoubtful(const TChessboard& board);
  // Files that the search of board under the pass's selection was cut.
  void FileDoubtful(const TChessboard& board);
  // The exact answer of the endgame tables for a position they hold: mate when White mates
  // within the plies left.
  std::optional<MateResult> ProbeTables(const TChessboard& board) const;
  // Drops from order the White children that the advice says cannot win; returns how many
  // are left.
  int SkipAdvisedMoves(const TChessboard& board, const TChessboard* children, TMoveIndex* order,
                       int n) const;
  // Parks the thread while the solve or this thread is paused; false when it must give up.
  bool MayGoOn();
  bool IsPaused() const {
    return context.run.IsPaused() || bPausedAlone.load(std::memory_order_relaxed);
  }
  bool ParkWhilePaused();

  SearchContext& context;
  std::vector<TChessboard> line;           // Black's successors: line[ply]
  std::vector<TChessboard> whiteChildren;  // White's successors, kMoveBufferSize per ply
  std::vector<TMoveIndex> whiteOrder;      // their search order, kMoveBufferSize per ply
  std::vector<std::uint16_t> repetitionMarks;
  std::vector<TMove> whiteKillers, blackKillers;
  std::atomic<std::uint64_t> nPositions{0};
  std::atomic<bool> bPausedAlone{false};
  const TAbandonLink* abandon = nullptr;
  CSplitBoard* splitBoard = nullptr;
  CScheduler* scheduler = nullptr;
  // The covered nodes of this thread's line, shallowest first, with when each began and
  // whether its moves are open to the scheduler's threads.
  struct TLendingNode {
    TSplitPoint* split;
    std::chrono::steady_clock::time_point start;
    bool bOpen;
  };
  std::vector<TLendingNode> lendingNodes;
  std::unique_ptr<CMovesLogger> logger;
  // Set while the search answers a threat of SH_FINDFORCEDMATE.
  bool bThreatSearch = false;
  const heuristicrules::TThreatTest threatTest;
  // Why the last doubtful result of this thread was doubtful: a node that cuts a line sets it.
  std::uint32_t doubtfulReason = doubtful::kRegisterNoMate;
};
