// Solved-positions files of the register: headerless sequences of 76-byte records, each
// a 64-byte key followed by the 12-byte information record, in the machine's byte order.
#include "registers/SolvedPositionsFile.h"

#include <bit>
#include <cstring>
#include <fstream>

#include "core/ChessException.h"
#include "core/SafeFile.h"
#include "registers/ChessboardRegister.h"

namespace {
constexpr std::size_t kKeySize = sizeof(TChessboardRegisterItem);
constexpr std::size_t kRecordSize = kKeySize + sizeof(TRegisterInfo);
static_assert(kRecordSize == 76);
constexpr std::size_t kWriteChunk = kRecordSize << 14;
static_assert(std::endian::native == std::endian::little, "records are stored little-endian");

// What a register can have written: a sub-problem of at least one ply, answered yes or no.
bool IsPlausible(const TRegisterInfo& info) {
  const std::uint32_t answer = info.answer & 0xFF;
  return info.nMoves != 0 && (answer == 0 || answer == 1);
}
}  // namespace

namespace solvedpositions {

std::filesystem::path FileName(const TChessboardId& id) {
  return std::filesystem::path(kFolder) / (id.FileBaseName() + kExtension);
}

}  // namespace solvedpositions

bool TChessboardRegister<bool>::BindToProblem(const TChessboardRegisterItem& problemKey,
                                              const std::filesystem::path& solvedPositionsFile) {
  if (boundProblem && *boundProblem == problemKey) return false;
  Clear();
  try {
    LoadSolvedPositions(solvedPositionsFile);
  } catch (const ChessException&) {
    // Contradicting records: some of them are wrong, and nothing tells which.
    Clear();
  }
  boundProblem = problemKey;
  boundFile = solvedPositionsFile;
  return true;
}

void TChessboardRegister<bool>::AdoptProblem(const TChessboardRegisterItem& problemKey,
                                             const std::filesystem::path& solvedPositionsFile) {
  boundProblem = problemKey;
  boundFile = solvedPositionsFile;
}

std::optional<std::uint64_t> TChessboardRegister<bool>::SaveBoundProblem() const {
  if (!boundProblem) return std::nullopt;
  std::error_code ignored;  // a folder that cannot be made fails the opening, named
  if (boundFile.has_parent_path())
    std::filesystem::create_directories(boundFile.parent_path(), ignored);
  return SaveSolvedPositions(boundFile);
}

std::uint64_t TChessboardRegister<bool>::LoadSolvedPositions(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return 0;
  // A file holds what an earlier solve proved; pruning it entry by entry would only cost time.
  bCoherencyPruning.store(false, std::memory_order_relaxed);
  std::uint64_t nFiled = 0;
  try {
    char record[kRecordSize];
    while (in.read(record, kRecordSize)) {
      TChessboardRegisterItem key;
      TRegisterInfo info;
      std::memcpy(key.bytes, record, kKeySize);
      std::memcpy(&info, record + kKeySize, sizeof info);
      if (!IsPlausible(info)) continue;
      const std::uint32_t answer = info.answer & 0xFF;
      if ((info.nMoves & 1) != 0) {
        Insert(info.nMoves, key, answer, &info.heuristics, false);
      } else {
        InsertDefence(info.nMoves, key, answer, &info.heuristics, false);
      }
      ++nFiled;
    }
  } catch (...) {
    bCoherencyPruning.store(true, std::memory_order_relaxed);
    throw;
  }
  bCoherencyPruning.store(true, std::memory_order_relaxed);
  return nFiled;
}

std::uint64_t TChessboardRegister<bool>::SaveSolvedPositions(
    const std::filesystem::path& file) const {
  safefile::CFileWriter out(file.string());
  if (!out.Begin()) throw ChessException(out.Error());
  // Records are gathered into larger writes; the first failure ends the save.
  std::string buffer;
  std::uint64_t nWritten = 0;
  bool bFailed = false;
  store.ForEach([&](const TChessboardRegisterItem& key, const TRegisterInfo& info) {
    if (bFailed) return;
    buffer.append(reinterpret_cast<const char*>(key.bytes), kKeySize);
    buffer.append(reinterpret_cast<const char*>(&info), sizeof info);
    ++nWritten;
    if (buffer.size() >= kWriteChunk) {
      bFailed = !out.Write(buffer);
      buffer.clear();
    }
  });
  if (bFailed || !out.Write(buffer) || !out.Commit()) throw ChessException(out.Error());
  return nWritten;
}
