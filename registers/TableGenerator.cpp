#include "registers/TableGenerator.h"

#include <algorithm>

#include "registers/ParallelRange.h"
#include "registers/TableEnPassant.h"

namespace {

using tablevalue::kIllegal;
using tablevalue::kNoMate;

std::uint8_t Load(const std::uint8_t& cell) {
  return std::atomic_ref<std::uint8_t>(const_cast<std::uint8_t&>(cell))
      .load(std::memory_order_relaxed);
}

void Store(std::uint8_t& cell, std::uint8_t value) {
  std::atomic_ref<std::uint8_t>(cell).store(value, std::memory_order_relaxed);
}

}  // namespace

CTableGenerator::CTableGenerator(const TTableMaterial& tableMaterial,
                                 const CTableLinks::TFindTable& findTable, int threads)
    : material(tableMaterial),
      index(tableMaterial),
      links(tableMaterial, findTable),
      nThreads(std::max(1, threads)) {}

void CTableGenerator::NotePending(std::uint8_t value) {
  std::uint8_t seen = maxPending.load();
  while (value > seen && !maxPending.compare_exchange_weak(seen, value)) {
  }
}

void CTableGenerator::SetBlack(std::uint64_t i, std::uint8_t value) {
  Store(black[i], value);
  NotePending(value);
  nSettled.fetch_add(1, std::memory_order_relaxed);
}

std::unique_ptr<TEndgameTable> CTableGenerator::Generate(const TProgress& progress,
                                                         std::stop_token stopToken) {
  stop = std::move(stopToken);
  const std::uint64_t size = index.Size();
  white.assign(size, 0);
  black.assign(size, kNoMate);
  whiteSeed.assign(size, 0);
  openCounts.assign(size, 0);
  blackFloor.assign(size, 0);
  ParallelForRange(size, nThreads,
                   [&](std::uint64_t begin, std::uint64_t end, int) { Seed(begin, end); });
  if (stop.stop_requested()) return nullptr;
  std::sort(blackSteps.begin(), blackSteps.end(),
            [](const TBlackStep& a, const TBlackStep& b) { return a.black < b.black; });
  if (progress) progress(0.3);
  for (int n = 1; n <= tablevalue::kMaxMate; ++n) {
    const bool bChanged = RunRound(static_cast<std::uint8_t>(n));
    if (stop.stop_requested()) return nullptr;
    if (progress && nLegalPositions.load() > 0)
      progress(0.3 + 0.7 * static_cast<double>(nSettled.load() + nWhiteSettled.load()) /
                         static_cast<double>(nLegalPositions.load()));
    if (!bChanged && n > maxPending.load()) break;
  }
  for (std::uint8_t& value : white)
    if (value == 0) value = kNoMate;
  whiteSeed = {};
  openCounts = {};
  blackFloor = {};
  if (progress) progress(1.0);
  return std::make_unique<TEndgameTable>(material, std::move(white), std::move(black));
}

void CTableGenerator::Seed(std::uint64_t begin, std::uint64_t end) {
  std::uint64_t nLegalHere = 0;
  for (std::uint64_t i = begin; i < end; ++i) {
    if (StopAt(i)) break;
    SquareIndex squares[TTableMaterial::kMaxPieces];
    if (!index.Decode(i, squares)) {
      white[i] = black[i] = kIllegal;
      continue;
    }
    const TTablePlacement p(material, squares);
    if (p.KingsTouch()) {
      white[i] = black[i] = kIllegal;
      continue;
    }
    if (p.IsInCheck(piece::kBlack)) {
      white[i] = kIllegal;
    } else {
      SeedWhite(p, i);
      ++nLegalHere;
    }
    if (p.IsInCheck(piece::kWhite)) {
      black[i] = kIllegal;
    } else {
      SeedBlack(p, i);
      ++nLegalHere;
    }
  }
  nLegalPositions.fetch_add(nLegalHere, std::memory_order_relaxed);
}

void CTableGenerator::SeedWhite(const TTablePlacement& p, std::uint64_t i) {
  TTableMove moves[kMaxTableMoves];
  const int n = p.GenerateMoves(piece::kWhite, moves);
  std::uint8_t best = kNoMate;
  for (int k = 0; k < n; ++k) {
    TTablePlacement after = p;
    after.Apply(moves[k]);
    if (after.IsInCheck(piece::kWhite)) continue;
    if (moves[k].captured >= 0 || moves[k].promotion != 0) {
      const std::uint8_t value = links.ValueAfter(after, moves[k], false);
      if (tablevalue::IsMate(value) && value < tablevalue::kMaxMate)
        best = std::min<std::uint8_t>(best, value + 1);
    } else if (moves[k].bDoubleStep) {
      const auto capture = tableep::BlackCaptureValue(after, moves[k].to, links);
      if (!capture) continue;
      TTableMove replies[kMaxTableMoves];
      const int nReplies = after.GenerateMoves(piece::kBlack, replies);
      bool bOther = false;
      for (int r = 0; r < nReplies && !bOther; ++r) {
        TTablePlacement reply = after;
        reply.Apply(replies[r]);
        bOther = !reply.IsInCheck(piece::kBlack);
      }
      std::lock_guard lock(stepsMutex);
      whiteSteps.push_back(TWhiteStep{i, index.Encode(after.squares), *capture, !bOther});
      if (tablevalue::IsMate(*capture)) NotePending(*capture + 1);
    }
  }
  if (best != kNoMate) {
    whiteSeed[i] = best;
    NotePending(best);
  }
}

