#pragma once
// User texts exist in Polish, English and Ukrainian. The language setting picks
// them: 0 Polish, 2 Ukrainian, any other value English.

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

// Titles of message boxes.
inline constexpr TTextTwins kInformationTitle{"Informacja", "Information", "Інформація"};
inline constexpr TTextTwins kWarningTitle{"Ostrzeżenie", "Warning", "Попередження"};
