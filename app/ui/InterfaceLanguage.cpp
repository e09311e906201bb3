#include "app/ui/InterfaceLanguage.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QLabel>
#include <QLibraryInfo>
#include <QMenu>
#include <QMenuBar>
#include <QTranslator>
#include <string>

#include "app/IniFile.h"

namespace {

// The translation contexts: the menus, and the rest of the window.
constexpr const char* kMenuContext = "Menu";
constexpr const char* kWindowContext = "Window";
// The properties that keep the English source of a text.
constexpr const char* kSourceText = "sourceText";
constexpr const char* kSourceToolTip = "sourceToolTip";

QTranslator& Translator() {
  static QTranslator translator;
  return translator;
}

// Qt's own texts (the standard buttons of dialogs, the file dialogs), from Qt's translations.
QTranslator& QtTranslator() {
  static QTranslator translator;
  return translator;
}

QString MenuText(const QByteArray& label) {
  return QCoreApplication::translate(kMenuContext, label.constData());
}

void ShowText(QWidget* widget, const QString& text) {
  if (auto* button = qobject_cast<QAbstractButton*>(widget))
    button->setText(text);
  else if (auto* label = qobject_cast<QLabel*>(widget))
    label->setText(text);
}

}  // namespace

void InstallTranslation(int nLanguageId) {
  QCoreApplication::removeTranslator(&Translator());
  const char* name = nLanguageId == 0   ? ":/i18n/longmate_pl.qm"
                     : nLanguageId == 2 ? ":/i18n/longmate_uk.qm"
                                        : nullptr;
  if (name != nullptr && Translator().load(name))
    QCoreApplication::installTranslator(&Translator());
  QCoreApplication::removeTranslator(&QtTranslator());
  const char* qtName = nLanguageId == 0 ? "qtbase_pl" : nLanguageId == 2 ? "qtbase_uk" : nullptr;
  if (qtName != nullptr &&
      QtTranslator().load(qtName, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&QtTranslator());
}

bool StoreLanguageId(int nLanguageId, const std::filesystem::path& iniFile) {
  CIniFile settings;
  settings.Load(iniFile);  // a missing file is made anew
  settings.SetString("chess", "LanguageId", std::to_string(nLanguageId));
  return !settings.Save(iniFile);
}

QString WindowText(const char* text) {
  return QCoreApplication::translate(kWindowContext, text);
}

QAction* AddLabelled(QMenu* menu, const char* label) {
  QAction* action = menu->addAction(MenuText(label));
  action->setProperty(kSourceText, QByteArray(label));
  return action;
}

QMenu* AddMenu(QWidget* parent, const char* title) {
  auto* menu = new QMenu(MenuText(title), parent);
  menu->menuAction()->setProperty(kSourceText, QByteArray(title));
  if (auto* bar = qobject_cast<QMenuBar*>(parent))
    bar->addMenu(menu);
  else
    qobject_cast<QMenu*>(parent)->addMenu(menu);
  return menu;
}

void AddLater(QMenu* menu, std::initializer_list<const char*> labels) {
  for (const char* label : labels) AddLabelled(menu, label)->setEnabled(false);
}

QAction* FindLater(QWidget* root, const char* label) {
  for (QAction* action : root->findChildren<QAction*>())
    if (!action->isEnabled() && action->objectName().isEmpty() &&
        action->property(kSourceText).toByteArray() == label)
      return action;
  return nullptr;
}

void SetWindowText(QWidget* widget, const char* text) {
  widget->setProperty(kSourceText, QByteArray(text));
  ShowText(widget, WindowText(text));
}

void SetWindowToolTip(QWidget* widget, const char* tip) {
  widget->setProperty(kSourceToolTip, QByteArray(tip));
  widget->setToolTip(WindowText(tip));
}

void RetranslateAll(QWidget* root) {
  for (QAction* action : root->findChildren<QAction*>()) {
    const QByteArray source = action->property(kSourceText).toByteArray();
    if (!source.isEmpty()) action->setText(MenuText(source));
  }
  for (QWidget* widget : root->findChildren<QWidget*>()) {
    const QByteArray text = widget->property(kSourceText).toByteArray();
    if (!text.isEmpty()) ShowText(widget, WindowText(text.constData()));
    const QByteArray tip = widget->property(kSourceToolTip).toByteArray();
    if (!tip.isEmpty()) widget->setToolTip(WindowText(tip.constData()));
  }
}
