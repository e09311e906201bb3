// Table files: what is written reads back; damaged files are refused with their name.
#include <gtest/gtest.h>

#include <fstream>

#include "../app/TempFolder.h"
#include "registers/TableCollection.h"
#include "registers/TableFile.h"

namespace {

class TableFile : public ::testing::Test {
 protected:
  void SetUp() override {
    collection.Generate(material, 1);
    file = tablefile::PathOf(folder.Path(), material);
    tablefile::Write(*collection.Find(material), file);
  }
  // Overwrites one byte of the file at offset (from the end when negative).
  void Damage(std::streamoff offset) {
    std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
    stream.seekp(offset, offset < 0 ? std::ios::end : std::ios::beg);
    stream.put('\x7f');
  }
  void ExpectRefused(const std::string& what) {
    try {
      tablefile::Read(file, material);
      ADD_FAILURE() << "read a damaged file: " << what;
    } catch (const tablefile::CTableFileError& e) {
      EXPECT_NE(std::string(e.what()).find(file.string()), std::string::npos) << e.what();
    }
  }

  CTempFolder folder;
  TTableMaterial material = TTableMaterial::Parse("KRK");
  CTableCollection collection;
  std::filesystem::path file;
};

TEST_F(TableFile, LivesInThePositionTypeFolderAndReadsBack) {
  EXPECT_EQ(file, folder.Path() / "KRk" / "KRK.lmt");
  EXPECT_EQ(tablefile::PathOf(folder.Path(), TTableMaterial::Parse("KPK")).parent_path().filename(),
            "KPk+pawns");
  const auto read = tablefile::Read(file, material);
  EXPECT_EQ(read->WhiteValues(), collection.Find(material)->WhiteValues());
  EXPECT_EQ(read->BlackValues(), collection.Find(material)->BlackValues());
}

TEST_F(TableFile, DamagedFilesAreRefused) {
  EXPECT_THROW(tablefile::Read(file, TTableMaterial::Parse("KQK")), tablefile::CTableFileError);
  Damage(-1);
  ExpectRefused("a value changed");
  Damage(0);
  ExpectRefused("the mark changed");
}

TEST_F(TableFile, ShortLongAndMissingFilesAreRefused) {
  std::filesystem::resize_file(file, std::filesystem::file_size(file) - 1);
  ExpectRefused("cut short");
  std::filesystem::resize_file(file, std::filesystem::file_size(file) + 2);
  ExpectRefused("too long");
  std::filesystem::remove(file);
  ExpectRefused("missing");
}

}  // namespace
