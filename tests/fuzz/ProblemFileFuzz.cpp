// A problem file is read as far as it holds together; what was read is written in the
// canonical form, which must read back without error and be written again to the same text.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "problems/Collection.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  TProblemCollection first;
  first.ReadText(text, "fuzz.cp");
  const std::string written = first.WriteText();
  TProblemCollection second;
  if (const auto error = second.ReadText(written, "written.cp")) {
    std::fprintf(stderr, "%s\n%s\n", error->Describe().c_str(), written.c_str());
    std::abort();
  }
  if (second.Size() != first.Size() || second.WriteText() != written) std::abort();
  return 0;
}
