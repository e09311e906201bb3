#pragma once
#include <map>
#include <string>
#include <vector>

// A tab-separated table with a header line, as the reference data of the
// benchmarks is kept. Each row maps column names to fields.
class CTsvTable {
 public:
  using TRow = std::map<std::string, std::string>;
  // Throws std::runtime_error when the file cannot be opened.
  static CTsvTable Read(const std::string& path);
  const std::vector<TRow>& Rows() const { return rows; }

 private:
  std::vector<TRow> rows;
};
