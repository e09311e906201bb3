#pragma once
// Settings files written by other tools come in UTF-8, with or without a byte-order mark, or
// in UTF-16 with a byte-order mark in either byte order. The program works on the text as
// UTF-8 and writes it back in the encoding it came in, mark included.
#include <string>
#include <string_view>

enum class ETextEncoding { Utf8, Utf8WithBom, Utf16LittleEndian, Utf16BigEndian };

struct TDecodedText {
  std::string utf8;
  ETextEncoding encoding = ETextEncoding::Utf8;
};

// Tells the encoding by the byte-order mark (none means UTF-8) and returns the text after the
// mark as UTF-8. A UTF-16 unit that is half of a pair without its other half is kept as its
// own three-byte sequence, so that it is written back unchanged; a lone final byte of a
// UTF-16 text becomes U+FFFD.
TDecodedText DecodeText(std::string_view bytes);

// The UTF-8 text in the given encoding, led by its byte-order mark where it has one. Bytes
// that are not UTF-8 become U+FFFD in UTF-16.
std::string EncodeText(std::string_view utf8, ETextEncoding encoding);
