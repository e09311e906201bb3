#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RegisterTestSupport.h"
#include "core/ChessException.h"
#include "registers/ChessboardRegister.h"
#include "registers/RegisterLanguage.h"

using registertest::Key;
using testing::StrEq;
using testing::ThrowsMessage;

namespace {

using TRegister = TChessboardRegister<bool>;
constexpr std::uint32_t kRoomy = 1000;

// One filing: White's answer (Insert) or Black's (InsertDefence) for n moves.
struct TFiling {
  bool bDefence;
  std::uint16_t n;
  std::uint32_t answer;
};

void File(TRegister& reg, const TFiling& filing, std::uint32_t keyNumber = 1) {
  if (filing.bDefence) {
    reg.InsertDefence(filing.n, Key(keyNumber), filing.answer);
  } else {
    reg.Insert(filing.n, Key(keyNumber), filing.answer);
  }
}

std::uint8_t Ask(const TRegister& reg, bool bDefence, std::uint16_t n) {
  return bDefence ? reg.FindDefenceAnswer(n, Key(1)) : reg.FindAnswer(n, Key(1));
}

}  // namespace

TEST(ChessboardRegister, LookupFollowsTheMonotonyOfEachSide) {
  constexpr bool W = false, B = true;
  struct TCase {
    std::vector<TFiling> filings;
    bool bDefence;
    std::uint16_t n;
    std::uint8_t expected;
  } cases[] = {
      {{}, W, 5, kRegisterUnknown},
      {{{W, 5, 1}}, W, 7, 1},  // mate in 5 is mate in 7
      {{{W, 5, 1}}, W, 5, 1},
      {{{W, 5, 1}}, W, 3, kRegisterUnknown},
      {{{W, 9, 0}}, W, 5, 0},  // no mate in 9, none in 5 either
      {{{W, 9, 0}}, W, 9, 0},
      {{{W, 9, 0}}, W, 11, kRegisterUnknown},
      {{{W, 3, 1}}, W, 3, 1},
      {{{W, 5, 0x301}}, W, 7, 1},  // only the low byte is the answer
      {{{W, 5, 2}}, W, 5, kRegisterUnknown},
      {{{W, 5, 0}, {W, 9, 1}}, W, 7, kRegisterUnknown},
      {{{W, 5, 0}, {W, 9, 1}}, W, 11, 1},
      {{{B, 6, 1}}, B, 4, 1},  // a defence within 6 is one within 4
      {{{B, 6, 1}}, B, 6, 1},
      {{{B, 6, 1}}, B, 8, kRegisterUnknown},
      {{{B, 6, 0}}, B, 8, 0},  // mated within 6, mated within 8
      {{{B, 6, 0}}, B, 4, kRegisterUnknown},
      {{{W, 5, 1}}, B, 6, kRegisterUnknown},  // the sides never answer for each other
      {{{B, 6, 0}}, W, 7, kRegisterUnknown},
      {{{W, 7, 1}}, B, 6, kRegisterUnknown},
  };
  for (const TCase& c : cases) {
    TRegister reg(kRoomy);
    for (const TFiling& filing : c.filings) File(reg, filing);
    EXPECT_EQ(Ask(reg, c.bDefence, c.n), c.expected)
        << "case " << (&c - cases) << ": " << (c.bDefence ? "defence" : "mate") << " in " << c.n;
  }
}

TEST(ChessboardRegister, ContradictingAnswersThrowInBothLanguages) {
  const std::string english = "Incoherent information in TChessboardRegister::Insert()";
  struct TCase {
    TFiling first, second;
    const char* polish;
  } cases[] = {
      {{false, 5, 1}, {false, 7, 0}, "Sprzeczna informacja w TChessboardRegister::Insert()"},
      {{false, 9, 0}, {false, 5, 1}, "Sprzeczna informacja w TChessboardRegister::Insert()"},
      {{true, 6, 1}, {true, 4, 0}, "Sprzeczna informacja w TChessboardRegister::InsertDefence()"},
      {{true, 4, 0}, {true, 8, 1}, "Sprzeczna informacja w TChessboardRegister::InsertDefence()"},
  };
  for (const TCase& c : cases) {
    TRegister reg(kRoomy);
    File(reg, c.first);
    EXPECT_THAT([&] { File(reg, c.second); }, ThrowsMessage<ChessException>(StrEq(english)));
    reg.SetLanguage(ERegisterLanguage::Polish);
    EXPECT_THAT([&] { File(reg, c.second); }, ThrowsMessage<ChessException>(StrEq(c.polish)));
    EXPECT_EQ(Ask(reg, c.first.bDefence, c.first.n), c.first.answer);
  }
  // The program's Ukrainian setting gets the English texts.
  EXPECT_EQ(RegisterLanguageOf(0), ERegisterLanguage::Polish);
  EXPECT_EQ(RegisterLanguageOf(1), ERegisterLanguage::English);
  EXPECT_EQ(RegisterLanguageOf(2), ERegisterLanguage::English);
}

TEST(ChessboardRegister, KnownAnswersAreNotFiledAgain) {
  TRegister reg(kRoomy);
  reg.Insert(5, Key(1), 1);
  reg.Insert(5, Key(1), 1);
  reg.Insert(7, Key(1), 1);
  reg.Insert(5, Key(2), 0);
  reg.Insert(3, Key(2), 0);
  EXPECT_EQ(reg.GetElementsIn(), 2u);
  EXPECT_EQ(reg.GetPeakElementsIn(), 2u);
}

TEST(ChessboardRegister, PruningDropsRedundantEntriesAndCountsOnlyWhiteToMove) {
  registertest::CTempFile file("pruning");
  struct TCase {
    std::vector<TFiling> filings;
    std::uint32_t nElements;
    std::vector<std::uint16_t> keptMoves;
  } cases[] = {
      {{{false, 9, 1}, {false, 5, 1}}, 1, {5}},
      {{{false, 5, 0}, {false, 9, 0}}, 1, {9}},
      {{{false, 5, 0}, {false, 9, 1}, {false, 7, 1}}, 2, {5, 7}},
      {{{true, 4, 1}, {true, 8, 1}}, 0, {8}},
      {{{true, 8, 0}, {true, 4, 0}}, 0, {4}},
      {{{false, 9, 1}, {true, 10, 1}, {true, 12, 0}, {false, 5, 1}}, 1, {5, 10, 12}},
  };
  for (const TCase& c : cases) {
    TRegister reg(kRoomy);
    for (const TFiling& filing : c.filings) File(reg, filing);
    EXPECT_EQ(reg.GetElementsIn(), c.nElements) << "case " << (&c - cases);
    reg.SaveSolvedPositions(file.path);
    std::vector<std::uint16_t> kept;
    for (const auto& record : registertest::ReadRecords(file.path))
      kept.push_back(record.info.nMoves);
    EXPECT_EQ(kept, c.keptMoves) << "case " << (&c - cases);
  }
}

TEST(ChessboardRegister, ClearEmptiesTheStore) {
  TRegister reg(kRoomy);
  for (std::uint32_t i = 0; i < 50; ++i) reg.Insert(5, Key(i), i & 1);
  reg.InsertDefence(6, Key(1), 1);
  reg.Clear();
  EXPECT_EQ(reg.GetElementsIn(), 0u);
  EXPECT_EQ(reg.FindAnswer(5, Key(3)), kRegisterUnknown);
  EXPECT_EQ(reg.FindDefenceAnswer(6, Key(1)), kRegisterUnknown);
  reg.Insert(5, Key(3), 0);  // no stale answer contradicts it
  EXPECT_EQ(reg.FindAnswer(5, Key(3)), 0);
}
