#include "app/TablesService.h"

#include <algorithm>

#include "registers/TableCollection.h"
#include "registers/TableFile.h"

TTablesSettings TablesSettingsFromOptions(const COptions& options) {
  TTablesSettings settings;
  settings.nQuotaBytes = options.nPrecalcQuotaBytes;
  settings.bDiskAccess = options.bGlobalRegisterForceDiskAccess;
  if (!options.sPrecalcPath.empty()) {
    settings.extraFolder = settings.folder;
    settings.folder = options.sPrecalcPath;
  }
  return settings;
}

CTablesService::CTablesService(TTablesSettings tablesSettings, TMessageSink sink)
    : settings(std::move(tablesSettings)),
      messages(std::move(sink)),
      blockCache(settings.nQuotaBytes) {}

std::filesystem::path CTablesService::FileOf(const TTableMaterial& material) const {
  const std::filesystem::path main = tablefile::PathOf(settings.folder, material);
  if (settings.extraFolder.empty() || std::filesystem::exists(main)) return main;
  const std::filesystem::path extra = tablefile::PathOf(settings.extraFolder, material);
  return std::filesystem::exists(extra) ? extra : main;
}

void CTablesService::ReportOnce(const std::string& key, const std::string& message) {
  if (!unusable.insert(key).second) return;
  if (messages) messages(message);
}

void CTablesService::NoteUnusableFile(const TTableMaterial& material,
                                      const std::filesystem::path& file,
                                      const std::string& message) {
  std::lock_guard guard(lock);
  // A set never generated is no news; a file gone from its set's folder is.
  if (std::filesystem::exists(file.parent_path())) {
    ReportOnce(material.Name(), message);
  } else {
    unusable.insert(material.Name());
  }
}

std::shared_ptr<const TEndgameTable> CTablesService::ReadFile(const TTableMaterial& material) {
  const std::filesystem::path file = FileOf(material);
  try {
    return tablefile::Read(file, material);
  } catch (const std::exception& e) {
    NoteUnusableFile(material, file, e.what());
    return nullptr;
  }
}

void CTablesService::MakeRoom(std::uint64_t nBytes) {
  while (nLoadedBytes + nBytes > settings.nQuotaBytes && !loaded.empty()) {
    const auto oldest = std::min_element(
        loaded.begin(), loaded.end(),
        [](const auto& a, const auto& b) { return a.second.nLastUse < b.second.nLastUse; });
    nLoadedBytes -= oldest->second.table->MemoryBytes();
    loaded.erase(oldest);
    slots.clear();
  }
}

std::shared_ptr<const TEndgameTable> CTablesService::Acquire(const TTableMaterial& material) {
  {
    std::lock_guard guard(lock);
    const auto found = loaded.find(material.Name());
    if (found != loaded.end()) {
      found->second.nLastUse = ++nUses;
      return found->second.table;
    }
    if (unusable.count(material.Name()) != 0) return nullptr;
    const std::uint64_t nBytes = 2 * TTableIndex(material).Size();
    if (nBytes > settings.nQuotaBytes) {
      ReportOnce(material.Name(), "Endgame table " + material.Name() + " (" +
                                      std::to_string(nBytes >> 20) +
                                      " MB) does not fit in the memory for precalculated data");
      return nullptr;
    }
  }
  std::shared_ptr<const TEndgameTable> table = ReadFile(material);
  if (table == nullptr) return nullptr;
  std::lock_guard guard(lock);
  const auto found = loaded.find(material.Name());  // another thread may have been quicker
  if (found != loaded.end()) return found->second.table;
  MakeRoom(table->MemoryBytes());
  loaded[material.Name()] = TEntry{table, ++nUses};
  nLoadedBytes += table->MemoryBytes();
  return table;
}

std::optional<std::uint8_t> CTablesService::ValueOf(const PieceCode* squares, bool bWhiteToMove) {
  const auto material = TTableMaterial::OfBoard(squares);
  if (!material) return std::nullopt;
  if (!material->WhiteCanMate()) return tablevalue::kNoMate;
  const auto table = Acquire(*material);
  if (table == nullptr) return std::nullopt;
  return table->ValueOfBoard(bWhiteToMove, squares);
}

CTablesService::TProbeSlot CTablesService::FindSlot(const TChessboard& board) {
  std::uint32_t key = 0;
  for (std::uint8_t count : board.nPieces) key = (key << 3) | (count & 7u);
  {
    std::lock_guard guard(lock);
    const auto found = slots.find(key);
    if (found != slots.end()) return found->second;
  }
  TProbeSlot slot;
  const auto material = TTableMaterial::OfBoard(board.squares);
  if (material && !material->WhiteCanMate()) {
    slot.bNoMate = true;
  } else if (material && settings.bDiskAccess) {
    slot.diskTable = OpenOnDisk(*material);
  } else if (material) {
    slot.table = Acquire(*material);
  }
  std::lock_guard guard(lock);
  slots[key] = slot;
  return slot;
}

