#pragma once
// A fresh folder for one test, removed with everything in it afterwards.
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

class CTempFolder {
 public:
  CTempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "longmate-XXXXXX").string();
    m_path = mkdtemp(pattern.data());
  }
  ~CTempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  const std::filesystem::path& Path() const { return m_path; }
  std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

 private:
  std::filesystem::path m_path;
};

inline void WriteTextFile(const std::filesystem::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

inline std::string ReadTextFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}
