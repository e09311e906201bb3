#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "problems/SafeFile.h"

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
  void TearDown() override {
    fs::permissions(folder, fs::perms::owner_all);
    fs::remove_all(folder);
  }

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

// Replaceable calls that fail at one chosen step with one chosen error.
enum class TStep { kNone, kTemp, kWrite, kSync, kRename };
TStep failingStep = TStep::kNone;
int failingErrno = 0;
int nWriteCalls = 0;

int FailableTemp(char* pattern) {
  if (failingStep == TStep::kTemp) return errno = failingErrno, -1;
  return ::mkstemp(pattern);
}
// Writes at most 5 bytes per call, to show that partial writes are completed.
ssize_t FailableWrite(int fd, const void* data, size_t size) {
  if (failingStep == TStep::kWrite && ++nWriteCalls > 2) return errno = failingErrno, -1;
  return ::write(fd, data, std::min<size_t>(size, 5));
}
int FailableSync(int fd) {
  if (failingStep == TStep::kSync) return errno = failingErrno, -1;
  return ::fsync(fd);
}
int FailableRename(const char* from, const char* to) {
  if (failingStep == TStep::kRename) return errno = failingErrno, -1;
  return ::rename(from, to);
}
const safefile::TFileCalls kFailable{FailableTemp, FailableWrite, FailableSync, FailableRename};

TEST_F(SafeFile, ReplacesTheFileAndLeavesNothingElse) {
  ::chmod(path.c_str(), 0640);
  failingStep = TStep::kNone;
  EXPECT_FALSE(safefile::Save(path, "new text\n", kFailable));
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

TEST_F(SafeFile, AFailedStepKeepsTheOldFileByteForByte) {
  const struct {
    TStep step;
    int error;
    std::string message;  // behind the path
  } cases[] = {
      {TStep::kTemp, EACCES, ""},
      {TStep::kWrite, ENOSPC, ": No space left on device"},
      {TStep::kSync, EIO, ": Input/output error"},
      {TStep::kRename, EXDEV, ": Invalid cross-device link"},
  };
  for (const auto& c : cases) {
    failingStep = c.step;
    failingErrno = c.error;
    nWriteCalls = 0;
    const auto error = safefile::Save(path, std::string(1000, 'x'), kFailable);
    ASSERT_TRUE(error.has_value());
    const std::string prefix =
        c.step == TStep::kTemp ? "Error opening file: " : "Error writing file: ";
    EXPECT_EQ(*error, prefix + path + c.message);
    EXPECT_EQ(Content(), kOld);
    EXPECT_EQ(FilesInFolder(), 1);
  }
  failingStep = TStep::kNone;
}

TEST_F(SafeFile, AMissingFolderIsAnOpeningError) {
  const std::string inside = (folder / "missing" / "p.cp").string();
  EXPECT_EQ(safefile::Save(inside, "x"), "Error opening file: " + inside);
}

TEST_F(SafeFile, AnUnwritableFolderKeepsTheOldFile) {
  if (::geteuid() == 0) GTEST_SKIP() << "permissions do not bind the superuser";
  fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(safefile::Save(path, "new"), "Error opening file: " + path);
  EXPECT_EQ(Content(), kOld);
}

TEST_F(SafeFile, ALinkedFileIsReplacedBehindItsLink) {
  const std::string link = (folder / "link.cp").string();
  fs::create_symlink(path, link);
  ASSERT_FALSE(safefile::Save(link, "through the link"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(Content(), "through the link");
}

}  // namespace
