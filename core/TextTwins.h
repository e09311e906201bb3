#pragma once
// User texts exist in Polish, English and Ukrainian. The language setting picks them:
// 0 Polish, 2 Ukrainian, any other value English.

struct TTextTwins {
  const char* szPolish;
  const char* szEnglish;
  const char* szUkrainian;
};

inline const char* PickText(int nLanguageId, const TTextTwins& texts) {
  if (nLanguageId == 0) return texts.szPolish;
  if (nLanguageId == 2) return texts.szUkrainian;
  return texts.szEnglish;
}

// The language of English texts, for callers that need no other.
constexpr int kEnglishLanguageId = 1;
