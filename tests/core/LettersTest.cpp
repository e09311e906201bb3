#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

#include "core/ChessException.h"
#include "core/PieceLetters.h"

using namespace letters;

TEST(Letters, FenLettersMapToCodesAndBack) {
  const std::string letters = "KPBRQNkpbrqn";
  const PieceCode codes[] = {0x41, 0x42, 0x44, 0x48, 0x4C, 0x50,
                             0x81, 0x82, 0x84, 0x88, 0x8C, 0x90};
  for (size_t i = 0; i < letters.size(); ++i) {
    EXPECT_EQ(LetterToPiece(letters[i]), codes[i]) << letters[i];
    EXPECT_EQ(PieceToLetter(codes[i]), letters[i]);
  }
  // Polish letters are move letters only; in the FEN table they mean nothing.
  for (unsigned char c : std::string("HWGSx1 ")) EXPECT_EQ(LetterToPiece(c), 0) << c;
  EXPECT_EQ(PieceToLetter(0), 'E');
  EXPECT_EQ(PieceToLetter(0x80), 'e');
  EXPECT_EQ(PieceToLetter(0x43), 'E');
}

TEST(Letters, MoveLettersAcceptEnglishAndPolishInEitherCase) {
  const struct {
    const char* letters;
    PieceCode type;
  } cases[] = {{"BbGg", piece::kBishop}, {"QqHh", piece::kQueen}, {"Kk", piece::kKing},
               {"NnSs", piece::kKnight}, {"Pp", piece::kPawn},    {"RrWw", piece::kRook}};
  for (const auto& c : cases) {
    for (const char* l = c.letters; *l; ++l) {
      EXPECT_EQ(TypeFromMoveLetter(*l), c.type) << *l;
      EXPECT_EQ(TypeToLetter(c.type), c.letters[0]);
    }
  }
  EXPECT_EQ(TypeToLetter(3), 'E');
}

TEST(Letters, PaletteColumnsRoundTrip) {
  EXPECT_EQ(PieceToColumn(piece::kEmpty), -1);
  for (int column = 0; column < 6; ++column) {
    EXPECT_EQ(PieceToColumn(piece::kWhite | ColumnToPiece(column)), column);
    EXPECT_EQ(PieceToColumn(piece::kBlack | ColumnToPiece(column)), column);
  }
  EXPECT_EQ(ColumnToPiece(6), piece::kPawn);
}

TEST(Letters, ConversionsRaisePlainErrorsWithTheirTexts) {
  using testing::StrEq;
  using testing::ThrowsMessage;
  const struct {
    std::function<void()> call;
    const char* text;
  } cases[] = {
      {[] { TypeFromMoveLetter('X'); }, "Unknown figure letter: X"},
      {[] { PieceToColumn(0x43); }, "Unknown figure code passed to PieceToColumn."},
      {[] { ColumnToPiece(7); }, "Cannot convert column to piece."},
      {[] { ColumnToPiece(-1); }, "Cannot convert column to piece."},
  };
  for (const auto& c : cases) {
    EXPECT_THAT(c.call, ThrowsMessage<std::runtime_error>(StrEq(c.text)));
    // Callers that catch only the chess core's own errors must not swallow these.
    try {
      c.call();
    } catch (const ChessException&) {
      ADD_FAILURE() << c.text << " raised as a ChessException";
    } catch (const std::runtime_error&) {
    }
  }
}
