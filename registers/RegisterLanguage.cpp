#include "registers/RegisterLanguage.h"

#include <atomic>

namespace {
std::atomic<int> languageId{1};
}  // namespace

void SetRegisterLanguageId(int id) {
  languageId.store(id, std::memory_order_relaxed);
}

int RegisterLanguageId() {
  return languageId.load(std::memory_order_relaxed);
}
