#include "app/SolvingRegistry.h"

#include <algorithm>

std::string_view SolvingRegistry::KeyOf(std::string_view name) {
  return name.substr(0, name.find('_'));
}

void SolvingRegistry::Add(const std::string& name, int nThreads) {
  auto entry = std::make_unique<TEntry>();
  entry->name = name;
  entry->nThreads.store(nThreads);
  const std::lock_guard lock(mutex);
  entries.push_back(std::move(entry));
}

SolvingRegistry::TEntries::const_iterator SolvingRegistry::FindLocked(std::string_view name) const {
  const std::string_view key = KeyOf(name);
  return std::find_if(entries.begin(), entries.end(),
                      [key](const auto& entry) { return KeyOf(entry->name) == key; });
}

bool SolvingRegistry::Remove(std::string_view name) {
  const std::lock_guard lock(mutex);
  const auto found = FindLocked(name);
  if (found == entries.end()) return false;
  (*found)->nThreads.fetch_sub(1);
  if (found == entries.begin())
    entries.pop_front();
  else
    entries.erase(found);
  return true;
}

bool SolvingRegistry::Contains(std::string_view name) const {
  const std::lock_guard lock(mutex);
  return FindLocked(name) != entries.end();
}

std::optional<int> SolvingRegistry::ThreadsRunning(std::string_view name) const {
  const std::lock_guard lock(mutex);
  const auto found = FindLocked(name);
  if (found == entries.end()) return std::nullopt;
  return (*found)->nThreads.load();
}

std::size_t SolvingRegistry::Size() const {
  const std::lock_guard lock(mutex);
  return entries.size();
}

SolvingRegistry& GetSolvingRegistry() {
  static SolvingRegistry registry;
  return registry;
}
