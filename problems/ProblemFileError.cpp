#include "problems/ProblemFileError.h"

#include <algorithm>

std::string TFileError::Describe() const {
  if (line == 0) return text;  // such texts name the file themselves
  return file + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " + text;
}

TFileError TFileError::At(const std::string& file, std::string_view source, std::size_t offset,
                          const std::string& text) {
  offset = std::min(offset, source.size());
  const std::string_view before = source.substr(0, offset);
  const std::size_t lastBreak = before.rfind('\n');
  const std::size_t lineStart = lastBreak == std::string_view::npos ? 0 : lastBreak + 1;
  TFileError error{file, 1, 1, text};
  error.line += static_cast<int>(std::count(before.begin(), before.end(), '\n'));
  // UTF-8 continuation bytes do not start a character.
  for (std::size_t i = lineStart; i < offset; ++i) {
    if ((static_cast<unsigned char>(source[i]) & 0xC0) != 0x80) ++error.column;
  }
  return error;
}
