#include "registers/TemporaryRegisterFile.h"

#include <cstring>
#include <fstream>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "core/ChessException.h"
#include "core/SafeFile.h"
#include "registers/LZ4e.h"
#include "registers/LittleEndian.h"

namespace registerfile {
namespace {

constexpr char kMagic[4] = {'L', 'M', 'T', 'R'};
constexpr std::size_t kHeaderSize = 96;
constexpr std::size_t kRecordSize = 76;
// Whole records per block, so that a block never splits one.
constexpr std::size_t kBlockRecords = kLZ4eWindow / kRecordSize;
// No block of kBlockRecords records compresses to more than this; a larger size is corrupt.
constexpr std::uint32_t kMaxBlockSize = 2 * kLZ4eWindow;

static_assert(sizeof(TChessboardRegisterItem) + sizeof(TRegisterInfo) == kRecordSize);

struct TFileHeader {
  std::uint32_t nVersion = 0;
  TChessboardRegisterItem problem;
  TRegisterFileCounts counts;
  std::uint64_t hash = 0;
};

// FNV-1a over the records, continued block by block.
std::uint64_t HashBytes(std::span<const unsigned char> bytes, std::uint64_t hash) {
  for (const unsigned char byte : bytes) hash = (hash ^ byte) * 0x100000001B3ULL;
  return hash;
}
constexpr std::uint64_t kHashSeed = 0xCBF29CE484222325ULL;

[[noreturn]] void Fail(const std::filesystem::path& file, const std::string& what) {
  throw ChessException("The file " + file.string() + " " + what);
}
[[noreturn]] void FailCorrupt(const std::filesystem::path& file) {
  Fail(file, "is truncated or corrupt.");
}

void WriteHeader(unsigned char* bytes, const TFileHeader& header) {
  std::memcpy(bytes, kMagic, 4);
  WriteLittleEndian(bytes + 4, header.nVersion);
  std::memcpy(bytes + 8, header.problem.bytes, 64);
  WriteLittleEndian(bytes + 72, header.counts.nExact);
  WriteLittleEndian(bytes + 80, header.counts.nDoubtful);
  WriteLittleEndian(bytes + 88, header.hash);
}

// Collects records into blocks and writes each compressed block.
class CBlockWriter {
 public:
  CBlockWriter(safefile::CFileWriter& output, const std::filesystem::path& name)
      : out(output), file(name) {
    records.reserve(kBlockRecords * kRecordSize);
  }
  void Add(const unsigned char* record) {
    records.insert(records.end(), record, record + kRecordSize);
    if (records.size() == kBlockRecords * kRecordSize) Flush();
  }
  void Flush() {
    if (records.empty()) return;
    hash = HashBytes(records, hash);
    if (!CompressLZ4e(records.data(), records.size(), block))
      throw ChessException("Error writing file: " + file.string() +
                           ": out of memory while compressing");
    if (!out.Write(block.data(), block.size())) throw ChessException(out.Error());
    records.clear();
  }
  std::uint64_t Hash() const { return hash; }

