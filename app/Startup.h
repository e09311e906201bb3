#pragma once
// The steps around the life of the program: telling a second copy from the
// first, lowering the priority, and logging the start and the end.
#include <filesystem>
#include <string>
#include <vector>

class CIniFile;

// Runs the start-up steps in the given working folder and returns the notes
// to show the user (the second-instance note when the settings ask for it).
// Makes the program speak the language of the settings (0 Polish, 2 Ukrainian, any other
// value English). The registers are told the language by whoever makes them.
void ApplyLanguage(int nLanguageId);

std::vector<std::string> StartProgram(const std::filesystem::path& workFolder);
// Logs the end and lets the next copy be the first.
void ShutDownProgram();

// The note a second copy shows, in the language of the settings file, or
// nothing when WarnAboutSecondInstanceOfProgram is 1 or less.
std::vector<std::string> SecondInstanceNotes(const CIniFile& settings);
std::string SecondInstanceNoteText(int nLanguageId);
