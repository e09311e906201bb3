#pragma once
// The register's messages exist in Polish and English; whoever makes a register tells it
// which to use.

enum class ERegisterLanguage { Polish, English };

// The program's language setting mapped onto the register's: 0 Polish, any other value
// English.
constexpr ERegisterLanguage RegisterLanguageOf(int nLanguageId) {
  return nLanguageId == 0 ? ERegisterLanguage::Polish : ERegisterLanguage::English;
}
