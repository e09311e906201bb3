#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "RegisterTestSupport.h"
#include "core/ChessException.h"
#include "registers/TemporaryRegisterFile.h"

using registertest::CTempFile;
using registertest::Key;
using testing::HasSubstr;

namespace {

using TAggregate = TAggregatedTemporaryChessboardRegister;
constexpr THeuristicsKey kSelection = MakeHeuristicsKey(0x200, 5);
const TChessboardRegisterItem kProblem = Key(424242);

void Fill(TAggregate& reg, std::uint32_t nKeys) {
  for (std::uint32_t i = 0; i < nKeys; ++i) {
    reg.Insert(static_cast<std::uint16_t>(5 + 2 * (i % 7)), Key(i), i % 3 == 0 ? 0 : 1);
    reg.InsertDefence(static_cast<std::uint16_t>(4 + 2 * (i % 5)), Key(i), i % 2);
    reg.InsertDoubtful(0, 9, Key(i), false);
    reg.InsertDoubtful(kSelection, 7, Key(i), true);
    reg.InsertDoubtful(kSelection, 11, Key(i), false);
  }
}

// What a register answers about the keys Fill files.
std::vector<int> Answers(const TAggregate& reg, std::uint32_t nKeys) {
  std::vector<int> answers;
  for (std::uint32_t i = 0; i < nKeys; ++i) {
    for (std::uint16_t n = 3; n < 20; ++n)
      answers.push_back(n % 2 ? reg.FindAnswer(n, Key(i)) : reg.FindDefenceAnswer(n, Key(i)));
    answers.push_back(reg.FindDoubtful(0, 9, Key(i)));
    answers.push_back(reg.FindDoubtful(kSelection, 7, Key(i)));
    answers.push_back(reg.FindDoubtful(kSelection, 11, Key(i)));
  }
  return answers;
}

std::vector<char> ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void WriteBytes(const std::filesystem::path& path, const std::vector<char>& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc).write(bytes.data(), bytes.size());
}

}  // namespace

TEST(TemporaryRegisterFile, ReadGivesBackWhatWasSaved) {
  CTempFile file("register-roundtrip");
  TAggregate saved(100000);
  Fill(saved, 500);
  const registerfile::TRegisterFileCounts written = registerfile::Save(saved, kProblem, file.path);
  EXPECT_EQ(written.nExact, 1000u);
  EXPECT_EQ(written.nDoubtful, 1000u);
  for (const auto& entry : std::filesystem::directory_iterator(file.path.parent_path()))
    EXPECT_FALSE(entry.path().string().starts_with(file.path.string() + ".")) << entry.path();

  TAggregate read(100000);
  read.Insert(5, Key(999999), 1);  // replaced by the file's content
  const registerfile::TRegisterFileCounts counts = registerfile::Read(read, kProblem, file.path);
  EXPECT_EQ(counts.nExact, written.nExact);
  EXPECT_EQ(counts.nDoubtful, written.nDoubtful);
  EXPECT_EQ(read.FindAnswer(5, Key(999999)), kRegisterUnknown);
  EXPECT_EQ(Answers(read, 500), Answers(saved, 500));
  EXPECT_EQ(read.GetElementsIn(), saved.GetElementsIn());
  EXPECT_EQ(read.GetDoubtfulElementsIn(), saved.GetDoubtfulElementsIn());
}

TEST(TemporaryRegisterFile, BadFileLeavesTheRegisterAsItWas) {
  CTempFile file("register-bad");
  TAggregate saved(100000);
  Fill(saved, 300);
  registerfile::Save(saved, kProblem, file.path);
  const std::vector<char> good = ReadBytes(file.path);
  ASSERT_GT(good.size(), 200u);

  using TDamage = std::function<void(std::vector<char>&)>;
  const auto Truncate = [](std::size_t n) { return [n](std::vector<char>& b) { b.resize(n); }; };
  const auto Flip = [](std::size_t at) { return [at](std::vector<char>& b) { b.at(at) ^= 0x10; }; };
  struct TCase {
    std::string name;
    TDamage damage;
    TChessboardRegisterItem problem;
    std::string message;
  } cases[] = {
      {"other problem", nullptr, Key(1), "holds the temporary register of another problem."},
      {"empty", Truncate(0), kProblem, "is not a temporary register file."},
      {"other kind", Flip(0), kProblem, "is not a temporary register file."},
      {"version", Flip(4), kProblem, "(register file version 17)."},
      {"short header", Truncate(50), kProblem, "is truncated or corrupt."},
      {"header only", Truncate(96), kProblem, "is truncated or corrupt."},
      {"cut block header", Truncate(100), kProblem, "is truncated or corrupt."},
      {"cut block", Truncate(good.size() - 1), kProblem, "is truncated or corrupt."},
      {"count", Flip(72), kProblem, "is truncated or corrupt."},
      {"hash", Flip(90), kProblem, "is truncated or corrupt."},
      {"block size", Flip(96 + 9), kProblem, "is truncated or corrupt."},
      {"data", Flip(good.size() / 2), kProblem, "is truncated or corrupt."},
      {"last byte", Flip(good.size() - 1), kProblem, "is truncated or corrupt."},
      {"extra bytes", [](std::vector<char>& b) { b.resize(b.size() + 20, 'x'); }, kProblem,
       "is truncated or corrupt."},
  };
  for (const TCase& test : cases) {
    std::vector<char> bytes = good;
    if (test.damage) test.damage(bytes);
    WriteBytes(file.path, bytes);
    TAggregate reg(100000);
    reg.Insert(5, Key(7), 1);
    reg.InsertDoubtful(kSelection, 9, Key(7), false);
    EXPECT_THAT([&] { registerfile::Read(reg, test.problem, file.path); },
                testing::ThrowsMessage<ChessException>(HasSubstr(test.message)))
        << test.name;
    EXPECT_EQ(reg.FindAnswer(5, Key(7)), 1) << test.name;
    EXPECT_EQ(reg.FindDoubtful(kSelection, 9, Key(7)), kDoubtfulCut) << test.name;
    EXPECT_EQ(reg.GetElementsIn(), 2u) << test.name;
  }
  std::filesystem::remove(file.path);
  TAggregate reg(10);
  EXPECT_THAT([&] { registerfile::Read(reg, kProblem, file.path); },
              testing::ThrowsMessage<ChessException>(HasSubstr("cannot be opened.")));
}
