#pragma once
// Short texts of sizes, counts and times for the progress display.
#include <cstdint>
#include <string>

// "999MB", or "1.0GB" from 1000 MB on.
std::string FormatMemorySize(std::uint64_t nBytes);

// A position count in a few characters: "", "949", "1.0k", "949k", "1.0M", "10M", "0.9G".
// The bands are kept as they always were, so 974..1023 print as "0k" and the
// G band already starts at 0.9G.
std::string FormatCount(std::uint32_t nCount);

// "59:59" below an hour, "1:00:00" from an hour on.
std::string FormatElapsed(std::int64_t nSeconds);
