#include "app/Startup.h"

#include <memory>

#include "app/GuiLog.h"
#include "app/IniFile.h"
#include "app/Language.h"
#include "app/OptionKeys.h"
#include "app/ProcessControl.h"
#include "app/ProgramState.h"
#include "app/platform/SingleInstanceLock.h"

namespace {

constexpr TTextTwins kSecondInstanceNote{
    "Uwaga:\nProgram zostanie otwarty w trybie tylko do odczytu dla plików .lichess.\n"
    "Inna kopia programu już działa. Jeśli kilka kopii ma otwarty ten sam plik z problemami "
    "(.cp), zapisuj go ostrożnie: zmiany zapisane w jednej kopii mogą nadpisać zmiany zapisane "
    "w innej.",
    "Note:\nProgram will be opened in read-only mode for .lichess files.\n"
    "Another instance of the program is already running. If several instances have the same "
    "problem file (.cp) open, save it with care: changes saved in one instance may overwrite "
    "changes saved in another.",
    "Примітка:\nПрограму буде відкрито в режимі лише для читання для файлів .lichess.\n"
    "Інший екземпляр програми вже працює. Якщо кілька екземплярів мають відкритим той самий "
    "файл задач (.cp), зберігайте його обережно: зміни, збережені в одному екземплярі, можуть "
    "перезаписати зміни, збережені в іншому."};

std::unique_ptr<platform::CSingleInstanceLock>& InstanceLock() {
  static std::unique_ptr<platform::CSingleInstanceLock> lock;
  return lock;
}

}  // namespace

std::string SecondInstanceNoteText(int nLanguageId) {
  return PickText(nLanguageId, kSecondInstanceNote);
}

std::vector<std::string> SecondInstanceNotes(const CIniFile& settings) {
  // Read straight from the file: the settings are not loaded yet at this point,
  // hence also the Polish default of the language.
  if (settings.GetInt(kOptionsSection, "WarnAboutSecondInstanceOfProgram", 2) <= 1) return {};
  return {SecondInstanceNoteText(settings.GetInt(kOptionsSection, "LanguageId", 0))};
}

void ApplyLanguage(int nLanguageId) {
  GetProgramState().nLanguageId = nLanguageId;
}

std::vector<std::string> StartProgram(const std::filesystem::path& workFolder) {
  ProgramState& state = GetProgramState();
  InstanceLock() =
      std::make_unique<platform::CSingleInstanceLock>(workFolder / platform::kInstanceLockFileName);
  state.bSecondInstance = InstanceLock()->IsSecondInstance();
  std::vector<std::string> notes;
  if (state.bSecondInstance) {
    CIniFile settings;
    settings.Load(workFolder / "options.ini");
    notes = SecondInstanceNotes(settings);
  }
  LowerProcessPriorityAtStart();
  state.guiLogPath = workFolder / kGuiLogFileName;
  AppendTimedLogLine(state.guiLogPath, "Program opened");
  return notes;
}

void ShutDownProgram() {
  AppendTimedLogLine(GetProgramState().guiLogPath, "Program close");
  InstanceLock().reset();
}
