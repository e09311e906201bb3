#include "registers/TableCollection.h"

#include "registers/TableGenerator.h"

const TEndgameTable* CTableCollection::Find(const TTableMaterial& material) const {
  return Find(material.Name());
}

const TEndgameTable* CTableCollection::Find(const std::string& name) const {
  const auto found = tables.find(name);
  return found == tables.end() ? nullptr : found->second.get();
}

void CTableCollection::Add(std::unique_ptr<TEndgameTable> table) {
  const std::string name = table->Material().Name();
  tables[name] = std::move(table);
}

std::unique_ptr<TEndgameTable> CTableCollection::Remove(const std::string& name) {
  const auto found = tables.find(name);
  if (found == tables.end()) return nullptr;
  std::unique_ptr<TEndgameTable> table = std::move(found->second);
  tables.erase(found);
  return table;
}

const TEndgameTable* CTableCollection::Generate(const TTableMaterial& material, int nThreads,
                                                const TProgress& progress) {
  for (const TTableMaterial& next : material.Successors())
    if (next.WhiteCanMate() && Find(next) == nullptr) Generate(next, nThreads, progress);
  CTableGenerator generator(
      material, [this](const TTableMaterial& m) { return Find(m); }, nThreads);
  Add(generator.Generate([&](double fraction) {
    if (progress) progress(material.Name(), fraction);
  }));
  return Find(material);
}
