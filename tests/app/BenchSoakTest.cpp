// "longmate bench soak" run as a program: every configuration solves, and a key that is not
// the published one is reported and fails the run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CommandRun.h"
#include "TestData.h"

namespace {

using ::testing::HasSubstr;

class BenchSoak : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(LongmatePath())) GTEST_SKIP() << "longmate is not built";
  }
  CTempFolder folder;
};

TEST_F(BenchSoak, ReferenceMatesAgreeUnderEveryConfiguration) {
  const TRun run = RunLongmate(folder.Path(), "bench soak --seconds 6 --max-moves 2 --set '" +
                                                  testdata::PathOf("directmates.tsv") + "'");
  EXPECT_EQ(run.nStatus, 0) << run.out << run.err;
  for (const char* row : {"      1    2MiB", "      4    2MiB", "      2 default"})
    EXPECT_THAT(run.out, HasSubstr(row));
  EXPECT_THAT(run.out, HasSubstr(" 0 disagreements"));
  EXPECT_THAT(run.out, ::testing::Not(HasSubstr("total: 0 solves")));
}

TEST_F(BenchSoak, AKeyOtherThanThePublishedOneFailsTheRun) {
  // Loyd's #2 with a wrong key in the table.
  WriteTextFile(folder / "wrong.tsv",
                "id\tfen\tn\tkeys\tpopeye_seconds\n"
                "loyd\t2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - 0 1\t2\tQh5-h4\t0.01\n");
  const TRun run = RunLongmate(folder.Path(), "bench soak --seconds 3 --set wrong.tsv");
  EXPECT_EQ(run.nStatus, 1) << run.out << run.err;
  EXPECT_THAT(run.out, HasSubstr("DISAGREEMENT loyd: found Qh5-a5"));
}

}  // namespace
