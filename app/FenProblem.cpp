#include "app/FenProblem.h"

#include "core/ChessException.h"
#include "core/Fen.h"

std::unique_ptr<TProblem> DirectMateFromFen(const std::string& fen, int nMoves, int id) {
  if (nMoves < 1 || nMoves > TStipulation::kMaxMoves)
    throw ChessException("Improper number of moves: " + std::to_string(nMoves) + " (1 to " +
                         std::to_string(TStipulation::kMaxMoves) + ")");
  TChessboard board;
  ClearChessboard(board);
  if (!fen::ReadFen(board, fen)) throw ChessException("Improper FEN code");
  auto problem = std::make_unique<TProblem>();
  problem->id = id;
  problem->SetStipulation(TStipulation::DirectMate(nMoves));
  problem->start = board;
  problem->ResetLine();
  return problem;
}
