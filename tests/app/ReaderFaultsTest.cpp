// Files that cannot be read as they should: gone, a folder, cut short, changed, or in another
// encoding. Each reader says what is wrong, naming the file, and writes nothing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <functional>

#include "TempFolder.h"
#include "WriterFaults.h"
#include "app/Options.h"
#include "core/ChessException.h"
#include "problems/Collection.h"
#include "registers/TableCollection.h"
#include "registers/TableFile.h"
#include "registers/TemporaryRegisterFile.h"

namespace {

using testing::HasSubstr;

const std::string kProblem =
    "UTF-8\n\n1 #2\n{\n\tDesc: Wróżka\n\tWhite: Ke1 Ra1\n\tBlack: Ke8\n}\n";

// "Wróżka" in Latin-2, and the whole problem in UTF-16 with its byte-order mark.
std::string Latin2Problem() {
  std::string text = kProblem;
  text.replace(text.find("ó"), 2, "\xF3");
  text.replace(text.find("ż"), 2, "\xBF");
  return text;
}
std::string Utf16Problem() {
  std::string bytes = "\xFF\xFE";
  for (const char c : std::string("1 #2\n{\n\tWhite: Ke1 Ra1\n\tBlack: Ke8\n}\n"))
    bytes += std::string{c, '\0'};
  return bytes;
}

struct TDamage {
  const char* szName;
  std::function<void(const std::filesystem::path&, const std::string& good)> make;
};

const TDamage kDamages[] = {
    {"gone", [](const auto&, const auto&) {}},
    {"a folder", [](const auto& file, const auto&) { std::filesystem::create_directory(file); }},
    {"cut short", [](const auto& file,
                     const auto& good) { WriteTextFile(file, good.substr(0, good.size() / 2)); }},
    {"changed",
     [](const auto& file, const auto& good) {
       std::string bytes = good;
       bytes[bytes.size() - 3] ^= 0x40;
       WriteTextFile(file, bytes);
     }},
};

// Reads the file once its damage is made; returns the reader's message, empty when it read.
using TReader = std::function<std::string(const std::filesystem::path&)>;

void ExpectRefused(const char* szReader, const std::filesystem::path& file, const std::string& good,
                   const TReader& read, const std::vector<std::string>& accepted = {}) {
  for (const TDamage& damage : kDamages) {
    SCOPED_TRACE(std::string(szReader) + ", " + damage.szName);
    std::filesystem::remove_all(file);
    damage.make(file, good);
    const auto names = writerfaults::Names(file.parent_path());
    const std::string before = std::filesystem::is_regular_file(file) ? ReadTextFile(file) : "";
    const std::string message = read(file);
    if (std::find(accepted.begin(), accepted.end(), damage.szName) == accepted.end()) {
      EXPECT_THAT(message, HasSubstr(file.string()));
    }
    EXPECT_EQ(writerfaults::Names(file.parent_path()), names);
    if (std::filesystem::is_regular_file(file)) {
      EXPECT_EQ(ReadTextFile(file), before);
    }
  }
}

template <typename TException, typename TCall>
std::string ErrorOf(TCall call) {
  try {
    call();
    return "";
  } catch (const TException& error) {
    return error.what();
  }
}

class ReaderFaults : public testing::Test {
 protected:
  CTempFolder folder;
};

TEST_F(ReaderFaults, ProblemFiles) {
  const TReader read = [](const std::filesystem::path& file) {
    TProblemCollection collection;
    const auto error = collection.ReadFile(file.string(), {});
    return error ? error->Describe() : "";
  };
  // A problem file changed in a letter of its last line still reads.
  ExpectRefused("problem file", folder / "p.cp", kProblem, read, {"changed"});

  const auto file = folder / "p.cp";
  std::filesystem::remove_all(file);
  WriteTextFile(file, Latin2Problem());
  EXPECT_EQ(read(file),
            file.string() + ":5:10: the text is not UTF-8 (another encoding, such as Latin-2?)");
  WriteTextFile(file, Utf16Problem());
  EXPECT_EQ(read(file), "Error reading file: " + file.string() + ": the text is UTF-16, not UTF-8");
  EXPECT_EQ(ReadTextFile(file), Utf16Problem());
}

// The options are read and written back: a file that cannot be read is never replaced.
TEST_F(ReaderFaults, OptionsFile) {
  const auto file = folder / "options.ini";
  std::filesystem::create_directory(file);
  EXPECT_EQ(WriteOptions(file), "Error reading file: " + file.string());
  EXPECT_TRUE(std::filesystem::is_directory(file));
  std::filesystem::remove(file);

  // Letters of another encoding in the rest of the file come back byte for byte.
  const std::string latin2 = "[chess]\nComment=Wr\xF3\xBFka\n";
  WriteTextFile(file, latin2);
  ASSERT_FALSE(WriteOptions(file));
  EXPECT_THAT(ReadTextFile(file), HasSubstr("Comment=Wr\xF3\xBFka\n"));
}

TEST_F(ReaderFaults, TemporaryRegisterFiles) {
  TAggregatedTemporaryChessboardRegister reg(100000);
  TChessboardRegisterItem problem;
  problem.bytes[4] = 0x41;
  const auto file = folder / "p.ltr";
  const std::string good = [&] {
    registerfile::Save(reg, problem, file);
    return ReadTextFile(file);
  }();
  ExpectRefused("register file", file, good, [&](const std::filesystem::path& path) {
    return ErrorOf<ChessException>([&] { registerfile::Read(reg, problem, path); });
  });
}

TEST_F(ReaderFaults, EndgameTableFiles) {
  const TTableMaterial material = TTableMaterial::Parse("KRK");
  CTableCollection collection;
  collection.Generate(material, 1);
  const auto file = tablefile::PathOf(folder.Path(), material);
  tablefile::Write(*collection.Find(material), file);
  ExpectRefused("endgame table", file, ReadTextFile(file), [&](const std::filesystem::path& path) {
    return ErrorOf<tablefile::CTableFileError>([&] { tablefile::Read(path, material); });
  });
}

// Without the right to write in the folder (which root always has), a save fails on opening
// and the file stays as it was.
TEST_F(ReaderFaults, AFolderWithoutWritePermission) {
  if (::geteuid() == 0) GTEST_SKIP() << "root may write anywhere; the seam covers this case";
  const auto file = folder / "options.ini";
  WriteTextFile(file, "[chess]\n");
  ::chmod(folder.Path().c_str(), 0555);
  EXPECT_EQ(WriteOptions(file), "Error opening file: " + file.string());
  ::chmod(folder.Path().c_str(), 0755);
  EXPECT_EQ(ReadTextFile(file), "[chess]\n");
}

}  // namespace
