#include "registers/TableEnPassant.h"

#include <algorithm>

namespace tableep {
namespace {

// Calls onCapture(value) with the value, for the capturing side's opponent to move, of each
// legal en passant capture of the pawn on `to`.
template <typename F>
void ForEachCapture(const TTablePlacement& p, SquareIndex to, const CTableLinks& links,
                    F onCapture) {
  const PieceCode victim = p.board[to];
  const PieceCode capturer = static_cast<PieceCode>(
      (piece::IsWhite(victim) ? piece::kBlack : piece::kWhite) | piece::kPawn);
  const int behind = piece::IsWhite(victim) ? -8 : 8;
  for (int side = -1; side <= 1; side += 2) {
    const int file = square::File(to) + side;
    if (file < 0 || file > 7 || p.board[to + side] != capturer) continue;
    TTablePlacement after = p;
    const TTableMove capture{
        static_cast<std::uint8_t>(p.PieceOn(static_cast<SquareIndex>(to + side))),
        static_cast<SquareIndex>(to + side),
        static_cast<SquareIndex>(to + behind),
        0,
        static_cast<std::int8_t>(p.PieceOn(to)),
        false};
    after.board[to] = piece::kEmpty;
    after.Apply(capture);
    if (after.IsInCheck(capturer & (piece::kWhite | piece::kBlack))) continue;
    onCapture(links.ValueAfter(after, capture, piece::IsWhite(victim)));
  }
}

}  // namespace

std::optional<std::uint8_t> BlackCaptureValue(const TTablePlacement& p, SquareIndex to,
                                              const CTableLinks& links) {
  std::optional<std::uint8_t> best;
  ForEachCapture(p, to, links, [&](std::uint8_t value) {
    best = std::max<std::uint8_t>(best.value_or(0),
                                  tablevalue::IsMate(value) ? value : tablevalue::kNoMate);
  });
  return best;
}

std::optional<std::uint8_t> WhiteCaptureValue(const TTablePlacement& p, SquareIndex to,
                                              const CTableLinks& links) {
  std::optional<std::uint8_t> best;
  ForEachCapture(p, to, links, [&](std::uint8_t value) {
    const std::uint8_t next =
        tablevalue::IsMate(value) && value < tablevalue::kMaxMate ? value + 1 : tablevalue::kNoMate;
    best = std::min<std::uint8_t>(best.value_or(tablevalue::kNoMate), next);
  });
  return best;
}

}  // namespace tableep
