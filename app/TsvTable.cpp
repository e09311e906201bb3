#include "app/TsvTable.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

std::vector<std::string> SplitTabs(const std::string& line) {
  std::vector<std::string> fields;
  std::stringstream stream(line);
  std::string field;
  while (std::getline(stream, field, '\t')) fields.push_back(field);
  if (!line.empty() && line.back() == '\t') fields.emplace_back();
  return fields;
}

}  // namespace

CTsvTable CTsvTable::Read(const std::string& path) {
  std::ifstream in(path);
  if (!in) throw std::runtime_error("Error opening file: " + path);
  CTsvTable table;
  std::string line;
  std::getline(in, line);
  const auto header = SplitTabs(line);
  while (std::getline(in, line)) {
    if (line.empty()) continue;
    const auto fields = SplitTabs(line);
    TRow row;
    for (size_t i = 0; i < header.size(); ++i) row[header[i]] = i < fields.size() ? fields[i] : "";
    table.rows.push_back(std::move(row));
  }
  return table;
}
