#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "LinePosition.h"
#include "core/ChessException.h"
#include "core/Fen.h"
#include "core/Notation.h"

using testing::StrEq;
using testing::ThrowsMessage;

namespace {

constexpr const char* kInitial = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

}  // namespace

TEST(Notation, MoveToTextFollowsTheLongForm) {
  const struct {
    const char* move;
    PieceCode moving;
    bool bCapture;
    const char* text;
  } cases[] = {
      {"e1g1", piece::kWhiteKing, false, "0-0"},      {"e8c8", piece::kBlackKing, false, "0-0-0"},
      {"e1f1", piece::kWhiteKing, false, "Ke1-f1"},   {"e4d5", piece::kWhitePawn, true, "e4:d5"},
      {"d7c8q", piece::kWhitePawn, true, "d7:c8Q"},   {"e2e1n", piece::kBlackPawn, false, "e2-e1N"},
      {"g1f3", piece::kWhiteKnight, false, "Ng1-f3"}, {"h8a1", piece::kBlackQueen, true, "Qh8:a1"},
      {"e4e4", piece::kWhiteRook, false, "-"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(notation::MoveToText(M(c.move), c.moving, c.bCapture), c.text);
  TMove promotion = M("e7e8");
  promotion.promotion = piece::kWhiteQueen;  // colour bits do not change the letter
  EXPECT_EQ(notation::MoveToText(promotion, piece::kPawn, false), "e7-e8Q");
  promotion.promotion = piece::kPawn;
  EXPECT_EQ(notation::MoveToText(promotion, piece::kPawn, false), "e7-e8 ");
  EXPECT_EQ(notation::MoveToText(TMove{12, 64, 0, 0}, piece::kPawn, false), "");
}

TEST(Notation, MoveToTextReadsPieceAndCaptureFromTheBoard) {
  CLinePosition position("4k3/8/8/3pP3/8/5N2/8/4K2R w K d6 0 1");
  const TChessboard& board = position.Root();
  EXPECT_EQ(notation::MoveToText(board, M("e5d6")), "e5:d6");  // en passant
  EXPECT_EQ(notation::MoveToText(board, M("e5e6")), "e5-e6");
  EXPECT_EQ(notation::MoveToText(board, M("f3d4")), "Nf3-d4");
  EXPECT_EQ(notation::MoveToText(board, M("e1g1")), "0-0");
}

TEST(Notation, FullDescriptionsAreReadWithoutAPosition) {
  const struct {
    const char* text;
    bool bWhite;
    const char* move;
  } cases[] = {
      {"0-0", true, "e1g1"},     {"0-0-0", false, "e8c8"},   {" Ng1-f3 ", true, "g1f3"},
      {"e2xe4", true, "e2e4"},   {"Xd1-d8", true, "d1d8"},   {"E2-E4", false, "e2e4"},
      {"e7-e8Q", true, "e7e8q"}, {"d2:c1s", false, "d2c1n"}, {"Hd1-d8", true, "d1d8"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(notation::FullDescriptionToMove(c.text, c.bWhite), M(c.move)) << c.text;
  }
}

TEST(Notation, ReadersRaiseTheirTexts) {
  const struct {
    std::function<void()> call;
    const char* text;
  } cases[] = {
      {[] { notation::FullDescriptionToMove("", true); }, "Empty string"},
      {[] { notation::FullDescriptionToMove("  ", true); }, "Empty string"},
      {[] { notation::FullDescriptionToMove("e2e4", true); }, "Improper string length"},
      {[] { notation::FullDescriptionToMove("Ng1--f3", true); }, "Improper string length"},
      {[] { notation::FullDescriptionToMove("e7-e8X", true); }, "Unknown figure letter: X"},
      {[] { notation::FullDescriptionToMove("2e-e4", true); }, "Improper full description of move"},
      {[] { notation::FullDescriptionToMove("e9-e4", true); }, "Improper full description of move"},
      {[] { notation::ReadShortNotation("Nf3"); }, "Short notation not supported."},
  };
  for (const auto& c : cases) EXPECT_THAT(c.call, ThrowsMessage<ChessException>(StrEq(c.text)));
}

TEST(Notation, MakeMoveChecksTheShapeBeforeTheRules) {
  const struct {
    const char* fen;
    const char* text;
    const char* after;  // placement after the move, null when refused silently
  } cases[] = {
      {"4k3/8/8/8/8/8/4P3/4K3 b - - 0 1", "e2-e4", nullptr},  // not the side to move
      {"k7/4P3/8/8/8/8/8/4K3 w - - 0 1", "e7-e8", nullptr},   // promotion letter missing
      {"k7/4P3/8/8/8/8/8/4K3 w - - 0 1", "e7-e8Q", "k3Q3/8/8/8/8/8/8/4K3"},
      {"k7/4P3/8/8/8/8/8/4K3 w - - 0 1", "e7-e8h", "k3Q3/8/8/8/8/8/8/4K3"},
      {"k7/8/4P3/8/8/8/8/4K3 w - - 0 1", "e6-e7Q", nullptr},    // no promotion before the last rank
      {"4k3/8/8/8/8/8/R1N5/4K3 w - - 0 1", "Ra2-d2", nullptr},  // across the knight
      {"4k3/8/8/8/8/2PP4/R1N5/4K3 w - - 0 1", "Nc2-d4", "4k3/8/8/8/3N4/2PP4/R7/4K3"},
      {"4k3/8/8/8/8/8/8/3QK3 w - - 0 1", "  Hd1-d5", "4k3/8/8/3Q4/8/8/8/4K3"},
      {"4k3/8/8/8/8/8/8/3QK3 w - - 0 1", "Xd1-d5", nullptr},  // unknown piece letter
      {"4k3/8/8/8/8/8/8/3QK3 w - - 0 1", "Rd1-d5", nullptr},  // not the piece on d1
      {"4k3/8/8/8/8/8/8/3QK3 w - - 0 1", "Qd1-e1", nullptr},  // onto an own piece
      {"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1", "e2e4", nullptr},   // too short
      {"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1", "e2xe4", "4k3/8/8/8/4P3/8/8/4K3"},
      {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", "0-0", "r3k2r/8/8/8/8/8/8/R4RK1"},
      {"r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1", "0-0-0", "2kr3r/8/8/8/8/8/8/R3K2R"},
      {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", "O-O", nullptr},
      {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", "0-0-0-0", nullptr},
  };
  for (const auto& c : cases) {
    CLinePosition position(c.fen);
    TChessboard slot;
    const TChessboard* successor = notation::MakeMove(position.Root(), c.text, slot);
    if (c.after == nullptr) {
      EXPECT_EQ(successor, nullptr) << c.fen << " " << c.text;
    } else if (successor == nullptr) {
      ADD_FAILURE() << c.fen << " " << c.text << " refused";
    } else {
      EXPECT_EQ(fen::WriteShortFen(*successor), c.after);
      EXPECT_EQ(successor->parent, &position.Root());
    }
  }
}

TEST(Notation, MakeMoveRaisesForWellFormedIllegalMoves) {
  const struct {
    const char* fen;
    const char* text;
  } cases[] = {
      {"4k3/4r3/8/8/8/8/4R3/4K3 w - - 0 1", "Re2-d2"},  // pinned rook
      {"4k1r1/8/8/8/8/8/8/4K2R w K - 0 1", "0-0"},      // castling across an attacked square
      {"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1", "e2-e5"},
  };
  for (const auto& c : cases) {
    CLinePosition position(c.fen);
    TChessboard slot;
    EXPECT_THAT([&] { notation::MakeMove(position.Root(), c.text, slot); },
                ThrowsMessage<ChessException>(
                    StrEq(std::string("Invalid move in MakeMove() : ") + c.text)));
  }
}

TEST(Notation, MakeMoveReportsTheMadeMoveAndNeedsPliesLeft) {
  CLinePosition position("4k3/8/8/8/8/8/4P3/4K3 w - - 0 1");
  std::uint32_t reported = 0;
  int extra = 0;
  TChessboard slot;
  const TChessboard* successor =
      notation::MakeMove(position.Root(), "e2-e4", slot, [&](std::uint32_t code, int value) {
        reported = code;
        extra = value;
      });
  EXPECT_EQ(successor, &slot);
  EXPECT_EQ(reported, M("e2e4").Code());
  EXPECT_EQ(extra, -1);

  TChessboard finished = position.Root();
  finished.ply = 0;
  EXPECT_EQ(notation::MakeMove(finished, "e2-e4", slot), nullptr);
}

TEST(Notation, MoveSequencesStopAtTheFirstRefusedMoveAndTellWhatIsLeft) {
  const struct {
    const char* text;
    int nMade;
    const char* after;
    const char* rest;
  } cases[] = {
      {"1. e2-e4 e7-e5 2. Ng1-f3", 3, "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R", ""},
      {"1.\te2-e4 2. Ng1-f3", 1, "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR", "2. Ng1-f3"},
      {"1. e2-e4 e7-e5 2. Ke1-e3 ", 2, "rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR",
       "2. Ke1-e3"},
      {"1. e2-e4xxxxxxxxxxx", 0, "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
       "1. e2-e4xxxxxxxxxxx"},
      {"O-O", 0, "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", "O-O"},
      {"   ", 0, "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", ""},
      // The no-break space separates moves like any blank.
      {"1.\xC2\xA0" "e2-e4\xC2\xA0" "e7-e5\xA0" "Ng1-f3", 3,
       "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R", ""},
  };
  for (const auto& c : cases) {
    CLinePosition position(kInitial);
    const notation::TMoveSequenceEnd end =
        notation::ReadMoveSequence(position.Root(), c.text, position.Line());
    EXPECT_EQ(position.Root().ply - end.last->ply, c.nMade) << c.text;
    EXPECT_EQ(fen::WriteShortFen(*end.last), c.after) << c.text;
    EXPECT_EQ(end.rest, c.rest) << c.text;
  }
}

TEST(Notation, MoveSequencesStopWhenNoPlyOrSlotIsLeft) {
  constexpr const char* kMoves = "1. e2-e4 e7-e5 2. Ng1-f3 Nb8-c6";
  CLinePosition position(kInitial, 1);  // three plies
  auto end = notation::ReadMoveSequence(position.Root(), kMoves, position.Line());
  EXPECT_EQ(end.last->ply, 0);
  EXPECT_EQ(end.rest, "Nb8-c6");
  end = notation::ReadMoveSequence(position.Root(), kMoves, position.Line().first(3));
  EXPECT_EQ(end.last, &position.Root());  // no slot for the successor of ply 3
  EXPECT_EQ(end.rest, kMoves);
}
