#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "core/FileAppender.h"
#include "core/SafeFile.h"

namespace {

namespace fs = std::filesystem;

const std::string kOld = "UTF-8\n\n\n1 #2\n{\n\tFEN: 4k3/8/8/8/8/8/8/4K3\n}\n";

class SafeFile : public testing::Test {
 protected:
  void SetUp() override {
    folder =
        fs::temp_directory_path() / ("longmate_safefile_" + std::to_string(::getpid()) + "_" +
                                     testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder);
    fs::create_directories(folder);
    path = (folder / "problems.cp").string();
    std::ofstream(path, std::ios::binary) << kOld;
  }
  void TearDown() override { fs::remove_all(folder); }

  std::string Content() const {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  int FilesInFolder() const {
    return static_cast<int>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  fs::path folder;
  std::string path;
};

TEST_F(SafeFile, ReplacesTheFileAndLeavesNothingElse) {
  ::chmod(path.c_str(), 0640);
  EXPECT_FALSE(safefile::Save(path, "new text\n"));
  EXPECT_EQ(Content(), "new text\n");
  EXPECT_EQ(FilesInFolder(), 1);
  struct stat info {};
  ASSERT_EQ(::stat(path.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
}

TEST_F(SafeFile, CreatesAMissingFile) {
  const std::string fresh = (folder / "fresh.cp").string();
  EXPECT_FALSE(safefile::Save(fresh, "x"));
  EXPECT_TRUE(fs::exists(fresh));
}

// Each operation of a save fails in turn: the old file stays byte for byte with nothing left
// beside it, the error names the file, and the same save succeeds once the system works.
TEST_F(SafeFile, EachFailedOperationKeepsTheOldFileAndARetrySucceeds) {
  const std::string content = "twelve bytes";  // three writes of at most 5 bytes
  safefile::TFaultSeam counting{.nMaxWriteBytes = 5};
  safefile::SetFaultSeam(&counting);
  ASSERT_FALSE(safefile::Save((folder / "counted.cp").string(), content));
  fs::remove(folder / "counted.cp");
  // create, three writes, flush, close, rename
  ASSERT_EQ(counting.nOperations, 7);

  for (int n = 1; n <= counting.nOperations; ++n) {
    safefile::TFaultSeam failing{.nFailingOperation = n, .nErrno = EIO, .nMaxWriteBytes = 5};
    safefile::SetFaultSeam(&failing);
    const auto error = safefile::Save(path, content);
    EXPECT_EQ(error, n == 1 ? "Error opening file: " + path
                            : "Error writing file: " + path + ": Input/output error")
        << "operation " << n;
    EXPECT_EQ(Content(), kOld) << "operation " << n;
    EXPECT_EQ(FilesInFolder(), 1) << "operation " << n;

    safefile::TFaultSeam working{.nMaxWriteBytes = 5};
    safefile::SetFaultSeam(&working);
    EXPECT_FALSE(safefile::Save(path, content)) << "retry after operation " << n;
    EXPECT_EQ(Content(), content);
    std::ofstream(path, std::ios::binary | std::ios::trunc) << kOld;
  }
  safefile::SetFaultSeam(nullptr);
}

TEST_F(SafeFile, AFullDiskIsSaidSo) {
  for (const int nOperation : {1, 2}) {
    safefile::TFaultSeam full{.nFailingOperation = nOperation, .nErrno = ENOSPC};
    safefile::SetFaultSeam(&full);
    EXPECT_EQ(safefile::Save(path, "x"),
              (nOperation == 1 ? "Error opening file: " : "Error writing file: ") + path +
                  ": the disk is full");
  }
  safefile::SetFaultSeam(nullptr);
  EXPECT_EQ(Content(), kOld);
}

// A header filled in at the end, over the bytes reserved for it.
TEST_F(SafeFile, AStreamedFileIsWrittenInPiecesAndItsHeadLast) {
  safefile::CFileWriter writer(path);
  ASSERT_TRUE(writer.Begin());
  ASSERT_TRUE(writer.Write("....body"));
  ASSERT_TRUE(writer.Write(std::string(" end")));
  EXPECT_EQ(Content(), kOld);
  ASSERT_TRUE(writer.WriteAt(0, "head", 4));
  ASSERT_TRUE(writer.Commit());
  EXPECT_EQ(Content(), "headbody end");
  EXPECT_EQ(FilesInFolder(), 1);
}

// A writer given up (an exception, a cancelled save) leaves the old file and nothing else;
// after a failure every later call fails with the first message.
TEST_F(SafeFile, AnAbandonedOrFailedStreamLeavesTheOldFile) {
  {
    safefile::CFileWriter writer(path);
    ASSERT_TRUE(writer.Begin());
    ASSERT_TRUE(writer.Write("half of it"));
  }
  EXPECT_EQ(Content(), kOld);
  EXPECT_EQ(FilesInFolder(), 1);

  safefile::CFileWriter writer(path);
  safefile::TFaultSeam failing{.nFailingOperation = 2, .nErrno = ENOSPC};
  safefile::SetFaultSeam(&failing);
  ASSERT_TRUE(writer.Begin());
  EXPECT_FALSE(writer.Write("first"));
  safefile::SetFaultSeam(nullptr);
  EXPECT_FALSE(writer.Write("second"));
  EXPECT_FALSE(writer.Commit());
  EXPECT_EQ(writer.Error(), "Error writing file: " + path + ": the disk is full");
  EXPECT_EQ(Content(), kOld);
  EXPECT_EQ(FilesInFolder(), 1);
}

// A log takes each text whole or not at all, whichever operation fails.
TEST_F(SafeFile, AnAppendedTextGoesInWholeOrNotAtAll) {
  safefile::TFaultSeam counting{.nMaxWriteBytes = 4};
  safefile::SetFaultSeam(&counting);
  ASSERT_FALSE(safefile::AppendToFile(path, "line 1\n"));
  ASSERT_EQ(counting.nOperations, 4);  // open, two writes, close
  const std::string before = Content();
  for (int n = 1; n <= 3; ++n) {
    safefile::TFaultSeam failing{.nFailingOperation = n, .nErrno = ENOSPC, .nMaxWriteBytes = 4};
    safefile::SetFaultSeam(&failing);
    EXPECT_EQ(
        safefile::AppendToFile(path, "line 2\n"),
        (n == 1 ? "Error opening file: " : "Error writing file: ") + path + ": the disk is full");
    EXPECT_EQ(Content(), before) << "operation " << n;
  }
  safefile::SetFaultSeam(nullptr);
  EXPECT_FALSE(safefile::AppendToFile(path, "line 2\n"));
  EXPECT_EQ(Content(), before + "line 2\n");
}

TEST_F(SafeFile, AMissingFolderIsAnOpeningError) {
  const std::string inside = (folder / "missing" / "p.cp").string();
  EXPECT_EQ(safefile::Save(inside, "x"), "Error opening file: " + inside);
}

TEST_F(SafeFile, ALinkedFileIsReplacedBehindItsLink) {
  const std::string link = (folder / "link.cp").string();
  fs::create_symlink(path, link);
  ASSERT_FALSE(safefile::Save(link, "through the link"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(Content(), "through the link");
}

}  // namespace
