// A small retrograde solver for king and rook against king: each pass finds the White
// positions that mate one move sooner than the last pass's, then the Black positions all of
// whose moves lead to them.
#include "bench/KrkTable.h"

#include <cstdlib>

namespace {

constexpr unsigned char kIllegal = 255, kUnknown = 254, kDraw = 0;
constexpr int kSteps[8][2] = {{-1, -1}, {-1, 0}, {-1, 1}, {0, -1}, {0, 1}, {1, -1}, {1, 0}, {1, 1}};
constexpr int kLines[4][2] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};

int Index(int side, int wk, int wr, int bk) {
  return ((side * 64 + wk) * 64 + wr) * 64 + bk;
}
bool OnBoard(int file, int rank) {
  return file >= 0 && file < 8 && rank >= 0 && rank < 8;
}
bool Adjacent(int a, int b) {
  return std::abs(a % 8 - b % 8) <= 1 && std::abs(a / 8 - b / 8) <= 1;
}

// The rook on wr attacks target along a line that the white king does not block.
bool RookAttacks(int wr, int wk, int target) {
  if (wr == target || (wr % 8 != target % 8 && wr / 8 != target / 8)) return false;
  const int step = wr % 8 == target % 8 ? (target > wr ? 8 : -8) : (target > wr ? 1 : -1);
  for (int s = wr + step; s != target; s += step) {
    if (s == wk) return false;
  }
  return true;
}

class CKrkSolver {
 public:
  CKrkSolver() : table(2 * 64 * 64 * 64, kUnknown) {}
  std::vector<unsigned char> Solve();

 private:
  // Best over White's moves: mate in n when some move reaches a Black position lost after
  // n - 1 moves.
  bool WhiteMates(int wk, int wr, int bk, int n) const;
  // Black's fate: kUnknown while some move is unresolved, else the moves until mate.
  unsigned char BlackValue(int wk, int wr, int bk) const;
  bool LostIn(int wk, int wr, int bk, int n) const { return table[Index(1, wk, wr, bk)] == n + 1; }

  std::vector<unsigned char> table;
};

bool CKrkSolver::WhiteMates(int wk, int wr, int bk, int n) const {
  for (const auto& step : kSteps) {
    const int file = wk % 8 + step[0], rank = wk / 8 + step[1], to = rank * 8 + file;
    if (OnBoard(file, rank) && to != wr && !Adjacent(to, bk) && LostIn(to, wr, bk, n - 1)) {
      return true;
    }
  }
  for (const auto& line : kLines) {
    for (int file = wr % 8 + line[0], rank = wr / 8 + line[1]; OnBoard(file, rank);
         file += line[0], rank += line[1]) {
      const int to = rank * 8 + file;
      if (to == wk || to == bk) break;
      if (LostIn(wk, to, bk, n - 1)) return true;
    }
  }
  return false;
}

unsigned char CKrkSolver::BlackValue(int wk, int wr, int bk) const {
  int nMoves = 0, worst = 0;
  for (const auto& step : kSteps) {
    const int file = bk % 8 + step[0], rank = bk / 8 + step[1], to = rank * 8 + file;
    if (!OnBoard(file, rank) || Adjacent(to, wk)) continue;
    if (to == wr) return kDraw;  // the rook is not guarded: next to the black king, not the white
    if (RookAttacks(wr, wk, to)) continue;
    ++nMoves;
    const unsigned char value = table[Index(0, wk, wr, to)];
    if (value == kUnknown || value == kDraw) return value;
    worst = std::max<int>(worst, value);
  }
  if (nMoves == 0) return RookAttacks(wr, wk, bk) ? 1 : kDraw;
  return static_cast<unsigned char>(worst + 1);
}

std::vector<unsigned char> CKrkSolver::Solve() {
  for (int wk = 0; wk < 64; ++wk) {
    for (int wr = 0; wr < 64; ++wr) {
      for (int bk = 0; bk < 64; ++bk) {
        if (wk == wr || wr == bk || wk == bk || Adjacent(wk, bk)) {
          table[Index(0, wk, wr, bk)] = table[Index(1, wk, wr, bk)] = kIllegal;
        } else if (RookAttacks(wr, wk, bk)) {
          table[Index(0, wk, wr, bk)] = kIllegal;  // Black in check with White to move
        }
      }
    }
  }
  for (int n = 0; n < 64; ++n) {
    bool bChanged = false;
    for (int i = 0; i < 64 * 64 * 64; ++i) {
      const int wk = i >> 12, wr = (i >> 6) & 63, bk = i & 63;
      if (n > 0 && table[i] == kUnknown && WhiteMates(wk, wr, bk, n)) {
        table[i] = static_cast<unsigned char>(n);
        bChanged = true;
      }
    }
    for (int i = 0; i < 64 * 64 * 64; ++i) {
      unsigned char& black = table[64 * 64 * 64 + i];
      if (black != kUnknown) continue;
      black = BlackValue(i >> 12, (i >> 6) & 63, i & 63);
      bChanged = bChanged || black != kUnknown;
    }
    if (!bChanged && n > 0) break;
  }
  for (auto& value : table) {
    if (value == kUnknown) value = kDraw;
  }
  return std::move(table);
}

}  // namespace

std::vector<unsigned char> KrkDistanceToMateTable() {
  return CKrkSolver().Solve();
}
