// Piece sets and the index of their placements.
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "registers/TableIndex.h"

namespace {

TEST(TableMaterial, NamesAreNormalisedAndTypedByColour) {
  struct TCase {
    const char* text;
    const char* name;
    const char* positionType;
    bool bPawns;
    bool bWhiteCanMate;
  };
  const TCase cases[] = {
      {"KRK", "KRK", "KRk", false, true},       {"KNQK", "KQNK", "KQNk", false, true},
      {"KPKP", "KPKP", "KPkp", true, true},     {"KKQ", "KKQ", "Kkq", false, false},
      {"KRKNB", "KRKBN", "KRkbn", false, true},
  };
  for (const TCase& c : cases) {
    const TTableMaterial material = TTableMaterial::Parse(c.text);
    EXPECT_EQ(material.Name(), c.name) << c.text;
    EXPECT_EQ(material.PositionType(), c.positionType) << c.text;
    EXPECT_EQ(material.HasPawns(), c.bPawns) << c.text;
    EXPECT_EQ(material.WhiteCanMate(), c.bWhiteCanMate) << c.text;
  }
  for (const char* bad : {"", "K", "RKK", "KRR", "KXK", "KRKRRR", "KkR", "KRKK"})
    EXPECT_THROW(TTableMaterial::Parse(bad), std::invalid_argument) << bad;
}

TEST(TableMaterial, SuccessorsAreTheCapturesAndPromotions) {
  const auto names = [](const std::vector<TTableMaterial>& materials) {
    std::set<std::string> result;
    for (const auto& m : materials) result.insert(m.Name());
    return result;
  };
  EXPECT_EQ(names(TTableMaterial::Parse("KRKN").Successors()),
            (std::set<std::string>{"KRK", "KKN"}));
  // A pawn's promotions, with and without capture; the captures of each piece.
  EXPECT_EQ(names(TTableMaterial::Parse("KPKR").Successors()),
            (std::set<std::string>{"KKR", "KPK", "KQKR", "KRKR", "KBKR", "KNKR", "KQK", "KRK",
                                   "KBK", "KNK"}));
}

// Decode then Encode gives the index back for every placement the index stands for, and
// every symmetric image of a placement has the same index.
class TableIndexRoundTrip : public ::testing::TestWithParam<const char*> {};

TEST_P(TableIndexRoundTrip, EncodeInvertsDecodeAndSymmetriesAgree) {
  const TTableMaterial material = TTableMaterial::Parse(GetParam());
  const TTableIndex index(material);
  const int nSymmetries = material.HasPawns() ? 2 : 8;
  constexpr std::uint64_t kStride = 101;
  std::uint64_t nPlacements = 0;
  for (std::uint64_t i = 0; i < index.Size(); i += kStride) {
    SquareIndex squares[TTableMaterial::kMaxPieces];
    if (!index.Decode(i, squares)) continue;
    ++nPlacements;
    ASSERT_EQ(index.Encode(squares), i) << GetParam();
    for (int t = 0; t < nSymmetries; ++t) {
      SquareIndex image[TTableMaterial::kMaxPieces];
      for (int p = 0; p < material.Count(); ++p) image[p] = TTableIndex::Transform(t, squares[p]);
      std::uint64_t all[2];
      const int n = index.EncodeAll(image, all);
      ASSERT_TRUE(all[0] == i || (n == 2 && all[1] == i)) << GetParam() << " symmetry " << t;
    }
  }
  EXPECT_GT(nPlacements, index.Size() / kStride / 4);
}

INSTANTIATE_TEST_SUITE_P(Sets, TableIndexRoundTrip,
                         ::testing::Values("KRK", "KPK", "KRRK", "KQKR", "KPKP", "KPPK"));

TEST(TableIndex, SizesFollowTheKingRegionAndPieceSquares) {
  EXPECT_EQ(TTableIndex(TTableMaterial::Parse("KQK")).Size(), 10u * 64 * 64);
  EXPECT_EQ(TTableIndex(TTableMaterial::Parse("KPK")).Size(), 32u * 64 * 48);
  EXPECT_EQ(TTableIndex(TTableMaterial::Parse("KRKP")).Size(), 32u * 64 * 64 * 48);
}

TEST(TableIndex, LikePiecesInEitherOrderShareAnIndex) {
  const TTableIndex index(TTableMaterial::Parse("KRRK"));
  const SquareIndex a[] = {0, 63, 10, 20}, b[] = {0, 63, 20, 10};
  EXPECT_EQ(index.Encode(a), index.Encode(b));
}

}  // namespace
