#include "app/IniFile.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <fstream>
#include <sstream>

#include "core/SafeFile.h"

namespace {

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(" \t");
  return text.substr(first, last - first + 1);
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(
      a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

// The name of a "[name]" line, or nothing for any other line.
std::optional<std::string_view> SectionName(std::string_view line) {
  line = Trim(line);
  if (line.empty() || line.front() != '[') return std::nullopt;
  line.remove_prefix(1);
  return Trim(line.substr(0, line.find(']')));
}

bool IsComment(std::string_view trimmedLine) {
  return !trimmedLine.empty() && (trimmedLine.front() == ';' || trimmedLine.front() == '#');
}

// Splits "key=value" at its first '='; nothing for comments and lines without one.
std::optional<std::pair<std::string_view, std::string_view>> KeyAndValue(std::string_view line) {
  const std::string_view trimmed = Trim(line);
  const auto equals = trimmed.find('=');
  if (IsComment(trimmed) || equals == std::string_view::npos) return std::nullopt;
  return std::pair{Trim(trimmed.substr(0, equals)), Trim(trimmed.substr(equals + 1))};
}

std::optional<int> LeadingInteger(std::string_view text) {
  bool bNegative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    bNegative = text.front() == '-';
    text.remove_prefix(1);
  }
  if (text.empty() || !std::isdigit(static_cast<unsigned char>(text.front()))) return std::nullopt;
  std::uint32_t value = 0;  // wraps around like a 32-bit conversion
  for (; !text.empty() && std::isdigit(static_cast<unsigned char>(text.front()));
       text.remove_prefix(1))
    value = value * 10 + static_cast<std::uint32_t>(text.front() - '0');
  return static_cast<int>(bNegative ? 0u - value : value);
}

}  // namespace

bool CIniFile::Load(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::error_code error;
  // A folder opens like a file but has no text to read.
  if (!in || std::filesystem::is_directory(path, error)) {
    Parse({});
    return false;
  }
  std::stringstream text;
  text << in.rdbuf();
  Parse(text.str());
  return true;
}

void CIniFile::Parse(std::string_view bytes) {
  TDecodedText decoded = DecodeText(bytes);
  m_encoding = decoded.encoding;
  m_lines.clear();
  m_sLineEnd = "\n";
  std::string_view text = decoded.utf8;
  while (!text.empty()) {
    const auto newline = text.find('\n');
    TLine line{std::string(text.substr(0, newline)), newline == text.npos ? "" : "\n"};
    if (!line.end.empty() && line.text.ends_with('\r')) {
      line.text.pop_back();
      line.end = "\r\n";
    }
    if (m_lines.empty() && !line.end.empty()) m_sLineEnd = line.end;
    m_lines.push_back(std::move(line));
    text.remove_prefix(newline == text.npos ? text.size() : newline + 1);
  }
}

std::string CIniFile::Text() const {
  std::string text;
  for (const TLine& line : m_lines) text += line.text + line.end;
  return EncodeText(text, m_encoding);
}

std::optional<std::string> CIniFile::Save(const std::filesystem::path& path) const {
  return safefile::Save(path.string(), Text());
}

void CIniFile::InsertLine(std::size_t i, std::string text) {
  TLine line{std::move(text), m_sLineEnd};
  if (i == m_lines.size() && i > 0 && m_lines.back().end.empty())
    std::swap(line.end, m_lines.back().end);
  m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(i), std::move(line));
}

std::optional<std::size_t> CIniFile::FindSection(std::string_view section) const {
  for (std::size_t i = 0; i < m_lines.size(); ++i)
    if (const auto name = SectionName(m_lines[i].text); name && EqualNoCase(*name, section))
      return i;
  return std::nullopt;
}

std::size_t CIniFile::SectionEnd(std::size_t nHeaderLine) const {
  std::size_t i = nHeaderLine + 1;
  while (i < m_lines.size() && !SectionName(m_lines[i].text)) ++i;
  return i;
}

std::optional<std::size_t> CIniFile::FindKeyLine(std::string_view section,
                                                 std::string_view key) const {
  const auto header = FindSection(section);
  if (!header) return std::nullopt;
  for (std::size_t i = *header + 1; i < SectionEnd(*header); ++i)
    if (const auto pair = KeyAndValue(m_lines[i].text); pair && EqualNoCase(pair->first, key))
      return i;
  return std::nullopt;
}

std::optional<std::string> CIniFile::FindString(std::string_view section,
                                                std::string_view key) const {
  const auto line = FindKeyLine(section, key);
  if (!line) return std::nullopt;
  std::string_view value = KeyAndValue(m_lines[*line].text)->second;
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
      value.back() == value.front())
    value = value.substr(1, value.size() - 2);
  return std::string(value);
}

std::string CIniFile::GetString(std::string_view section, std::string_view key,
                                std::string_view defaultValue) const {
  return FindString(section, key).value_or(std::string(defaultValue));
}

std::optional<int> CIniFile::FindInt(std::string_view section, std::string_view key) const {
  const auto value = FindString(section, key);
  return value ? LeadingInteger(*value) : std::nullopt;
}

int CIniFile::GetInt(std::string_view section, std::string_view key, int nDefault) const {
  return FindInt(section, key).value_or(nDefault);
}

void CIniFile::SetString(std::string_view section, std::string_view key, std::string_view value) {
  if (const auto line = FindKeyLine(section, key)) {
    std::string& text = m_lines[*line].text;
    text.erase(text.find('=') + 1);
    text += value;
    return;
  }
  std::string newLine = std::string(key) + "=" + std::string(value);
  const auto header = FindSection(section);
  if (!header) {
    if (!m_lines.empty() && !Trim(m_lines.back().text).empty()) InsertLine(m_lines.size(), "");
    InsertLine(m_lines.size(), "[" + std::string(section) + "]");
    InsertLine(m_lines.size(), std::move(newLine));
    return;
  }
  // After the last key of the section, so that blank lines and comments that
  // lead into the next section stay in front of it.
  std::size_t insertAt = *header + 1;
  for (std::size_t i = insertAt; i < SectionEnd(*header); ++i)
    if (KeyAndValue(m_lines[i].text)) insertAt = i + 1;
  InsertLine(insertAt, std::move(newLine));
}
