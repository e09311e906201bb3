// The lexer splits any text into tokens that lie inside it, in order, each ending after it
// begins, with or without directive comments, until the end or a lexical error.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "problems/Lexer.h"
#include "problems/ProblemFileError.h"

namespace {

void Scan(std::string_view text, bool bDirectives) {
  CLexer lexer(text);
  lexer.SetDirectivesWanted(bDirectives);
  std::size_t lastEnd = 0;
  try {
    for (;;) {
      const TToken peeked = lexer.Peek();
      const TToken token = lexer.Next();
      if (token.offset != peeked.offset || token.kind != peeked.kind) std::abort();
      if (token.kind == TTokenKind::kEnd) break;
      if (token.offset < lastEnd || token.End() > text.size() || token.raw.empty()) std::abort();
      if (text.substr(token.offset, token.raw.size()) != token.raw) std::abort();
      lastEnd = token.End();
      if (token.kind == TTokenKind::kWord && token.text.size() < 6) lexer.RestOfCodeLine();
    }
    if (!lexer.AtEnd()) std::abort();
  } catch (const ProblemSyntaxError& e) {
    if (e.Offset() > text.size()) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Scan(text, false);
  Scan(text, true);
  return 0;
}
