#include "app/SolvingReports.h"

#include <cstdio>

#include "app/Language.h"
#include "app/NoSolutionReport.h"

namespace {

constexpr TTextTwins kThreadSolving{"Wątek rozwiązujący problem ", "Thread solving problem ",
                                    "Потік, що розв'язує задачу "};
constexpr TTextTwins kCompletedSuccessfully{" zakończył pracę pomyślnie.",
                                            " completed successfully.", " завершився успішно."};
constexpr TTextTwins kCompletedWithErrorText{
    " zakończył pracę z błędem:", " completed with error:", " завершився з помилкою:"};
constexpr TTextTwins kCompletedWithError{" zakończył pracę z błędem.", " completed with error.",
                                         " завершився з помилкою."};
constexpr TTextTwins kPass2SwitchedOff{
    " UWAGA: Przebieg bez heurystyk jest obecnie wyłączony (zob. okno wyboru heurystyk)",
    " NOTE: Pass without heuristics is currently switched off (see heuristics selection dialog "
    "box)",
    " УВАГА: Прохід без евристик зараз вимкнено (див. вікно вибору евристик)"};
constexpr TTextTwins kNoSolutionFound{"Nie znaleziono rozwiązania problemu ",
                                      "No solution found of the problem ",
                                      "Не знайдено розв'язку задачі "};
constexpr TTextTwins kSolutionsFound{" rozwiązanie(-a) znalezione dla problemu ",
                                     " solution(s) found of the problem ",
                                     " розв'язок(-ки) знайдено для задачі "};
constexpr TTextTwins kEngineCompleted{"Silnik zakończył pracę: %s", "Engine has completed: %s",
                                      "Рушій завершив роботу: %s"};
constexpr TTextTwins kEngineStopped{"Silnik zatrzymany: %s", "Engine stopped: %s",
                                    "Рушій зупинено: %s"};
constexpr TTextTwins kThreadStopped{"Wątek zatrzymany", "Thread stopped", "Потік зупинено"};
constexpr TTextTwins kThreadStartFailed{"Nie udało się uruchomić wątków rozwiązujących (kod 128).",
                                        "The solving threads could not be started (code 128).",
                                        "Не вдалося запустити потоки розв'язування (код 128)."};
constexpr TTextTwins kUnknownError{"Nieznany błąd.", "Unknown error.", "Невідома помилка."};
constexpr TTextTwins kSolvingStopped{"Rozwiązywanie zostało zatrzymane.",
                                     "Solving has been stopped.", "Розв'язування зупинено."};
constexpr TTextTwins kMoreThanOne{"Znaleziono więcej niż jedno rozwiązanie: %d",
                                  "More than one solution found: %d",
                                  "Знайдено більше ніж один розв'язок: %d"};
constexpr TTextTwins kStoppedOnDual{
    "Szukanie rozwiązań zostało zatrzymane po wykryciu dualu.",
    "Search for solutions has been stopped after detection of dual.",
    "Пошук розв'язків зупинено після виявлення дуалю."};
constexpr TTextTwins kStoppedOn3Sol{
    "Szukanie rozwiązań zostało zatrzymane po znalezieniu 3 rozwiązań",
    "Search for solutions has been stopped after finding 3 solutions",
    "Пошук розв'язків зупинено після знаходження 3 розв'язків"};
constexpr TTextTwins kForcedThreadsBefore{"Silnik chce wymusić inną liczbę wątków (",
                                          "Engine wants to force a different number of threads (",
                                          "Рушій хоче примусово змінити кількість потоків ("};
constexpr TTextTwins kForcedThreadsAfter{"). Czy akceptujesz?", "). Do you accept it?",
                                         "). Ви погоджуєтеся?"};
constexpr TTextTwins kTooManySolves{"Zbyt wiele problemów rozwiązywanych jednocześnie.",
                                    "Too many problems being solved at the same time.",
                                    "Забагато задач розв'язується одночасно."};

// Fills the one %s or %d of a text.
template <typename TValue>
std::string Fill(const char* format, TValue value) {
  const int nLength = std::snprintf(nullptr, 0, format, value);
  std::string text(static_cast<std::size_t>(nLength) + 1, '\0');
  std::snprintf(text.data(), text.size(), format, value);
  text.pop_back();
  return text;
}

}  // namespace

