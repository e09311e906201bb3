#pragma once
// The answers of the online tablebase kept for one problem, in
// "SavedTmpSyzygyData/<start position>.lichess" of the working folder, so that a position is
// fetched at most once per problem. The file is text: a version line, then one line per
// position, "FEN<tab>value dtm dtz count move...", each move "e7e8q:value:dtm:dtz". A copy of
// the program that is not the first reads the files and never writes them.
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "app/LiChess.h"
#include "core/Chessboard.h"

class CLiChessCache {
 public:
  static constexpr const char* kFolder = "SavedTmpSyzygyData";
  static constexpr const char* kVersionLine = "Longmate tablebase answers 1";

  // Reads the file when there is one; a file of another version is set aside (and replaced
  // by the first answer stored, unless read-only).
  CLiChessCache(std::filesystem::path file, bool bReadOnly);

  // The file of a problem whose start position is given, under the working folder.
  static std::filesystem::path FileOf(const std::filesystem::path& workFolder,
                                      const TChessboard& start);

  std::optional<CLiChess> Find(const std::string& fen) const;
  // Keeps the answer, and appends it to the file unless read-only. Returns the error text
  // when the file could not be written (the answer is kept in memory all the same).
  std::optional<std::string> Store(const std::string& fen, const CLiChess& answer);
  std::size_t Size() const;

  // One line of the file, without its end, and back; nothing for a damaged line.
  static std::string Line(const std::string& fen, const CLiChess& answer);
  static std::optional<std::pair<std::string, CLiChess>> ReadLine(const std::string& line);

 private:
  const std::filesystem::path file;
  const bool bReadOnly;
  mutable std::mutex mutex;  // guards the members below
  std::map<std::string, CLiChess> answers;
  bool bFileCurrent = false;  // the file exists with our version line
};
