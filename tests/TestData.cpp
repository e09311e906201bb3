#include "TestData.h"

#include "app/TsvTable.h"

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

std::vector<TRow> ReadTsv(const std::string& fileName) {
  return CTsvTable::Read(std::string(LONGMATE_SHARED_DATA) + "/" + fileName).Rows();
}

}  // namespace testdata
