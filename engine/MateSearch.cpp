#include "engine/MateSearch.h"

#include <algorithm>
#include <cassert>
#include <exception>

#include "core/CheckPrediction.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "engine/MoveOrdering.h"
#include "engine/OneColourPlay.h"
#include "engine/PatternRules.h"
#include "engine/RegisterKey.h"
#include "engine/Repetition.h"
#include "engine/TableReduction.h"
#include "registers/TableValue.h"

namespace {
// Below this many plies a lookup costs more than the search it saves.
constexpr std::uint16_t kMinRegisterPlies = 3;
constexpr std::uint16_t kMinBlackRegisterPlies = 4;
// Below this, looking for shorter mates first costs more than it saves.
constexpr std::uint16_t kMinDeepeningPlies = 9;
// Shallower White nodes are over before another thread could join them.
constexpr std::uint16_t kMinSplitPlies = 5;
// Shallower White nodes rarely run long enough to lend time; keeping them out of the
// scheduler's books spares the short problems its costs.
constexpr std::uint16_t kMinLendingPlies = 9;
// The most pieces, kings included, of a position the tables may hold.
constexpr int kMaxTablePieces = 5;

int PieceCount(const TChessboard& board) {
  int n = 2;
  for (std::uint8_t count : board.nPieces) n += count;
  return n;
}
}  // namespace

CMateSearch::CMateSearch(SearchContext& searchContext, std::uint16_t rootPlies)
    : context(searchContext),
      line(rootPlies + 1u),
      whiteChildren((rootPlies / 2 + 1u) * kMoveBufferSize),
      whiteOrder((rootPlies / 2 + 1u) * kMoveBufferSize),
      repetitionMarks(rootPlies + 1u, 0),
      whiteKillers(rootPlies + 1u),
      blackKillers(rootPlies + 1u),
      logger(searchContext.pMovesLog ? std::make_unique<CMovesLogger>(*searchContext.pMovesLog)
                                     : nullptr),
      threatTest(
          [this](const TChessboard& after, int nMoves) { return ThreatensMate(after, nMoves); }) {}

void CMateSearch::ReleaseBuffers() {
  line = {};
  whiteChildren = {};
  whiteOrder = {};
  repetitionMarks = {};
  whiteKillers = {};
  blackKillers = {};
}

MateResult CMateSearch::FindMate(const TChessboard& board) {
  return board.IsWhiteToMove() ? WhiteNode(board) : BlackNode(board);
}

int CMateSearch::OrderedWhiteChildren(const TChessboard& board, TChessboard*& children,
                                      const TMoveIndex*& order) {
  const size_t slot = (board.ply / 2) * kMoveBufferSize;
  assert(slot + kMoveBufferSize <= whiteChildren.size() && board.ply < whiteKillers.size());
  children = &whiteChildren[slot];
  order = &whiteOrder[slot];
  int n = 0;
  const std::uint16_t moveNumber =
      context.pHints != nullptr ? context.pHints->MoveNumberAt(board) : std::uint16_t{0};
  if (moveNumber != 0) {
    n = ordering::MakeHintedWhiteChildren(board, children, &whiteOrder[slot],
                                          whiteKillers[board.ply], *context.pHints, moveNumber);
  } else {
    n = ordering::MakeOrderedWhiteChildren(board, children, &whiteOrder[slot],
                                           whiteKillers[board.ply]);
  }
  return SkipAdvisedMoves(board, children, &whiteOrder[slot], n);
}

int CMateSearch::SkipAdvisedMoves(const TChessboard& board, const TChessboard* children,
                                  TMoveIndex* order, int n) const {
  if (context.pAdvice == nullptr || n == 0 ||
      board.rootPlies - board.ply >= 2 * context.nAdviceLevels)
    return n;
  const std::vector<TMove> skipped = context.pAdvice->MovesThatCannotWin(board);
  if (skipped.empty()) return n;
  const auto cannotWin = [&](TMoveIndex i) {
    return std::any_of(skipped.begin(), skipped.end(),
                       [&](const TMove& move) { return move.SameMove(children[i].lastMove); });
  };
  return static_cast<int>(std::remove_if(order, order + n, cannotWin) - order);
}

