// A list of sort indications that reads is rendered, and the rendering reads back to the
// same list; a single indication likewise.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/ChessException.h"
#include "problems/SortIndication.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    const TSortIndications list = sortindication::ParseList(text);
    const std::string rendered = sortindication::RenderList(list);
    if (sortindication::ParseList(rendered) != list) std::abort();
  } catch (const ChessException&) {
  }
  try {
    const TSortIndication one = sortindication::Parse(text, 0);
    if (sortindication::Parse(sortindication::Render(one)) != one) std::abort();
  } catch (const ChessException&) {
  }
  return 0;
}
