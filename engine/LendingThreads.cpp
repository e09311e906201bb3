#include "engine/LendingThreads.h"

#include <functional>

CLendingThreads::CLendingThreads(SearchContext& searchContext, std::uint16_t rootPlies,
                                 const CScheduler::TSettings& settings, int nWorkers,
                                 CSplitBoard& splitBoard, bool bShare)
    : context(searchContext), scheduler(settings, nWorkers, splitBoard) {
  for (int helper = 0; helper < scheduler.Helpers(); ++helper) {
    searches.push_back(std::make_unique<CMateSearch>(context, rootPlies));
    searches.back()->SetScheduler(&scheduler);
    if (bShare) searches.back()->SetSplitBoard(&splitBoard);
  }
}

CLendingThreads::~CLendingThreads() {
  if (!threads.empty()) End();  // a run that ended by an exception before End
}

bool CLendingThreads::Start(const TThreadStarter& starter, std::size_t nStackBytes,
                            int nFirstLogThread) {
  bEnd = false;
  for (std::size_t helper = 0; helper < searches.size(); ++helper) {
    searches[helper]->SetLogThread(nFirstLogThread + static_cast<int>(helper));
    bool bStarted = false;
    try {
      threads.push_back(std::make_unique<CSolvingThread>());
      std::function<void()> body = [this, helper] { Run(static_cast<int>(helper)); };
      bStarted = starter ? starter(*threads.back(), std::move(body), nStackBytes)
                         : threads.back()->Start(std::move(body), nStackBytes);
    } catch (const std::exception&) {
      bStarted = false;
    }
    if (!bStarted) {
      context.run.Abort();
      return false;
    }
  }
  return true;
}

std::exception_ptr CLendingThreads::End() {
  bEnd = true;
  context.run.Notify();
  for (auto& thread : threads) thread->Join();
  threads.clear();
  const std::lock_guard lock(failureMutex);
  return failure;
}

void CLendingThreads::Run(int helper) noexcept {
  try {
    Help(*searches[helper]);
  } catch (...) {
    {
      const std::lock_guard lock(failureMutex);
      if (!failure) failure = std::current_exception();
    }
    context.run.Abort();
  }
}

void CLendingThreads::Help(CMateSearch& search) {
  // Counted as waiting for work from the first look for a node to the last.
  struct TIdle {
    CScheduler& scheduler;
    bool bIdle = false;
    void Set(bool bNow) {
      if (bNow != bIdle) scheduler.SetHelperIdle(bNow);
      bIdle = bNow;
    }
    ~TIdle() { Set(false); }
  } idle{scheduler};
  CSplitBoard& board = scheduler.Board();
  for (;;) {
    const std::uint64_t seen = context.run.Generation();
    if (bEnd.load() || context.run.IsStopping()) return;
    idle.Set(true);
    TSplitPoint* split = board.Join();
    if (split == nullptr) {
      context.run.WaitForChange(seen);
      continue;
    }
    idle.Set(false);
    const CSplitBoard::CHelping helping(board, *split);
    const CActivityGate::CHold permit(&scheduler.Gate(), CScheduler::kHelperSlice);
    search.HelpAt(*split);
  }
}

std::uint64_t CLendingThreads::Positions() const {
  std::uint64_t n = 0;
  for (const auto& search : searches) n += search->Positions();
  return n;
}

void CLendingThreads::ReleaseBuffers() {
  for (const auto& search : searches) search->ReleaseBuffers();
}
