#include "problems/OptionReader.h"

#include <algorithm>
#include <string>
#include <vector>

#include "problems/HeuristicCatalogue.h"
#include "problems/ProblemFileError.h"
#include "problems/SortIndication.h"
#include "problems/TextTools.h"

namespace optionreader {
namespace {

struct TFlagOption {
  std::string_view name;
  std::uint16_t flag;
};

constexpr TFlagOption kFlagOptions[] = {
    {"NOMIRROR", option::kNoMirror},
    {"ALLSOLUTIONS", option::kAllSolutions},
    {"STOPONDUAL", option::kStopOnDual},
    {"STOPON3SOL", option::kStopOn3Sol},
    {"MIRRORONLY", option::kMirrorOnly},
    {"USEMAINVARIANTASSORTINDICATIONS", option::kUseMainVariantAsSortIndications},
    {"NOGLOBREG", option::kNoGlobReg},
    {"SAFEMODE", option::kSafeMode},
    {"REQUIRESSYZYGY", option::kRequiresSyzygy},
    {"ALLSOLUTIONSREQUIRESSYZYGY", option::kAllSolutionsRequiresSyzygy},
    {"STOPRELAXHEURISTICSONFIRSTSOLUTION", 0},  // no bit: bStopRelaxingOnFirstSolution
};

constexpr TFlagOption kGuiCheckOptions[] = {
    {"GUICHECK", option::kGuiCheck},
    {"GUICHECKBESTDEFENCE", option::kGuiCheckBestDefence},
    {"GUICHECKBESTDEFENCEANDAUX", option::kGuiCheck},
};

// "n" or "n^m": threads, and threads of the second level.
void ReadThreads(CLexer& lexer, TProblem& problem) {
  const TToken token = lexer.NextWord();
  const std::size_t caret = token.text.find('^');
  problem.nThreads =
      static_cast<std::uint8_t>(NumberIn(token, token.text.substr(0, caret), 0, 254));
  if (caret != std::string_view::npos) {
    problem.nSecondLevelThreads =
        static_cast<std::uint8_t>(NumberIn(token, token.text.substr(caret + 1), 0, 255));
  }
}

// Parameter words in brackets; tokens that touch each other form one word ("#2-Preliminary").
std::vector<std::string> ReadParameterWords(CLexer& lexer) {
  std::vector<std::string> words;
  std::size_t lastEnd = std::string::npos;
  for (TToken token = lexer.NextRequired(); !token.IsSymbol(')'); token = lexer.NextRequired()) {
    if (token.IsSymbol(',')) {
      lastEnd = std::string::npos;
      continue;
    }
    if (token.offset == lastEnd) {
      words.back() += token.raw;
    } else {
      words.emplace_back(token.raw);
    }
    lastEnd = token.End();
  }
  return words;
}

void ReadHeuristic(CLexer& lexer, TProblem& problem, int index, const TToken& name) {
  const TToken next = lexer.NextRequired();
  if (next.IsSymbol('(')) {
    problem.heuristicSettings[index] = ReadParameterWords(lexer);
  } else if (next.IsWord({"OFF"})) {
    problem.heuristicSettings[index] = {"OFF"};
  } else {
    FailAt(next.offset, "Unexpected lexem after " + std::string(name.text) + ": " +
                            std::string(next.raw) + " (expected opening bracket or OFF)");
  }
}

bool ReadFlagOption(TProblem& problem, std::string_view word) {
  for (const TFlagOption& entry : kFlagOptions) {
    if (!text::EqualsNoCase(word, entry.name)) continue;
    problem.options |= entry.flag;
    if (entry.flag == option::kUseMainVariantAsSortIndications) {
      problem.bUseMainVariantAsSortIndications = true;
    }
    if (entry.flag == 0) problem.bStopRelaxingOnFirstSolution = true;
    return true;
  }
  return false;
}

bool ReadValueOption(CLexer& lexer, TProblem& problem, std::string_view word) {
  for (const TFlagOption& entry : kGuiCheckOptions) {
    if (!text::EqualsNoCase(word, entry.name)) continue;
    problem.options |= entry.flag;
    // The level may be left out: the writer leaves out level 1.
    const TToken level = lexer.Peek();
    if (level.kind == TTokenKind::kWord && text::IsDigit(level.text.front())) {
      problem.guiCheckLevel = std::max(1, lexer.NextNumber(0, 1000000));
    }
    return true;
  }
  const auto is = [word](std::string_view name) { return text::EqualsNoCase(word, name); };
  if (is("THREADS")) {
    ReadThreads(lexer, problem);
  } else if (is("SCHEDULERLEVELS")) {
    problem.nSchedulerLevels = static_cast<std::uint8_t>(lexer.NextNumber(0, 255));
  } else if (is("GLOBREGMB")) {
    problem.nGlobalRegisterMegabytes = lexer.NextNumber(0, 1 << 30);
  } else if (is("LICHESSLEVELS")) {
    problem.nLichessLevels = lexer.NextNumber(0, 1 << 30);
  } else if (is("REQUIRES") || is("ONLYIFAVAIL")) {
    problem.requiredResources.emplace(lexer.NextWord().text);
  } else if (is("ALLSOLUTIONSREQUIRES")) {
    problem.allSolutionsRequiredResources.emplace(lexer.NextWord().text);
  } else {
    return false;
  }
  return true;
}

void AddSortIndications(TProblem& problem, const TToken& token, int nLanguageId) {
  try {
    for (auto& [number, elements] :
         sortindication::ParseList(std::string(token.text), nLanguageId)) {
      auto& list = problem.sortIndications[number];
      list.insert(list.end(), elements.begin(), elements.end());
    }
  } catch (const ChessException& e) {
    FailAt(token.offset, e.what());
  }
}

void ReadDirective(CLexer& lexer, TProblem& problem, const TToken& token, int nLanguageId) {
  switch (token.kind) {
    case TTokenKind::kTagsHeader:
      while (lexer.Peek().kind == TTokenKind::kTag) {
        const TToken tag = lexer.Next();
        if (!tag.text.empty()) problem.tags.emplace(tag.text);
      }
      break;
    case TTokenKind::kVariantsHeader:
      while (lexer.Peek().kind == TTokenKind::kVariant)
        problem.variants.emplace_back(lexer.Next().text);
      if (lexer.Peek().kind == TTokenKind::kVariantsEnd) lexer.Next();
      break;
    case TTokenKind::kSortIndications:
      AddSortIndications(problem, token, nLanguageId);
      break;
    default:
      break;  // a member line outside its block is an ordinary comment
  }
}

}  // namespace

void ReadUpToBody(CLexer& lexer, TProblem& problem, int nLanguageId) {
  for (;;) {
    const TToken token = lexer.NextRequired();
    if (token.IsSymbol('{')) return;
    if (token.IsDirective()) {
      ReadDirective(lexer, problem, token, nLanguageId);
      continue;
    }
    if (token.kind != TTokenKind::kWord) FailAt(token.offset, "Opening bracket expected.");
    if (ReadFlagOption(problem, token.text) || ReadValueOption(lexer, problem, token.text))
      continue;
    if (const int index = heuristics::IndexOfName(token.text); index >= 0) {
      ReadHeuristic(lexer, problem, index, token);
      continue;
    }
    FailAt(token.offset, "Opening bracket expected { or unrecognized option encountered: " +
                             std::string(token.text));
  }
}

}  // namespace optionreader
