#include "TestData.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace testdata {

std::vector<std::string> Split(const std::string& text, const std::string& separators) {
  std::vector<std::string> pieces;
  std::string current;
  for (char c : text) {
    if (separators.find(c) != std::string::npos) {
      if (!current.empty()) pieces.push_back(current);
      current.clear();
    } else {
      current += c;
    }
  }
  if (!current.empty()) pieces.push_back(current);
  return pieces;
}

static std::vector<std::string> SplitTabs(const std::string& line) {
  std::vector<std::string> fields;
  std::stringstream stream(line);
  std::string field;
  while (std::getline(stream, field, '\t')) fields.push_back(field);
  if (!line.empty() && line.back() == '\t') fields.emplace_back();
  return fields;
}

std::vector<TRow> ReadTsv(const std::string& fileName) {
  const std::string path = std::string(LONGMATE_SHARED_DATA) + "/" + fileName;
  std::ifstream in(path);
  if (!in) throw std::runtime_error("cannot open reference data " + path);
  std::string line;
  std::getline(in, line);
  const auto header = SplitTabs(line);
  std::vector<TRow> rows;
  while (std::getline(in, line)) {
    if (line.empty()) continue;
    const auto fields = SplitTabs(line);
    TRow row;
    for (size_t i = 0; i < header.size(); ++i) row[header[i]] = i < fields.size() ? fields[i] : "";
    rows.push_back(row);
  }
  return rows;
}

}  // namespace testdata
