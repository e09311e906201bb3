#include "app/ThreadSettings.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "engine/MateSolver.h"

namespace {

constexpr long long kMaxThreadTotal = 32767;
constexpr unsigned kMaxThreads = 64;
constexpr unsigned kMaxLevels = 64;

std::optional<unsigned> ReadNumber(std::string_view digits) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return value;
}

// t^L, the threads the settings run at once; an admissible total keeps it small.
long long ThreadsAtOnce(const TThreadSettings& settings) {
  long long nThreads = 1;
  for (unsigned level = 0; level < settings.nLevels; ++level) nThreads *= settings.nThreads;
  return nThreads;
}

}  // namespace

TThreadSettings DefaultThreadSettings(unsigned nPhysicalCores, unsigned nLogicalProcessors,
                                      unsigned nLevelsFromFile) {
  if (nPhysicalCores >= 8 || (nPhysicalCores >= 6 && nLogicalProcessors >= 12)) {
    const auto root = static_cast<unsigned>(std::sqrt(static_cast<double>(nPhysicalCores)));
    return {.nThreads = std::max(root, 4u), .nLevels = 2};
  }
  return {.nThreads = nPhysicalCores, .nLevels = nLevelsFromFile};
}

bool IsAdmissibleThreadTotal(unsigned nThreads, unsigned nLevels) {
  long long power = nThreads;
  long long sum = nThreads;
  for (unsigned i = 2; i <= nLevels; ++i) {
    power *= nThreads;
    sum += power;
    if (power > kMaxThreadTotal || sum > kMaxThreadTotal) return false;
  }
  return sum < kMaxThreadTotal;
}

TThreadSettingsReading ReadThreadSettings(std::string_view text) {
  TThreadSettingsReading reading;
  const std::size_t caret = text.find('^');
  const auto nThreads = ReadNumber(text.substr(0, caret));
  const auto nLevels = caret == text.npos ? std::optional(1u) : ReadNumber(text.substr(caret + 1));
  const std::string quoted = "\"" + std::string(text) + "\"";
  if (!nThreads || !nLevels) {
    reading.sRefusal = quoted + " is not T or T^L (threads, and levels after the ^)";
    return reading;
  }
  if (*nThreads < 1 || *nThreads > kMaxThreads || *nLevels < 1 || *nLevels > kMaxLevels) {
    reading.sRefusal = quoted + ": threads and levels go from 1 to 64";
    return reading;
  }
  TThreadSettings settings{*nThreads, *nLevels};
  if (settings.nThreads == 1 && settings.nLevels > 1) {
    reading.notes.push_back(quoted + ": one thread runs at one level");
    settings.nLevels = 1;
  }
  if (!IsAdmissibleThreadTotal(settings.nThreads, settings.nLevels)) {
    reading.sRefusal = quoted + " is too many threads: t + t^2 + ... + t^L must stay below " +
                       std::to_string(kMaxThreadTotal);
    return reading;
  }
  const int nWorkers = CMateSolver::WorkerCount(static_cast<int>(settings.nThreads),
                                                static_cast<int>(settings.nLevels));
  if (const long long nAsked = ThreadsAtOnce(settings); nAsked > nWorkers)
    reading.notes.push_back(quoted + " asks for " + std::to_string(nAsked) +
                            " threads at once; the engine runs " + std::to_string(nWorkers) +
                            ", its most");
  reading.settings = settings;
  return reading;
}
