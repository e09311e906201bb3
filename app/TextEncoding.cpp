#include "app/TextEncoding.h"

#include <cstdint>
#include <optional>

namespace {

constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LeBom = "\xFF\xFE";
constexpr std::string_view kUtf16BeBom = "\xFE\xFF";
constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Surrogates are written like any other code point of three bytes.
void AppendUtf8(std::string& text, char32_t code) {
  const auto Byte = [](char32_t value) { return static_cast<char>(value); };
  if (code < 0x80) {
    text += Byte(code);
  } else if (code < 0x800) {
    text += Byte(0xC0 | code >> 6);
    text += Byte(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    text += Byte(0xE0 | code >> 12);
    text += Byte(0x80 | (code >> 6 & 0x3F));
    text += Byte(0x80 | (code & 0x3F));
  } else {
    text += Byte(0xF0 | code >> 18);
    text += Byte(0x80 | (code >> 12 & 0x3F));
    text += Byte(0x80 | (code >> 6 & 0x3F));
    text += Byte(0x80 | (code & 0x3F));
  }
}

void AppendUtf16(std::string& bytes, char32_t unit, bool bBigEndian) {
  const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
  bytes += bBigEndian ? high : low;
  bytes += bBigEndian ? low : high;
}

std::string DecodeUtf16(std::string_view bytes, bool bBigEndian) {
  const auto Unit = [&](std::size_t i) -> char32_t {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    return bBigEndian ? char32_t(first << 8 | second) : char32_t(second << 8 | first);
  };
  std::string text;
  std::size_t i = 0;
  for (; i + 1 < bytes.size(); i += 2) {
    const char32_t unit = Unit(i);
    if (IsHighSurrogate(unit) && i + 3 < bytes.size() && IsLowSurrogate(Unit(i + 2))) {
      AppendUtf8(text, 0x10000 + ((unit - 0xD800) << 10) + (Unit(i + 2) - 0xDC00));
      i += 2;
    } else {
      AppendUtf8(text, unit);
    }
  }
  if (i < bytes.size()) AppendUtf8(text, kReplacement);
  return text;
}

// The length of the UTF-8 sequence a byte leads; 0 for a byte that leads none.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >> 5 == 0b110) return 2;
  if (lead >> 4 == 0b1110) return 3;
  if (lead >> 3 == 0b11110) return 4;
  return 0;
}

// The code point of the UTF-8 sequence at the front of text, which it then drops; nothing for
// a byte that starts no complete sequence (that byte alone is dropped).
std::optional<char32_t> TakeCodePoint(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t nLength = SequenceLength(lead);
  bool bComplete = nLength > 0 && nLength <= text.size();
  char32_t code = nLength == 1 ? lead : lead & (0x7F >> nLength);
  for (std::size_t k = 1; bComplete && k < nLength; ++k) {
    const auto next = static_cast<unsigned char>(text[k]);
    bComplete = next >> 6 == 0b10;
    code = code << 6 | (next & 0x3F);
  }
  text.remove_prefix(bComplete ? nLength : 1);
  if (!bComplete || code > 0x10FFFF) return std::nullopt;
  return code;
}

std::string EncodeUtf16(std::string_view text, bool bBigEndian) {
  std::string bytes(bBigEndian ? kUtf16BeBom : kUtf16LeBom);
  while (!text.empty()) {
    const char32_t code = TakeCodePoint(text).value_or(kReplacement);
    if (code < 0x10000) {
      AppendUtf16(bytes, code, bBigEndian);
    } else {
      AppendUtf16(bytes, 0xD800 + ((code - 0x10000) >> 10), bBigEndian);
      AppendUtf16(bytes, 0xDC00 + ((code - 0x10000) & 0x3FF), bBigEndian);
    }
  }
  return bytes;
}

}  // namespace

TDecodedText DecodeText(std::string_view bytes) {
  if (bytes.starts_with(kUtf16LeBom))
    return {DecodeUtf16(bytes.substr(kUtf16LeBom.size()), false), ETextEncoding::Utf16LittleEndian};
  if (bytes.starts_with(kUtf16BeBom))
    return {DecodeUtf16(bytes.substr(kUtf16BeBom.size()), true), ETextEncoding::Utf16BigEndian};
  if (bytes.starts_with(kUtf8Bom))
    return {std::string(bytes.substr(kUtf8Bom.size())), ETextEncoding::Utf8WithBom};
  return {std::string(bytes), ETextEncoding::Utf8};
}

std::string EncodeText(std::string_view utf8, ETextEncoding encoding) {
  switch (encoding) {
    case ETextEncoding::Utf8WithBom:
      return std::string(kUtf8Bom) + std::string(utf8);
    case ETextEncoding::Utf16LittleEndian:
      return EncodeUtf16(utf8, false);
    case ETextEncoding::Utf16BigEndian:
      return EncodeUtf16(utf8, true);
    case ETextEncoding::Utf8:
      break;
  }
  return std::string(utf8);
}
