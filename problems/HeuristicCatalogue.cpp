#include "problems/HeuristicCatalogue.h"

#include <bit>

#include "problems/TextTools.h"

namespace heuristics {
namespace {

constexpr THeuristicName kCatalogue[] = {
    {0x1, "SH_AREKINGSNEAR"},
    {0x2, "SH_SWEEPINGWHITEROOK"},
    {0x4, "SH_KEEPKINGONTHEEDGE"},
    {0x8, "SH_ONECOLORPLAYPOSSIBLE"},
    {0x10, "SH_ZUGZWANGTRIANGLES"},
    {0x20, "SH_DONTLEAVEMAINDIAGONAL"},
    {0x40, "SH_KEEPKINGWITHINEXTEDGE"},
    {0x80, "SH_DONTLETFIGUREUNBLOCK"},
    {0x200, "SH_FINDFORCEDMATE"},
    {0x400, "SH_DONTRECEDEBLACKKING"},
    {0x800, "SH_DONTLETPROMOTEDQUEENMOVE"},
    {0x1000, "SH_KEYLINE"},
    {0x2000, "SH_KEYDIAGONAL"},
    {0x4000, "SH_SAVEQUEEN/ROOK"},
    {0x8000, "SH_DONTLOSEANYFIGURES"},
    {0x10000, "SH_DONTLETBLACKQUEENCHECKTWICE"},
    {0x20000, "SH_USEBLOCKBLACKPAWNSLEVEL"},
    {0x40000, "SH_KEYFIELD"},
    {0x80000, "SH_ASSERTBLACKKINGSURROUNDED"},
    {0x100000, "SH_SINGLEQUEENMATE"},
    {0x200000, "SH_3MOVESTOMATE"},
    {0x400000, "SH_KEYWHITEFIGURE"},
    {0x800000, "SH_CAPTUREKNIGHT"},
    {0x1000000, "SH_SKIPWORSTWHITEMOVES"},
    {0x2000000, "SH_DONTLETPROMOTEDFIGUREMOVE"},
    {0x4000000, "SH_KEEPKINGNEARCORNER"},
    {0x8000000, "SH_SEASNAKE"},
    {0x40000000, "SH_REDUCTIONTOGLOBREGPOS"},
    {0x80000000, "SH_ZUGZWANG"},
};

}  // namespace

std::span<const THeuristicName> Catalogue() {
  return kCatalogue;
}

std::string_view NameOfBit(std::uint32_t mask) {
  for (const THeuristicName& entry : kCatalogue) {
    if (entry.bit == mask) return entry.name;
  }
  return "...";
}

int IndexOfName(std::string_view name) {
  for (const THeuristicName& entry : kCatalogue) {
    if (text::EqualsNoCase(entry.name, name)) return std::countr_zero(entry.bit);
  }
  return -1;
}

}  // namespace heuristics
