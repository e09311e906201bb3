#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "core/ChessException.h"

// A reading error at a byte offset of the text being read; the collection reader
// turns the offset into a line and a column.
class ProblemSyntaxError : public ChessException {
 public:
  ProblemSyntaxError(const std::string& text, std::size_t at) : ChessException(text), offset(at) {}
  std::size_t Offset() const { return offset; }

 private:
  std::size_t offset;
};

[[noreturn]] inline void FailAt(std::size_t offset, const std::string& text) {
  throw ProblemSyntaxError(text, offset);
}

// An error of a file operation, with where it happened (line and column 0 when the
// error concerns the whole file, as a failed open does).
struct TFileError {
  std::string file;
  int line = 0;
  int column = 0;
  std::string text;

  // "file:line:column: text", or the text alone without a line (it names the file).
  std::string Describe() const;
  // The line (from 1) and column (from 1, counted in characters) of a byte offset.
  static TFileError At(const std::string& file, std::string_view source, std::size_t offset,
                       const std::string& text);
};
