#pragma once
// The keys of the settings file in the order they are read, each tied to its
// member of COptions with its default and the rule for reading and writing it.
#include <cstdint>
#include <span>
#include <string>
#include <variant>

#include "app/Options.h"

inline constexpr const char* kOptionsSection = "chess";

enum class EOptionRule {
  Plain,
  LevelsStoredMinusOne,  // the process keeps file value + 1 and writes back levels - 1
  ReadAsSwitch,          // any non-zero value is read as 1, yet written back as a number
  RangeZeroToTwo,        // clamped to 0..2 on reading
};

using TOptionMember =
    std::variant<int COptions::*, std::int16_t COptions::*, std::uint8_t COptions::*,
                 bool COptions::*, std::string COptions::*>;

struct TOptionKey {
  const char* szName;
  TOptionMember member;
  int nDefault;   // as stored in the file; ignored for the string key
  bool bWritten;  // written back by WriteOptions
  EOptionRule rule;
  // The default of a string key; an empty one keeps what the settings held before.
  const char* szDefault = "";
};

std::span<const TOptionKey> OptionKeys();

// The value the process works with ("1"/"0" for switches).
std::string EffectiveValueText(const COptions& options, const TOptionKey& key);
// The value as WriteOptions stores it.
std::string StoredValueText(const COptions& options, const TOptionKey& key);
