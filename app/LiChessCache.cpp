#include "app/LiChessCache.h"

#include <fstream>
#include <sstream>

#include "core/ChessboardId.h"
#include "core/FileAppender.h"
#include "core/SafeFile.h"

namespace {

bool ReadMove(const std::string& text, CLiChessMove& move) {
  // "e7e8q:-1:-16:2": the squares, an optional promotion, then three numbers.
  const std::size_t colon = text.find(':');
  if (colon < 4 || colon > 5) return false;
  const auto square = [&text](std::size_t at) -> int {
    if (text[at] < 'a' || text[at] > 'h' || text[at + 1] < '1' || text[at + 1] > '8') return -1;
    return (text[at + 1] - '1') * 8 + (text[at] - 'a');
  };
  const int from = square(0), to = square(2);
  if (from < 0 || to < 0) return false;
  move.from = static_cast<std::uint8_t>(from);
  move.to = static_cast<std::uint8_t>(to);
  move.promotion = 0;
  if (colon == 5) {
    const std::string promotions = "qrbn";
    const std::size_t at = promotions.find(text[4]);
    if (at == std::string::npos) return false;
    move.promotion = static_cast<std::uint8_t>(std::string("\x0C\x08\x04\x10")[at]);
  }
  std::istringstream numbers(text.substr(colon + 1));
  int value, dtm, dtz;
  char separator1, separator2;
  if (!(numbers >> value >> separator1 >> dtm >> separator2 >> dtz) || separator1 != ':' ||
      separator2 != ':' || value < lichess::kUnknown || value > lichess::kWin || dtz < 0 ||
      dtz > 255)
    return false;
  move.value = static_cast<std::int8_t>(value);
  move.dtm = dtm;
  move.dtz = static_cast<std::uint8_t>(dtz);
  return true;
}

}  // namespace

CLiChessCache::CLiChessCache(std::filesystem::path cacheFile, bool bReadOnlyFile)
    : file(std::move(cacheFile)), bReadOnly(bReadOnlyFile) {
  std::ifstream in(file, std::ios::binary);
  std::string line;
  if (!in || !std::getline(in, line) || line != kVersionLine) return;
  bFileCurrent = true;
  while (std::getline(in, line)) {
    // A line cut short by a crash while it was written is skipped.
    if (auto entry = ReadLine(line)) answers.insert_or_assign(entry->first, entry->second);
  }
}

std::filesystem::path CLiChessCache::FileOf(const std::filesystem::path& workFolder,
                                            const TChessboard& start) {
  return workFolder / kFolder / (TChessboardId(start).FileBaseName() + ".lichess");
}

std::optional<CLiChess> CLiChessCache::Find(const std::string& fen) const {
  const std::lock_guard lock(mutex);
  const auto found = answers.find(fen);
  if (found == answers.end()) return std::nullopt;
  return found->second;
}

std::size_t CLiChessCache::Size() const {
  const std::lock_guard lock(mutex);
  return answers.size();
}

std::optional<std::string> CLiChessCache::Store(const std::string& fen, const CLiChess& answer) {
  const std::lock_guard lock(mutex);
  answers.insert_or_assign(fen, answer);
  if (bReadOnly) return std::nullopt;
  std::error_code error;
  std::filesystem::create_directories(file.parent_path(), error);
  const std::string line = Line(fen, answer) + '\n';
  // A file of another version is replaced as a whole; a current one grows line by line.
  const auto failure = bFileCurrent
                           ? safefile::AppendToFile(file.string(), line)
                           : safefile::Save(file.string(), std::string(kVersionLine) + '\n' + line);
  bFileCurrent = bFileCurrent || !failure;
  return failure;
}

std::string CLiChessCache::Line(const std::string& fen, const CLiChess& answer) {
  std::string line = fen + '\t' + std::to_string(answer.value) + ' ' + std::to_string(answer.dtm) +
                     ' ' + std::to_string(answer.dtz) + ' ' + std::to_string(answer.nMoves);
  for (const CLiChessMove& move : answer.moves)
    line += ' ' + CLiChess::MoveText(move) + ':' + std::to_string(move.value) + ':' +
            std::to_string(move.dtm) + ':' + std::to_string(move.dtz);
  return line;
}

std::optional<std::pair<std::string, CLiChess>> CLiChessCache::ReadLine(const std::string& line) {
  const std::size_t tab = line.find('\t');
  if (tab == std::string::npos || tab == 0) return std::nullopt;
  std::istringstream fields(line.substr(tab + 1));
  CLiChess answer;
  int value, dtz;
  if (!(fields >> value >> answer.dtm >> dtz >> answer.nMoves) || value < lichess::kUnknown ||
      value > lichess::kWin || dtz < 0 || dtz > 255 || answer.nMoves < lichess::kMalformedMoves)
    return std::nullopt;
  answer.value = static_cast<std::int8_t>(value);
  answer.dtz = static_cast<std::uint8_t>(dtz);
  std::string text;
  while (fields >> text) {
    CLiChessMove move;
    if (!ReadMove(text, move)) return std::nullopt;
    answer.moves.push_back(move);
  }
  if (answer.nMoves != static_cast<int>(answer.moves.size()) &&
      !(answer.nMoves == lichess::kMalformedMoves && answer.moves.empty()))
    return std::nullopt;
  return std::pair{line.substr(0, tab), answer};
}
