#include "app/RegressionTexts.h"

namespace regression {

namespace {

std::string Head(const std::string& label, const char* kind, int nId, const std::string& suffix) {
  return "[" + label + "] " + kind + std::to_string(nId) + suffix;
}

std::string Msec(std::int64_t nMs) {
  return " (" + std::to_string(nMs) + " msec)";
}

}  // namespace

std::string PassSuffix(int nMirrorPass) {
  return nMirrorPass == 0 ? "" : " M" + std::to_string(nMirrorPass);
}

std::string FoundText(const std::vector<std::string>& keys, int nMirrorPass) {
  std::string text;
  for (const std::string& key : keys) text += (text.empty() ? "" : ", ") + key;
  if (text.empty()) return kNoSolution;
  return nMirrorPass == 0 ? text : kMirrorMark + text;
}

std::string ProblemLine(const std::string& label, int nId, const std::string& suffix,
                        const std::string& found, std::int64_t nMs) {
  return Head(label, "Prob.#", nId, suffix) + " " + found + Msec(nMs) + ".\n";
}

std::string OkLine(const std::string& label, int nId, const std::string& suffix, std::int64_t nMs) {
  return Head(label, "Test #", nId, suffix) + " ok" + Msec(nMs) + ".\n";
}

std::string SortOnlyOkLine(const std::string& label, int nId, std::int64_t nMs) {
  return Head(label, "Test #", nId, "") + " ok" + Msec(nMs) + " - ExpectedSortWhiteMovesOnly.\n";
}

std::string MismatchLine(const std::string& label, int nId, const std::string& suffix,
                         const std::string& found, const std::string& shouldBe) {
  return Head(label, "Test #", nId, suffix) + " failed:\n\tfound:\n" + found + "\n\tshould be:\n" +
         shouldBe + "\n";
}

std::string FailedLine(const std::string& label, int nId, const std::string& suffix,
                       const std::string& text) {
  return Head(label, "Test #", nId, suffix) + " failed: " + text + "\n";
}

std::string SortFailedText(const std::string& move) {
  return "ExpectedSortWhiteMoves failed: move " + move;
}

std::string TimeLimitLine(int nSeconds) {
  return "Solving time limit hit: " + std::to_string(nSeconds) + " seconds\n";
}

}  // namespace regression
