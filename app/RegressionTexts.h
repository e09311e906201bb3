#pragma once
// The lines of the regression log. label is the thread label of the solve ("SnglSolution,
// 4thrd(s)"), suffix the pass suffix ("" or " M1"); every line ends with a line feed.
#include <cstdint>
#include <string>
#include <vector>

namespace regression {

inline constexpr const char* kRequiresNotSatisfied = "Requires clause not satisfied\n";
inline constexpr const char* kAllSolutionsRequiresNotSatisfied =
    "AllSolutionsRequires clause not satisfied\n";
inline constexpr const char* kRequiresSyzygyNotSatisfied = "RequiresSyzygy not satisfied\n";
inline constexpr const char* kAllSolutionsRequiresSyzygyNotSatisfied =
    "AllSolutionsRequiresSyzygy not satisfied\n";
// What a problem without a recorded solution reports when nothing was found.
inline constexpr const char* kNoSolution = "No solution";
// What names a position of the mirrored pass.
inline constexpr const char* kMirrorMark = "Mirror: ";

// "" for the position as given, " M1" for the mirrored pass.
std::string PassSuffix(int nMirrorPass);
// The found keys joined by ", ", kNoSolution when there are none; marked for the mirror pass.
std::string FoundText(const std::vector<std::string>& keys, int nMirrorPass);

// "[label] Prob.#12 Qd1-d7, Qd1-d8 (1500 msec).": a problem that records no solution.
std::string ProblemLine(const std::string& label, int nId, const std::string& suffix,
                        const std::string& found, std::int64_t nMs);
// "[label] Test #12 ok (1500 msec)."
std::string OkLine(const std::string& label, int nId, const std::string& suffix, std::int64_t nMs);
// The same for a problem that records only the order of White's first moves.
std::string SortOnlyOkLine(const std::string& label, int nId, std::int64_t nMs);
// The found and recorded keys, each block a line of its own.
std::string MismatchLine(const std::string& label, int nId, const std::string& suffix,
                         const std::string& found, const std::string& shouldBe);
// Any other failure, with its text.
std::string FailedLine(const std::string& label, int nId, const std::string& suffix,
                       const std::string& text);
// "ExpectedSortWhiteMoves failed: move Qd1-d7"
std::string SortFailedText(const std::string& move);
// "Solving time limit hit: 64 seconds"
std::string TimeLimitLine(int nSeconds);

}  // namespace regression
