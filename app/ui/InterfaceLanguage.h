#pragma once
// The language of the window's own texts: the compiled translations built into the program,
// one installed at a time, and the choice kept as LanguageId in the settings file.
#include <filesystem>

// Installs the translation for the language id (0 Polish, 2 Ukrainian, any other English,
// which needs none), replacing the one installed before.
void InstallTranslation(int nLanguageId);

// Writes LanguageId into the settings file, keeping everything else in it; false when the
// file cannot be written.
bool StoreLanguageId(int nLanguageId, const std::filesystem::path& iniFile);
