#pragma once
// The answers of the "tables" commands (and later of the window's precalculated-data
// commands) as text, computed through the tables service.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/TablesService.h"
#include "registers/TableVerifier.h"

// "mate in 7" (White to move), "White mates in 7" or "Black is mated" (Black to move),
// "no mate".
std::string TableValueText(std::uint8_t value, bool bWhiteToMove);

struct TTableProbeAnswer {
  std::string valueText;
  std::vector<std::string>
      bestMoves;  // the quickest mates for White, the longest defences for Black
};
// Throws std::invalid_argument for a FEN that cannot be read; nothing when no table holds
// the position (or one it leads to).
std::optional<TTableProbeAnswer> ProbeFen(CTablesService& service, const std::string& fenText);

// The longest mate of a table with White to move and a position that has it (as FEN).
struct TLongestMate {
  std::uint8_t value = 0;
  std::uint64_t index = 0;
  std::string fen;
};
std::optional<TLongestMate> FindLongestMate(const TEndgameTable& table);

// The position at an index: its FEN and values, and the indexes of the positions next to it.
struct TIndexedPosition {
  bool bValid = false;  // the index stands for a placement
  std::string fen;      // with White to move
  std::uint8_t whiteValue = tablevalue::kIllegal, blackValue = tablevalue::kIllegal;
  std::optional<std::uint64_t> previous, next;
};
TIndexedPosition PositionAt(const TEndgameTable& table, std::uint64_t index);

// Checks a table against its successors, loading the tables it leads into.
TTableVerification VerifyWithService(CTablesService& service, const TEndgameTable& table,
                                     const std::function<void(double)>& progress = {});
