#include "app/SolutionReport.h"

#include "engine/SearchContext.h"
#include "registers/ChessboardRegister.h"

namespace {

// Enough for the trees of long problems; the register takes room only as it fills.
constexpr std::uint32_t kTreeRegisterEntries = 2'000'000;

std::string MarkedWhiteMove(const TSolutionMove& step) {
  if (step.nMovesToMate == 1) return step.text + "#";
  return step.text + " (#" + std::to_string(step.nMovesToMate) + ")" + (step.bCut ? " ..." : "");
}

void AddLines(const TSolutionMove& step, int nMove, const std::string& indent,
              std::vector<std::string>& lines) {
  lines.push_back(indent + std::to_string(nMove) + ". " + MarkedWhiteMove(step));
  for (const TSolutionDefence& defence : step.defences) {
    lines.push_back(indent + "  " + std::to_string(nMove) + "... " + defence.text +
                    (defence.bBest ? " (best)" : ""));
    AddLines(defence.answer, nMove + 1, indent + "    ", lines);
  }
}

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::string NodeJson(const TSolutionMove& step) {
  std::string json =
      "{\"move\":" + Quoted(step.text) + ",\"mateIn\":" + std::to_string(step.nMovesToMate);
  if (step.bCut) json += ",\"cut\":true";
  json += ",\"defences\":[";
  for (std::size_t i = 0; i < step.defences.size(); ++i) {
    const TSolutionDefence& defence = step.defences[i];
    json += std::string(i == 0 ? "" : ",") + "{\"move\":" + Quoted(defence.text) +
            ",\"best\":" + (defence.bBest ? "true" : "false") +
            ",\"answer\":" + NodeJson(defence.answer) + "}";
  }
  return json + "]}";
}

}  // namespace

std::vector<TSolutionMove> BuildSolutionTrees(const TChessboard& start, int nMoves,
                                              const std::vector<TMove>& keys, int nMaxWhiteMoves,
                                              std::stop_token stop) {
  TChessboardRegister<bool> reg(kTreeRegisterEntries);
  SearchContext context;
  context.pRegister = &reg;
  const std::stop_callback onStop(stop, [&context] { context.run.Stop(); });
  CSolutionTreeBuilder builder(context, start, nMoves, nMaxWhiteMoves);
  std::vector<TSolutionMove> trees;
  for (const TMove key : keys) trees.push_back(builder.Build(key));
  return trees;
}

std::vector<std::string> SolutionTreeLines(const TSolutionMove& tree) {
  std::string main = "Main variation:";
  int nMove = 1;
  const TSolutionMove* step = &tree;
  for (;; step = &step->defences.front().answer, ++nMove) {
    main += " " + std::to_string(nMove) + ". " + step->text;
    if (step->defences.empty()) break;
    main += " " + step->defences.front().text;
  }
  // The line ends in mate unless the tree was cut there.
  std::vector<std::string> lines{main + (step->bCut ? " ..." : "#")};
  AddLines(tree, 1, "", lines);
  return lines;
}

std::string SolutionTreesJson(int nProblem, int nMoves, const std::vector<TSolutionMove>& trees) {
  std::string json = "{\"problem\":" + std::to_string(nProblem) +
                     ",\"moves\":" + std::to_string(nMoves) + ",\"solutions\":[";
  for (std::size_t i = 0; i < trees.size(); ++i) {
    std::string main;
    for (const std::string* text : MainVariation(trees[i])) {
      if (!main.empty()) main += ',';
      main += Quoted(*text);
    }
    json += std::string(i == 0 ? "" : ",") + "{\"key\":" + Quoted(trees[i].text) +
            ",\"mainVariation\":[" + main + "],\"tree\":" + NodeJson(trees[i]) + "}";
  }
  return json + "]}";
}
