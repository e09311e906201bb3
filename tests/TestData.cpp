#include "TestData.h"

#include <fstream>
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

namespace {

// Fields between tabs, empty ones included: "a\t\tb" has three.
std::vector<std::string> TabFields(const std::string& line) {
  std::vector<std::string> fields(1);
  for (char c : line) {
    if (c == '\t')
      fields.emplace_back();
    else
      fields.back() += c;
  }
  return fields;
}

}  // namespace

std::string PathOf(const std::string& fileName) {
  return std::string(LONGMATE_SHARED_DATA) + "/" + fileName;
}

std::vector<TRow> ReadTsv(const std::string& fileName) {
  const std::string path = PathOf(fileName);
  std::ifstream in(path);
  if (!in) throw std::runtime_error("cannot read the reference table " + path);
  std::string line;
  std::getline(in, line);
  const std::vector<std::string> columns = TabFields(line);
  std::vector<TRow> rows;
  while (std::getline(in, line)) {
    if (line.empty()) continue;
    const std::vector<std::string> fields = TabFields(line);
    TRow& row = rows.emplace_back();
    for (std::size_t i = 0; i < columns.size(); ++i)
      row[columns[i]] = i < fields.size() ? fields[i] : "";
  }
  return rows;
}

}  // namespace testdata