bool CMateSearch::MayGoOn() {
  if (Interrupted()) return false;
  if (scheduler != nullptr) {
    scheduler->Gate().YieldIfDue();
    if (scheduler->WantsWork() && !lendingNodes.empty()) OfferRunnerUps();
  }
  return !IsPaused() || ParkWhilePaused();
}

bool CMateSearch::ParkWhilePaused() {
  context.run.ParkUntil([this] { return Interrupted() || !IsPaused(); });
  return !Interrupted();
}

void CMateSearch::SetPausedAlone(bool bPaused) {
  bPausedAlone.store(bPaused);
  context.run.Notify();
}

bool CMateSearch::UsesRegister(const TChessboard& board) const {
  return context.pRegister != nullptr && board.ply >= kMinRegisterPlies &&
         !registerkey::HasEnPassantRight(board) && !onecolour::IsReduced(board);
}

std::optional<MateResult> CMateSearch::ProbeTables(const TChessboard& board) const {
  // Below 3 plies the search is quicker than a lookup; the tables hold no castling or en
  // passant rights.
  if (context.pTables == nullptr || board.ply < kMinRegisterPlies ||
      PieceCount(board) > kMaxTablePieces || movegen::CastlingRights(board) != 0 ||
      registerkey::HasEnPassantRight(board) || onecolour::IsReduced(board))
    return std::nullopt;
  const auto value = context.pTables->Probe(board);
  if (!value) return std::nullopt;
  const int nMovesLeft = (board.ply + 1) / 2;
  return tablevalue::IsMate(*value) && *value <= nMovesLeft ? mate::kMate : mate::kNoMate;
}

void CMateSearch::FileAnswer(const TChessboard& board, std::uint8_t answer) {
  // An interrupted search proves nothing.
  if (Interrupted() || !UsesRegister(board)) return;
  context.pRegister->Insert(board.ply, Key(board), answer);
}

void CMateSearch::FileDefence(const TChessboard& board, std::uint8_t bDefence) {
  if (Interrupted() || board.ply < kMinBlackRegisterPlies || !UsesRegister(board)) return;
  context.pRegister->InsertDefence(board.ply, Key(board), bDefence);
}

std::optional<MateResult> CMateSearch::FindDoubtful(const TChessboard& board) {
  if (context.pDoubtful == nullptr || bThreatSearch || board.ply < kMinRegisterPlies ||
      registerkey::HasEnPassantRight(board) || onecolour::IsReduced(board))
    return std::nullopt;
  const std::uint8_t known =
      context.pDoubtful->FindDoubtful(context.doubtfulSelection, board.ply, Key(board));
  if (known == kDoubtfulMate) return mate::kMate;
  if (known != kDoubtfulCut) return std::nullopt;
  NoteDoubtful(kDoubtfulFromStore);
  return mate::kDoubtful;
}

void CMateSearch::FileDoubtful(const TChessboard& board) {
  // An interrupted search was cut by the stop, not by the selection.
  if (Interrupted() || context.pDoubtful == nullptr || bThreatSearch ||
      board.ply < kMinRegisterPlies || registerkey::HasEnPassantRight(board) ||
      onecolour::IsReduced(board))
    return;
  context.pDoubtful->InsertDoubtful(context.doubtfulSelection, board.ply, Key(board), false);
}

TChessboardRegisterItem CMateSearch::Key(const TChessboard& board) const {
  return context.IsSelfmate() ? registerkey::BuildSelfmate(board) : registerkey::Build(board);
}

MateResult CMateSearch::WhiteNode(const TChessboard& board) {
  const MateResult result = SearchWhiteNode(board);
  LogResult(board, result);
  return result;
}

std::optional<MateResult> CMateSearch::SelfmateEnd(const TChessboard& board) const {
  // Only a check can be mate; the test of legal moves is for positions in check.
  if (board.IsWhiteInCheck() && !movemaking::HasLegalMove(board)) return mate::kMate;
  if (board.ply == 1) return mate::kNoMate;
  return std::nullopt;
}

