#include "engine/LastMoveReport.h"

#include <vector>

#include "core/MoveGeneration.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "core/TextTwins.h"

namespace {

constexpr TTextTwins kLastMoveNoMate{"Ostatni ruch, brak mata. ", "Last move, no mate. ",
                                     "Останній хід, мату немає. "};
constexpr TTextTwins kDefence{"Obrona: ", "Defence: ", "Захист: "};
constexpr TTextTwins kDefences{"Obrony: ", "Defences: ", "Захисти: "};

}  // namespace

std::string LastMoveReport(const TChessboard& position, int nLanguageId) {
  std::string report = PickText(nLanguageId, kLastMoveNoMate);
  if (!position.IsBlackInCheck()) return report;
  TMove moves[kMoveBufferSize];
  const int n = movegen::GenerateEvasions(position, moves);
  std::vector<std::string> replies;
  TChessboard child;
  for (int i = 0; i < n; ++i) {
    child = position;
    child.parent = &position;
    if (movemaking::MakeBlackMove(child, moves[i]) > 0)
      replies.push_back(notation::MoveToText(position, moves[i]));
  }
  report += PickText(nLanguageId, replies.size() == 1 ? kDefence : kDefences);
  for (std::size_t i = 0; i < replies.size(); ++i) report += (i == 0 ? "" : ", ") + replies[i];
  return report;
}
