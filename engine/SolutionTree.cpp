#include "engine/SolutionTree.h"

#include <algorithm>

#include "core/ChessException.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "engine/BestDefence.h"

namespace {

// The legal moves of the side to move in generation order, made into successors of board.
std::vector<TChessboard> Successors(const TChessboard& board) {
  std::vector<TChessboard> successors;
  for (const TMove move : movemaking::LegalMoves(board)) {
    successors.push_back(board);
    successors.back().parent = &board;
    if (board.IsWhiteToMove())
      movemaking::MakeWhiteMove(successors.back(), move);
    else
      movemaking::MakeBlackMove(successors.back(), move);
  }
  return successors;
}

}  // namespace

std::vector<const std::string*> MainVariation(const TSolutionMove& key) {
  std::vector<const std::string*> line;
  for (const TSolutionMove* step = &key; step != nullptr;) {
    line.push_back(&step->text);
    if (step->defences.empty()) break;
    line.push_back(&step->defences.front().text);
    step = &step->defences.front().answer;
  }
  return line;
}

CSolutionTreeBuilder::CSolutionTreeBuilder(SearchContext& searchContext, const TChessboard& start,
                                           int nMoves, int nMaxWhite)
    : context(searchContext),
      root(start),
      search(searchContext, static_cast<std::uint16_t>(2 * nMoves - 1)),
      nWhiteMovesLeft(nMaxWhite),
      nMaxWhiteMoves(nMaxWhite) {
  root.ply = root.rootPlies = static_cast<std::uint16_t>(2 * nMoves - 1);
  root.parent = nullptr;
}

void CSolutionTreeBuilder::ThrowIfStopped() const {
  if (context.run.IsStopping()) throw ChessException("Solution tree interrupted");
}

TSolutionMove CSolutionTreeBuilder::Build(TMove key) {
  nWhiteMovesLeft = nMaxWhiteMoves - 1;
  TSolutionMove step{.move = key, .text = notation::MoveToText(root, key)};
  TChessboard afterKey = root;
  afterKey.parent = &root;
  if (movemaking::MakeWhiteMove(afterKey, key) <= 0)
    throw ChessException("Not a legal key: " + step.text);
  // A defence the key does not mate after throws where White's answer is looked for.
  AddDefences(afterKey, (root.ply + 1) / 2 - 1, step);
  return step;
}

void CSolutionTreeBuilder::AddDefences(const TChessboard& afterWhite, int nMovesLeft,
                                       TSolutionMove& step) {
  step.nMovesToMate = 1;
  const std::vector<TChessboard> replies = Successors(afterWhite);
  if (replies.empty()) return;  // mate: the move was proven, so it is no stalemate
  if (nWhiteMovesLeft <= 0) {
    step.bCut = true;
    // Without the defences the length is the one proven for the move.
    step.nMovesToMate = nMovesLeft + 1;
    return;
  }
  const TMove best = FindBestDefence(afterWhite, context).move;
  ThrowIfStopped();
  // The best defence first, the others in generation order after it.
  std::vector<const TChessboard*> order;
  for (const TChessboard& reply : replies) order.push_back(&reply);
  std::stable_partition(order.begin(), order.end(),
                        [&](const TChessboard* reply) { return reply->lastMove == best; });
  for (const TChessboard* reply : order) {
    TSolutionDefence defence{.move = reply->lastMove,
                             .text = notation::MoveToText(afterWhite, reply->lastMove),
                             .bBest = reply->lastMove == best};
    TChessboard afterAnswer;
    defence.answer = ShortestMate(*reply, nMovesLeft, afterAnswer);
    AddDefences(afterAnswer, defence.answer.nMovesToMate - 1, defence.answer);
    step.nMovesToMate = std::max(step.nMovesToMate, defence.answer.nMovesToMate + 1);
    step.defences.push_back(std::move(defence));
  }
}

TSolutionMove CSolutionTreeBuilder::ShortestMate(const TChessboard& board, int nMovesLeft,
                                                 TChessboard& made) {
  --nWhiteMovesLeft;
  const std::vector<TChessboard> moves = Successors(board);
  for (int nMoves = 1; nMoves <= nMovesLeft; ++nMoves) {
    TChessboard shallower = board;
    shallower.ply = static_cast<std::uint16_t>(2 * nMoves - 1);
    if (search.WhiteNode(shallower) != mate::kMate) continue;
    for (TChessboard child : moves) {
      child.ply = static_cast<std::uint16_t>(2 * nMoves - 2);
      if (search.BlackNode(child) != mate::kMate) continue;
      made = child;  // linked to board, with the plies of its mate
      return {.move = child.lastMove,
              .text = notation::MoveToText(board, child.lastMove),
              .nMovesToMate = nMoves};
    }
  }
  ThrowIfStopped();
  throw ChessException("No mate found in the solution after " +
                       notation::MoveToText(*board.parent, board.lastMove));
}
