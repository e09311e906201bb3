#include "core/PlainFileName.h"

#include <algorithm>

namespace filename {
namespace {

// Separators of every system the files may be carried to, the drive mark, and control bytes.
bool IsUnsafe(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7f || c == '/' || c == '\\' || c == ':';
}

}  // namespace

bool IsPlain(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && std::ranges::none_of(name, IsUnsafe);
}

std::string Plain(std::string_view name) {
  std::string plain(name);
  std::ranges::replace_if(plain, IsUnsafe, '_');
  if (plain.empty() || plain == "." || plain == "..") return "_";
  return plain;
}

}  // namespace filename
