#pragma once
// Fails each operation of a file writer in turn, through the seam of the file layer, and
// checks what a user must be able to count on: the earlier file stays byte for byte, nothing
// is left beside it, the message names the file (and says so when the disk is full), and the
// same write succeeds once the system works again.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>
#include <string>

#include "core/FileCalls.h"

namespace writerfaults {

struct TWriter {
  std::string name;
  std::filesystem::path file;  // the file the writer replaces or appends to
  // Writes once; returns the error text, empty on success.
  std::function<std::string()> write;
  bool bAppends = false;  // a log: a success adds lines after the earlier ones
};

inline std::string Bytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

inline void Restore(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

// Every file and folder under folder.
inline std::set<std::string> Names(const std::filesystem::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    names.insert(entry.path().string());
  return names;
}

// Runs write under a seam; returns its error text.
inline std::string WriteUnder(const TWriter& writer, safefile::TFaultSeam& seam) {
  safefile::SetFaultSeam(&seam);
  std::string error = writer.write();
  safefile::SetFaultSeam(nullptr);
  return error;
}

// The file must exist before: the writer's earlier result, or any other bytes.
// nMaxWriteBytes cuts the writes into pieces, so that the writes in the middle fail too.
inline void ExpectEachFaultKeepsTheOldFile(const TWriter& writer, std::size_t nMaxWriteBytes) {
  SCOPED_TRACE(writer.name);
  const std::string old = Bytes(writer.file);
  const std::filesystem::path folder = writer.file.parent_path();
  const std::set<std::string> names = Names(folder);
  safefile::TFaultSeam counting{.nMaxWriteBytes = nMaxWriteBytes};
  ASSERT_EQ(WriteUnder(writer, counting), "");
  const std::string written = Bytes(writer.file);
  ASSERT_NE(written, old) << "the writer must change the file";
  // open, two writes at least, close: a replacement also flushes and renames
  ASSERT_GE(counting.nOperations, writer.bAppends ? 4 : 6);
  Restore(writer.file, old);

  for (int n = 1; n <= counting.nOperations; ++n) {
    for (const int nErrno : {EIO, ENOSPC}) {
      SCOPED_TRACE("operation " + std::to_string(n) + (nErrno == EIO ? ", EIO" : ", ENOSPC"));
      safefile::TFaultSeam failing{
          .nFailingOperation = n, .nErrno = nErrno, .nMaxWriteBytes = nMaxWriteBytes};
      const std::string error = WriteUnder(writer, failing);
      EXPECT_NE(error.find(writer.file.string()), std::string::npos) << error;
      if (nErrno == ENOSPC) {
        EXPECT_NE(error.find("the disk is full"), std::string::npos) << error;
      }
      const std::string after = Bytes(writer.file);
      if (writer.bAppends) {
        // A log may lose the text, or keep it whole when only the close failed.
        EXPECT_EQ(after.substr(0, old.size()), old);
        EXPECT_TRUE(after.size() == old.size() || after.back() == '\n') << after;
      } else {
        EXPECT_EQ(after, old);
      }
      EXPECT_EQ(Names(folder), names);
      Restore(writer.file, old);

      safefile::TFaultSeam working{.nMaxWriteBytes = nMaxWriteBytes};
      EXPECT_EQ(WriteUnder(writer, working), "") << "the retry";
      if (writer.bAppends) {
        EXPECT_EQ(Bytes(writer.file).substr(0, old.size()), old);
        EXPECT_GT(Bytes(writer.file).size(), old.size());
        EXPECT_EQ(Bytes(writer.file).back(), '\n');
      } else {
        EXPECT_EQ(Bytes(writer.file), written);
      }
      Restore(writer.file, old);
    }
  }
}

}  // namespace writerfaults
