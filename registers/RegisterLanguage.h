#pragma once

// Language of the register's user-visible texts, set once from the program's language
// setting: 0 picks Polish, any other value English.
void SetRegisterLanguageId(int languageId);
int RegisterLanguageId();
