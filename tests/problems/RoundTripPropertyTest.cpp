// Problems made at random, with everything the canonical form writes, must read back as the
// same problems, and a second rewrite must give the same text: a rewrite never loses a
// problem, nor a part of one.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/CastlingRule.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "problems/Collection.h"
#include "problems/TextTools.h"

namespace {

constexpr PieceCode kTypes[] = {piece::kQueen,  piece::kRook, piece::kBishop,
                                piece::kKnight, piece::kPawn, piece::kKing};
constexpr std::uint16_t kWrittenFlags[] = {option::kNoMirror,
                                           option::kAllSolutions,
                                           option::kStopOnDual,
                                           option::kStopOn3Sol,
                                           option::kMirrorOnly,
                                           option::kUseMainVariantAsSortIndications,
                                           option::kSafeMode,
                                           option::kGuiCheck,
                                           option::kGuiCheckBestDefence,
                                           option::kRequiresSyzygy,
                                           option::kAllSolutionsRequiresSyzygy};
// Pieces of text: words, marks the grammar uses elsewhere, a letter of two bytes, blanks inside.
const char* const kTextPieces[] = {"Loyd", "1.",  "Qd1-d8", "#",          "}", "{",
                                   "//",   "/*",  ":",      "żółw",       " ", "\xC2\xA0",
                                   "TAGS", "0-0", ",",      "ENDVARIANTS"};

class CProblemGenerator {
 public:
  explicit CProblemGenerator(unsigned seed) : random(seed) {}

  std::unique_ptr<TProblem> Next(int id) {
    auto p = std::make_unique<TProblem>();
    p->id = id;
    p->SetStipulation(Stipulation());
    p->start = Position();
    p->ResetLine();
    SetOptions(*p);
    if (Chance(70)) p->description = Text();
    for (int n = Uniform(0, 2); n > 0; --n) AddTag(*p);
    for (int n = Uniform(0, 3); n > 0; --n) AddVariant(*p);
    for (int n = Uniform(0, 4); n > 0; --n) {
      const TSortIndication element = SortElement();
      p->sortIndications[element.moveNumber].push_back(element);
    }
    if (Chance(60)) {
      p->options |= option::kAnswerGiven;
      for (int n = Uniform(0, 4); n > 0; --n) p->answer.push_back(AnswerMove());
    }
    if (p->stipulation.type == TStipulation::kMoveLine) PlayLine(*p);
    return p;
  }

 private:
  int Uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
  bool Chance(int percent) { return Uniform(1, 100) <= percent; }
  SquareIndex AnySquare() { return static_cast<SquareIndex>(Uniform(0, 63)); }

  TStipulation Stipulation() {
    const int nMoves = Chance(80) ? Uniform(1, 8) : Uniform(9, TStipulation::kMaxMoves);
    const int kind = Uniform(1, 10);
    if (kind <= 6) return TStipulation::DirectMate(nMoves);
    return kind <= 8 ? TStipulation::Selfmate(nMoves) : TStipulation::MoveLine();
  }

  TChessboard Position() {
    for (;;) {
      TChessboard board;
      ClearChessboard(board);
      board.squares[AnySquare()] = piece::kWhiteKing;
      board.squares[AnySquare()] = piece::kBlackKing;
      for (int n = Uniform(0, 24); n > 0; --n) {
        const PieceCode type = kTypes[Uniform(0, 4)];
        const SquareIndex s = AnySquare();
        if (board.squares[s] != piece::kEmpty) continue;
        board.squares[s] = (Chance(50) ? piece::kWhite : piece::kBlack) | type;
      }
      // The analysis refuses pawns on the back ranks, a missing king and both kings in check.
      if (TryAnalyse(board, true)) return board;
    }
  }

  void SetOptions(TProblem& p) {
    for (std::uint16_t flag : kWrittenFlags)
      if (Chance(15)) p.options |= flag;
    p.bUseMainVariantAsSortIndications = p.HasFlag(option::kUseMainVariantAsSortIndications);
    if (p.HasFlag(option::kGuiCheck) || p.HasFlag(option::kGuiCheckBestDefence))
      p.guiCheckLevel = Uniform(1, 5);
    if (Chance(30)) p.nThreads = static_cast<std::uint8_t>(Uniform(0, 254));
    for (int n = Uniform(0, 2); n > 0; --n)
      p.requiredResources.insert(Chance(50) ? "tb7" : "net_" + std::to_string(Uniform(0, 9)));
  }

  // One line of text without blanks at its ends, as the readers trim them.
  std::string Text() {
    std::string text;
    for (int n = Uniform(1, 6); n > 0; --n)
      text += kTextPieces[Uniform(0, std::size(kTextPieces) - 1)];
    return std::string(text::Trim(text));
  }

  void AddTag(TProblem& p) {
    const std::string tag = Text();
    // A tag line "//#TAGS" would open a new block: such a tag cannot be written.
    if (!tag.empty() && !text::EqualsNoCase(tag, "TAGS")) p.tags.insert(tag);
  }

