// Register files: a temporary register file (first byte even) or a solved-positions file (odd).
// A file that reads is saved again, and the saved file reads back to a register that answers
// as the first did for every entry of either (how many entries hold the same answers depends
// on the order they were filed in).
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "FuzzFile.h"
#include "core/ChessException.h"
#include "registers/TemporaryRegisterFile.h"

namespace {

constexpr std::uint32_t kLimit = 1 << 16;

// The problem key of the seeds: byte i is i.
TChessboardRegisterItem ProblemKey() {
  TChessboardRegisterItem key;
  for (std::uint8_t i = 0; i < 64; ++i) key.bytes[i] = i;
  return key;
}

std::uint8_t AnswerOf(const TChessboardRegister<bool>& reg, const TChessboardRegisterItem& key,
                      std::uint16_t n) {
  return n % 2 == 1 ? reg.FindAnswer(n, key) : reg.FindDefenceAnswer(n, key);
}

void ExpectSameAnswers(const TChessboardRegister<bool>& a, const TChessboardRegister<bool>& b) {
  // Collected first: the visit holds a lock of the store that a lookup takes too.
  std::vector<std::pair<TChessboardRegisterItem, std::uint16_t>> entries;
  for (const auto* reg : {&a, &b}) {
    reg->ForEachEntry([&](const TChessboardRegisterItem& key, const TRegisterInfo& info) {
      entries.emplace_back(key, info.nMoves);
    });
  }
  for (const auto& [key, n] : entries)
    if (AnswerOf(a, key, n) != AnswerOf(b, key, n)) std::abort();
}

void TemporaryRegister(const std::filesystem::path& file) {
  TAggregatedTemporaryChessboardRegister reg(kLimit);
  registerfile::TRegisterFileCounts counts;
  try {
    counts = registerfile::Read(reg, ProblemKey(), file);
  } catch (const ChessException&) {
    return;
  }
  const std::filesystem::path again = file.string() + ".again";
  registerfile::Save(reg, ProblemKey(), again);
  TAggregatedTemporaryChessboardRegister reread(kLimit);
  const registerfile::TRegisterFileCounts countsAgain =
      registerfile::Read(reread, ProblemKey(), again);
  if (countsAgain.nExact > counts.nExact || countsAgain.nDoubtful > counts.nDoubtful) std::abort();
  ExpectSameAnswers(reg, reread);
  std::filesystem::remove(again);
}

void SolvedPositions(const std::filesystem::path& file) {
  TAggregatedTemporaryChessboardRegister reg(kLimit);
  try {
    reg.LoadSolvedPositions(file);
  } catch (const ChessException&) {
    return;
  }
  const std::filesystem::path again = file.string() + ".again";
  const std::uint64_t nWritten = reg.SaveSolvedPositions(again);
  TAggregatedTemporaryChessboardRegister reread(kLimit);
  if (reread.LoadSolvedPositions(again) != nWritten) std::abort();
  ExpectSameAnswers(reg, reread);
  std::filesystem::remove(again);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::filesystem::path file = FuzzFile("register", data + 1, size - 1);
  if (data[0] % 2 == 0) {
    TemporaryRegister(file);
  } else {
    SolvedPositions(file);
  }
  std::filesystem::remove(file);
  return 0;
}