MateResult CMateSearch::SearchWhiteNode(const TChessboard& board) {
  if (context.IsSelfmate()) {
    if (const auto end = SelfmateEnd(board)) return *end;
  } else if (board.ply == 1) {
    return MateInOne(board) ? mate::kMate : mate::kNoMate;
  }
  if (const auto known = ProbeTables(board)) {
    if (logger && *known == mate::kMate)
      logger->TextLine(board,
                       "QuickerMate with AdditionalMoves found (with glob.reg./Nalimov lookup)");
    return *known;
  }
  if (UsesRegister(board)) {
    const std::uint8_t known = context.pRegister->FindAnswer(board.ply, Key(board));
    if (known == 1) {
      if (logger) logger->TextLine(board, "Mate found (pos.in temp.reg.)");
      return mate::kMate;
    }
    if (known == 0) return mate::kNoMate;
  }
  if (const auto doubtful = FindDoubtful(board)) return *doubtful;
  if (Restricted()) {
    if (const auto cut = HeuristicCut(board)) return *cut;
  }
  if (HasShorterMate(board)) {
    FileAnswer(board, 1);
    return mate::kMate;
  }
  TChessboard* children;
  const TMoveIndex* order;
  const int nAll = OrderedWhiteChildren(board, children, order);
  const int n =
      Restricted() ? patternrules::SearchedWhiteMoves(board, nAll, context.heuristics.set) : nAll;
  TWhiteTally tally;
  if (n < nAll) {
    NoteDoubtful(shbit::kSkipWorstWhiteMoves);
    tally.bDoubtful = true;
  }
  const bool bMaySplit = !bThreatSearch && board.ply >= kMinSplitPlies && n > 1;
  const bool bShare = bMaySplit && splitBoard != nullptr && splitBoard->HasIdleWorkers();
  const bool bLend = bMaySplit && board.ply >= kMinLendingPlies && scheduler != nullptr &&
                     scheduler->Covers(board);
  if (bShare || bLend) {
    TSplitPoint split;
    split.children = children;
    split.order = order;
    split.n = n;
    split.abandon.parent = abandon;
    if (bShare)
      SearchWhiteChildrenShared(split);
    else
      SearchWhiteChildrenLendingTime(split);
    tally = split.tally;
  } else {
    for (int i = 0; i < n && !tally.bMate; ++i) {
      EvaluateWhiteChild(children[order[i]], tally);
      if (Interrupted()) return mate::kDoubtful;
    }
  }
  if (Interrupted()) return mate::kDoubtful;
  if (tally.bMate) {
    whiteKillers[board.ply] = tally.mating;
    FileAnswer(board, 1);
    return mate::kMate;
  }
  return SettleWhiteFailure(board, tally);
}

std::optional<MateResult> CMateSearch::HeuristicCut(const TChessboard& board) {
  const THeuristicSet& set = context.heuristics.set;
  if (set.bPreliminary && set.nForcedMateMoves != 0 &&
      heuristicrules::WhiteMoveNumber(board) >= set.nForcedMateMoves) {
    // The preliminary run looks no further than its forced-mate depth; what lies beyond is
    // not refuted, only left to the runs that follow.
    if (MateInOne(board)) return mate::kMate;
    NoteDoubtful(shbit::kFindForcedMate);
    return mate::kForcedMateDepthEnd;
  }
  std::uint32_t bit = heuristicrules::WhiteNodeBreaks(board, context.heuristics);
  if (bit == 0 && context.pTables != nullptr && set.Has(shbit::kReductionToTables) &&
      tablereduction::ReducedHasNoMate(board, *context.pTables))
    bit = shbit::kReductionToTables;
  if (bit == 0) return std::nullopt;
  // The mate in one is looked for first: a restriction never hides an immediate mate.
  if (MateInOne(board)) return mate::kMate;
  NoteDoubtful(bit);
  return mate::kDoubtful;
}

MateResult CMateSearch::WhiteNodeAfterReply(const TChessboard& child) {
  if (Restricted()) {
    const heuristicrules::TBreak cut = heuristicrules::BlackReplyBreaks(child, context.heuristics);
    if (cut.bit != 0) {
      if (cut.bMateExcuses && MateInOne(child)) return mate::kMate;
      NoteDoubtful(cut.bit);
      return mate::kDoubtful;
    }
  }
  return WhiteNode(child);
}