  void AddVariant(TProblem& p) {
    // Variants are kept verbatim, blanks at the ends included.
    const std::string variant = (Chance(30) ? "  " : "") + Text() + (Chance(30) ? " " : "");
    const std::string_view trimmed = text::Trim(variant);
    if (!text::EqualsNoCase(trimmed, "VARIANTS") && !text::EqualsNoCase(trimmed, "ENDVARIANTS"))
      p.variants.push_back(variant);
  }

  TSortIndication SortElement() {
    TSortIndication e;
    e.bNegated = Chance(20);
    e.moveNumber = static_cast<std::uint16_t>(Chance(50) ? 0 : Uniform(1, 3));
    if (Chance(15)) {
      e.from = square::kE1;
      e.to = Chance(50) ? square::kG1 : square::kC1;
      e.captureMode = TSortIndication::kNoCapture;
      return e;
    }
    e.piece = Chance(50) ? 0 : piece::kWhite | kTypes[Uniform(0, 5)];
    e.from = Chance(50) ? square::kNone : AnySquare();
    e.to = AnySquare();
    const std::uint8_t kModes[] = {TSortIndication::kCaptureEither, TSortIndication::kNoCapture,
                                   TSortIndication::kCapture};
    e.captureMode = kModes[Uniform(0, 2)];
    e.checkMode = static_cast<std::uint8_t>(Uniform(0, 2));
    e.promotion = Chance(20) ? kTypes[Uniform(0, 5)] : 0;
    return e;
  }

  // Any squares: an answer need not be a move of the diagram (castling of either side, a
  // promotion to a pawn or a king, a move onto its own square).
  TMove AnswerMove() {
    if (Chance(15)) {
      const TCastlingRule& rule = castling::kRules[Uniform(0, 3)];
      return TMove{rule.kingFrom, rule.kingTo, 0, 0};
    }
    const PieceCode promotion = Chance(20) ? kTypes[Uniform(0, 5)] : 0;
    return TMove{AnySquare(), AnySquare(), promotion, 0};
  }

  // Random legal moves from the start, and now and then a text that no move can be read from.
  void PlayLine(TProblem& p) {
    const TChessboard* current = &p.start;
    // A start whose side not to move is in check makes no move.
    const int nMoves = p.start.IsBlackInCheck() || !Chance(70) ? 0 : Uniform(1, 8);
    for (int n = nMoves; n > 0; --n) {
      TMove moves[kMoveBufferSize];
      const int nGenerated = movegen::GenerateAllMoves(*current, moves);
      TChessboard& next = p.Line()[current->ply];
      bool bMade = false;
      for (int tries = 0; tries < 20 && !bMade && nGenerated > 0; ++tries)
        bMade = movemaking::MakeSuccessor(*current, moves[Uniform(0, nGenerated - 1)], next);
      if (!bMade) break;
      current = &next;
    }
    p.current = current;
    if (Chance(30)) p.unreadMoveLine = "O-O " + std::to_string(Uniform(1, 9)) + ". e2-e4";
  }

  std::mt19937 random;
};

void ExpectSameProblem(const TProblem& a, const TProblem& b) {
  const std::string where = "problem " + std::to_string(a.id);
  EXPECT_EQ(a.stipulation.type, b.stipulation.type) << where;
  EXPECT_EQ(a.stipulation.plies, b.stipulation.plies) << where;
  EXPECT_EQ(a.options, b.options) << where;
  EXPECT_EQ(a.nThreads, b.nThreads) << where;
  EXPECT_EQ(a.guiCheckLevel, b.guiCheckLevel) << where;
  EXPECT_EQ(a.bUseMainVariantAsSortIndications, b.bUseMainVariantAsSortIndications) << where;
  EXPECT_EQ(a.requiredResources, b.requiredResources) << where;
  EXPECT_EQ(a.description, b.description) << where;
  EXPECT_EQ(a.tags, b.tags) << where;
  EXPECT_EQ(a.variants, b.variants) << where;
  EXPECT_EQ(a.sortIndications, b.sortIndications) << where;
  EXPECT_EQ(a.answer, b.answer) << where;
  EXPECT_EQ(fen::WriteShortFen(a.start), fen::WriteShortFen(b.start)) << where;
  EXPECT_EQ(a.MoveLine(), b.MoveLine()) << where;
  EXPECT_EQ(a.unreadMoveLine, b.unreadMoveLine) << where;
}

TEST(RoundTripProperty, GeneratedProblemsReadBackTheSame) {
  CProblemGenerator generator(20250612);
  for (int round = 0; round < 10; ++round) {
    TProblemCollection written;
    for (int i = 0; i < 300; ++i) written.Put(generator.Next(round * 1000 + i));
    const std::string text = written.WriteText();
    TProblemCollection read;
    const auto error = read.ReadText(text, "generated");
    ASSERT_FALSE(error) << error->Describe();
    ASSERT_EQ(read.Size(), written.Size());
    for (const auto& [id, problem] : written.Problems())
      ExpectSameProblem(*problem, *read.Find(id));
    EXPECT_EQ(read.WriteText(), text);
  }
}

}  // namespace
