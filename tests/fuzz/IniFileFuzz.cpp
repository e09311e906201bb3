// options.ini in any encoding: a UTF-8 file is written back byte for byte, any file is written
// back to a text that reads to itself, and a key set reads back through the written text.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/IniFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CIniFile ini;
  ini.Parse(bytes);
  const std::string text = ini.Text();
  if (DecodeText(bytes).encoding == ETextEncoding::Utf8 && text != bytes) std::abort();
  CIniFile again;
  again.Parse(text);
  if (again.Text() != text) std::abort();
  ini.FindInt("Options", "Language");
  ini.SetString("Fuzz", "Key", "value 1");
  if (ini.FindString("Fuzz", "Key") != "value 1") std::abort();
  CIniFile written;
  written.Parse(ini.Text());
  if (written.FindString("Fuzz", "Key") != "value 1") std::abort();
  return 0;
}
