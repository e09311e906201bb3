#pragma once
// One answer of the online tablebase, read from the service's JSON text by a key search
// rather than a full JSON parser: the first "wdl" (else "category") gives the value, the
// first "dtm" and "dtz" the distances, and each "uci" after "moves" one move.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lichess {
// Values, from the side to move's point of view.
inline constexpr std::int8_t kWin = 1;
inline constexpr std::int8_t kDraw = 0;
inline constexpr std::int8_t kLoss = -1;
inline constexpr std::int8_t kUnknown = -2;
inline constexpr int kNoDtm = 32768;
inline constexpr std::uint8_t kNoDtz = 255;
inline constexpr int kMalformedMoves = -1;
}  // namespace lichess

struct CLiChessMove {
  std::uint8_t from = 0;  // 0..63, a1 = 0
  std::uint8_t to = 0;
  std::uint8_t promotion = 0;  // piece type: 0 none, 12 queen, 8 rook, 4 bishop, 16 knight
  // After the move, for the side that moves next: "loss" marks a winning move.
  std::int8_t value = lichess::kUnknown;
  int dtm = lichess::kNoDtm;
  std::uint8_t dtz = lichess::kNoDtz;  // magnitude only
  bool operator==(const CLiChessMove&) const = default;
};

struct CLiChess {
  std::int8_t value = lichess::kUnknown;
  int dtm = lichess::kNoDtm;
  std::uint8_t dtz = lichess::kNoDtz;  // magnitude only: the sign is dropped on purpose
  int nMoves = 0;                      // lichess::kMalformedMoves when the list was malformed
  std::vector<CLiChessMove> moves{};   // in the order of the answer; empty when malformed

  bool operator==(const CLiChess&) const = default;

  static CLiChess Parse(std::string_view text);
  // "win", "draw", "loss" or "unknown".
  static const char* ValueText(std::int8_t value);
  // Coordinate form: "e7e8q".
  static std::string MoveText(const CLiChessMove& move);
};
