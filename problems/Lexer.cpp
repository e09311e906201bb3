#include "problems/Lexer.h"

#include <algorithm>
#include <string>

#include "problems/ProblemFileError.h"
#include "problems/TextTools.h"

namespace {

bool IsWordChar(char c) {
  return text::IsLetter(c) || text::IsDigit(c) || c == '^' || c == '_';
}

constexpr std::string_view kSortIndicationsMarker = "//@SortIndications:";

}  // namespace

bool TToken::IsWord(std::initializer_list<std::string_view> names) const {
  if (kind != TTokenKind::kWord) return false;
  for (std::string_view name : names) {
    if (text::EqualsNoCase(text, name)) return true;
  }
  return false;
}

int NumberIn(const TToken& token, std::string_view digits, int min, int max) {
  int value = 0;
  if (!text::ReadNumber(digits, value)) {
    FailAt(token.offset, "Number expected. Found: " + std::string(token.raw));
  }
  if (value < min || value > max) {
    FailAt(token.offset, "Number out of range: " + std::string(token.raw));
  }
  return value;
}

TToken CLexer::Next() {
  if (bPeeked) {
    bPeeked = false;
    return peeked;
  }
  return Scan();
}

TToken CLexer::Peek() {
  if (!bPeeked) {
    peekStart = pos;
    peeked = Scan();
    bPeeked = true;
  }
  return peeked;
}

TToken CLexer::NextRequired() {
  const TToken token = Next();
  if (token.kind == TTokenKind::kEnd) FailAt(token.offset, "Unexpected end of file.");
  return token;
}

TToken CLexer::NextWord() {
  const TToken token = NextRequired();
  if (token.kind != TTokenKind::kWord) {
    FailAt(token.offset, "Alphanumeric identifier expected. Found: " + std::string(token.raw));
  }
  return token;
}

int CLexer::NextNumber(int min, int max) {
  const TToken token = NextWord();
  return NumberIn(token, token.text, min, max);
}

bool CLexer::Accept(char c) {
  if (!Peek().IsSymbol(c)) return false;
  bPeeked = false;
  return true;
}

std::string_view CLexer::RestOfLine() {
  if (bPeeked) {
    pos = peekStart;
    bPeeked = false;
  }
  std::size_t end = source.find('\n', pos);
  if (end == std::string_view::npos) end = source.size();
  const std::string_view line = source.substr(pos, end - pos);
  pos = end;
  return line;
}

std::string_view CLexer::RestOfCodeLine() {
  const std::size_t start = bPeeked ? peekStart : pos;
  std::string_view line = RestOfLine();
  line = line.substr(0, std::min(line.find('}'), line.find("//")));
  pos = start + line.size();
  return line;
}

bool CLexer::AtEnd() {
  if (bPeeked) return peeked.kind == TTokenKind::kEnd;
  for (;;) {
    SkipBlanksAndComments();
    if (pos < source.size() && DirectiveAhead()) {
      SkipLine();
      continue;
    }
    return pos >= source.size();
  }
}

void CLexer::SetDirectivesWanted(bool bWanted) {
  // A token looked at under the old rule is scanned again under the new one.
  if (bPeeked) {
    pos = peekStart;
    bPeeked = false;
  }
  bDirectivesWanted = bWanted;
}

TToken CLexer::Scan() {
  SkipBlanksAndComments();
  const std::size_t start = pos;
  if (pos >= source.size()) return TToken{TTokenKind::kEnd, {}, {}, pos};
  if (source[pos] == '/') return ScanDirective();
  if (!IsWordChar(source[pos])) {
    // A character of several UTF-8 bytes is one symbol, so that errors show it whole.
    ++pos;
    if (static_cast<unsigned char>(source[start]) >= 0xC0) {
      while (pos < source.size() && (static_cast<unsigned char>(source[pos]) & 0xC0) == 0x80) ++pos;
    }
    const std::string_view symbol = source.substr(start, pos - start);
    return TToken{TTokenKind::kSymbol, symbol, symbol, start};
  }
  while (pos < source.size() && IsWordChar(source[pos])) ++pos;
  const std::string_view word = source.substr(start, pos - start);
  return TToken{TTokenKind::kWord, word, word, start};
}

void CLexer::SkipBlanksAndComments() {
  while (pos < source.size()) {
    if (const std::size_t blank = text::BlankLength(source, pos)) {
      pos += blank;
      continue;
    }
    if (source[pos] != '/') return;
    const char second = pos + 1 < source.size() ? source[pos + 1] : '\0';
    if (second == '/') {
      if (bDirectivesWanted && DirectiveAhead()) return;
      SkipLine();
    } else if (second == '*') {
      const std::size_t close = source.find("*/", pos + 2);
      if (close == std::string_view::npos) {
        FailAt(pos, "Unexpected end of file before comment closed.");
      }
      pos = close + 2;
    } else {
      FailAt(pos, "Unexpected lexem (slash).");
    }
  }
}

bool CLexer::DirectiveAhead() const {
  const std::string_view rest = source.substr(pos);
  if (rest.size() < 3 || !rest.starts_with("//")) return false;
  return rest[2] == '#' || rest[2] == '!' || text::StartsWithNoCase(rest, kSortIndicationsMarker);
}

TToken CLexer::ScanDirective() {
  const std::size_t start = pos;
  std::size_t end = source.find('\n', pos);
  if (end == std::string_view::npos) end = source.size();
  pos = end;
  std::string_view raw = source.substr(start, end - start);
  if (raw.ends_with('\r')) raw.remove_suffix(1);
  TToken token{TTokenKind::kVariant, raw.substr(3), raw, start};
  const std::string_view trimmed = text::Trim(token.text);
  if (raw[2] == '#') {
    const bool bHeader = text::EqualsNoCase(trimmed, "TAGS");
    token.kind = bHeader ? TTokenKind::kTagsHeader : TTokenKind::kTag;
    token.text = trimmed;
  } else if (raw[2] == '!') {
    if (text::EqualsNoCase(trimmed, "VARIANTS")) token.kind = TTokenKind::kVariantsHeader;
    if (text::EqualsNoCase(trimmed, "ENDVARIANTS")) token.kind = TTokenKind::kVariantsEnd;
  } else {
    token.kind = TTokenKind::kSortIndications;
    token.text = text::Trim(raw.substr(kSortIndicationsMarker.size()));
  }
  return token;
}

void CLexer::SkipLine() {
  const std::size_t end = source.find('\n', pos);
  pos = end == std::string_view::npos ? source.size() : end + 1;
}