void CTableGenerator::SeedBlack(const TTablePlacement& p, std::uint64_t i) {
  TTableMove moves[kMaxTableMoves];
  const int n = p.GenerateMoves(piece::kBlack, moves);
  int nLegal = 0, nOpen = 0;
  std::uint8_t floor = 0;
  TBlackStep steps[2];
  int nSteps = 0;
  for (int k = 0; k < n; ++k) {
    TTablePlacement after = p;
    after.Apply(moves[k]);
    if (after.IsInCheck(piece::kBlack)) continue;
    ++nLegal;
    if (moves[k].captured >= 0 || moves[k].promotion != 0) {
      const std::uint8_t value = links.ValueAfter(after, moves[k], true);
      if (!tablevalue::IsMate(value)) return;  // Black escapes: "no mate"
      floor = std::max(floor, value);
    } else if (moves[k].bDoubleStep) {
      if (const auto capture = tableep::WhiteCaptureValue(after, moves[k].to, links)) {
        steps[nSteps++] = TBlackStep{i, index.Encode(after.squares), *capture};
        continue;
      }
      ++nOpen;
    } else {
      ++nOpen;
    }
  }
  if (nLegal == 0) {
    if (p.IsInCheck(piece::kBlack)) SetBlack(i, 0);
    return;
  }
  openCounts[i] = static_cast<std::uint8_t>(nOpen);
  blackFloor[i] = floor;
  if (nSteps == 0) {
    if (nOpen == 0) SetBlack(i, floor);
    return;
  }
  std::lock_guard lock(stepsMutex);
  for (int k = 0; k < nSteps; ++k) {
    blackSteps.push_back(steps[k]);
    if (tablevalue::IsMate(steps[k].captureValue)) NotePending(steps[k].captureValue);
  }
}

bool CTableGenerator::RunRound(std::uint8_t n) {
  std::uint64_t nNew = 0;
  std::atomic<std::uint64_t> nSeeded{0};
  ParallelForRange(index.Size(), nThreads, [&](std::uint64_t begin, std::uint64_t end, int) {
    std::uint64_t found = 0;
    for (std::uint64_t i = begin; i < end; ++i) {
      if (whiteSeed[i] == n && white[i] == 0) {
        white[i] = n;
        ++found;
      }
    }
    nSeeded += found;
  });
  nNew += nSeeded.load() + SpreadToWhite(n) + SettleWhiteSteps(n);
  nWhiteSettled.fetch_add(nNew, std::memory_order_relaxed);
  nNew += SpreadToBlack(n) + SettleBlackSteps(n);
  return nNew != 0;
}

template <typename F>
std::uint64_t CTableGenerator::ForEachPredecessor(const std::vector<std::uint8_t>& values,
                                                  std::uint8_t value, PieceCode mover,
                                                  F onPredecessor) {
  const PieceCode other = mover == piece::kWhite ? piece::kBlack : piece::kWhite;
  std::atomic<std::uint64_t> nFound{0};
  ParallelForRange(index.Size(), nThreads, [&](std::uint64_t begin, std::uint64_t end, int) {
    std::uint64_t found = 0;
    for (std::uint64_t i = begin; i < end; ++i) {
      if (StopAt(i)) break;
      if (values[i] != value) continue;
      SquareIndex squares[TTableMaterial::kMaxPieces];
      index.Decode(i, squares);
      TTablePlacement p(material, squares);
      TTableMove retractions[kMaxTableMoves];
      const int nRetractions = p.GenerateRetractions(mover, retractions);
      for (int k = 0; k < nRetractions; ++k) {
        const TTableMove& move = retractions[k];
        // Double steps that give an en passant capture are settled apart (the steps).
        if (move.bDoubleStep &&
            (mover == piece::kWhite ? tableep::BlackCaptureValue(p, move.to, links).has_value()
                                    : tableep::WhiteCaptureValue(p, move.to, links).has_value()))
          continue;
        p.Retract(move);
        if (!p.KingsTouch() && !p.IsInCheck(other)) found += onPredecessor(p);
        p.Apply(move);
      }
    }
    nFound += found;
  });
  return nFound.load();
}

std::uint64_t CTableGenerator::SpreadToWhite(std::uint8_t n) {
  return ForEachPredecessor(black, static_cast<std::uint8_t>(n - 1), piece::kWhite,
                            [&](const TTablePlacement& p) {
                              std::uint64_t images[2];
                              const int nImages = index.EncodeAll(p.squares, images);
                              int found = 0;
                              for (int m = 0; m < nImages; ++m) {
                                std::uint8_t& cell = white[images[m]];
                                if (Load(cell) != 0) continue;
                                Store(cell, n);
                                ++found;
                              }
                              return found;
                            });
}

std::uint64_t CTableGenerator::SpreadToBlack(std::uint8_t n) {
  return ForEachPredecessor(white, n, piece::kBlack, [&](const TTablePlacement& p) {
    const std::uint64_t j = index.Encode(p.squares);
    std::atomic_ref<std::uint8_t> count(openCounts[j]);
    if (count.load(std::memory_order_relaxed) == 0 || count.fetch_sub(1) != 1 || IsSteppedBlack(j))
      return 0;
    SetBlack(j, std::max(blackFloor[j], n));
    return 1;
  });
}
