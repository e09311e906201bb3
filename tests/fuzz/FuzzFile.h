#pragma once
// The readers of register and table files take a path: each input is written to a file of the
// fuzzing process's own first, in the temporary folder.
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

inline std::filesystem::path FuzzFile(const std::string& name, const std::uint8_t* data,
                                      std::size_t size) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                     ("longmate-fuzz-" + std::to_string(getpid()) + "-" + name);
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  return path;
}
