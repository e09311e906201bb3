#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SolvingSessionHelpers.h"
#include "TempFolder.h"

namespace {

using namespace sessiontest;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::uint64_t SolvePositions(CSolvingSession& session, const TProblem& problem) {
  // One thread, so that the same search examines the same positions.
  EXPECT_EQ(session.Start({.pProblem = &problem, .threads = TThreadSettings{1, 1}}), std::nullopt);
  EXPECT_EQ(session.Wait({.bQuiet = true}), EWaitOutcome::Finished);
  return session.Requests().at(0)->result.nPositions;
}

}  // namespace

// The register read for a problem serves its next solve, although the settings empty the
// register at every start; a file of another problem changes nothing.
TEST(RegisterCommands, RegisterReadForAProblemServesItsNextSolve) {
  const CTempFolder folder;
  const auto problem = ReferenceProblem(kMates, "meson-78844");
  const auto other = ReferenceProblem(kMates, "loyd-1859");
  COptions options = TestOptions();
  options.bClearRegisterOnStartSolving = true;
  CSolvingSession session(options);
  TAggregatedTemporaryChessboardRegister& reg = *session.TemporaryRegister();

  const std::uint64_t nFresh = SolvePositions(session, *problem);
  const std::uint32_t nSolved = reg.GetElementsIn();
  ASSERT_GT(nSolved, 0u);
  const TRegisterCommandResult saved = session.SaveTemporaryRegisterAs(*problem, folder / "r.ltr");
  EXPECT_TRUE(saved.bDone);
  EXPECT_THAT(saved.message, StartsWith("Temporary register saved to "));

  const TRegisterCommandResult cleared = session.ClearTemporaryRegister();
  EXPECT_TRUE(cleared.bDone);
  EXPECT_EQ(reg.GetElementsIn(), 0u);

  SolvePositions(session, *other);
  const std::uint32_t nOther = reg.GetElementsIn();
  const TRegisterCommandResult refused =
      session.ReadTemporaryRegisterFrom(*other, folder / "r.ltr");
  EXPECT_FALSE(refused.bDone);
  EXPECT_THAT(refused.message, HasSubstr("holds the temporary register of another problem."));
  EXPECT_EQ(reg.GetElementsIn(), nOther);

  const TRegisterCommandResult read = session.ReadTemporaryRegisterFrom(*problem, folder / "r.ltr");
  EXPECT_TRUE(read.bDone) << read.message;
  EXPECT_EQ(reg.GetElementsIn(), nSolved);
  EXPECT_LT(SolvePositions(session, *problem), nFresh / 2);
  // Only once: the solve after it starts from an empty register again.
  EXPECT_EQ(SolvePositions(session, *problem), nFresh);
}

TEST(RegisterCommands, MissingDefaultFileIsReported) {
  const auto problem = ReferenceProblem(kMates, "meson-78844");
  CSolvingSession session(TestOptions());
  const TRegisterCommandResult read = session.ReadTemporaryRegister(*problem);
  EXPECT_FALSE(read.bDone);
  EXPECT_THAT(read.message, HasSubstr(CSolvingSession::DefaultRegisterFile(*problem).string() +
                                      " cannot be opened."));
  EXPECT_THAT(CSolvingSession::DefaultRegisterFile(*problem).string(),
              StartsWith("TempRegisters/"));
}
