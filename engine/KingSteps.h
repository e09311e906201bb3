#pragma once
#include "core/PieceCode.h"

// Calls visit with every square a king steps to from s.
template <typename F>
void ForKingSteps(SquareIndex s, F&& visit) {
  for (int df = -1; df <= 1; ++df)
    for (int dr = -1; dr <= 1; ++dr) {
      const int file = square::File(s) + df, rank = square::Rank(s) + dr;
      if ((df != 0 || dr != 0) && file >= 0 && file <= 7 && rank >= 0 && rank <= 7)
        visit(square::Make(file, rank));
    }
}