void CMateSearch::EvaluateWhiteChild(const TChessboard& child, TWhiteTally& tally) {
  CountPosition();
  LogMove(*child.parent, child.lastMove, &child);
  if (Restricted()) {
    if (const std::uint32_t bit =
            heuristicrules::WhiteMoveBreaks(child, context.heuristics, threatTest)) {
      NoteDoubtful(bit);
      tally.bDoubtful = true;
      return;
    }
  }
  const std::uint16_t repeated =
      (context.bCutRepetitions ? repetition::RepeatedAncestorPly(child) : 0);
  if (repeated != 0) {
    tally.mark = std::max(tally.mark, repeated);
    return;
  }
  const MateResult result = BlackNode(child);
  if (Interrupted()) return;
  if (result == mate::kMate) {
    tally.bMate = true;
    tally.mating = child.lastMove;
  } else if (result == mate::kRepetition) {
    tally.mark = std::max(tally.mark, repetitionMarks[child.ply]);
  } else if (result == mate::kDoubtful) {
    tally.bDoubtful = true;
  } else if (result == mate::kForcedMateDepthEnd) {
    tally.bDepthEnd = true;
  }
}

void CMateSearch::SearchWhiteChildrenShared(TSplitPoint& split) {
  const CSplitBoard::COpening opening(*splitBoard, split);
  HelpAt(split);
}

void CMateSearch::SearchWhiteChildrenLendingTime(TSplitPoint& split) {
  lendingNodes.push_back({&split, std::chrono::steady_clock::now(), false});
  // However the node ends, an exception included, its helpers have left before its tally is
  // read. It is offered to them only once it has run for a while (OfferRunnerUps).
  struct TEnd {
    CMateSearch& search;
    const int nUncaught = std::uncaught_exceptions();
    ~TEnd() {
      const TLendingNode node = search.lendingNodes.back();
      search.lendingNodes.pop_back();
      if (node.bOpen)
        search.scheduler->Board().Close(*node.split, std::uncaught_exceptions() > nUncaught);
    }
  } end{*this};
  HelpAt(split);
}

void CMateSearch::OfferRunnerUps() {
  const auto now = std::chrono::steady_clock::now();
  for (TLendingNode& node : lendingNodes) {
    const TSplitPoint& split = *node.split;
    const bool bMovesLeft = split.nNext.load() < split.n && !split.abandon.IsSet();
    if (node.bOpen) {
      if (bMovesLeft) return;  // still on offer
      continue;
    }
    if (now - node.start < scheduler->RunnerUpDelay()) return;  // the deeper ones are younger
    if (!bMovesLeft) continue;
    node.bOpen = true;
    scheduler->Board().Open(*node.split);
    return;
  }
}

void CMateSearch::HelpAt(TSplitPoint& split) {
  // The search's own work is restored however the help ends, an exception included.
  struct TRestoreLink {
    const TAbandonLink*& link;
    const TAbandonLink* own;
    ~TRestoreLink() { link = own; }
  } restore{abandon, abandon};
  abandon = &split.abandon;
  for (;;) {
    const int i = split.nNext.fetch_add(1);
    if (i >= split.n || Interrupted()) break;
    TWhiteTally tally;
    EvaluateWhiteChild(split.children[split.order[i]], tally);
    if (Interrupted()) break;
    {
      const std::lock_guard lock(split.tallyMutex);
      split.tally.Merge(tally);
      if (!tally.bMate) continue;
      split.abandon.bSet = true;  // one mating move settles the node
    }
    context.run.WakeParked();
  }
}

bool CMateSearch::HasShorterMate(const TChessboard& board) {
  // After a weak defence a short mate is common and cheap to find: looking for it first
  // keeps the full-depth search from wandering down a long line while a quick mate waits
  // behind it. The register keeps the shallow answers for the deeper rounds.
  if (!context.IsSelfmate() && MateInOne(board)) return true;
  if (board.ply < kMinDeepeningPlies) return false;
  for (std::uint16_t plies = 3; plies < board.ply; plies += 2) {
    TChessboard shallower = board;
    shallower.ply = plies;
    if (WhiteNode(shallower) == mate::kMate) return true;
    if (Interrupted()) return false;
  }
  return false;
}

