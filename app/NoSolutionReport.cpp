#include "app/NoSolutionReport.h"

namespace {

constexpr TTextTwins kNotFound{"Nie znaleziono żadnych rozwiązań dla #",
                               "Not found any solutions for #",
                               "Не знайдено жодного розв'язку для #"};
constexpr TTextTwins kNote{"\n\nUwaga:\n", "\n\nNote:\n", "\n\nПримітка:\n"};
constexpr TTextTwins kRelaxationOff{
    "\t* był tylko jeden przebieg z heurystykami (osłabianie heurystyk zostało wyłączone na "
    "życzenie użytkownika)\n",
    "\t* there was only one pass with heuristcs (relaxation of heuristics was switched off by "
    "user's request)\n",
    "\t* був лише один прохід з евристиками (послаблення евристик вимкнено на прохання "
    "користувача)\n"};
constexpr TTextTwins kPassSkipped{
    "\t* przebieg bez heurystyk został pominięty (na życzenie użytkownika)\n",
    "\t* pass without heuristics has been skipped (on user's request)\n",
    "\t* прохід без евристик пропущено (на прохання користувача)\n"};
constexpr TTextTwins kQuickMode{
    "\t* w trybie szybkim (zob. menu Zaawansowane->Opcje) istnieje małe prawdopodobieństwo "
    "(~0,3%) fałszywie negatywnego wyniku\n",
    "\t* in Quick Mode (see menu Advanced->Options) there exists a small probability (~0.3%) of "
    "false negatives\n",
    "\t* у швидкому режимі (див. меню Додатково->Параметри) існує невелика ймовірність (~0,3%) "
    "хибнонегативного результату\n"};

}  // namespace

std::string NoSolutionReport(int nLanguageId, const TNoSolutionCircumstances& circumstances) {
  std::string reasons;
  if (circumstances.bRelaxationOff) reasons += PickText(nLanguageId, kRelaxationOff);
  if (circumstances.bPassWithoutHeuristicsSkipped) reasons += PickText(nLanguageId, kPassSkipped);
  if (circumstances.bQuickMode) reasons += PickText(nLanguageId, kQuickMode);
  std::string text = PickText(nLanguageId, kNotFound);
  if (circumstances.bSelfmate) text.insert(text.size() - 1, "s");
  text += std::to_string(circumstances.nMoves);
  if (!reasons.empty()) text += PickText(nLanguageId, kNote) + reasons;
  return text;
}
