// Every file the registers write, failed at each step of the writing.
#include <gtest/gtest.h>

#include "../app/TempFolder.h"
#include "RegisterTestSupport.h"
#include "WriterFaults.h"
#include "core/ChessException.h"
#include "registers/AggregatedTemporaryChessboardRegister.h"
#include "registers/TableCollection.h"
#include "registers/TableFile.h"
#include "registers/TemporaryRegisterFile.h"

namespace {

using registertest::Key;
using writerfaults::TWriter;

// The message of what the call throws, empty when it returns.
template <typename TException, typename TCall>
std::string ErrorOf(TCall call) {
  try {
    call();
    return "";
  } catch (const TException& error) {
    return error.what();
  }
}

void Fill(TChessboardRegister<bool>& reg, std::uint32_t nKeys) {
  for (std::uint32_t i = 0; i < nKeys; ++i) {
    reg.Insert(static_cast<std::uint16_t>(5 + 2 * (i % 7)), Key(i), i % 3 == 0 ? 0 : 1);
    reg.InsertDefence(static_cast<std::uint16_t>(4 + 2 * (i % 5)), Key(i), i % 2);
  }
}

class RegisterWriterFaults : public testing::Test {
 protected:
  CTempFolder folder;
};

TEST_F(RegisterWriterFaults, TemporaryRegisterFile) {
  TAggregatedTemporaryChessboardRegister reg(100000);
  const TChessboardRegisterItem problem = Key(4242);
  const TWriter writer{"temporary register", folder / "problem.ltr", [&] {
                         return ErrorOf<ChessException>(
                             [&] { registerfile::Save(reg, problem, folder / "problem.ltr"); });
                       }};
  ASSERT_EQ(writer.write(), "");  // the earlier file: an empty register
  Fill(reg, 300);
  reg.InsertDoubtful(MakeHeuristicsKey(0x200, 5), 7, Key(1), true);
  writerfaults::ExpectEachFaultKeepsTheOldFile(writer, 4096);
}

TEST_F(RegisterWriterFaults, SolvedPositionsFile) {
  TChessboardRegister<bool> reg(100000);
  Fill(reg, 20);
  const TWriter writer{
      "solved positions", folder / "solved.cspdb", [&] {
        return ErrorOf<ChessException>([&] { reg.SaveSolvedPositions(folder / "solved.cspdb"); });
      }};
  WriteTextFile(writer.file, "an earlier file");
  writerfaults::ExpectEachFaultKeepsTheOldFile(writer, 512);
}

// The table and its packing log beside it.
TEST_F(RegisterWriterFaults, EndgameTableFile) {
  const TTableMaterial material = TTableMaterial::Parse("KRK");
  CTableCollection collection;
  collection.Generate(material, 1);
  const std::filesystem::path file = tablefile::PathOf(folder.Path(), material);
  const TWriter writer{"endgame table", file, [&] {
                         return ErrorOf<tablefile::CTableFileError>(
                             [&] { tablefile::Write(*collection.Find(material), file); });
                       }};
  ASSERT_EQ(writer.write(), "");
  WriteTextFile(file, "an earlier table");
  writerfaults::ExpectEachFaultKeepsTheOldFile(writer, 4096);
}

// The register's own log loses a message it cannot write and tells why, and the register goes
// on.
TEST_F(RegisterWriterFaults, RegisterInfoLog) {
  TAggregatedTemporaryChessboardRegister reg(100000);
  const TWriter writer{
      "register log", folder / "registerInfo.log",
      [&] {
        std::string error;
        CWriteFailures failures([&error](const std::string& message) { error = message; });
        reg.SetRegisterLog(folder / "registerInfo.log", &failures);
        reg.EmptySomeDataWhenRegisterFull(true);
        reg.SetRegisterLog({});
        return error;
      },
      true};
  ASSERT_EQ(writer.write(), "");
  writerfaults::ExpectEachFaultKeepsTheOldFile(writer, 16);
}

}  // namespace
