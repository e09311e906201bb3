#include "engine/KeyLine.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "problems/TextTools.h"

namespace keyline {
namespace {

constexpr TLine kFirstRank = 8, kFirstRising = 16, kFirstFalling = 31, kEnd = 46;

// "A1": the upper-case form of the heuristics' parameter texts.
std::string SquareText(int file, int rank) {
  std::string text = text::SquareText(square::Make(file, rank));
  text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  return text;
}

}  // namespace

std::optional<TLine> ReadLine(const std::string& word) {
  if (word.size() != 1) return std::nullopt;
  const int c = std::tolower(static_cast<unsigned char>(word[0]));
  if (c >= 'a' && c <= 'h') return static_cast<TLine>(c - 'a');
  if (c >= '1' && c <= '8') return static_cast<TLine>(kFirstRank + c - '1');
  return std::nullopt;
}

std::optional<TLine> ReadDiagonal(const std::string& word) {
  const std::size_t second = word.size() == 5 && word[2] == '-' ? 3 : 2;
  if (word.size() != second + 2) return std::nullopt;
  const SquareIndex a = text::ReadSquare(word[0], word[1]);
  const SquareIndex b = text::ReadSquare(word[second], word[second + 1]);
  if (a == square::kNone || b == square::kNone || a == b) return std::nullopt;
  const int fa = square::File(a), ra = square::Rank(a);
  const int fb = square::File(b), rb = square::Rank(b);
  if (fa - ra == fb - rb) return static_cast<TLine>(kFirstRising + fa - ra + 7);
  if (fa + ra == fb + rb) return static_cast<TLine>(kFirstFalling + fa + ra);
  return std::nullopt;
}

std::string Text(TLine line) {
  if (line < kFirstRank) return std::string(1, static_cast<char>('A' + line));
  if (line < kFirstRising) return std::string(1, static_cast<char>('1' + line - kFirstRank));
  if (line < kFirstFalling) {
    const int difference = line - kFirstRising - 7;  // file minus rank
    const int startFile = std::max(difference, 0), startRank = std::max(-difference, 0);
    const int length = 8 - std::abs(difference) - 1;
    return SquareText(startFile, startRank) + "-" +
           SquareText(startFile + length, startRank + length);
  }
  if (line < kEnd) {
    const int sum = line - kFirstFalling;  // file plus rank
    const int startRank = std::max(sum - 7, 0), endRank = std::min(sum, 7);
    return SquareText(sum - startRank, startRank) + "-" + SquareText(sum - endRank, endRank);
  }
  return "";
}

bool IsDiagonal(TLine line) {
  return line >= kFirstRising && line < kEnd;
}

bool Contains(TLine line, SquareIndex s) {
  const int file = square::File(s), rank = square::Rank(s);
  if (line < kFirstRank) return file == line;
  if (line < kFirstRising) return rank == line - kFirstRank;
  if (line < kFirstFalling) return file - rank == line - kFirstRising - 7;
  if (line < kEnd) return file + rank == line - kFirstFalling;
  return false;
}

}  // namespace keyline
