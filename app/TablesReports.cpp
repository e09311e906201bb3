#include "app/TablesReports.h"

#include <map>
#include <memory>
#include <stdexcept>

#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"
#include "registers/TableLookup.h"

std::string TableValueText(std::uint8_t value, bool bWhiteToMove) {
  if (value == tablevalue::kIllegal) return "illegal";
  if (!tablevalue::IsMate(value)) return "no mate";
  if (bWhiteToMove) return "mate in " + std::to_string(value);
  return value == 0 ? "Black is mated" : "White mates in " + std::to_string(value);
}

namespace {

// Finds tables through the service and keeps them loaded while the lookup lives.
CTableLookup::TFind ServiceFinder(
    CTablesService& service, std::map<std::string, std::shared_ptr<const TEndgameTable>>& held) {
  return [&service, &held](const TTableMaterial& material) -> const TEndgameTable* {
    auto& slot = held[material.Name()];
    if (slot == nullptr) slot = service.Acquire(material);
    return slot.get();
  };
}

std::string FenOf(const TTableMaterial& material, const SquareIndex* squares) {
  TChessboard board;
  CTableLookup::MakeBoard(material, squares, true, board);
  return fen::WriteFullFen(board);
}

}  // namespace

std::optional<TTableProbeAnswer> ProbeFen(CTablesService& service, const std::string& fenText) {
  TChessboard board;
  ClearChessboard(board);
  fen::TFenExtras extras;
  try {
    if (!fen::ReadFen(board, fenText, &extras)) throw std::invalid_argument("Improper FEN code");
  } catch (const ChessException& e) {
    throw std::invalid_argument(e.what());
  }
  board.ply = board.rootPlies =
      extras.bBlackToMove ? CTableLookup::kWhitePly - 1 : CTableLookup::kWhitePly;
  std::map<std::string, std::shared_ptr<const TEndgameTable>> held;
  const CTableLookup lookup(ServiceFinder(service, held));
  std::vector<TMove> best;
  const auto value = lookup.ValueFromMoves(board, &best);
  if (!value) return std::nullopt;
  TTableProbeAnswer answer{TableValueText(*value, board.IsWhiteToMove()), {}};
  if (tablevalue::IsMate(*value))
    for (const TMove& move : best) answer.bestMoves.push_back(notation::MoveToText(board, move));
  return answer;
}

std::optional<TLongestMate> FindLongestMate(const TEndgameTable& table) {
  std::optional<TLongestMate> longest;
  const auto& values = table.WhiteValues();
  for (std::uint64_t i = 0; i < values.size(); ++i) {
    if (!tablevalue::IsMate(values[i]) || (longest && values[i] <= longest->value)) continue;
    longest = TLongestMate{values[i], i, {}};
  }
  if (longest) {
    SquareIndex squares[TTableMaterial::kMaxPieces];
    table.Index().Decode(longest->index, squares);
    longest->fen = FenOf(table.Material(), squares);
  }
  return longest;
}

TIndexedPosition PositionAt(const TEndgameTable& table, std::uint64_t index) {
  TIndexedPosition position;
  const auto isPosition = [&](std::uint64_t i) {
    return table.Value(true, i) != tablevalue::kIllegal ||
           table.Value(false, i) != tablevalue::kIllegal;
  };
  for (std::uint64_t i = index; i-- > 0;) {
    if (isPosition(i)) {
      position.previous = i;
      break;
    }
  }
  for (std::uint64_t i = index + 1; i < table.Size(); ++i) {
    if (isPosition(i)) {
      position.next = i;
      break;
    }
  }
  SquareIndex squares[TTableMaterial::kMaxPieces];
  if (index >= table.Size() || !isPosition(index) || !table.Index().Decode(index, squares))
    return position;
  position.bValid = true;
  position.fen = FenOf(table.Material(), squares);
  position.whiteValue = table.Value(true, index);
  position.blackValue = table.Value(false, index);
  return position;
}

TTableVerification VerifyWithService(CTablesService& service, const TEndgameTable& table,
                                     const std::function<void(double)>& progress) {
  std::map<std::string, std::shared_ptr<const TEndgameTable>> held;
  auto finder = ServiceFinder(service, held);
  // Load everything before the threads start: the finder's map is not shared safely.
  for (const TTableMaterial& next : table.Material().Successors())
    if (next.WhiteCanMate()) finder(next);
  const auto find = [&](const TTableMaterial& material) -> const TEndgameTable* {
    if (material == table.Material()) return &table;
    const auto found = held.find(material.Name());
    return found == held.end() ? nullptr : found->second.get();
  };
  return VerifyTable(table, find, service.Settings().nThreads, progress);
}
