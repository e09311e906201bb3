// References to problem databases in descriptions, the prefixes imports bring, prize tags.
#include <gtest/gtest.h>

#include "ProgramRun.h"
#include "app/DatabaseLinks.h"
#include "problems/Collection.h"

namespace {

const TLinkHosts kHosts{.albrecht = "https://a.example/",
                        .gameknot = "https://g.example/",
                        .meson = "https://m.example",
                        .pdb = "https://p.example/pdb/",
                        .chessStar = "https://s.example",
                        .yacpdb = "https://y.example"};

TEST(DatabaseLinks, EachLetterHasItsQuery) {
  const struct {
    const char* reference;
    const char* address;
  } cases[] = {
      {"A12345", "https://a.example/search5.php?spalten=ProblemNr&search=12345"},
      {"G77", "https://g.example/comment.pl?t=2&k=77"},
      {"M6", "https://m.example/meson/pidsearch.pl?pid=6&type=search"},
      {"P1000123", "https://p.example/pdb/search.jsp?expression=PROBID='P1000123'"},
      {"S3", "https://s.example/en/competitions/standard/annual/annual.php?ELEMENT_ID=3"},
      {"Y123", "https://y.example/?id=123"},
      {"https://x.example/a?b=1", "https://x.example/a?b=1"},
      {"HTTP://X.example/", "HTTP://X.example/"},
  };
  for (const auto& [reference, address] : cases) {
    const auto links = FindDatabaseLinks(reference, kHosts);
    ASSERT_EQ(links.size(), 1u) << reference;
    EXPECT_EQ(links[0].address, address);
    EXPECT_EQ(links[0].nLength, std::string_view(reference).size());
  }
}

TEST(DatabaseLinks, WhatIsNoReference) {
  const char* const texts[] = {
      "B123 C4 Z9",          // no database has these letters
      "y123",                // lower case
      "XY123 Y123a 12Y3 Y",  // not standing alone, or no digits
      "ftp://x.example http://",
      "",
  };
  for (const char* text : texts) EXPECT_TRUE(FindDatabaseLinks(text, kHosts).empty()) << text;
}

TEST(DatabaseLinks, ScanFindsEveryReferenceInOrder) {
  const std::string text =
      "Source: Y123, cf. (P0001234) and see http://x.example/p?id=5). Also A9.";
  const auto links = FindDatabaseLinks(text, kHosts);
  ASSERT_EQ(links.size(), 4u);
  const char* const references[] = {"Y123", "P0001234", "http://x.example/p?id=5", "A9"};
  for (std::size_t i = 0; i < links.size(); ++i)
    EXPECT_EQ(text.substr(links[i].nBegin, links[i].nLength), references[i]);
  EXPECT_EQ(links[2].letter, 'H');
}

TEST(DatabaseLinks, ImportedDescriptionsLoseTheirPrefix) {
  const struct {
    const char* text;
    const char* cleaned;
  } cases[] = {
      {"Albrecht: Loyd 1859", "Loyd 1859"},
      {"PDB: Loyd", "Loyd"},
      {"Meson: Loyd", "Loyd"},
      {"Yacpdb: Loyd", "Yacpdb: Loyd"},
      {"PDB:Loyd", "PDB:Loyd"},
      {"Loyd, PDB: P1", "Loyd, PDB: P1"},
  };
  for (const auto& [text, cleaned] : cases) EXPECT_EQ(CleanImportedDescription(text), cleaned);
}

TEST(DatabaseLinks, PrizeTags) {
  const struct {
    const char* award;
    const char* tag;  // null: none
  } cases[] = {
      {"1st Prize", "1st prize"},
      {"Schwalbe 1990, 1. Preis", "1st prize"},
      {"1st-2nd Prize ex aequo", "1st prize"},
      {"1st-3rd Prize", "1st prize"},
      {"1. Platz", "1st prize"},
      {"2nd Place", "2nd prize"},
      {"2nd-3rd Prize", "2nd prize"},
      {"2nd-4th Prize", "2nd prize"},
      {"2. Preis", "2nd prize"},
      {"3rd Prize", "3rd prize"},
      {"3rd-5th Prize", "3rd prize"},
      {"3. Platz", "3rd prize"},
      {"1ST PRIZE", "1st prize"},
      {"11. Preis", nullptr},
      {"21st Prize", nullptr},
      {"4th Prize", nullptr},
      {"Hon. Mention", nullptr},
      {"", nullptr},
  };
  for (const auto& [award, tag] : cases) {
    const auto found = PrizeTag(award);
    if (tag == nullptr) {
      EXPECT_FALSE(found) << award;
    } else {
      EXPECT_EQ(found, tag) << award;
    }
  }
}

TEST(DatabaseLinks, CheckListsTheLinksOfEachProblem) {
  if (!std::filesystem::exists(LongmateProgramPath())) GTEST_SKIP() << "longmate is not built";
  CTempFolder folder;
  WriteTextFile(folder / "options.ini", "[chess]\nYacpdbHost=https://y.example\n");
  constexpr const char* kFen = "\tFEN: 2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8\n}\n";
  WriteTextFile(folder / "p.cp",
                std::string("1 #2\n{\n\tDescription: Loyd Y123, see https://x.example/1.\n") +
                    kFen + "2 #2\n{\n\tDescription: no links\n" + kFen);
  const TProgramRun run = RunLongmate(folder, "check p.cp --links");
  EXPECT_EQ(run.nStatus, 0) << run.err;
  EXPECT_NE(run.out.find("Loyd Y123, see https://x.example/1.\n"
                         "        Y123  https://y.example/?id=123\n"
                         "        https://x.example/1  https://x.example/1\n"
                         "     2  #2    16  no links\n"),
            std::string::npos)
      << run.out;
}

TEST(DatabaseLinks, ImportCleansDescriptionsAndTagsPrizes) {
  if (!std::filesystem::exists(LongmateProgramPath())) GTEST_SKIP() << "longmate is not built";
  CTempFolder folder;
  WriteTextFile(folder / "p.epd",
                "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - dm 2; c0 \"Albrecht: Loyd, "
                "1st-2nd Prize\";\n"
                "2brrb2/8/p7/7Q/1p1kpPp1/1P1pN1K1/3P4/8 w - - dm 2; c0 \"PDB: Loyd, "
                "Commendation\";\n");
  const TProgramRun run = RunLongmate(folder, "import p.epd -o p.cp");
  ASSERT_EQ(run.nStatus, 0) << run.err;
  TProblemCollection imported;
  ASSERT_FALSE(imported.ReadText(ReadTextFile(folder / "p.cp"), "p.cp"));
  ASSERT_EQ(imported.Size(), 2u);
  const auto first = imported.Problems().begin()->second.get();
  const auto second = std::next(imported.Problems().begin())->second.get();
  EXPECT_EQ(first->description, "Loyd, 1st-2nd Prize");
  EXPECT_EQ(first->tags, std::set<std::string>{"1st prize"});
  EXPECT_EQ(second->description, "Loyd, Commendation");
  EXPECT_TRUE(second->tags.empty());
}

}  // namespace
