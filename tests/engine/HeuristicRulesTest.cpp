#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "PlayedLine.h"
#include "engine/HeuristicRules.h"

namespace {

using heuristicrules::TBreak;
using heuristictest::CLine;

THeuristicSet Set(std::uint32_t mask) {
  THeuristicSet set;
  set.mask = mask;
  return set;
}
THeuristicSet EdgeSet(std::uint32_t mask, EEdgeForm form) {
  THeuristicSet set = Set(mask);
  set.edgeForm = form;
  return set;
}

struct TReplyCase {
  const char* what;
  const char* fen;  // Black to move, unless the moves start with White's
  std::vector<std::string> moves;
  THeuristicSet set;
  std::uint32_t expected;
  bool bMateExcuses = true;
  const char* rootFen = nullptr;  // the start position the context knows; fen when null
};

// Black's replies: each restriction cuts where its pattern is left, and only there.
TEST(HeuristicRules, BlackRepliesBreakTheirRestrictions) {
  const char* kKingOnH7 = "8/7k/8/8/8/8/8/K7 b - - 0 1";
  const char* kKingOnG6 = "8/8/6k1/8/8/8/8/K7 b - - 0 1";
  const TReplyCase cases[] = {
      {"edge, strict: off the edge line",
       kKingOnH7,
       {"h7g6"},
       EdgeSet(shbit::kKeepKingOnTheEdge, EEdgeForm::kStrict),
       shbit::kKeepKingOnTheEdge},
      {"edge, strict: along the edge",
       kKingOnH7,
       {"h7h6"},
       EdgeSet(shbit::kKeepKingOnTheEdge, EEdgeForm::kStrict),
       0},
      {"edge, loose: to the next line",
       kKingOnH7,
       {"h7g6"},
       EdgeSet(shbit::kKeepKingOnTheEdge, EEdgeForm::kLoose),
       0},
      {"edge, loose: further in",
       kKingOnG6,
       {"g6f5"},
       EdgeSet(shbit::kKeepKingOnTheEdge, EEdgeForm::kLoose),
       shbit::kKeepKingOnTheEdge},
      {"edge, STRICT: no mate excuses",
       kKingOnH7,
       {"h7g6"},
       EdgeSet(shbit::kKeepKingOnTheEdge, EEdgeForm::kAllStrict),
       shbit::kKeepKingOnTheEdge,
       false},
      {"edge, ALMOST_STRICT: out of check",
       "8/7k/8/8/8/8/8/K6R b - - 0 1",
       {"h7g6"},
       EdgeSet(shbit::kKeepKingOnTheEdge, EEdgeForm::kAlmostStrict),
       0},
      {"edge, strict: out of check",
       "8/7k/8/8/8/8/8/K6R b - - 0 1",
       {"h7g6"},
       EdgeSet(shbit::kKeepKingOnTheEdge, EEdgeForm::kStrict),
       shbit::kKeepKingOnTheEdge},
      {"within the next line: inwards",
       kKingOnG6,
       {"g6f5"},
       Set(shbit::kKeepKingWithinExtEdge),
       shbit::kKeepKingWithinExtEdge},
      {"within the next line: to the edge",
       kKingOnG6,
       {"g6h5"},
       Set(shbit::kKeepKingWithinExtEdge),
       0},
      {"king must not move",
       kKingOnG6,
       {"g6h5"},
       Set(shbit::kDontLetKingMove),
       shbit::kDontLetKingMove},
      {"king must not move: other pieces may",
       "8/8/6k1/8/8/1p6/8/K7 b - - 0 1",
       {"b3b2"},
       Set(shbit::kDontLetKingMove),
       0},
      {"king may step straight back with exceptions",
       kKingOnG6,
       {"g6f6", "a1a2", "f6g6"},
       [] {
         THeuristicSet set = Set(shbit::kDontLetKingMove);
         set.bKingMoveExceptions = true;
         return set;
       }(),
       0},
      {"king must not step back without exceptions",
       kKingOnG6,
       {"g6f6", "a1a2", "f6g6"},
       Set(shbit::kDontLetKingMove),
       shbit::kDontLetKingMove},
      {"near the corner, in squares",
       "8/8/8/8/8/8/1k6/7K b - - 0 1",
       {"b2c3"},
       Set(shbit::kKeepKingNearCorner),
       shbit::kKeepKingNearCorner},
      {"near the corner, in king moves",
       "8/8/8/8/8/8/1k6/7K b - - 0 1",
       {"b2c3"},
       [] {
         THeuristicSet set = Set(shbit::kKeepKingNearCorner);
         set.bCornerInKingMoves = true;
         return set;
       }(),
       0},
      {"a white piece lost",
       "8/8/8/8/8/2k5/3N4/K7 b - - 0 1",
       {"c3d2"},
       Set(shbit::kDontLoseAnyFigures),
       shbit::kDontLoseAnyFigures},
      {"a white pawn lost, pieces only",
       "8/8/8/8/8/2k5/3P4/K7 b - - 0 1",
       {"c3d2"},
       Set(shbit::kDontLoseAnyFigures),
       0},
      {"a white pawn lost, pawns too",
       "8/8/8/8/8/2k5/3P4/K7 b - - 0 1",
       {"c3d2"},
       [] {
         THeuristicSet set = Set(shbit::kDontLoseAnyFigures);
         set.nLoseFiguresLevel = 1;
         return set;
       }(),
       shbit::kDontLoseAnyFigures},
      {"a far pawn lost, pawns before promotion",
       "8/8/8/8/8/2k5/3P4/K7 b - - 0 1",
       {"c3d2"},
       [] {
         THeuristicSet set = Set(shbit::kDontLoseAnyFigures);
         set.nLoseFiguresLevel = 2;
         return set;
       }(),
       0},
      {"a near pawn lost, pawns before promotion",
       "8/2kP4/8/8/8/8/8/K7 b - - 0 1",
       {"c7d7"},
       [] {
         THeuristicSet set = Set(shbit::kDontLoseAnyFigures);
         set.nLoseFiguresLevel = 2;
         return set;
       }(),
       shbit::kDontLoseAnyFigures},
      {"the last rook lost",
       "8/8/8/8/8/2k5/3R4/K7 b - - 0 1",
       {"c3d2"},
       Set(shbit::kSaveQueenRook),
       shbit::kSaveQueenRook},
      {"the last rook lost, a promotion coming",
       "8/1P6/8/8/8/2k5/3R4/K7 b - - 0 1",
       {"c3d2"},
       Set(shbit::kSaveQueenRook),
       0},
      {"a rook lost, a queen left",
       "8/8/8/8/8/2k5/3R4/K5Q1 b - - 0 1",
       {"c3d2"},
       Set(shbit::kSaveQueenRook),
       0},
      {"a promoted queen moves",
       "8/8/8/8/8/2k5/7q/K7 b - - 0 1",
       {"h2h3"},
       Set(shbit::kDontLetPromotedQueenMove),
       shbit::kDontLetPromotedQueenMove,
       true,
       "8/8/8/8/8/2k5/6p1/K7 b - - 0 1"},
      {"the queen Black started with moves",
       "8/8/8/8/8/2k5/7q/K7 b - - 0 1",
       {"h2h3"},
       Set(shbit::kDontLetPromotedQueenMove),
       0},
      {"a promoted knight moves",
       "8/8/8/8/8/2k5/8/K5n1 b - - 0 1",
       {"g1e2"},
       Set(shbit::kDontLetPromotedFigureMove),
       shbit::kDontLetPromotedFigureMove,
       true,
       "8/8/8/8/8/2k5/6p1/K7 b - - 0 1"},
      {"the queen checks a second time",
       "7q/8/8/8/8/2k5/8/K7 b - - 0 1",
       {"h8h1", "a1a2", "h1h2"},
       Set(shbit::kDontLetBlackQueenCheckTwice),
       shbit::kDontLetBlackQueenCheckTwice},
      {"the queen checks once",
       "7q/8/8/8/8/2k5/8/K7 b - - 0 1",
       {"h8h1"},
       Set(shbit::kDontLetBlackQueenCheckTwice),
       0},
      {"a blocked rook walks off",
       "r7/8/8/8/8/2k5/8/1K6 b - - 0 1",
       {"a8a5"},
       Set(shbit::kDontLetFigureUnblock),
       shbit::kDontLetFigureUnblock},
      {"a blocked rook steps beside its square",
       "r7/8/8/8/8/2k5/8/1K6 b - - 0 1",
       {"a8a7"},
       Set(shbit::kDontLetFigureUnblock),
       0},
  };
  for (const TReplyCase& c : cases) {
    SCOPED_TRACE(c.what);
    CLine line(c.fen);
    const TChessboard& after = line.Play(c.moves);
    CLine start(c.rootFen != nullptr ? c.rootFen : c.fen);
    const TBreak cut =
        heuristicrules::BlackReplyBreaks(after, THeuristicContext(c.set, start.Root()));
    EXPECT_EQ(cut.bit, c.expected) << c.what;
    if (c.expected != 0) {
      EXPECT_EQ(cut.bMateExcuses, c.bMateExcuses) << c.what;
    }
  }
}

struct TWhiteCase {
  const char* what;
  const char* fen;  // White to move
  const char* move;
  THeuristicSet set;
  std::uint32_t expected;
  std::uint16_t ply = 9;  // of the position before the move
};

THeuristicSet ForcedMate(EForcedMateMode mode) {
  THeuristicSet set = Set(shbit::kFindForcedMate);
  set.forcedMateMode = mode;
  return set;
}

// White's moves below the root: the moves a restriction leaves out, and only those.
TEST(HeuristicRules, WhiteMovesBreakTheirRestrictions) {
  const char* kRookMate = "7k/8/6K1/8/8/8/8/R7 w - - 0 1";
  const char* kBishop = "6k1/8/8/8/8/2B5/8/K7 w - - 0 1";
  THeuristicSet keyRook = Set(shbit::kKeyWhiteFigure);
  keyRook.keySquare = 0;
  const TWhiteCase cases[] = {
      {"checks only: a check", kRookMate, "a1a8", ForcedMate(EForcedMateMode::kCheckOnly), 0},
      {"checks only: a threat", kRookMate, "a1a7", ForcedMate(EForcedMateMode::kCheckOnly),
       shbit::kFindForcedMate},
      {"threats: a mate threat", kRookMate, "a1a7", ForcedMate(EForcedMateMode::kMateIn1), 0},
      {"threats: no threat", kRookMate, "g6f6", ForcedMate(EForcedMateMode::kMateIn1),
       shbit::kFindForcedMate},
      {"threats: a capture", "7k/8/5K2/8/8/8/p7/R7 w - - 0 1", "a1a2",
       ForcedMate(EForcedMateMode::kMateIn1), shbit::kFindForcedMate},
      {"threats and captures: a capture", "7k/8/5K2/8/8/8/p7/R7 w - - 0 1", "a1a2",
       ForcedMate(EForcedMateMode::kMateIn1Plus), 0},
      {"main diagonal: along it", kBishop, "c3e5", Set(shbit::kDontLeaveMainDiagonal), 0},
      {"main diagonal: off it", kBishop, "c3b4", Set(shbit::kDontLeaveMainDiagonal),
       shbit::kDontLeaveMainDiagonal},
      {"main diagonal: a bishop off it moves freely", "7k/8/8/8/8/1B6/8/K7 w - - 0 1", "b3c4",
       Set(shbit::kDontLeaveMainDiagonal), 0},
      {"white king: towards", kBishop, "a1b2", Set(shbit::kDontRecedeBlackKing), 0},
      {"white king: away", "6k1/8/8/8/8/1KB5/8/8 w - - 0 1", "b3a3",
       Set(shbit::kDontRecedeBlackKing), shbit::kDontRecedeBlackKing},
      {"key piece moves", "7k/8/8/8/8/8/8/R6K w - - 0 1", "a1a2", keyRook, shbit::kKeyWhiteFigure},
      {"another piece moves", "7k/8/8/8/8/8/8/R6K w - - 0 1", "h1g1", keyRook, 0},
      {"knight left near the end", "7k/8/8/8/8/8/1n6/R6K w - - 0 1", "h1g1",
       Set(shbit::kCaptureKnight), shbit::kCaptureKnight, 3},
      {"knight taken near the end", "7k/8/8/8/8/8/n7/R6K w - - 0 1", "a1a2",
       Set(shbit::kCaptureKnight), 0, 3},
      {"knight left far from the end", "7k/8/8/8/8/8/1n6/R6K w - - 0 1", "h1g1",
       Set(shbit::kCaptureKnight), 0, 5},
  };
  for (const TWhiteCase& c : cases) {
    SCOPED_TRACE(c.what);
    CLine line(c.fen, static_cast<std::uint16_t>(c.ply - 1));
    const TChessboard& after = line.Play({c.move});
    EXPECT_EQ(heuristicrules::WhiteMoveBreaks(after, THeuristicContext(c.set, line.Root())),
              c.expected)
        << c.what;
  }
}

// Whole White nodes: the kings too far apart for the moves left, a king with room.
TEST(HeuristicRules, WhiteNodesBreakTheirRestrictions) {
  const struct {
    const char* what;
    const char* fen;
    std::uint16_t ply;
    std::uint32_t mask;
    std::uint32_t expected;
  } cases[] = {
      {"kings near enough", "7k/8/8/8/4K3/8/8/8 w - - 0 1", 7, shbit::kAreKingsNear, 0},
      {"kings too far", "7k/8/8/8/8/8/8/K7 w - - 0 1", 11, shbit::kAreKingsNear,
       shbit::kAreKingsNear},
      {"kings far, moves enough", "7k/8/8/8/8/8/8/K7 w - - 0 1", 13, shbit::kAreKingsNear, 0},
      {"king with room near the end", "8/8/8/3k4/8/8/8/K6R w - - 0 1", 3,
       shbit::kAssertBlackKingSurrounded, shbit::kAssertBlackKingSurrounded},
      {"king hemmed in near the end", "k7/8/1K6/8/8/8/8/7R w - - 0 1", 3,
       shbit::kAssertBlackKingSurrounded, 0},
      {"king with room far from the end", "8/8/8/3k4/8/8/8/K6R w - - 0 1", 5,
       shbit::kAssertBlackKingSurrounded, 0},
  };
  for (const auto& c : cases) {
    CLine line(c.fen, static_cast<std::uint16_t>(c.ply - 1));
    EXPECT_EQ(
        heuristicrules::WhiteNodeBreaks(line.Root(), THeuristicContext(Set(c.mask), line.Root())),
        c.expected)
        << c.what;
  }
}

}  // namespace
