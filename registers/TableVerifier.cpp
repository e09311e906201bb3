#include "registers/TableVerifier.h"

#include <atomic>
#include <mutex>

#include "core/Fen.h"
#include "registers/ParallelRange.h"

namespace {

constexpr size_t kMaxExamples = 5;

std::string Describe(const TChessboard& board, std::uint8_t stored, std::uint8_t derived) {
  return fen::WriteFullFen(board) + ": stored " + std::to_string(stored) + ", from the moves " +
         std::to_string(derived);
}

}  // namespace

TTableVerification VerifyTable(const TEndgameTable& table, const CTableLookup::TFind& find,
                               int nThreads, const std::function<void(double)>& progress) {
  const CTableLookup lookup(find);
  TTableVerification result;
  std::mutex resultLock;
  std::atomic<std::uint64_t> nDone{0};
  const std::uint64_t size = table.Size();
  ParallelForRange(size, nThreads, [&](std::uint64_t begin, std::uint64_t end, int thread) {
    TTableVerification own;
    for (std::uint64_t i = begin; i < end; ++i) {
      SquareIndex squares[TTableMaterial::kMaxPieces];
      if (!table.Index().Decode(i, squares)) continue;
      for (const bool bWhite : {true, false}) {
        const std::uint8_t stored = table.Value(bWhite, i);
        if (stored == tablevalue::kIllegal) continue;
        TChessboard board;
        if (!CTableLookup::MakeBoard(table.Material(), squares, bWhite, board)) continue;
        const auto derived = lookup.ValueFromMoves(board);
        ++own.nChecked;
        if (!derived) {
          ++own.nUnknown;
        } else if (*derived != stored) {
          ++own.nWrong;
          if (own.examples.size() < kMaxExamples)
            own.examples.push_back(Describe(board, stored, *derived));
        }
      }
    }
    std::lock_guard guard(resultLock);
    result.nChecked += own.nChecked;
    result.nWrong += own.nWrong;
    result.nUnknown += own.nUnknown;
    for (auto& example : own.examples)
      if (result.examples.size() < kMaxExamples) result.examples.push_back(std::move(example));
    const std::uint64_t done = nDone += end - begin;
    if (progress && thread == 0) progress(static_cast<double>(done) / static_cast<double>(size));
  });
  return result;
}
