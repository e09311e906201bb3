// The endgame tables against the mate search: sampled values proved by the search, and the
// search with the tables finding the same keys as without.
#include <gtest/gtest.h>

#include <algorithm>

#include "TestData.h"
#include "core/Fen.h"
#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "engine/MateSearch.h"
#include "engine/RootSearch.h"
#include "registers/TableCollection.h"
#include "registers/TableLookup.h"

namespace {

// The tables of a collection as the search sees them.
class CCollectionProbe : public CTableProbe {
 public:
  explicit CCollectionProbe(const CTableCollection& tables)
      : lookup([&tables](const TTableMaterial& m) { return tables.Find(m); }) {}
  std::optional<std::uint8_t> Probe(const TChessboard& board) override {
    return lookup.StoredValue(board);
  }

 private:
  CTableLookup lookup;
};

// Whether White mates within the plies given (plies odd: White to move), by the search alone.
bool SearchMates(const TTableMaterial& material, const SquareIndex* squares, bool bWhiteToMove,
                 int nMoves) {
  TChessboard board;
  EXPECT_TRUE(CTableLookup::MakeBoard(material, squares, bWhiteToMove, board));
  board.ply = board.rootPlies = static_cast<std::uint16_t>(2 * nMoves - (bWhiteToMove ? 1 : 0));
  board.parent = nullptr;
  if (board.ply == 0) return board.IsBlackInCheck() && !movemaking::HasLegalMove(board);
  TChessboardRegister<bool> reg(200'000);
  SearchContext context;
  context.pRegister = &reg;
  CMateSearch search(context, board.ply);
  return search.FindMate(board) == mate::kMate;
}

class TablesAgainstSearch : public ::testing::TestWithParam<const char*> {
 protected:
  static CTableCollection& Tables() {
    static CTableCollection tables;
    return tables;
  }
};

// Mate in N (or within N for Black to move) is found and none in N - 1; "no mate" holds
// for a few moves. Castling positions are left out: the search would castle.
TEST_P(TablesAgainstSearch, SampledValuesAreProvedBySearch) {
  constexpr int kMaxProved = 4;  // moves; deeper proofs take the search too long here
  constexpr int kNoMateBound = 3;
  const TTableMaterial material = TTableMaterial::Parse(GetParam());
  const TEndgameTable& table = *Tables().Generate(material, 2);
  int nMates = 0, nNoMates = 0;
  for (std::uint64_t i = 0; i < table.Size() && (nMates < 16 || nNoMates < 6); i += 9973) {
    SquareIndex squares[TTableMaterial::kMaxPieces];
    if (!table.Index().Decode(i, squares)) continue;
    for (const bool bWhite : {true, false}) {
      const std::uint8_t value = table.Value(bWhite, i);
      if (value == tablevalue::kIllegal) continue;
      if (tablevalue::IsMate(value) && value <= kMaxProved) {
        EXPECT_TRUE(SearchMates(material, squares, bWhite, value)) << GetParam() << " " << i;
        if (value > (bWhite ? 1 : 0)) {
          EXPECT_FALSE(SearchMates(material, squares, bWhite, value - 1)) << GetParam() << " " << i;
        }
        ++nMates;
      } else if (value == tablevalue::kNoMate && nNoMates < 6) {
        EXPECT_FALSE(SearchMates(material, squares, bWhite, kNoMateBound))
            << GetParam() << " " << i;
        ++nNoMates;
      }
    }
  }
  EXPECT_GT(nMates, 0);
}

// Sets with pawns, and the 5-piece sets, take minutes to generate in a checked build: they are
// checked by "longmate tables verify" against the core's moves instead.
INSTANTIATE_TEST_SUITE_P(FourPieceSets, TablesAgainstSearch, ::testing::Values("KRKN"));

// Rows of the reference mates small enough for the tables: the same keys with the tables.
TEST(TablesInSearch, KeysOfSmallEndingsAreUnchanged) {
  CTableCollection tables;
  CCollectionProbe probe(tables);
  int nSolved = 0;
  for (const auto& row : testdata::ReadTsv("directmates.tsv")) {
    TChessboard root;
    ClearChessboard(root);
    ASSERT_TRUE(fen::ReadFen(root, row.at("fen")));
    const auto material = TTableMaterial::OfBoard(root.squares);
    if (!material || material->Count() > 3) continue;
    tables.Generate(*material, 2);
    root.ply = root.rootPlies = static_cast<std::uint16_t>(2 * std::stoi(row.at("n")) - 1);
    SearchContext context;
    context.pTables = &probe;
    CRootSearch search(context, root, 1);
    const TRootOutcome outcome = search.Run(0);
    std::vector<std::string> keys, expected = testdata::Split(row.at("keys"), " ,");
    for (TMove key : outcome.keys) keys.push_back(notation::MoveToText(root, key));
    std::sort(keys.begin(), keys.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(keys, expected) << row.at("id");
    ++nSolved;
  }
  EXPECT_GE(nSolved, 4);
}

// A probe that answers one value for every position and counts the questions.
class CFixedProbe : public CTableProbe {
 public:
  explicit CFixedProbe(std::uint8_t answer) : value(answer) {}
  std::optional<std::uint8_t> Probe(const TChessboard& board) override {
    ++nCalls;
    nWithRights += movegen::CastlingRights(board) != 0 ? 1 : 0;
    return value;
  }
  std::uint8_t value;
  int nCalls = 0, nWithRights = 0;
};

MateResult SearchWithProbe(const std::string& fenText, int nPlies, CTableProbe& probe) {
  TChessboard board;
  ClearChessboard(board);
  EXPECT_TRUE(fen::ReadFen(board, fenText));
  board.ply = board.rootPlies = static_cast<std::uint16_t>(nPlies);
  SearchContext context;
  context.pTables = &probe;
  CMateSearch search(context, board.ply);
  return search.FindMate(board);
}

// The table's value decides against the plies left, for either side to move; positions
// with castling rights are never asked about.
TEST(TablesInSearch, AnswersAreComparedWithTheMovesLeft) {
  struct TCase {
    const char* fen;
    int nPlies;
    std::uint8_t value;
    MateResult expected;
  };
  const char* krk = "8/8/8/4k3/8/8/8/R2K4";
  const TCase cases[] = {
      {krk, 5, 3, mate::kMate},    // White mates in 3 with 3 moves left
      {krk, 5, 4, mate::kNoMate},  // one move too few
      {krk, 6, 3, mate::kMate},    // Black to move, mated within 3
      {krk, 6, 4, mate::kNoMate}, {krk, 7, tablevalue::kNoMate, mate::kNoMate},
  };
  for (const TCase& c : cases) {
    CFixedProbe probe(c.value);
    EXPECT_EQ(SearchWithProbe(c.fen, c.nPlies, probe), c.expected)
        << c.nPlies << " " << int(c.value);
    EXPECT_EQ(probe.nCalls, 1);
  }
  // Positions where White may still castle are never asked about; the others are.
  CFixedProbe castling(tablevalue::kNoMate);
  SearchWithProbe("4k3/8/8/8/8/8/8/4K2R", 5, castling);
  EXPECT_GT(castling.nCalls, 0);
  EXPECT_EQ(castling.nWithRights, 0);
}

}  // namespace
