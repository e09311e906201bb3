#pragma once
// References to public chess-problem databases in a problem's description ("Y123", "P1000123",
// a web address) and the addresses they open; the texts that imports bring along: the
// database prefix of a description, and the prize of an award text as a tag.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/Options.h"
#include "problems/Problem.h"

// The address before each database's query path.
struct TLinkHosts {
  std::string albrecht, gameknot, meson, pdb, chessStar, yacpdb;
};
TLinkHosts LinkHostsFromOptions(const COptions& options);

struct TDatabaseLink {
  std::size_t nBegin = 0;  // the reference's bytes in the description
  std::size_t nLength = 0;
  char letter = 0;  // 'H' for a web address
  std::string address;
  bool operator==(const TDatabaseLink&) const = default;
};

// Every reference, in order. A database reference is an upper-case letter of A, G, M, P, S
// or Y and its digits, standing alone (no letter or digit on either side); a web address
// starts with "http://" or "https://" in any case and runs to the next blank, without the
// punctuation that closes a sentence or a bracket after it.
std::vector<TDatabaseLink> FindDatabaseLinks(std::string_view description, const TLinkHosts& hosts);

// An imported description without the "Albrecht: ", "PDB: " or "Meson: " it may begin with.
std::string CleanImportedDescription(std::string_view description);

// The tag of the prize an award text names ("1st prize", "2nd prize", "3rd prize"); nothing
// for other awards. A shared prize counts as its first place ("1st-2nd Prize": 1st).
std::optional<std::string> PrizeTag(std::string_view award);

// What an import does to each problem it reads: the description cleaned, and the prize its
// award text names (kept in the description) added to the tags.
void TidyImportedProblem(TProblem& problem);