std::string ThreadCompletionText(int nLanguageId, const std::string& label, bool bFailed,
                                 const std::string& sError) {
  const TTextTwins& ending = !bFailed         ? kCompletedSuccessfully
                             : sError.empty() ? kCompletedWithError
                                              : kCompletedWithErrorText;
  return PickText(nLanguageId, kThreadSolving) + label + PickText(nLanguageId, ending);
}

std::string SolutionCountText(int nLanguageId, const std::string& label, int nSolutions) {
  if (nSolutions == 0) return PickText(nLanguageId, kNoSolutionFound) + label;
  return std::to_string(nSolutions) + PickText(nLanguageId, kSolutionsFound) + label;
}

std::string EngineEndText(int nLanguageId, const std::string& label, bool bStopped) {
  return Fill(PickText(nLanguageId, bStopped ? kEngineStopped : kEngineCompleted), label.c_str());
}

std::string ThreadStoppedText(int nLanguageId) {
  return PickText(nLanguageId, kThreadStopped);
}

std::string ThreadStartFailedText(int nLanguageId) {
  return PickText(nLanguageId, kThreadStartFailed);
}

std::string UnknownErrorText(int nLanguageId) {
  return PickText(nLanguageId, kUnknownError);
}

std::string SolvingStoppedText(int nLanguageId) {
  return PickText(nLanguageId, kSolvingStopped);
}

std::vector<std::string> CompletionReport(int nLanguageId, const std::string& label,
                                          const TSolvingResult& result) {
  std::vector<std::string> lines;
  const bool bFailed = !result.sError.empty();
  // A failure is reported as such, whether or not a stop came with it.
  const bool bStopped = result.bStopped && !bFailed;
  if (bStopped) lines.push_back(ThreadStoppedText(nLanguageId));
  lines.push_back(EngineEndText(nLanguageId, label, bStopped));
  if (!bStopped) lines.push_back(ThreadCompletionText(nLanguageId, label, bFailed, result.sError));
  if (bFailed) lines.push_back(result.sError);
  // The keys found before a stop are real, but "none" would claim what was not searched.
  if (!bStopped || result.nSolutions > 0)
    lines.push_back(SolutionCountText(nLanguageId, label, result.nSolutions));
  if (!bStopped && result.bPass2Skipped) lines.push_back(PickText(nLanguageId, kPass2SwitchedOff));
  return lines;
}

std::optional<std::string> ResultBoxText(int nLanguageId, ESolvingMode mode, int nSolutions,
                                         int nMoves, bool bQuickMode, bool bSelfmate) {
  if (nSolutions == 0)
    return NoSolutionReport(nLanguageId,
                            {.nMoves = nMoves, .bQuickMode = bQuickMode, .bSelfmate = bSelfmate});
  if (nSolutions == 1) return std::nullopt;
  if (mode == ESolvingMode::StopOnDual) return PickText(nLanguageId, kStoppedOnDual);
  if (mode == ESolvingMode::StopOn3Sol && nSolutions >= 3)
    return PickText(nLanguageId, kStoppedOn3Sol);
  return Fill(PickText(nLanguageId, kMoreThanOne), nSolutions);
}

std::string ForcedThreadsQuestion(int nLanguageId, unsigned nThreads) {
  return PickText(nLanguageId, kForcedThreadsBefore) + std::to_string(nThreads) +
         PickText(nLanguageId, kForcedThreadsAfter);
}

std::string TooManySolvesText(int nLanguageId) {
  return PickText(nLanguageId, kTooManySolves);
}

std::string AlreadySolvingText(int nLanguageId) {
  return PickText(nLanguageId, {"Problem jest już rozwiązywany.",
                                "A problem is being solved already.", "Задача вже розв'язується."});
}

std::string OnlyMatesText(int nLanguageId) {
  return PickText(nLanguageId, {"Rozwiązywane są tylko maty wprost (#N) i samomaty (s#N).",
                                "Only direct mates (#N) and selfmates (s#N) are solved.",
                                "Розв'язуються лише прямі мати (#N) і зворотні мати (s#N)."});
}
