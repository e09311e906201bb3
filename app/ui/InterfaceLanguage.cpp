#include "app/ui/InterfaceLanguage.h"

#include <QCoreApplication>
#include <QTranslator>
#include <string>

#include "app/IniFile.h"

namespace {

QTranslator& Translator() {
  static QTranslator translator;
  return translator;
}

}  // namespace

void InstallTranslation(int nLanguageId) {
  QCoreApplication::removeTranslator(&Translator());
  const char* name = nLanguageId == 0   ? ":/i18n/longmate_pl.qm"
                     : nLanguageId == 2 ? ":/i18n/longmate_uk.qm"
                                        : nullptr;
  if (name != nullptr && Translator().load(name))
    QCoreApplication::installTranslator(&Translator());
}

bool StoreLanguageId(int nLanguageId, const std::filesystem::path& iniFile) {
  CIniFile settings;
  settings.Load(iniFile);  // a missing file is made anew
  settings.SetString("chess", "LanguageId", std::to_string(nLanguageId));
  return settings.Save(iniFile);
}
