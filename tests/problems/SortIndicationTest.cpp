#include <gtest/gtest.h>

#include <string>

#include "core/ChessException.h"
#include "problems/SortIndication.h"

namespace {

constexpr SquareIndex kNone = square::kNone;
constexpr std::uint8_t kEither = TSortIndication::kCaptureEither;

struct TElementCase {
  std::string text;
  TSortIndication element;
  std::string rendered;
};

// Squares by name, to keep the table readable.
constexpr SquareIndex Sq(const char* s) {
  return square::Make(s[0] - 'a', s[1] - '1');
}

TEST(SortIndication, ElementsAreParsedAndRenderedBack) {
  const TElementCase cases[] = {
      {"2. Qd1:d7+", {false, 2, piece::kWhiteQueen, Sq("d1"), Sq("d7"), 1, 1, 0}, "2. Qd1:d7+"},
      {"~Rh5", {true, 0, piece::kWhiteRook, kNone, Sq("h5"), kEither, 0, 0}, "~Rh5"},
      {"e7>e8Q", {false, 0, 0, Sq("e7"), Sq("e8"), 0, 0, piece::kQueen}, "e7>e8Q"},
      {"0-0-0", {false, 0, 0, Sq("e1"), Sq("c1"), 0, 0, 0}, "0-0-0"},
      {"3.0-0++", {false, 3, 0, Sq("e1"), Sq("g1"), 0, 2, 0}, "3. 0-0++"},
      {"e1>g1", {false, 0, 0, Sq("e1"), Sq("g1"), 0, 0, 0}, "0-0"},
      {"~ 12. hd1-D7",
       {true, 12, piece::kWhiteQueen, Sq("d1"), Sq("d7"), kEither, 0, 0},
       "~12. Qd1-d7"},
      {"Sc3", {false, 0, piece::kWhiteKnight, kNone, Sq("c3"), kEither, 0, 0}, "Nc3"},
      {"B:f7", {false, 0, piece::kWhiteBishop, kNone, Sq("f7"), 1, 0, 0}, "B:f7"},
      {" d4+ ", {false, 0, 0, kNone, Sq("d4"), kEither, 1, 0}, "d4+"},
  };
  for (const TElementCase& c : cases) {
    const TSortIndication element = sortindication::Parse(c.text);
    EXPECT_EQ(element, c.element) << c.text;
    EXPECT_EQ(sortindication::Render(element), c.rendered) << c.text;
    EXPECT_EQ(sortindication::Parse(c.rendered), element) << c.rendered;
  }
}

TEST(SortIndication, BadElementsAreRefusedWithTheirText) {
  for (const std::string text : {"0-0-", "0-1", "x.e4", "e4e5", "Xe4", "e", "Qd1:", "i1-e4",
                                 "e2-e9", "e7-e8X", "e7-e8QQ", "~", ""}) {
    try {
      sortindication::Parse(text);
      ADD_FAILURE() << "accepted: " << text;
    } catch (const ChessException& e) {
      EXPECT_EQ(std::string(e.what()), "Invalid description of SortIndication: " + text);
    }
  }
}

TEST(SortIndication, ListsSplitAtCommasElseAtSemicolons) {
  const struct {
    const char* text;
    std::size_t nElements;
    const char* rendered;
  } cases[] = {
      {"a1-b2;c3-d4", 2, "a1-b2, c3-d4"},
      {"a1-b2, c3-d4", 2, "a1-b2, c3-d4"},
      {"2. Qd1-d7, 1. e2-e4; ~Rh5", 0, nullptr},  // the semicolon is no separator here
      {"2. Qd1-d7, 1. e2-e4, ~Rh5,", 3, "~Rh5, 1. e2-e4, 2. Qd1-d7"},
      {"", 0, ""},
  };
  for (const auto& c : cases) {
    if (c.rendered == nullptr) {
      EXPECT_THROW(sortindication::ParseList(c.text), ChessException) << c.text;
      continue;
    }
    const TSortIndications list = sortindication::ParseList(c.text);
    std::size_t n = 0;
    for (const auto& [number, elements] : list) {
      n += elements.size();
      for (const TSortIndication& e : elements) EXPECT_EQ(e.moveNumber, number);
    }
    EXPECT_EQ(n, c.nElements) << c.text;
    EXPECT_EQ(sortindication::RenderList(list), c.rendered) << c.text;
    EXPECT_EQ(sortindication::ParseList(c.rendered), list) << c.text;
  }
}

TEST(SortIndication, ElementsOfOneMoveNumberKeepTheirTextOrder) {
  const TSortIndications list = sortindication::ParseList("1. Rh5; 2. e4; ~1. Qd1; 1. Nc3");
  ASSERT_EQ(list.at(1).size(), 3u);
  EXPECT_TRUE(list.at(1)[1].bNegated);
  EXPECT_EQ(sortindication::RenderList(list), "1. Rh5, ~1. Qd1, 1. Nc3, 2. e4");
}

}  // namespace
