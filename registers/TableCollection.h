#pragma once
#include <functional>
#include <map>
#include <memory>
#include <stop_token>
#include <string>

#include "registers/EndgameTable.h"

// Tables held in memory, by the name of their piece set, and their generation in the order
// their captures and promotions need.
class CTableCollection {
 public:
  struct THooks {
    // The name of the table being generated and the fraction done.
    std::function<void(const std::string& name, double fraction)> progress;
    // A table found elsewhere (a file), so that it need not be generated; null when none.
    std::function<std::shared_ptr<const TEndgameTable>(const TTableMaterial&)> find;
    // Each table generated, with the seconds it took.
    std::function<void(const TEndgameTable& table, double seconds)> generated;
    // Ends the generation: the table being generated is dropped, those done before stay.
    std::stop_token stop;
  };

  const TEndgameTable* Find(const TTableMaterial& material) const;
  const TEndgameTable* Find(const std::string& name) const;
  void Add(std::shared_ptr<const TEndgameTable> table);

  // Generates the table of a material after the tables its captures and promotions lead
  // into; those neither held nor found through the hooks are generated first and kept. Null
  // when stopped.
  const TEndgameTable* Generate(const TTableMaterial& material, int nThreads,
                                const THooks& hooks = {});
  // Makes the tables a material's captures and promotions lead into available.
  void Provide(const TTableMaterial& material, int nThreads, const THooks& hooks);

 private:
  std::map<std::string, std::shared_ptr<const TEndgameTable>> tables;
};
