#pragma once
// How many threads (t) and multithreading levels (L) a solve uses, and the
// limits on them. Up to t^L threads run at once, so the totals are bounded.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct TThreadSettings {
  unsigned nThreads = 1;
  unsigned nLevels = 1;
  bool operator==(const TThreadSettings&) const = default;
};

// Start-up defaults: one thread per physical core at the levels of the settings
// file; large machines get 2 levels of floor(sqrt(cores)) threads, at least 4.
TThreadSettings DefaultThreadSettings(unsigned nPhysicalCores, unsigned nLogicalProcessors,
                                      unsigned nLevelsFromFile);

// True when t, t^2, ..., t^L and their running sums all stay below 32767.
bool IsAdmissibleThreadTotal(unsigned nThreads, unsigned nLevels);

struct TThreadSettingsReading {
  std::optional<TThreadSettings> settings;  // nothing when refused
  std::string sRefusal;                     // why it was refused
  std::vector<std::string> notes;           // what runs where it differs from what was asked
};

// Reads "T" or "T^L" as typed by the user: 1..64 each, an admissible total. One thread always
// runs at one level, and the engine runs at most a fixed number of threads at once; the notes
// say so when it matters.
TThreadSettingsReading ReadThreadSettings(std::string_view text);