std::optional<std::uint8_t> CTablesService::Probe(const TChessboard& board) {
  const TProbeSlot slot = FindSlot(board);
  if (slot.bNoMate) return tablevalue::kNoMate;
  if (slot.diskTable != nullptr) return ProbeOnDisk(*slot.diskTable, board);
  if (slot.table == nullptr) return std::nullopt;
  return slot.table->ValueOfBoard(board.IsWhiteToMove(), board.squares);
}

std::shared_ptr<const CDiskEndgameTable> CTablesService::OpenOnDisk(
    const TTableMaterial& material) {
  {
    std::lock_guard guard(lock);
    const auto found = diskTables.find(material.Name());
    if (found != diskTables.end()) return found->second;
    if (unusable.count(material.Name()) != 0) return nullptr;
  }
  const std::filesystem::path file = FileOf(material);
  std::shared_ptr<const CDiskEndgameTable> table;
  try {
    table = std::make_shared<const CDiskEndgameTable>(file, material, blockCache);
  } catch (const std::exception& e) {
    NoteUnusableFile(material, file, e.what());
    return nullptr;
  }
  std::lock_guard guard(lock);
  return diskTables.emplace(material.Name(), table).first->second;
}

std::optional<std::uint8_t> CTablesService::ProbeOnDisk(const CDiskEndgameTable& table,
                                                        const TChessboard& board) {
  try {
    return table.ValueOfBoard(board.IsWhiteToMove(), board.squares);
  } catch (const std::exception& e) {
    // A block that cannot be read or unpacked makes the whole file suspect: the search goes
    // on without it.
    std::lock_guard guard(lock);
    ReportOnce(table.Material().Name(), "Endgame table file " + FileOf(table.Material()).string() +
                                            " is unusable: " + e.what());
    diskTables.erase(table.Material().Name());
    slots.clear();
    return std::nullopt;
  }
}

std::vector<TGeneratedTable> CTablesService::Generate(const std::vector<TTableMaterial>& materials,
                                                      const TProgress& progress,
                                                      std::stop_token stop) {
  std::vector<TGeneratedTable> result;
  CTableCollection collection;
  CTableCollection::THooks hooks;
  hooks.progress = progress;
  hooks.stop = std::move(stop);
  hooks.find = [this](const TTableMaterial& m) -> std::shared_ptr<const TEndgameTable> {
    if (!std::filesystem::exists(FileOf(m))) return nullptr;
    return ReadFile(m);
  };
  hooks.generated = [&](const TEndgameTable& table, double seconds) {
    const std::filesystem::path file = tablefile::PathOf(settings.folder, table.Material());
    tablefile::Write(table, file);
    result.push_back(
        TGeneratedTable{table.Material().Name(), seconds, std::filesystem::file_size(file), true});
    std::lock_guard guard(lock);
    unusable.erase(table.Material().Name());
    diskTables.erase(table.Material().Name());
    slots.clear();
  };
  for (const TTableMaterial& material : materials) {
    if (hooks.stop.stop_requested()) break;
    if (collection.Find(material) != nullptr) continue;
    if (auto onDisk = hooks.find(material)) {
      result.push_back(
          TGeneratedTable{material.Name(), 0, std::filesystem::file_size(FileOf(material)), false});
      collection.Add(std::move(onDisk));
      continue;
    }
    collection.Generate(material, settings.nThreads, hooks);
  }
  return result;
}

std::size_t CTablesService::LoadAll() {
  for (const TTableMaterial& material : TablesOnDisk()) Acquire(material);
  std::lock_guard guard(lock);
  return loaded.size();
}

std::vector<TTableMaterial> CTablesService::TablesOnDisk() const {
  std::vector<TTableMaterial> result;
  for (const auto& folder : {settings.folder, settings.extraFolder}) {
    if (folder.empty() || !std::filesystem::is_directory(folder)) continue;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      if (entry.path().extension() != ".lmt") continue;
      try {
        const TTableMaterial material = TTableMaterial::Parse(entry.path().stem().string());
        if (std::find(result.begin(), result.end(), material) == result.end())
          result.push_back(material);
      } catch (const std::invalid_argument&) {
      }
    }
  }
  return result;
}

std::vector<CTablesService::TLoaded> CTablesService::Loaded() const {
  std::lock_guard guard(lock);
  std::vector<TLoaded> result;
  for (const auto& [name, entry] : loaded)
    result.push_back(TLoaded{name, entry.table->MemoryBytes()});
  return result;
}

std::uint64_t CTablesService::LoadedBytes() const {
  std::lock_guard guard(lock);
  return nLoadedBytes;
}

CTablesService::TDiskUse CTablesService::DiskUse() const {
  std::lock_guard guard(lock);
  return TDiskUse{diskTables.size(), blockCache.HeldBytes()};
}
