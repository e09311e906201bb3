// Texts in the foreign formats (the first byte picks the format): what is imported is
// exported, and the export of at least one problem imports without error and exports again to the
// same text.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "problems/ForeignFormat.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  constexpr EProblemFormat kFormats[] = {EProblemFormat::kPopeye, EProblemFormat::kEpd,
                                         EProblemFormat::kFenList};
  const EProblemFormat format = kFormats[data[0] % 3];
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const TImportOptions options{.nDefaultMoves = 2};
  TProblemCollection first;
  ImportText(text, "fuzz", format, options, first);
  if (first.Empty()) return 0;  // an empty text is no problem file of the solver's language
  const std::string exported = ExportText(first, format).text;
  TProblemCollection second;
  if (const auto error = ImportText(exported, "exported", format, options, second)) {
    std::fprintf(stderr, "%s\n%s\n", error->Describe().c_str(), exported.c_str());
    std::abort();
  }
  if (ExportText(second, format).text != exported) std::abort();
  return 0;
}
