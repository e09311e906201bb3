#pragma once
#include <cstddef>
#include <initializer_list>
#include <string_view>

// Kinds of tokens of a problem file.
enum class TTokenKind {
  kEnd,              // no text left
  kWord,             // letters, digits, '^' and '_'
  kSymbol,           // any other single character
  kTagsHeader,       // "//#TAGS"
  kTag,              // "//#" and a tag
  kVariantsHeader,   // "//!VARIANTS"
  kVariant,          // "//!" and a variant
  kVariantsEnd,      // "//!ENDVARIANTS"
  kSortIndications,  // "//@SortIndications: " and the list
};

struct TToken {
  TTokenKind kind = TTokenKind::kEnd;
  std::string_view text;  // the word or symbol; a directive's text behind its marker
  std::string_view raw;   // the token as it stands in the file
  std::size_t offset = 0;

  bool IsSymbol(char c) const { return kind == TTokenKind::kSymbol && text.front() == c; }
  // A word equal to one of the names, case ignored.
  bool IsWord(std::initializer_list<std::string_view> names) const;
  bool IsDirective() const { return kind > TTokenKind::kSymbol; }
  std::size_t End() const { return offset + raw.size(); }
};

// The number that digits (a token's text or a part of it) stand for; throws
// "Number expected. Found: " or "Number out of range: " with the token.
int NumberIn(const TToken& token, std::string_view digits, int min, int max);

// Splits the text of a problem file into tokens. Blanks separate tokens; comments are
// skipped, except the directive comments ("//#", "//!", "//@SortIndications:"), which
// are tokens while directives are wanted and skipped otherwise. Lexical errors throw
// ProblemSyntaxError at the offending offset.
class CLexer {
 public:
  explicit CLexer(std::string_view text, std::size_t offset = 0) : source(text), pos(offset) {}

  TToken Next();
  TToken Peek();
  // Next, but "Unexpected end of file." where no token is left.
  TToken NextRequired();
  // Next, but "Alphanumeric identifier expected. Found: " for anything but a word.
  TToken NextWord();
  // NextWord read as a number from min to max.
  int NextNumber(int min, int max);
  // Consumes the next token when it is the symbol c.
  bool Accept(char c);
  // Raw text from here to the end of the line.
  std::string_view RestOfLine();
  // The same, but ending before a closing brace or a line comment on the line.
  std::string_view RestOfCodeLine();
  // Whether only blanks and comments are left.
  bool AtEnd();
  void SetDirectivesWanted(bool bWanted);
  std::string_view Source() const { return source; }
  std::size_t Offset() const { return pos; }

 private:
  TToken Scan();
  // Skips blanks and plain comments; stops at a token or a wanted directive.
  void SkipBlanksAndComments();
  bool DirectiveAhead() const;
  TToken ScanDirective();
  void SkipLine();

  std::string_view source;
  std::size_t pos;
  TToken peeked;
  std::size_t peekStart = 0;  // where the scan of the peeked token began
  bool bPeeked = false;
  bool bDirectivesWanted = false;
};
