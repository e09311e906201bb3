// The queue that hands calls from worker threads to the GUI thread: every call runs there, in
// the order of each worker, and a call that ends the queue's owner drops the rest safely.
#include <QTest>
#include <QThread>
#include <map>
#include <memory>
#include <thread>
#include <vector>

#include "UiTestMain.h"
#include "app/ui/GuiThreadQueue.h"

namespace {

constexpr int kWaitMs = 10000;

}  // namespace

class CGuiThreadQueueTest : public QObject {
  Q_OBJECT
 private Q_SLOTS:
  void CallsOfSeveralWorkersRunOnTheGuiThreadInEachWorkersOrder() {
    constexpr int kWorkers = 3, kCallsEach = 500;
    CGuiThreadQueue queue;
    std::map<int, std::vector<int>> seen;  // GUI thread only
    int nSeen = 0;
    bool bOffTheGuiThread = false;
    {
      std::vector<std::jthread> workers;
      for (int worker = 0; worker < kWorkers; ++worker)
        workers.emplace_back([&, worker] {
          for (int call = 0; call < kCallsEach; ++call)
            queue.Post([&, worker, call] {
              bOffTheGuiThread |= QThread::currentThread() != qApp->thread();
              seen[worker].push_back(call);
              ++nSeen;
            });
        });
    }
    QTRY_COMPARE_WITH_TIMEOUT(nSeen, kWorkers * kCallsEach, kWaitMs);
    QVERIFY(!bOffTheGuiThread);
    QCOMPARE(int(seen.size()), kWorkers);
    for (const auto& [worker, calls] : seen)
      for (int call = 0; call < kCallsEach; ++call) QCOMPARE(calls[call], call);
  }

  // The window's controllers own their queue: a call may close the controller, and with it
  // the queue, while later calls are still due.
  void ACallThatDestroysTheQueueDropsTheCallsAfterIt() {
    auto owner = std::make_unique<QObject>();
    auto* queue = new CGuiThreadQueue(owner.get());
    int nRun = 0;
    std::thread([&] {
      queue->Post([&] { ++nRun; });
      queue->Post([&] {
        ++nRun;
        owner.reset();
      });
      queue->Post([&] { ++nRun; });
    }).join();
    QTRY_VERIFY_WITH_TIMEOUT(!owner, kWaitMs);
    QCOMPARE(nRun, 2);
  }
};

static const bool bRegistered =
    RegisterUiTest([] { return std::make_unique<CGuiThreadQueueTest>(); });

#include "GuiThreadQueueTest.moc"
