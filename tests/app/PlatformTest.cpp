#include <gtest/gtest.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "app/ProcessControl.h"
#include "app/ProgramState.h"
#include "app/TempFolder.h"
#include "app/platform/Affinity.h"
#include "app/platform/Machine.h"
#include "app/platform/ProcessMemory.h"
#include "app/platform/ProcessPriority.h"
#include "app/platform/SingleInstanceLock.h"

namespace {

using platform::EPriorityClass;
using platform::TAffinityMask;

TEST(Machine, CoresAreDistinctPackageAndCorePairs) {
  const std::string twoPackagesWithSiblings =
      "processor\t: 0\nphysical id\t: 0\ncore id\t\t: 0\n\n"
      "processor\t: 1\nphysical id\t: 0\ncore id\t\t: 1\n\n"
      "processor\t: 2\nphysical id\t: 0\ncore id\t\t: 0\n\n"
      "processor\t: 3\nphysical id\t: 1\ncore id\t\t: 0\n\n"
      "processor\t: 4\nphysical id\t: 1\ncore id\t\t: 0\n";
  EXPECT_EQ(platform::CountCoresInCpuInfo(twoPackagesWithSiblings), 3u);
  EXPECT_EQ(platform::CountCoresInCpuInfo("processor : 0\nBogoMIPS : 50\n\nprocessor : 1\n"), 0u);
  EXPECT_EQ(platform::CountCoresInCpuInfo(""), 0u);
}

TEST(ProcessMemory, StatusFieldsAreReadInBytes) {
  const std::string status = "Name:\tlongmate\nVmHWMx:\t1 kB\nVmHWM:\t  2048 kB\nVmRSS:\t1024 kB\n";
  EXPECT_EQ(platform::StatusFieldBytes(status, "VmHWM"), 2048u << 10);  // not VmHWMx
  EXPECT_EQ(platform::StatusFieldBytes(status, "VmRSS"), 1024u << 10);
  EXPECT_EQ(platform::StatusFieldBytes(status, "VmSwap"), 0u);
  EXPECT_EQ(platform::StatusFieldBytes("VmRSS:\t12 kB", "VmRSS"), 12u << 10);  // no last newline

  // Memory taken and touched shows in the peak from a reset on.
  ASSERT_TRUE(platform::ResetPeakResident());
  const std::uint64_t nBefore = platform::ResidentBytes();
  std::vector<char> block(64 << 20, 1);
  EXPECT_GE(platform::PeakResidentBytes(), nBefore + (60u << 20));
}

TEST(Machine, CountsAreSaneAndCached) {
  using platform::ECountFreshness;
  const unsigned logical = platform::LogicalProcessorCount();
  const unsigned physical = platform::PhysicalCoreCount();
  EXPECT_GE(logical, 1u);
  EXPECT_GE(physical, 1u);
  EXPECT_LE(physical, logical);
  EXPECT_EQ(platform::LogicalProcessorCount(ECountFreshness::Fresh), logical);
  EXPECT_EQ(platform::PhysicalCoreCount(ECountFreshness::Fresh), physical);
  EXPECT_GT(platform::TotalPhysicalMemoryBytes(), std::uint64_t{1} << 24);
}

TEST(Affinity, ToggleNeedsCheckMarksMatchingTheProcessMask) {
  struct TCase {
    TAffinityMask processMask;
    std::vector<bool> checkMarks;
    unsigned nToggled;
    bool bChangedOutside;
    TAffinityMask newMask;
  };
  const TCase cases[] = {
      {0b11, {true, true}, 1, false, 0b01},
      {0b01, {true, false}, 1, false, 0b11},
      {0b0101, {true, false, true, false}, 0, false, 0b0100},
      {0b01, {true, true}, 0, true, 0b01},    // a processor was added outside
      {0b111, {true, true}, 0, true, 0b111},  // a processor beyond the menu is set
      {0b1, {true}, 0, false, 0},             // the system will refuse the empty mask
  };
  for (const TCase& c : cases) {
    const auto toggle = platform::ToggleAffinity(c.processMask, c.checkMarks, c.nToggled);
    EXPECT_EQ(toggle.bChangedOutside, c.bChangedOutside) << c.processMask;
    EXPECT_EQ(toggle.newMask, c.newMask) << c.processMask;
  }
}

// A thread that waits until told to end, so that its settings can be looked at.
class CIdleThread {
 public:
  CIdleThread()
      : m_thread([this] {
          m_tid = static_cast<pid_t>(syscall(SYS_gettid));
          while (!m_bEnd) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }) {
    while (m_tid == 0) std::this_thread::yield();
  }
  ~CIdleThread() {
    m_bEnd = true;
    m_thread.join();
  }
  pid_t Tid() const { return m_tid; }

