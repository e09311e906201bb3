#pragma once
// The endgame tables of a process, shared by the solving session and the "tables" commands:
// loading from the table folders on demand within the memory quota for precalculated data,
// generation with progress, and the messages about files that cannot be used.
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <vector>

#include "app/Options.h"
#include "registers/DiskEndgameTable.h"
#include "registers/EndgameTable.h"
#include "registers/PackedBlockCache.h"
#include "registers/TableProbe.h"

struct TTablesSettings {
  std::filesystem::path folder = "Precalc";  // where tables are written and looked for first
  std::filesystem::path extraFolder;         // looked in as well when not empty
  std::uint64_t nQuotaBytes = 0;             // memory the loaded tables may take
  int nThreads = 2;                          // for generation
  // The search probes tables in their files, block by block, instead of loading them
  // whole; the unpacked blocks share the quota.
  bool bDiskAccess = false;
};

// The settings from options.ini: PrecalcPath, when given, is the folder, and Precalc in the
// working folder is still looked in.
TTablesSettings TablesSettingsFromOptions(const COptions& options);

struct TGeneratedTable {
  std::string name;
  double seconds = 0;        // 0 when the table was already on disk
  std::uint64_t nBytes = 0;  // of the file
  bool bGenerated = false;
};

class CTablesService : public CTableProbe {
 public:
  using TMessageSink = std::function<void(const std::string& message)>;
  using TProgress = std::function<void(const std::string& name, double fraction)>;

  explicit CTablesService(TTablesSettings settings, TMessageSink messages = {});

  std::optional<std::uint8_t> Probe(const TChessboard& board) override;
  // The table of a material, loaded when needed; null when there is none (reported once) or
  // it does not fit in the quota (reported once).
  std::shared_ptr<const TEndgameTable> Acquire(const TTableMaterial& material);
  // The value of a board for the side to move; nothing without a table.
  std::optional<std::uint8_t> ValueOf(const PieceCode* squares, bool bWhiteToMove);

  // Generates the tables not yet on disk (and first those they lead into), writing each. A
  // stop ends it soon, without a file of the table it was generating; the tables finished
  // before are written and listed.
  std::vector<TGeneratedTable> Generate(const std::vector<TTableMaterial>& materials,
                                        const TProgress& progress = {}, std::stop_token stop = {});
  // Loads every table on disk that fits in the quota, so that the first probes do not pay
  // for the reading; returns how many are loaded then.
  std::size_t LoadAll();
  // The tables with a file in the folders.
  std::vector<TTableMaterial> TablesOnDisk() const;
  std::filesystem::path FileOf(const TTableMaterial& material) const;

  struct TLoaded {
    std::string name;
    std::uint64_t nBytes;
  };
  std::vector<TLoaded> Loaded() const;
  std::uint64_t LoadedBytes() const;
  // The tables the search probes in their files, and the bytes of their blocks in memory.
  struct TDiskUse {
    std::size_t nTables = 0;
    std::uint64_t nBlockBytes = 0;
  };
  TDiskUse DiskUse() const;
  const TTablesSettings& Settings() const { return settings; }

 private:
  struct TEntry {
    std::shared_ptr<const TEndgameTable> table;
    std::uint64_t nLastUse = 0;
  };
  // What a probe of a material (keyed by its piece counts) finds: a table, "no mate"
  // without one (White has only the king), or nothing.
  struct TProbeSlot {
    std::shared_ptr<const TEndgameTable> table;
    std::shared_ptr<const CDiskEndgameTable> diskTable;
    bool bNoMate = false;
  };
  std::shared_ptr<const CDiskEndgameTable> OpenOnDisk(const TTableMaterial& material);
  std::optional<std::uint8_t> ProbeOnDisk(const CDiskEndgameTable& table, const TChessboard& board);
  TProbeSlot FindSlot(const TChessboard& board);
  std::shared_ptr<const TEndgameTable> ReadFile(const TTableMaterial& material);
  void MakeRoom(std::uint64_t nBytes);
  void ReportOnce(const std::string& key, const std::string& message);
  // A table file that cannot be used: reported once, unless its set's folder is missing too.
  void NoteUnusableFile(const TTableMaterial& material, const std::filesystem::path& file,
                        const std::string& message);

  TTablesSettings settings;
  TMessageSink messages;
  mutable std::mutex lock;
  std::map<std::string, TEntry> loaded;
  std::map<std::uint32_t, TProbeSlot> slots;  // emptied whenever a table leaves or comes
  std::set<std::string> unusable;             // names without a usable file, reported once
  std::map<std::string, std::shared_ptr<const CDiskEndgameTable>> diskTables;
  CPackedBlockCache blockCache;
  std::uint64_t nLoadedBytes = 0;
  std::uint64_t nUses = 0;
};