MateResult CMateSearch::SettleWhiteFailure(const TChessboard& board, const TWhiteTally& tally) {
  // Doubt outweighs a repetition: a repetition is settled as no mate further up, which holds
  // only when nothing else was cut.
  if (tally.bDoubtful) {
    FileDoubtful(board);
    return mate::kDoubtful;
  }
  // The end of the forced-mate depth goes up to the root, which takes it for doubtful: it is
  // never filed, so no position below the depth is ever taken for refuted.
  if (tally.bDepthEnd) return mate::kForcedMateDepthEnd;
  const std::uint16_t mark = tally.mark;
  if (mark > board.ply) {
    repetitionMarks[board.ply] = mark;
    return mate::kRepetition;
  }
  // A repetition of this very position is settled here, as no mate: the exact search loses
  // no mate by cutting it.
  FileAnswer(board, 0);
  return mate::kNoMate;
}

MateResult CMateSearch::BlackNode(const TChessboard& board) {
  const MateResult result = SearchBlackNode(board);
  LogResult(board, result);
  return result;
}

MateResult CMateSearch::SearchBlackNode(const TChessboard& board) {
  if (!MayGoOn()) return mate::kDoubtful;
  if (board.ply == 0)
    return board.IsBlackInCheck() && !movemaking::HasLegalMove(board) ? mate::kMate : mate::kNoMate;
  if (const auto known = ProbeTables(board)) return *known;
  if (board.ply >= kMinBlackRegisterPlies && UsesRegister(board)) {
    const std::uint8_t bDefence = context.pRegister->FindDefenceAnswer(board.ply, Key(board));
    if (bDefence == 0) return mate::kMate;
    if (bDefence == 1) return mate::kNoMate;
  }
  if (const auto doubtful = FindDoubtful(board)) return *doubtful;
  const MateResult result = SearchBlackReplies(board);
  if (result == mate::kMate || result == mate::kNoMate)
    FileDefence(board, result == mate::kMate ? 0 : 1);
  else if (result == mate::kDoubtful)
    FileDoubtful(board);
  return result;
}

MateResult CMateSearch::SearchBlackReplies(const TChessboard& board) {
  const THeuristicSet& set = context.heuristics.set;
  const bool bPass = set.Has(shbit::kOneColorPlay) && onecolour::MayPass(board, set.oneColour);
  if (bPass && onecolour::IsReduced(board) && onecolour::MayBeRealStalemate(board)) {
    NoteDoubtful(shbit::kOneColorPlay);
    return mate::kDoubtful;
  }
  int nLegal = 0;
  if (bPass) {
    if (const auto result = TryPass(board, nLegal)) return *result;
  }
  // Next to the horizon the reply that refuted a sibling refutes almost always: it is tried
  // before the others are generated, which then are mostly never needed, and the ordering
  // would cost more than it saves.
  const bool bNearHorizon = board.ply <= 2;
  const TMove killer = blackKillers[board.ply];
  TMove generatedKiller;
  const bool bKillerFirst = bNearHorizon &&
                            movegen::FindPieceMove(board, killer, &generatedKiller) &&
                            !(bPass && onecolour::IsBishopMove(board, killer));
  if (bKillerFirst) {
    if (const auto result = TryBlackReply(board, generatedKiller, nLegal)) return *result;
  }
  TMove moves[kMoveBufferSize];
  const int n = board.IsBlackInCheck() ? movegen::GenerateEvasions(board, moves)
                                       : movegen::GenerateAllMoves(board, moves);
  if (!bNearHorizon) ordering::OrderBlackReplies(board, moves, n, killer);
  for (int i = 0; i < n; ++i) {
    if (bKillerFirst && moves[i].SameMove(killer)) continue;
    if (bPass && onecolour::IsBishopMove(board, moves[i])) continue;  // the pass stands for them
    if (const auto result = TryBlackReply(board, moves[i], nLegal)) return *result;
  }
  return nLegal != 0 ? mate::kMate : NoReplyResult(board);
}

