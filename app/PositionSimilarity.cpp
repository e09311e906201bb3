#include "app/PositionSimilarity.h"

#include <algorithm>
#include <cstdlib>

#include "core/BoardTransforms.h"

namespace {

double OneWay(const TPlacement& a, const TPlacement& b) {
  int nA = 0, nB = 0, nExact = 0;
  // The pieces left for near pairs: square indexes, per side.
  SquareIndex leftA[64], leftB[64];
  int nLeftA = 0, nLeftB = 0;
  for (int s = 0; s < 64; ++s) {
    nA += a[s] != piece::kEmpty;
    nB += b[s] != piece::kEmpty;
    if (a[s] != piece::kEmpty && a[s] == b[s]) {
      ++nExact;
      continue;
    }
    if (a[s] != piece::kEmpty) leftA[nLeftA++] = static_cast<SquareIndex>(s);
    if (b[s] != piece::kEmpty) leftB[nLeftB++] = static_cast<SquareIndex>(s);
  }
  const int nMost = std::max(nA, nB);
  if (nMost == 0) return 1.0;
  int nNear = 0;
  bool bTaken[64] = {};
  for (int i = 0; i < nLeftA; ++i) {
    const SquareIndex from = leftA[i];
    for (int j = 0; j < nLeftB; ++j) {
      const SquareIndex to = leftB[j];
      if (bTaken[j] || b[to] != a[from]) continue;
      if (std::abs(square::File(from) - square::File(to)) > 1 ||
          std::abs(square::Rank(from) - square::Rank(to)) > 1)
        continue;
      bTaken[j] = true;
      ++nNear;
      break;
    }
  }
  return (nExact + 0.5 * nNear) / nMost;
}

}  // namespace

double PositionSimilarity(const TPlacement& a, const TPlacement& b) {
  TPlacement mirrored;
  for (int s = 0; s < 64; ++s)
    mirrored[transforms::MirrorSquare(static_cast<SquareIndex>(s))] = b[s];
  return std::max(OneWay(a, b), OneWay(a, mirrored));
}
