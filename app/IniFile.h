#pragma once
// A small reader and writer of initialisation files ("[section]" headers and
// "key=value" lines). Everything it does not understand (comments, blank lines,
// other sections) is kept as it stands, so writing a key disturbs nothing else.
// Section and key names compare case-insensitively.
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class CIniFile {
 public:
  // Reads the file; a missing or unreadable file leaves the object empty and returns false.
  bool Load(const std::filesystem::path& path);
  void Parse(std::string_view text);
  std::string Text() const;
  // Writes through a temporary file in the same folder, then renames it over the target.
  bool Save(const std::filesystem::path& path) const;

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

  std::vector<std::string> m_lines;  // without line terminators
  std::string m_sLineEnd = "\n";
  bool m_bUtf8Bom = false;
  bool m_bFinalLineEnd = true;
};