 private:
  std::atomic<bool> m_bEnd{false};
  std::atomic<pid_t> m_tid{0};
  std::thread m_thread;
};

TEST(Affinity, SettingTheMaskReachesEveryThread) {
  const auto original = platform::GetProcessAffinityMask();
  ASSERT_TRUE(original);
  ASSERT_NE(*original, 0u);
  const TAffinityMask lowest = *original & (~*original + 1);
  CIdleThread other;
  ASSERT_TRUE(platform::SetProcessAffinityMask(lowest));
  cpu_set_t set;
  ASSERT_EQ(sched_getaffinity(other.Tid(), sizeof set, &set), 0);
  EXPECT_EQ(CPU_COUNT(&set), 1);
  EXPECT_EQ(platform::GetProcessAffinityMask(), lowest);
  EXPECT_FALSE(platform::SetProcessAffinityMask(0));
  ASSERT_TRUE(platform::SetProcessAffinityMask(*original));
}

TEST(Affinity, MenuToggleRefusesStaleCheckMarks) {
  const TAffinityMask mask = platform::GetProcessAffinityMask().value();
  std::vector<bool> stale(64, false);
  for (unsigned i = 0; i < 64; ++i) stale[i] = !(mask & (TAffinityMask{1} << i));
  const auto outcome = ToggleProcessorAffinity(stale, 0, 1);
  EXPECT_EQ(outcome.message,
            "Settings were changed outside the program.\nRetry the attempt to change settings.");
  EXPECT_EQ(outcome.mask, mask);
  EXPECT_EQ(platform::GetProcessAffinityMask(), mask);
}

TEST(Priority, BelowNormalReachesEveryThreadAndIsRemembered) {
  errno = 0;
  const int nice = getpriority(PRIO_PROCESS, 0);
  if (nice > platform::NiceLevel(EPriorityClass::BelowNormal) && geteuid() != 0)
    GTEST_SKIP() << "already running below the below-normal level";
  CIdleThread other;
  GetProgramState().priorityClass = EPriorityClass::Normal;
  ASSERT_TRUE(ChooseProcessPriority(EPriorityClass::BelowNormal));
  EXPECT_EQ(GetProgramState().priorityClass, EPriorityClass::BelowNormal);
  EXPECT_EQ(getpriority(PRIO_PROCESS, static_cast<id_t>(other.Tid())), 5);
  EXPECT_EQ(getpriority(PRIO_PROCESS, 0), 5);
}

// Start-up runs in a child process started at a given nice level, with a second thread that
// inherits it; the child reports both threads' levels and the class it remembers. A child
// keeps the test program's own level untouched, and as root it shows that start-up does
// not use the privilege to raise a low priority.
TEST(Priority, StartUpLowersButNeverRaises) {
  struct TCase {
    int nStartNice;
    int nExpectedNice;
    const char* szRemembered;  // the EPriorityClass value, as a number
  };
  const TCase cases[] = {
      {0, 5, "3"},    // below normal
      {5, 5, "3"},    // already there
      {10, 10, "3"},  // between below normal and idle: kept, shown as below normal
      {19, 19, "4"},  // idle stays idle
  };
  errno = 0;
  const int nOwnNice = getpriority(PRIO_PROCESS, 0);
  for (const TCase& c : cases) {
    if (c.nStartNice < nOwnNice && geteuid() != 0) continue;  // cannot start the child there
    const std::string expected = "nice " + std::to_string(c.nExpectedNice) + " " +
                                 std::to_string(c.nExpectedNice) + " class " + c.szRemembered;
    EXPECT_EXIT(
        {
          setpriority(PRIO_PROCESS, 0, c.nStartNice);
          CIdleThread other;
          LowerProcessPriorityAtStart();
          std::fprintf(stderr, "nice %d %d class %d\n", getpriority(PRIO_PROCESS, 0),
                       getpriority(PRIO_PROCESS, static_cast<id_t>(other.Tid())),
                       static_cast<int>(GetProgramState().priorityClass));
          std::fflush(stderr);
          std::_Exit(0);
        },
        testing::ExitedWithCode(0), expected)
        << "started at nice " << c.nStartNice;
  }
}

TEST(Priority, NiceLevelsShowAsTheNearestClassAbove) {
  const std::pair<int, EPriorityClass> cases[] = {
      {19, EPriorityClass::Idle},       {18, EPriorityClass::BelowNormal},
      {5, EPriorityClass::BelowNormal}, {4, EPriorityClass::Normal},
      {0, EPriorityClass::Normal},      {-1, EPriorityClass::AboveNormal},
      {-10, EPriorityClass::High},      {-20, EPriorityClass::High},
  };
  for (const auto& [nice, expected] : cases)
    EXPECT_EQ(platform::PriorityClassOfNiceLevel(nice), expected) << nice;
}

TEST(Priority, EveryClassEitherAppliesOrFailsCleanly) {
  const EPriorityClass classes[] = {EPriorityClass::Idle, EPriorityClass::BelowNormal,
                                    EPriorityClass::Normal, EPriorityClass::AboveNormal,
                                    EPriorityClass::High};
  int previousNice = 20;
  for (EPriorityClass priority : classes) {
    const int niceLevel = platform::NiceLevel(priority);
    EXPECT_LT(niceLevel, previousNice);  // each class runs ahead of the one before
    previousNice = niceLevel;
    const EPriorityClass remembered = GetProgramState().priorityClass;
    if (ChooseProcessPriority(priority)) {
      EXPECT_EQ(getpriority(PRIO_PROCESS, 0), niceLevel);
      EXPECT_EQ(GetProgramState().priorityClass, priority);
    } else {
      EXPECT_EQ(GetProgramState().priorityClass, remembered);
    }
  }
}

TEST(SingleInstanceLock, SecondHolderIsFlaggedUntilTheFirstReleases) {
  CTempFolder folder;
  const auto path = folder / platform::kInstanceLockFileName;
  auto first = std::make_unique<platform::CSingleInstanceLock>(path);
  EXPECT_TRUE(first->IsHeld());
  EXPECT_FALSE(first->IsSecondInstance());
  {
    platform::CSingleInstanceLock second(path);
    EXPECT_TRUE(second.IsSecondInstance());
    EXPECT_FALSE(second.IsHeld());
  }
  first.reset();
  platform::CSingleInstanceLock third(path);
  EXPECT_FALSE(third.IsSecondInstance());
  EXPECT_TRUE(third.IsHeld());
}

}  // namespace
