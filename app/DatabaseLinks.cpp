#include "app/DatabaseLinks.h"

#include <array>
#include <cctype>

namespace {

bool IsAlphanumeric(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(text[i])) != prefix[i]) return false;
  return true;
}

// The address of a database reference; nothing for a letter that is no database.
std::optional<std::string> AddressOf(char letter, std::string_view id, const TLinkHosts& hosts) {
  const std::string number(id);
  switch (letter) {
    case 'A':
      return hosts.albrecht + "search5.php?spalten=ProblemNr&search=" + number;
    case 'G':
      return hosts.gameknot + "comment.pl?t=2&k=" + number;
    case 'M':
      return hosts.meson + "/meson/pidsearch.pl?pid=" + number + "&type=search";
    case 'P':
      return hosts.pdb + "search.jsp?expression=PROBID='P" + number + "'";
    case 'S':
      return hosts.chessStar + "/en/competitions/standard/annual/annual.php?ELEMENT_ID=" + number;
    case 'Y':
      return hosts.yacpdb + "/?id=" + number;
    default:
      return std::nullopt;
  }
}

// The length of a web address at the start of text, 0 when there is none.
std::size_t WebAddressLength(std::string_view text) {
  if (!StartsWithNoCase(text, "http://") && !StartsWithNoCase(text, "https://")) return 0;
  std::size_t n = 0;
  while (n < text.size() && !std::isspace(static_cast<unsigned char>(text[n]))) ++n;
  constexpr std::string_view kClosing = ".,;:!?)]}'\"";
  while (n > 0 && kClosing.find(text[n - 1]) != std::string_view::npos) --n;
  return text.substr(0, n).find("://") + 3 < n ? n : 0;
}

}  // namespace

TLinkHosts LinkHostsFromOptions(const COptions& options) {
  return {options.sAlbrechtHost, options.sGameknotHost,  options.sMesonHost,
          options.sPdbHost,      options.sChessStarHost, options.sYacpdbHost};
}

std::vector<TDatabaseLink> FindDatabaseLinks(std::string_view text, const TLinkHosts& hosts) {
  std::vector<TDatabaseLink> links;
  std::size_t i = 0;
  while (i < text.size()) {
    if (i > 0 && IsAlphanumeric(text[i - 1])) {
      ++i;
      continue;
    }
    if (const std::size_t n = WebAddressLength(text.substr(i))) {
      links.push_back({i, n, 'H', std::string(text.substr(i, n))});
      i += n;
      continue;
    }
    std::size_t end = i + 1;
    while (end < text.size() && IsDigit(text[end])) ++end;
    const bool bStandsAlone = end == text.size() || !IsAlphanumeric(text[end]);
    if (end > i + 1 && bStandsAlone) {
      if (auto address = AddressOf(text[i], text.substr(i + 1, end - i - 1), hosts)) {
        links.push_back({i, end - i, text[i], std::move(*address)});
        i = end;
        continue;
      }
    }
    ++i;
  }
  return links;
}

std::string CleanImportedDescription(std::string_view description) {
  for (const std::string_view prefix : {"Albrecht: ", "PDB: ", "Meson: "})
    if (description.starts_with(prefix)) return std::string(description.substr(prefix.size()));
  return std::string(description);
}

std::optional<std::string> PrizeTag(std::string_view award) {
  struct TPlace {
    std::array<std::string_view, 6> forms;
    const char* tag;
  };
  // Lower case; the shared prizes of a place are tried before the next place's forms, which
  // they contain ("1st-2nd prize" holds "2nd prize").
  static constexpr TPlace kPlaces[] = {
      {{"1st prize", "1st place", "1st-2nd prize", "1st-3rd prize", "1. preis", "1. platz"},
       "1st prize"},
      {{"2nd prize", "2nd place", "2nd-3rd prize", "2nd-4th prize", "2. preis", "2. platz"},
       "2nd prize"},
      {{"3rd prize", "3rd place", "3rd-4th prize", "3rd-5th prize", "3. preis", "3. platz"},
       "3rd prize"},
  };
  for (const TPlace& place : kPlaces) {
    for (const std::string_view form : place.forms) {
      for (std::size_t at = 0; at < award.size(); ++at) {
        // "21st Prize" or "11. Preis" is no first prize.
        if (at > 0 && IsAlphanumeric(award[at - 1])) continue;
        if (StartsWithNoCase(award.substr(at), form)) return place.tag;
      }
    }
  }
  return std::nullopt;
}

void TidyImportedProblem(TProblem& problem) {
  problem.description = CleanImportedDescription(problem.description);
  if (const auto tag = PrizeTag(problem.description)) problem.tags.insert(*tag);
}
