#include "app/LiChess.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::string_view kWdlKey = "\"wdl\":";
constexpr std::string_view kCategoryKey = "\"category\":";
constexpr std::string_view kDtmKey = "\"dtm\":";
constexpr std::string_view kDtzKey = "\"dtz\":";
constexpr std::string_view kMovesKey = "\"moves\":";
constexpr std::string_view kUciKey = "\"uci\":";

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

// Where the value of the first key at or after `from` starts; npos without the key.
std::size_t FindValue(std::string_view text, std::string_view key, std::size_t from = 0) {
  const std::size_t at = text.find(key, from);
  return at == std::string_view::npos ? at : SkipBlanks(text, at + key.size());
}

// A number at `at`; nothing for a comma, null or anything else that is not a number. Far
// too long numbers are held at the ends of the range.
std::optional<long long> ReadNumber(std::string_view text, std::size_t at) {
  if (at >= text.size()) return std::nullopt;
  const bool bNegative = text[at] == '-';
  if (bNegative) ++at;
  if (at >= text.size() || text[at] < '0' || text[at] > '9') return std::nullopt;
  long long value = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at)
    value = std::min(value * 10 + (text[at] - '0'), 1LL << 40);
  return bNegative ? -value : value;
}

std::int8_t ValueOfWdl(long long wdl) {
  return wdl >= 1 ? lichess::kWin : wdl == 0 ? lichess::kDraw : lichess::kLoss;
}

std::int8_t ValueOfCategory(std::string_view text, std::size_t at) {
  if (at >= text.size() || text[at] != '"') return lichess::kUnknown;
  const std::size_t end = text.find('"', at + 1);
  if (end == std::string_view::npos) return lichess::kUnknown;
  const std::string_view category = text.substr(at + 1, end - at - 1);
  if (category == "win" || category == "cursed-win") return lichess::kWin;
  if (category == "loss" || category == "blessed-loss") return lichess::kLoss;
  if (category == "draw") return lichess::kDraw;
  return lichess::kUnknown;
}

// The first "wdl" at or after `from` decides, even without a value; "category" only when
// there is no "wdl" key at all.
std::int8_t ReadValue(std::string_view text, std::size_t from) {
  const std::size_t wdl = FindValue(text, kWdlKey, from);
  if (wdl != std::string_view::npos) {
    const auto number = ReadNumber(text, wdl);
    return number ? ValueOfWdl(*number) : lichess::kUnknown;
  }
  const std::size_t category = FindValue(text, kCategoryKey, from);
  return category == std::string_view::npos ? lichess::kUnknown : ValueOfCategory(text, category);
}

int DtmAt(std::string_view text, std::size_t at) {
  const auto number = ReadNumber(text, at);
  return number ? static_cast<int>(std::clamp<long long>(*number, -32767, 32767)) : lichess::kNoDtm;
}

std::uint8_t DtzAt(std::string_view text, std::size_t at) {
  const auto number = ReadNumber(text, at);
  if (!number || *number <= -255) return lichess::kNoDtz;
  if (*number >= 255) return 254;
  return static_cast<std::uint8_t>(*number < 0 ? -*number : *number);
}

std::optional<std::uint8_t> SquareAt(std::string_view text, std::size_t at) {
  const char file = text[at];
  const char rank = text[at + 1];
  if (file < 'a' || file > 'h' || rank < '1' || rank > '8') return std::nullopt;
  return static_cast<std::uint8_t>((rank - '1') * 8 + (file - 'a'));
}

// The squares and promotion of a "uci" value; nothing when malformed.
std::optional<CLiChessMove> ReadUci(std::string_view text, std::size_t at) {
  if (at < text.size() && text[at] == '"') ++at;
  if (at + 5 > text.size()) return std::nullopt;
  const auto from = SquareAt(text, at);
  const auto to = SquareAt(text, at + 2);
  if (!from || !to) return std::nullopt;
  CLiChessMove move{.from = *from, .to = *to};
  switch (text[at + 4]) {
    case '"':
      break;
    case 'q':
      move.promotion = 12;
      break;
    case 'r':
      move.promotion = 8;
      break;
    case 'b':
      move.promotion = 4;
      break;
    case 'n':
      move.promotion = 16;
      break;
    default:
      return std::nullopt;
  }
  return move;
}

// Each "uci" after "moves", with the first "wdl" (or "category"), "dtm" (required) and
// "dtz" after its key. Nothing when the list is malformed.
std::optional<std::vector<CLiChessMove>> ReadMoves(std::string_view text) {
  std::vector<CLiChessMove> moves;
  const std::size_t list = text.find(kMovesKey);
  if (list == std::string_view::npos) return moves;
  for (std::size_t key = text.find(kUciKey, list); key != std::string_view::npos;
       key = text.find(kUciKey, key + kUciKey.size())) {
    auto move = ReadUci(text, SkipBlanks(text, key + kUciKey.size()));
    const std::size_t dtm = FindValue(text, kDtmKey, key);
    if (!move || dtm == std::string_view::npos) return std::nullopt;
    move->value = ReadValue(text, key);
    move->dtm = DtmAt(text, dtm);
    const std::size_t dtz = FindValue(text, kDtzKey, key);
    if (dtz != std::string_view::npos) move->dtz = DtzAt(text, dtz);
    moves.push_back(*move);
  }
  return moves;
}

}  // namespace

CLiChess CLiChess::Parse(std::string_view text) {
  CLiChess answer;
  answer.value = ReadValue(text, 0);
  if (const std::size_t dtm = FindValue(text, kDtmKey); dtm != std::string_view::npos)
    answer.dtm = DtmAt(text, dtm);
  if (const std::size_t dtz = FindValue(text, kDtzKey); dtz != std::string_view::npos)
    answer.dtz = DtzAt(text, dtz);
  if (auto moves = ReadMoves(text)) {
    answer.moves = std::move(*moves);
    answer.nMoves = static_cast<int>(answer.moves.size());
  } else {
    answer.nMoves = lichess::kMalformedMoves;
  }
  return answer;
}

const char* CLiChess::ValueText(std::int8_t value) {
  switch (value) {
    case lichess::kWin:
      return "win";
    case lichess::kDraw:
      return "draw";
    case lichess::kLoss:
      return "loss";
    default:
      return "unknown";
  }
}

std::string CLiChess::MoveText(const CLiChessMove& move) {
  std::string text{static_cast<char>('a' + move.from % 8), static_cast<char>('1' + move.from / 8),
                   static_cast<char>('a' + move.to % 8), static_cast<char>('1' + move.to / 8)};
  switch (move.promotion) {
    case 12:
      text += 'q';
      break;
    case 8:
      text += 'r';
      break;
    case 4:
      text += 'b';
      break;
    case 16:
      text += 'n';
      break;
    default:
      break;
  }
  return text;
}