 private:
  safefile::CFileWriter& out;
  const std::filesystem::path& file;
  std::vector<unsigned char> records, block;
  std::uint64_t hash = kHashSeed;
};

TFileHeader ReadHeader(std::ifstream& in, const std::filesystem::path& file) {
  unsigned char bytes[kHeaderSize];
  in.read(reinterpret_cast<char*>(bytes), kHeaderSize);
  const std::size_t nRead = static_cast<std::size_t>(in.gcount());
  if (nRead < 4 || std::memcmp(bytes, kMagic, 4) != 0)
    Fail(file, "is not a temporary register file.");
  if (nRead < kHeaderSize) FailCorrupt(file);
  TFileHeader header;
  header.nVersion = ReadLittleEndian<std::uint32_t>(bytes + 4);
  std::memcpy(header.problem.bytes, bytes + 8, 64);
  header.counts.nExact = ReadLittleEndian<std::uint64_t>(bytes + 72);
  header.counts.nDoubtful = ReadLittleEndian<std::uint64_t>(bytes + 80);
  header.hash = ReadLittleEndian<std::uint64_t>(bytes + 88);
  return header;
}

// Unpacks the blocks that follow the header one by one, up to the file's end.
void ForEachBlock(std::ifstream& in, const std::filesystem::path& file,
                  const std::function<void(std::span<const unsigned char>)>& visit) {
  std::vector<unsigned char> block;
  for (;;) {
    unsigned char head[kLZ4eHeaderSize];
    in.read(reinterpret_cast<char*>(head), kLZ4eHeaderSize);
    if (in.gcount() == 0 && in.eof()) return;
    if (in.gcount() != static_cast<std::streamsize>(kLZ4eHeaderSize)) FailCorrupt(file);
    const std::uint32_t nTotal = ReadLittleEndian<std::uint32_t>(head + 8);
    if (nTotal < kLZ4eHeaderSize || nTotal > kMaxBlockSize) FailCorrupt(file);
    block.assign(head, head + kLZ4eHeaderSize);
    block.resize(nTotal);
    const auto nRest = static_cast<std::streamsize>(nTotal - kLZ4eHeaderSize);
    if (!in.read(reinterpret_cast<char*>(block.data() + kLZ4eHeaderSize), nRest)) FailCorrupt(file);
    std::vector<unsigned char> records;
    try {
      records = DecompressLZ4e(block);
    } catch (const CLZ4eError&) {
      FailCorrupt(file);
    }
    if (records.size() % kRecordSize != 0) FailCorrupt(file);
    visit(records);
  }
}

TRegisterInfo ExactInfo(const unsigned char* record) {
  TRegisterInfo info;
  std::memcpy(&info, record + 64, sizeof info);
  return info;
}

bool IsPlausibleExact(const TRegisterInfo& info) {
  const std::uint32_t answer = info.answer & 0xFF;
  return info.nMoves != 0 && (answer == 0 || answer == 1);
}

TDoubtfulElement DoubtfulOf(const unsigned char* record, THeuristicsKey& selection) {
  TDoubtfulElement element;
  std::memcpy(element.key.bytes, record, 64);
  selection = ReadLittleEndian<std::uint64_t>(record + 64);
  element.nMovesMate = ReadLittleEndian<std::uint16_t>(record + 72);
  element.nMovesNoMate = ReadLittleEndian<std::uint16_t>(record + 74);
  return element;
}

bool IsPlausibleDoubtful(const TDoubtfulElement& element) {
  const bool bBoth = element.nMovesMate != 0 && element.nMovesNoMate != 0;
  return (element.nMovesMate | element.nMovesNoMate) != 0 &&
         (!bBoth || (element.nMovesMate & 1) == (element.nMovesNoMate & 1));
}

// Calls the visitors for every record of the blocks, checking what the header promises.
void ForEachRecord(std::ifstream& in, const std::filesystem::path& file, const TFileHeader& header,
                   const std::function<void(const unsigned char*)>& exact,
                   const std::function<void(const unsigned char*)>& doubtful) {
  std::uint64_t nSeen = 0, hash = kHashSeed;
  const std::uint64_t nAll = header.counts.nExact + header.counts.nDoubtful;
  ForEachBlock(in, file, [&](std::span<const unsigned char> records) {
    hash = HashBytes(records, hash);
    for (std::size_t at = 0; at < records.size(); at += kRecordSize, ++nSeen) {
      if (nSeen >= nAll) FailCorrupt(file);
      (nSeen < header.counts.nExact ? exact : doubtful)(records.data() + at);
    }
  });
  if (nSeen != nAll || hash != header.hash) FailCorrupt(file);
}

}  // namespace

TRegisterFileCounts Save(const TAggregatedTemporaryChessboardRegister& reg,
                         const TChessboardRegisterItem& problem,
                         const std::filesystem::path& file) {
  safefile::CFileWriter out(file.string());
  TFileHeader header{kRegisterFileVersion, problem, {}, 0};
  unsigned char headerBytes[kHeaderSize] = {};
  if (!out.Begin() || !out.Write(headerBytes, kHeaderSize)) throw ChessException(out.Error());
  CBlockWriter writer(out, file);
  unsigned char record[kRecordSize];
  reg.ForEachEntry([&](const TChessboardRegisterItem& key, const TRegisterInfo& info) {
    std::memcpy(record, key.bytes, 64);
    std::memcpy(record + 64, &info, sizeof info);
    writer.Add(record);
    ++header.counts.nExact;
  });
  reg.ForEachDoubtful([&](THeuristicsKey selection, const TDoubtfulElement& element) {
    std::memcpy(record, element.key.bytes, 64);
    WriteLittleEndian(record + 64, selection);
    WriteLittleEndian(record + 72, element.nMovesMate);
    WriteLittleEndian(record + 74, element.nMovesNoMate);
    writer.Add(record);
    ++header.counts.nDoubtful;
  });
  writer.Flush();
  header.hash = writer.Hash();
  WriteHeader(headerBytes, header);
  if (!out.WriteAt(0, headerBytes, kHeaderSize) || !out.Commit()) throw ChessException(out.Error());
  return header.counts;
}

TRegisterFileCounts Read(TAggregatedTemporaryChessboardRegister& reg,
                         const TChessboardRegisterItem& problem,
                         const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::error_code error;
  // A folder opens like a file but has no bytes to read.
  if (!in || std::filesystem::is_directory(file, error)) Fail(file, "cannot be opened.");
  const TFileHeader header = ReadHeader(in, file);
  if (header.nVersion != kRegisterFileVersion)
    Fail(file, "was written by another version of the program (register file version " +
                   std::to_string(header.nVersion) + ").");
  if (!(header.problem == problem)) Fail(file, "holds the temporary register of another problem.");
  // The whole file is checked before the register is touched.
  const auto checkExact = [&](const unsigned char* record) {
    if (!IsPlausibleExact(ExactInfo(record))) FailCorrupt(file);
  };
  const auto checkDoubtful = [&](const unsigned char* record) {
    THeuristicsKey selection;
    if (!IsPlausibleDoubtful(DoubtfulOf(record, selection))) FailCorrupt(file);
  };
  ForEachRecord(in, file, header, checkExact, checkDoubtful);

  in.clear();
  in.seekg(kHeaderSize);
  reg.Clear();
  reg.SetCoherencyPruning(false);  // what a register held needs no pruning
  try {
    const auto fileExact = [&](const unsigned char* record) {
      TChessboardRegisterItem key;
      std::memcpy(key.bytes, record, 64);
      const TRegisterInfo info = ExactInfo(record);
      if ((info.nMoves & 1) != 0)
        reg.Insert(info.nMoves, key, info.answer & 0xFF, &info.heuristics);
      else
        reg.InsertDefence(info.nMoves, key, info.answer & 0xFF, &info.heuristics);
    };
    const auto fileDoubtful = [&](const unsigned char* record) {
      THeuristicsKey selection;
      const TDoubtfulElement element = DoubtfulOf(record, selection);
      if (element.nMovesMate != 0)
        reg.InsertDoubtful(selection, element.nMovesMate, element.key, true);
      if (element.nMovesNoMate != 0)
        reg.InsertDoubtful(selection, element.nMovesNoMate, element.key, false);
    };
    ForEachRecord(in, file, header, fileExact, fileDoubtful);
  } catch (...) {
    reg.SetCoherencyPruning(true);
    reg.Clear();
    throw;
  }
  reg.SetCoherencyPruning(true);
  return header.counts;
}

}  // namespace registerfile
