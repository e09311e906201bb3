#include "engine/KeyLine.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace keyline {
namespace {

constexpr TLine kFirstRank = 8, kFirstRising = 16, kFirstFalling = 31, kEnd = 46;

std::optional<SquareIndex> ReadSquare(const std::string& word, std::size_t at) {
  if (at + 2 > word.size()) return std::nullopt;
  const int file = std::tolower(static_cast<unsigned char>(word[at])) - 'a';
  const int rank = word[at + 1] - '1';
  if (file < 0 || file > 7 || rank < 0 || rank > 7) return std::nullopt;
  return square::Make(file, rank);
}

std::string SquareText(int file, int rank) {
  return {static_cast<char>('A' + file), static_cast<char>('1' + rank)};
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
  const auto a = ReadSquare(word, 0), b = ReadSquare(word, second);
  if (!a || !b || *a == *b) return std::nullopt;
  const int fa = square::File(*a), ra = square::Rank(*a);
  const int fb = square::File(*b), rb = square::Rank(*b);
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