std::optional<MateResult> CMateSearch::TryBlackReply(const TChessboard& board, TMove reply,
                                                     int& nLegal) {
  assert(board.ply < line.size() && !board.IsWhiteToMove());
  TChessboard& child = line[board.ply];
  child = board;
  child.parent = &board;
  if (movemaking::MakeBlackMove(child, reply) <= 0) {
    LogMove(board, reply, nullptr);
    return std::nullopt;
  }
  ++nLegal;
  CountPosition();
  LogMove(board, reply, &child);
  return SearchReply(board, child, true);
}

std::optional<MateResult> CMateSearch::TryPass(const TChessboard& board, int& nLegal) {
  assert(board.ply < line.size());
  TChessboard& child = line[board.ply];
  onecolour::MakePass(board, child, context.heuristics.set.oneColour);
  ++nLegal;
  CountPosition();
  const std::optional<MateResult> result = SearchReply(board, child, false);
  if (!result || *result == mate::kDoubtful || onecolour::IsReduced(board)) return result;
  // Where the reduced game begins, its failure proves nothing of the real one.
  NoteDoubtful(shbit::kOneColorPlay);
  return mate::kDoubtful;
}

std::optional<MateResult> CMateSearch::SearchReply(const TChessboard& board,
                                                   const TChessboard& child, bool bMove) {
  MateResult result;
  const std::uint16_t repeated =
      (context.bCutRepetitions ? repetition::RepeatedAncestorPly(child) : 0);
  if (repeated != 0) {
    repetitionMarks[child.ply] = repeated;
    result = mate::kRepetition;
  } else {
    result = bMove ? WhiteNodeAfterReply(child) : WhiteNode(child);
  }
  if (result == mate::kMate) return std::nullopt;
  if (bMove) blackKillers[board.ply] = child.lastMove;
  if (result != mate::kRepetition) return result;
  const std::uint16_t mark = repetitionMarks[child.ply];
  if (mark > board.ply) {
    repetitionMarks[board.ply] = mark;
    return mate::kRepetition;
  }
  return mate::kNoMate;
}

MateResult CMateSearch::NoReplyResult(const TChessboard& board) const {
  // In a selfmate the game ended without Black's mate.
  return board.IsBlackInCheck() && !context.IsSelfmate() ? mate::kMate : mate::kNoMate;
}

bool CMateSearch::MateInOne(const TChessboard& board) {
  assert(board.IsWhiteToMove() && board.ply < line.size());
  TMove moves[kMoveBufferSize];
  const int n = attacks::CCheckFilter(board).GenerateCheckingMoves(moves);
  TChessboard& child = line[board.ply];
  for (int i = 0; i < n; ++i) {
    child = board;
    child.parent = &board;
    if (movemaking::MakeWhiteMove(child, moves[i]) <= 0) continue;
    CountPosition();
    const bool bMated = child.IsBlackInCheck() && !movemaking::HasLegalMove(child);
    if (logger) {
      logger->MoveLine(board, moves[i], &child);
      LogResult(child, bMated ? mate::kMate : mate::kNoMate);
    }
    if (bMated) return true;
  }
  return false;
}

bool CMateSearch::ThreatensMate(const TChessboard& after, int nMoves) {
  assert(nMoves >= 1 && 2 * nMoves <= after.ply);
  TChessboard again = after;
  again.parent = nullptr;  // no en passant right for White from Black's last move
  again.ply = static_cast<std::uint16_t>(2 * nMoves - 1);
  if (!RecomputeChecks(again) || again.IsBlackInCheck()) return false;
  // The threat is no move of the line: it stays out of the log, and out of reach of the
  // pass's restrictions and of the other threads.
  struct TThreatScope {
    CMateSearch& search;
    std::unique_ptr<CMovesLogger> logger;
    const bool bWasThreat;
    explicit TThreatScope(CMateSearch& owner)
        : search(owner), logger(std::move(owner.logger)), bWasThreat(owner.bThreatSearch) {
      search.bThreatSearch = true;
    }
    TThreatScope(const TThreatScope&) = delete;
    TThreatScope& operator=(const TThreatScope&) = delete;
    ~TThreatScope() {
      search.logger = std::move(logger);
      search.bThreatSearch = bWasThreat;
    }
  } scope(*this);
  return WhiteNode(again) == mate::kMate;
}
