#include "registers/TableCollection.h"

#include <chrono>

#include "registers/TableGenerator.h"

const TEndgameTable* CTableCollection::Find(const TTableMaterial& material) const {
  return Find(material.Name());
}

const TEndgameTable* CTableCollection::Find(const std::string& name) const {
  const auto found = tables.find(name);
  return found == tables.end() ? nullptr : found->second.get();
}

void CTableCollection::Add(std::shared_ptr<const TEndgameTable> table) {
  const std::string name = table->Material().Name();
  tables[name] = std::move(table);
}

void CTableCollection::Provide(const TTableMaterial& material, int nThreads, const THooks& hooks) {
  for (const TTableMaterial& next : material.Successors()) {
    if (!next.WhiteCanMate() || Find(next) != nullptr) continue;
    if (auto found = hooks.find ? hooks.find(next) : nullptr) {
      Add(std::move(found));
      continue;
    }
    if (!Generate(next, nThreads, hooks)) return;
  }
}

const TEndgameTable* CTableCollection::Generate(const TTableMaterial& material, int nThreads,
                                                const THooks& hooks) {
  Provide(material, nThreads, hooks);
  if (hooks.stop.stop_requested()) return nullptr;
  const auto start = std::chrono::steady_clock::now();
  CTableGenerator generator(
      material, [this](const TTableMaterial& m) { return Find(m); }, nThreads);
  std::shared_ptr<const TEndgameTable> table = generator.Generate(
      [&](double fraction) {
        if (hooks.progress) hooks.progress(material.Name(), fraction);
      },
      hooks.stop);
  if (!table) return nullptr;
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  if (hooks.generated) hooks.generated(*table, seconds.count());
  Add(table);
  return table.get();
}
