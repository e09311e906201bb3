#include <gtest/gtest.h>

#include "app/IniFile.h"
#include "app/TempFolder.h"

namespace {

CIniFile Parsed(const std::string& text) {
  CIniFile ini;
  ini.Parse(text);
  return ini;
}

TEST(IniFile, IntegersReadLikeTheWindowsCall) {
  struct TCase {
    const char* szLine;
    int nExpected;
  };
  const TCase cases[] = {
      {"Key=12", 12},    {"Key = 7 ", 7},  {"Key=-3", -3},  {"Key=+4", 4},
      {"Key=12abc", 12}, {"Key=abc", 99},  {"Key=", 99},    {"Key=- 5", 99},
      {"key=5", 5},      {"KEY=\"8\"", 8}, {"Other=1", 99}, {"Key=4294967295", -1},
  };
  for (const TCase& c : cases) {
    const CIniFile ini = Parsed(std::string("[Chess]\n") + c.szLine + "\n");
    EXPECT_EQ(ini.GetInt("chess", "Key", 99), c.nExpected) << c.szLine;
  }
}

TEST(IniFile, KeysBelongToTheirOwnSectionOnly) {
  const CIniFile ini = Parsed(
      "; comment Key=1\n[other]\nKey=1\n[chess]\n;Key=2\n# Key=3\nKey=4\nKey=5\n[next]\nKey=6\n");
  EXPECT_EQ(ini.GetInt("chess", "Key", 0), 4);  // the first one counts
  EXPECT_EQ(ini.GetInt("OTHER", "key", 0), 1);
  EXPECT_EQ(ini.GetInt("missing", "Key", -7), -7);
  EXPECT_FALSE(ini.FindInt("chess", "Absent"));
}

TEST(IniFile, StringsLoseBlanksAndEnclosingQuotes) {
  const CIniFile ini = Parsed("[s]\na =  x y  \nb=\"quoted \"\nc='q'\nd=\"half\ne=a=b\n");
  EXPECT_EQ(ini.GetString("s", "a", "-"), "x y");
  EXPECT_EQ(ini.GetString("s", "b", "-"), "quoted ");
  EXPECT_EQ(ini.GetString("s", "c", "-"), "q");
  EXPECT_EQ(ini.GetString("s", "d", "-"), "\"half");
  EXPECT_EQ(ini.GetString("s", "e", "-"), "a=b");
  EXPECT_EQ(ini.GetString("s", "f", "-"), "-");
}

TEST(IniFile, SetStringEditsOnlyWhatItMust) {
  struct TCase {
    const char* szBefore;
    const char* szSection;
    const char* szKey;
    const char* szAfter;
  };
  const TCase cases[] = {
      // in place, keeping the key's spelling and the lines around it
      {"; top\n[Chess]\n  quickmode = 0\nB=2\n", "chess", "QuickMode",
       "; top\n[Chess]\n  quickmode =1\nB=2\n"},
      // appended after the last key, ahead of what leads into the next section
      {"[chess]\nA=1\n; note\nB=2\n\n; about other\n[other]\nC=3\n", "chess", "New",
       "[chess]\nA=1\n; note\nB=2\nNew=1\n\n; about other\n[other]\nC=3\n"},
      {"[chess]\n\n[other]\n", "chess", "New", "[chess]\nNew=1\n\n[other]\n"},
      // a new section goes to the end, after a blank line
      {"[other]\nC=3\n", "chess", "New", "[other]\nC=3\n\n[chess]\nNew=1\n"},
      {"", "chess", "New", "[chess]\nNew=1\n"},
      // line ends, a byte-order mark and a missing final line end survive
      {"\xEF\xBB\xBF[chess]\r\nA=0\r\n", "chess", "A", "\xEF\xBB\xBF[chess]\r\nA=1\r\n"},
      {"[chess]\nA=0", "chess", "B", "[chess]\nA=0\nB=1"},
  };
  for (const TCase& c : cases) {
    CIniFile ini = Parsed(c.szBefore);
    ini.SetString(c.szSection, c.szKey, "1");
    EXPECT_EQ(ini.Text(), c.szAfter) << c.szBefore;
  }
}

// The bytes of a UTF-16 text with its byte-order mark.
std::string Utf16Bytes(std::u16string_view text, bool bBigEndian) {
  std::string bytes;
  for (char16_t unit : std::u16string(1, u'\uFEFF') + std::u16string(text)) {
    const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
    bytes += bBigEndian ? high : low;
    bytes += bBigEndian ? low : high;
  }
  return bytes;
}

std::string Utf8Bytes(std::u8string_view text, bool bBom) {
  return (bBom ? "\xEF\xBB\xBF" : "") + std::string(text.begin(), text.end());
}

// Settings files saved by other editors: every encoding and line end is read, and a key
// written goes into the file in the same encoding, beside lines that stay as they were.
TEST(IniFile, ForeignEncodingsAreReadAndWrittenBackInTheirOwn) {
  enum class EForm { Utf8, Utf8Bom, Utf16Le, Utf16Be };
  const std::u16string before16 =
      u"; Łódź \U0001D11E\r\n[chess]\r\nLanguageId=0\nPrecalcPath=C:\\Szachy\\Łódź\r\n";
  const std::u16string after16 =
      u"; Łódź \U0001D11E\r\n[chess]\r\nLanguageId=2\nPrecalcPath=C:\\Szachy\\Łódź\r\n"
      u"QuickMode=0\r\n";
  const std::u8string before8 =
      u8"; Łódź \U0001D11E\r\n[chess]\r\nLanguageId=0\nPrecalcPath=C:\\Szachy\\Łódź\r\n";
  const std::u8string after8 =
      u8"; Łódź \U0001D11E\r\n[chess]\r\nLanguageId=2\nPrecalcPath=C:\\Szachy\\Łódź\r\n"
      u8"QuickMode=0\r\n";
  const auto Bytes = [&](EForm form, bool bAfter) {
    switch (form) {
      case EForm::Utf16Le:
      case EForm::Utf16Be:
        return Utf16Bytes(bAfter ? after16 : before16, form == EForm::Utf16Be);
      case EForm::Utf8:
      case EForm::Utf8Bom:
        break;
    }
    return Utf8Bytes(bAfter ? after8 : before8, form == EForm::Utf8Bom);
  };
  const std::u8string path8 = u8"C:\\Szachy\\Łódź";
  CTempFolder folder;
  for (EForm form : {EForm::Utf8, EForm::Utf8Bom, EForm::Utf16Le, EForm::Utf16Be}) {
    const auto path = folder / "options.ini";
    WriteTextFile(path, Bytes(form, false));
    CIniFile ini;
    ASSERT_TRUE(ini.Load(path));
    EXPECT_EQ(ini.GetInt("chess", "LanguageId", 1), 0) << static_cast<int>(form);
    EXPECT_EQ(ini.GetString("chess", "PrecalcPath", ""), std::string(path8.begin(), path8.end()))
        << static_cast<int>(form);
    ini.SetString("chess", "LanguageId", "2");
    ini.SetString("chess", "QuickMode", "0");
    ASSERT_FALSE(ini.Save(path));
    EXPECT_EQ(ReadTextFile(path), Bytes(form, true)) << static_cast<int>(form);
  }
}

TEST(IniFile, SaveReplacesTheFileAndLeavesNoTemporary) {
  CTempFolder folder;
  const auto path = folder / "options.ini";
  WriteTextFile(path, "[chess]\r\nA=0\r\n; keep\r\n");
  CIniFile ini;
  ASSERT_TRUE(ini.Load(path));
  ini.SetString("chess", "A", "5");
  ASSERT_FALSE(ini.Save(path));
  EXPECT_EQ(ReadTextFile(path), "[chess]\r\nA=5\r\n; keep\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(IniFile, MissingFileLoadsEmptyAndSaveFailsInMissingFolder) {
  CTempFolder folder;
  CIniFile ini;
  ini.Parse("[x]\nA=1\n");
  EXPECT_FALSE(ini.Load(folder / "absent.ini"));
  EXPECT_EQ(ini.Text(), "");
  EXPECT_EQ(ini.Save(folder / "no" / "such.ini"),
            "Error opening file: " + (folder / "no" / "such.ini").string());
}

}  // namespace
