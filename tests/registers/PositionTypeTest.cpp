#include <gtest/gtest.h>

#include <stdexcept>

#include "registers/PositionType.h"

namespace {

TEST(PositionType, RemoveTakesOnlyTheFirstOccurrence) {
  struct TCase {
    const char* type;
    char letter;
    const char* expected;
  };
  const TCase cases[] = {
      {"KRk", 'R', "Kk"},   {"KRRk", 'R', "KRk"}, {"KPkp", 'p', "KPk"},
      {"KPkp", 'P', "Kkp"}, {"KQk", 'K', "Qk"},   {"K", 'K', ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(RemoveFromPosType(c.type, c.letter), c.expected) << c.type << " - " << c.letter;
  }
}

TEST(PositionType, RemovingAnAbsentLetterNamesTypeAndLetter) {
  try {
    RemoveFromPosType("KRk", 'r');
    FAIL() << "no error";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "Error in RemoveFromPosType: pos.type KRk does not contain r");
  }
}

TEST(PositionType, IndexToRemoveFindsTheLetterWhoseRemovalGivesTheOtherType) {
  struct TCase {
    const char* a;
    const char* b;
    std::size_t expected;
  };
  const TCase cases[] = {
      {"KRk", "Kk", 1},
      {"KRk", "KR", 2},
      {"KRk", "Rk", 0},
      {"KQQk", "KQk", 1},  // either Q will do: the first
      {"KBNk", "KBk", 2},
      {"K", "", 0},
      {"KRk", "Kr", std::string::npos},
      {"KRk", "kR", std::string::npos},
      {"KRNk", "NRk", std::string::npos},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(GetIndexToRemoveToObtainOtherPosType(c.a, c.b), c.expected) << c.a << " " << c.b;
  }
}

TEST(PositionType, IndexToRemoveRefusesTypesNotOneLetterApart) {
  for (const auto& [a, b] : {std::pair{"KRk", "KRk"}, {"KRNk", "Kk"}, {"Kk", "KRk"}}) {
    try {
      GetIndexToRemoveToObtainOtherPosType(a, b);
      ADD_FAILURE() << a << " " << b;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), std::string("Error in GetIndexToRemoveToObtainOtherPosType: ") + a +
                                  " and " + b + " passed to function");
    }
  }
}

}  // namespace
