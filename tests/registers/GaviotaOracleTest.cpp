// Every position of every 3-piece table against the Gaviota tablebases shipped by Debian.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "gtb-probe.h"
#include "registers/TableCollection.h"

namespace {

constexpr const char* kGaviotaPath = "/usr/share/gaviotatb/gtb1";

unsigned char GaviotaPiece(PieceCode code) {
  switch (piece::TypeOf(code)) {
    case piece::kPawn:
      return tb_PAWN;
    case piece::kKnight:
      return tb_KNIGHT;
    case piece::kBishop:
      return tb_BISHOP;
    case piece::kRook:
      return tb_ROOK;
    case piece::kQueen:
      return tb_QUEEN;
    default:
      return tb_KING;
  }
}

// Our value from the oracle's answer: its distances count plies, ours White's moves.
std::uint8_t ExpectedValue(unsigned info, unsigned plies, bool bWhiteToMove) {
  if (info == tb_WMATE)
    return static_cast<std::uint8_t>(bWhiteToMove ? (plies + 1) / 2 : plies / 2);
  return tablevalue::kNoMate;
}

class GaviotaOracle : public ::testing::TestWithParam<const char*> {
 protected:
  static void SetUpTestSuite() {
    paths = tbpaths_add(tbpaths_init(), kGaviotaPath);
    tb_init(0, tb_CP1, paths);
    tbcache_init(16 * 1024 * 1024, 0);
    // KPK leads into the other four.
    collection = new CTableCollection;
    collection->Generate(TTableMaterial::Parse("KPK"), 2);
  }
  static void TearDownTestSuite() {
    delete collection;
    tbcache_done();
    tb_done();
    paths = tbpaths_done(paths);
  }
  static const char** paths;
  static CTableCollection* collection;
};
const char** GaviotaOracle::paths = nullptr;
CTableCollection* GaviotaOracle::collection = nullptr;

TEST_P(GaviotaOracle, EveryPositionAgrees) {
  ASSERT_TRUE(tb_is_initialized());
  const TEndgameTable& table = *collection->Find(GetParam());
  const TTableIndex& index = table.Index();
  int nCompared = 0, nMismatches = 0;
  for (std::uint64_t i = 0; i < index.Size(); ++i) {
    SquareIndex squares[TTableMaterial::kMaxPieces];
    if (!index.Decode(i, squares)) continue;
    for (const bool bWhiteToMove : {true, false}) {
      const std::uint8_t ours = table.Value(bWhiteToMove, i);
      if (ours == tablevalue::kIllegal) continue;
      unsigned white[4], black[4];
      unsigned char whitePieces[4], blackPieces[4];
      int nWhite = 0, nBlack = 0;
      for (int p = 0; p < table.Material().Count(); ++p) {
        const PieceCode code = table.Material().Piece(p);
        if (piece::IsWhite(code)) {
          white[nWhite] = squares[p];
          whitePieces[nWhite++] = GaviotaPiece(code);
        } else {
          black[nBlack] = squares[p];
          blackPieces[nBlack++] = GaviotaPiece(code);
        }
      }
      white[nWhite] = black[nBlack] = tb_NOSQUARE;
      whitePieces[nWhite] = blackPieces[nBlack] = tb_NOPIECE;
      unsigned info = 0, plies = 0;
      ASSERT_TRUE(tb_probe_hard(bWhiteToMove ? tb_WHITE_TO_MOVE : tb_BLACK_TO_MOVE, tb_NOSQUARE,
                                tb_NOCASTLE, white, black, whitePieces, blackPieces, &info, &plies))
          << "index " << i;
      ++nCompared;
      const std::uint8_t expected = ExpectedValue(info, plies, bWhiteToMove);
      if (ours != expected && ++nMismatches <= 5)
        ADD_FAILURE() << GetParam() << " index " << i << (bWhiteToMove ? " white" : " black")
                      << " to move: ours " << int(ours) << ", oracle " << int(expected);
    }
  }
  EXPECT_EQ(nMismatches, 0);
  EXPECT_GT(nCompared, 0);
}

INSTANTIATE_TEST_SUITE_P(ThreePieceSets, GaviotaOracle,
                         ::testing::Values("KQK", "KRK", "KBK", "KNK", "KPK"));

}  // namespace
