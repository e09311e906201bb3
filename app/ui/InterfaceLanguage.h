#pragma once
// The language of the window's own texts: the compiled translations built into the program,
// one installed at a time, and the choice kept as LanguageId in the settings file. Every
// label, button and tooltip keeps its English text, from which it is translated again at
// each change of language.
#include <QString>
#include <filesystem>
#include <initializer_list>

class QAction;
class QMenu;
class QWidget;

// Installs the translation for the language id (0 Polish, 2 Ukrainian, any other English,
// which needs none), replacing the one installed before.
void InstallTranslation(int nLanguageId);

// Writes LanguageId into the settings file, keeping everything else in it; false when the
// file cannot be written.
bool StoreLanguageId(int nLanguageId, const std::filesystem::path& iniFile);

// A text of the window (buttons, messages, titles, and the position checks' reasons that the
// window shows) in the language installed; a text without a translation stays as it is.
QString WindowText(const char* text);

// A menu command, a menu or submenu (added to a menu bar or a menu), and commands shown but not
// offered yet (disabled), each labelled in the language installed and relabelled by
// RetranslateAll.
QAction* AddLabelled(QMenu* menu, const char* label);
QMenu* AddMenu(QWidget* parent, const char* title);
void AddLater(QMenu* menu, std::initializer_list<const char*> labels);
// The command under root shown but not offered yet by that label; null when there is none.
QAction* FindLater(QWidget* root, const char* label);

// A button's or label's text and a widget's tooltip, kept in English for RetranslateAll.
void SetWindowText(QWidget* widget, const char* text);
void SetWindowToolTip(QWidget* widget, const char* tip);

// Relabels every action and widget under root that was labelled by the functions above.
void RetranslateAll(QWidget* root);
