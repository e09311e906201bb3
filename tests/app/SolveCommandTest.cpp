// The exit statuses of "longmate", run as a program beside the test program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "CommandRun.h"
#include "SolvingFixtures.h"

namespace {

constexpr const char* kCollection =
    "1 #2\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n\tAnswer: Qh5-a5\n}\n"
    "2 #2 NoMirror\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n\tAnswer: Qh5-h4\n}\n"
    "3 s#2\n{\n\tFEN: 8/8/8/8/1p4Q1/k7/p7/K7\n\tAnswer: Qg4-d1\n}\n"
    "4\n{\n\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n}\n";

// A folder holding the collection above, in which longmate runs.
class SolveCommand : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(LongmatePath())) GTEST_SKIP() << "longmate is not built";
    WriteTextFile(folder / "problems.cp", kCollection);
  }

  TRun Run(const std::string& arguments) const { return RunLongmate(folder.Path(), arguments); }

  CTempFolder folder;
};

TEST_F(SolveCommand, ExitStatuses) {
  const std::string longFen = ReferenceProblemFen("moremovers.tsv", "mt-04273");
  const struct {
    std::string arguments;
    int nStatus;
    const char* szOutput;  // a line the output must hold
  } cases[] = {
      {"problems.cp --problem 1,3", 0, "Answer Qh5-a5: matched"},
      {"problems.cp --problem 3 --threads 2", 0, "Answer Qg4-d1: matched"},
      {"problems.cp --problem 4", 0, "Problem 4 skipped: no stipulation to solve"},
      {"--fen 8/8/8/8/8/kp5R/p7/K7 --selfmate 1", 0, "Keys: Rh3-h4"},
      {"--fen 8/8/8/8/8/kp5R/p7/K7 --selfmate 1 --mate 1", 2, ""},
      {"problems.cp", 1, "Answer Qh5-h4: MISMATCHED"},
      {"--fen '" + longFen + "' --mate 10 --time-limit 1", 1,
       "Time limit of 1 s reached: problem 1 not finished"},
      {"missing.cp", 2, ""},
      {"problems.cp --problem 5", 2, ""},
      {"problems.cp --threads 32^3", 2, ""},
      {"problems.cp --problem 1,1", 0, "Solved 1 of 1 problems"},
      {"--fen 8/8/8 --mate 2", 2, ""},
      {"--fen 4k3/8/8/8/8/8/8/4RK2 --mate 2", 2, ""},  // Black in check
  };
  for (const auto& c : cases) {
    const TRun run = Run("solve --quiet " + c.arguments);
    EXPECT_EQ(run.nStatus, c.nStatus) << c.arguments << "\n" << run.err;
    EXPECT_THAT(run.out, ::testing::HasSubstr(c.szOutput)) << c.arguments;
  }
}

// --show-passes prints each pass's progress line, with its heuristics, on the error stream,
// each over the one before; the last one, with the final figures of a solve, keeps its line.
TEST_F(SolveCommand, ShowPassesPrintsThePassProgressLines) {
  const std::string longFen = ReferenceProblemFen("moremovers.tsv", "mt-04273");
  const TRun run = Run("solve --show-passes --fen '" + longFen + "' --mate 10 --time-limit 2");
  EXPECT_THAT(run.err, ::testing::ContainsRegex("Pass 1, 1\\. [^\r]* SH:[0-9a-f]+h,TR:"));
  EXPECT_THAT(run.err, ::testing::HasSubstr("\r"));
  const TRun quick = Run("solve --show-passes --fen '5Q2/8/8/R7/8/1k6/4K3/8' --mate 2");
  std::smatch positions;
  ASSERT_TRUE(std::regex_search(quick.out, positions, std::regex("positions: ([0-9]+)")))
      << quick.out;
  EXPECT_THAT(quick.err,
              ::testing::EndsWith(" 100.0% " + positions[1].str() + ",TR:0(0)     \r\n"));
}

// Numbers out of range are refused with a message that names the option, never wrapped
// around or cut back in silence. Each is refused before any work starts.
TEST_F(SolveCommand, NumbersOutOfRangeAreRefused) {
  const std::string fen = "--fen 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8";
  const std::string perftFile = "--file '" + testdata::PathOf("perft.tsv") + "'";
  const std::pair<std::string, const char*> cases[] = {
      {"solve " + fen + " --mate 40000", "--mate"},
      {"solve " + fen + " --mate 127", "--mate"},
      {"solve " + fen + " --mate 2 --problem 1", "--problem"},
      {"solve problems.cp --mate 2", "--mate"},
      {"solve problems.cp --time-limit 0", "--time-limit"},
      {"solve problems.cp --threads 65", "--threads"},
      {"solve problems.cp --threads 4^0", "--threads"},
      {"solve problems.cp --problem 99999999999", "--problem"},
      {"perft '4k3/8/8/8/8/8/8/4K2R w K - 0 1' 13", "DEPTH"},
      {"bench perft " + perftFile + " --max-nodes -5", "--max-nodes"},
      {"bench perft " + perftFile + " --max-nodes 5", "5 nodes or fewer"},
      {"bench solve --register -1", "--register"},
      {"bench solve --register 4294967296", "--register"},
      {"bench solve --threads 0", "--threads"},
      {"bench solve --scheduler-levels 10", "--scheduler-levels"},
      {"bench moremovers --register -1", "--register"},
      {"bench moremovers --scheduler-levels -1", "--scheduler-levels"},
      {"bench read --problems 0", "--problems"},
  };
  for (const auto& [arguments, szNamed] : cases) {
    const TRun run = Run(arguments);
    EXPECT_EQ(run.nStatus, 2) << arguments << "\n" << run.err;
    EXPECT_THAT(run.err, ::testing::HasSubstr(szNamed)) << arguments;
  }
}

// Diagrams in the three outputs, and a collection through EPD and back; bad requests write
// nothing.
TEST_F(SolveCommand, DiagramsAndOtherFormats) {
  const std::pair<std::string, int> cases[] = {
      {"diagram problems.cp --problem 1 -o d.png --scale 2", 0},
      {"diagram problems.cp --problem 1 -o d.svg", 0},
      {"diagram problems.cp --problem 1 -o d.tex", 0},
      {"diagram problems.cp --problem 9 -o e.svg", 2},
      {"diagram problems.cp --problem 1 -o e.bmp", 2},
      {"export problems.cp --format epd -o p.epd", 0},
      {"import p.epd -o back.cp", 0},
      {"export problems.cp --format xml -o e.xml", 2},
      {"import missing.epd -o e.cp", 2},
  };
  for (const auto& [arguments, nStatus] : cases)
    EXPECT_EQ(Run(arguments).nStatus, nStatus) << arguments;
  const std::string png = ReadTextFile(folder / "d.png");
  ASSERT_GT(png.size(), 24u);
  EXPECT_EQ(png.substr(1, 3), "PNG");
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(png[i]); };
  EXPECT_EQ(byteAt(18) * 256 + byteAt(19), 2 * 432);  // the width, twice the drawing's
  EXPECT_THAT(ReadTextFile(folder / "d.svg"), ::testing::HasSubstr("<svg"));
  EXPECT_THAT(ReadTextFile(folder / "d.tex"), ::testing::HasSubstr("\\pieces[6+10]"));
  EXPECT_THAT(ReadTextFile(folder / "back.cp"), ::testing::HasSubstr("Answer:  Qh5-h4"));
  for (const char* name : {"e.svg", "e.bmp", "e.xml", "e.cp"})
    EXPECT_FALSE(std::filesystem::exists(folder / name)) << name;
}

}  // namespace
