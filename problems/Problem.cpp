#include "problems/Problem.h"

#include <algorithm>

#include "core/Fen.h"

TStipulation TStipulation::DirectMate(int nMoves) {
  return TStipulation{kDirectMate, static_cast<std::uint16_t>(2 * nMoves - 1)};
}

TStipulation TStipulation::Selfmate(int nMoves) {
  return TStipulation{kSelfmate, static_cast<std::uint16_t>(2 * nMoves + 1)};
}

TStipulation TStipulation::MoveLine() {
  return TStipulation{kMoveLine, kNoStipulationPly};
}

int TStipulation::Moves() const {
  if (type == kDirectMate) return (plies + 1) / 2;
  if (type == kSelfmate) return plies / 2;
  return 0;
}

std::string TStipulation::Text() const {
  if (type == kDirectMate) return "#" + std::to_string(Moves());
  if (type == kSelfmate) return "s#" + std::to_string(Moves());
  return "";
}

TProblem::TProblem() {
  ClearChessboard(start);
  SetStipulation(stipulation);
}

void TProblem::SetStipulation(const TStipulation& value) {
  stipulation = value;
  TChessboard empty;
  ClearChessboard(empty);
  line.assign(static_cast<std::size_t>(value.plies) + 1, empty);
  ResetLine();
}

void TProblem::ResetLine() {
  start.ply = start.rootPlies = stipulation.plies;
  start.parent = nullptr;
  current = &start;
  unreadMoveLine.clear();
}

std::vector<TMove> TProblem::MoveLine() const {
  std::vector<TMove> moves;
  for (const TChessboard* p = current; p != &start && p != nullptr; p = p->parent) {
    moves.push_back(p->lastMove);
  }
  std::reverse(moves.begin(), moves.end());
  return moves;
}

std::vector<std::string> TProblem::Notes(int nLanguageId) const {
  std::vector<std::string> notes;
  if (fen::NeedsMaterialWarning(start)) notes.emplace_back(fen::MaterialWarningText(nLanguageId));
  return notes;
}

int TProblem::PieceCount() const {
  return static_cast<int>(std::count_if(std::begin(start.squares), std::end(start.squares),
                                        [](PieceCode p) { return p != piece::kEmpty; }));
}
