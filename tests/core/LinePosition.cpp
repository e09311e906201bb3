#include "LinePosition.h"

#include <gtest/gtest.h>

#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "core/PieceLetters.h"

CLinePosition::CLinePosition(const std::string& fenText, int plies) {
  ClearChessboard(root);
  fen::TFenExtras extras;
  EXPECT_TRUE(fen::ReadFen(root, fenText, &extras)) << fenText;
  root.ply = static_cast<std::uint16_t>(2 * plies + (extras.bBlackToMove ? 2 : 1));
  root.rootPlies = root.ply;
  line.resize(root.ply + 1u);
}

const TChessboard& CLinePosition::Play(const std::vector<std::string>& moves) {
  const TChessboard* current = &root;
  for (const auto& text : moves) {
    TChessboard& slot = line[current->ply];
    const TChessboard* next =
        movemaking::IsMoveValid(*current, M(text.c_str()).Code(), slot) ? &slot : nullptr;
    EXPECT_NE(next, nullptr) << "illegal move " << text;
    if (next == nullptr) break;
    current = next;
  }
  return *current;
}

SquareIndex Sq(const char* name) {
  return square::Make(name[0] - 'a', name[1] - '1');
}

TMove M(const char* fromTo) {
  TMove move{Sq(fromTo), Sq(fromTo + 2), 0, 0};
  if (fromTo[4] != '\0') move.promotion = letters::TypeFromMoveLetter(fromTo[4]);
  return move;
}

std::string FromTo(TMove move) {
  std::string text;
  for (SquareIndex s : {move.from, move.to}) {
    text += static_cast<char>('a' + square::File(s));
    text += static_cast<char>('1' + square::Rank(s));
  }
  if (move.promotion) text += static_cast<char>(letters::TypeToLetter(move.promotion) | 0x20);
  return text;
}

std::vector<std::string> MoveTexts(const TChessboard& board, bool bLegalOnly) {
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateAllMoves(board, moves);
  std::vector<std::string> texts;
  for (int i = 0; i < n; ++i) {
    if (bLegalOnly) {
      TChessboard scratch = board;
      scratch.parent = &board;
      const int made = board.IsWhiteToMove() ? movemaking::MakeWhiteMove(scratch, moves[i])
                                             : movemaking::MakeBlackMove(scratch, moves[i]);
      if (made <= 0) continue;
    }
    texts.push_back(FromTo(moves[i]));
  }
  return texts;
}
