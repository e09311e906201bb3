// Every error text of the problem grammar, each produced by a minimal bad input and
// reported at the place where the reading stopped.
#include <gtest/gtest.h>

#include <string>

#include "ReadHelpers.h"

namespace {

using problemtest::Body;
using problemtest::ErrorOf;

struct TBadInput {
  const char* name;
  std::string text;
  std::string error;  // "line:column: text"
};

const std::string kKings = "\tFEN: 4k3/8/8/8/8/8/8/4K3\n";

std::vector<TBadInput> BadInputs() {
  return {
      {"IdIsNoWord", "{ }", "1:1: Alphanumeric identifier expected. Found: {"},
      {"IdIsNoNumber", "x1 #2 " + Body(), "1:1: Number expected. Found: x1"},
      {"MateLengthZero", "1 #0 " + Body(), "1:4: Number out of range: 0"},
      {"LoneSlash", "1 #2 / " + Body(), "1:6: Unexpected lexem (slash)."},
      {"OpenComment", "1 #2 /* " + Body(), "1:6: Unexpected end of file before comment closed."},
      {"EndOfFile", "1 #2\n", "2:1: Unexpected end of file."},
      {"UnknownOption", "1 #2 NoMirror Fast " + Body(),
       "1:15: Opening bracket expected { or unrecognized option encountered: Fast"},
      {"SelfmateWithoutHash", "1 s 2 " + Body(),
       "1:3: Opening bracket expected { or unrecognized option encountered: s"},
      {"SymbolBeforeBody", "1 #2 : " + Body(), "1:6: Opening bracket expected."},
      {"HeuristicWithoutBrackets", "1 #2 SH_KEYFIELD C3 " + Body(),
       "1:18: Unexpected lexem after SH_KEYFIELD: C3 (expected opening bracket or OFF)"},
      {"ThreadsNotANumber", "1 #2 THREADS many " + Body(), "1:14: Number expected. Found: many"},
      {"DefaultWordUnknown", "//!default #2 Fast\n1 #2 " + Body(),
       "2:1: Unrecognizable option: Fast"},
      {"DefaultTwoWords", "//!default #3\n1 #3 " + Body(), "1:1: Incorrect 'default' clause."},
      {"DefaultZeroMoves", "//!default #0 AllSolutions\n", "1:1: Error in 'default' clause."},
      {"DefaultWithoutHash", "UTF-8\n//!default 3 AllSolutions\n",
       "2:1: Error in 'default' clause."},
      {"SortIndication", "1 #2\n//@SortIndications: 0-0-\n" + Body(),
       "2:1: Invalid description of SortIndication: 0-0-"},
      {"NoBrace", "1 #2 NoMirror", "1:14: Unexpected end of file."},
      {"DescriptionColon", "1 #2 {\n\tDesc Mate\n" + kKings + "}",
       "2:7: Colon ':' expected after description identifier."},
      {"FenColon", "1 #2 {\n\tFEN 4k3/8/8/8/8/8/8/4K3\n}",
       "2:6: Colon ':' expected after FEN identifier."},
      {"FenRankTooLong", "1 #2 {\n\tFEN: 4k4/8/8/8/8/8/8/4K3\n}", "2:7: Improper FEN code"},
      {"FenNoKings", "1 #2 {\n\tFEN: 8/8/8/8/8/8/8/8\n}",
       "2:7: Invalid chessboard definition: Illegal number of kings."},
      {"FenPawnOnEdge", "1 #2 {\n\tFEN: 4k2P/8/8/8/8/8/8/4K3\n}",
       "2:7: Invalid chessboard definition: Pawns cannot occupy 1st nor 8th line of the "
       "chessboard."},
      {"BothKingsAttacked", "1 #2 {\n\tW: Ke1, Qe7\n\tB: Ke8, qe2\n}",
       "3:2: Invalid chessboard definition: Both kings attacked."},
      {"NoPosition", "1 #2 {\n\tA: e2-e4\n}",
       "2:2: White figures identifier expected (W, WH or WHITE)."},
      {"WhiteColon", "1 #2 {\n\tWhite Ke1\n}",
       "2:8: Colon ':' expected after white figures identifier."},
      {"BlackIdentifier", "1 #2 {\n\tWhite: Ke1\n\tBlk: Ke8\n}",
       "3:2: Black figures identifier expected (B, BL or BLACK)."},
      {"BlackColon", "1 #2 {\n\tWhite: Ke1\n\tBlack Ke8\n}",
       "3:8: Colon expected after black figures identifier."},
      {"WhiteSpecification", "1 #2 {\n\tW: Kee1\n\tB: Ke8\n}",
       "2:5: White figure specification is invalid: Kee1"},
      {"BlackLetter", "1 #2 {\n\tW: Ke1\n\tB: Xe8\n}",
       "3:5: Black figure specification is invalid: Xe8"},
      {"WhiteSquare", "1 #2 {\n\tW: Ke9\n\tB: Ke8\n}",
       "2:5: White figure position is invalid: Ke9"},
      {"BlackSquare", "1 #2 {\n\tW: Ke1\n\tB: Ke8, i7\n}",
       "3:10: Black figure position is invalid: i7"},
      {"FieldTaken", "1 #2 {\n\tW: Ke1, Qe1\n\tB: Ke8\n}", "2:10: Field e1 already occupied."},
      {"PieceNotAWord", "1 #2 {\n\tW: Ke1, \n\tB: Ke8\n}",
       "3:2: White figure specification is invalid: B"},
      {"MovesColon", "1 {\n" + kKings + "\tMoves 1. Ke1-e2\n}",
       "3:8: Colon expected after Moves section start."},
      {"AnswerColon", "1 #2 " + Body("\tAnswer Ra1-a8\n"),
       "3:9: Colon expected after correct answer identifier."},
      {"AnswerFrom", "1 #2 " + Body("\tAnswer: Ra9-a8\n"),
       "3:10: Invalid correct answer ('from' element): Ra9"},
      {"AnswerTo", "1 #2 " + Body("\tAnswer: Ra1-a8X\n"),
       "3:14: Invalid correct answer ('to' element): a8X"},
      {"AnswerHyphen", "1 #2 " + Body("\tAnswer: Ra1 a8\n"),
       "3:14: Hyphen expected to separate correct answer elements"},
      {"AnswerCastlingHalf", "1 #2 " + Body("\tAnswer: 0-e1\n"),
       "3:10: Invalid correct answer: 0-e1"},
      {"AnswerComma", "1 #2 " + Body("\tAnswer: Ra1-a8; Ke1-d2\n"),
       "3:16: Comma should separate various solutions of the problem, but encountered: ;"},
      {"AnswerAtEnd", "1 #2 {\n" + kKings + "\tAnswer: Ke1-d2", "3:16: Unexpected end of file."},
      {"ClosingBracket", "1 #2 " + Body("\tStipulation: #2\n"), "3:2: Closing bracket expected."},
  };
}

class ReadErrors : public testing::TestWithParam<TBadInput> {};

TEST_P(ReadErrors, ReportTheirTextAndPlace) {
  EXPECT_EQ(ErrorOf(GetParam().text), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(EveryText, ReadErrors, testing::ValuesIn(BadInputs()),
                         [](const testing::TestParamInfo<TBadInput>& param) {
                           return param.param.name;
                         });

TEST(ReadErrors, FileNameLineAndColumnLeadTheText) {
  TProblemCollection collection;
  const auto error = collection.ReadText("1 #2\n{\n\tFEN 8/8\n}\n", "my.cp");
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Describe(), "my.cp:3:6: Colon ':' expected after FEN identifier.");
}

TEST(ReadErrors, ColumnsCountCharactersNotBytes) {
  // "Żółw" takes seven bytes and four characters.
  EXPECT_EQ(ErrorOf("1 #2 /* Żółw */ Fast {"),
            "1:17: Opening bracket expected { or unrecognized option encountered: Fast");
  EXPECT_EQ(ErrorOf("1 #2 Żółw"), "1:6: Opening bracket expected.");
  EXPECT_EQ(ErrorOf("ż"), "1:1: Alphanumeric identifier expected. Found: ż");
}

}  // namespace
