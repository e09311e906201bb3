#pragma once
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "registers/EndgameTable.h"

// Tables held in memory, by the name of their piece set.
class CTableCollection {
 public:
  // Called with the name of the table being generated and the fraction done.
  using TProgress = std::function<void(const std::string& name, double fraction)>;

  const TEndgameTable* Find(const TTableMaterial& material) const;
  const TEndgameTable* Find(const std::string& name) const;
  void Add(std::unique_ptr<TEndgameTable> table);
  std::unique_ptr<TEndgameTable> Remove(const std::string& name);
  const std::map<std::string, std::unique_ptr<TEndgameTable>>& Tables() const { return tables; }

  // Generates the table of a material after the tables its captures and promotions lead
  // into (those not held yet are generated first and kept). Returns the table.
  const TEndgameTable* Generate(const TTableMaterial& material, int nThreads,
                                const TProgress& progress = {});

 private:
  std::map<std::string, std::unique_ptr<TEndgameTable>> tables;
};
