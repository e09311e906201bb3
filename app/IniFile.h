#pragma once
// A small reader and writer of initialisation files ("[section]" headers and
// "key=value" lines). Everything it does not understand (comments, blank lines,
// other sections) is kept as it stands, so writing a key disturbs nothing else.
// Section and key names compare case-insensitively. Files in UTF-16 or with a UTF-8
// byte-order mark are read too and written back in their own encoding, each line with the
// line end it had.
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/TextEncoding.h"

class CIniFile {
 public:
  // Reads the file; a missing or unreadable file leaves the object empty and returns false.
  bool Load(const std::filesystem::path& path);
  // The bytes of a file, in any of the encodings above.
  void Parse(std::string_view bytes);
  // The bytes to write, in the encoding that was read.
  std::string Text() const;
  // Saves safely: the old file stays whole until the new one is complete. Returns the error
  // text naming the file, nothing on success.
  std::optional<std::string> Save(const std::filesystem::path& path) const;

  // The value with surrounding blanks and one pair of enclosing quotes removed.
  std::optional<std::string> FindString(std::string_view section, std::string_view key) const;
  std::string GetString(std::string_view section, std::string_view key,
                        std::string_view defaultValue) const;

  // A leading optional sign and digits; nothing when the key is missing or not numeric.
  std::optional<int> FindInt(std::string_view section, std::string_view key) const;
  int GetInt(std::string_view section, std::string_view key, int nDefault) const;

  // Replaces the value in place, or appends the key to its section (the section to the file).
  void SetString(std::string_view section, std::string_view key, std::string_view value);

 private:
  std::optional<std::size_t> FindSection(std::string_view section) const;
  std::size_t SectionEnd(std::size_t nHeaderLine) const;
  std::optional<std::size_t> FindKeyLine(std::string_view section, std::string_view key) const;

  struct TLine {
    std::string text;  // UTF-8, without its line end
    std::string end;   // "\n", "\r\n", or "" for a last line without one
  };
  // Inserts before line i with the file's line end, keeping a missing final line end last.
  void InsertLine(std::size_t i, std::string text);

  std::vector<TLine> m_lines;
  std::string m_sLineEnd = "\n";  // for new lines: the first line end of the file
  ETextEncoding m_encoding = ETextEncoding::Utf8;
};
