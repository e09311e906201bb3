#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/Options.h"
#include "app/TablesReports.h"
#include "app/TablesService.h"
#include "cli/Commands.h"

namespace {

struct TTablesArguments {
  std::vector<std::string> types;
  std::string type;  // of the commands that read one table
  std::string fen;
  std::uint64_t index = 0;
  int nThreads = 2;
};

// "KQKR [##########----------]  50%", rewritten in place on the terminal.
void ShowProgress(const std::string& name, double fraction) {
  constexpr int kWidth = 30;
  static std::string lastName;
  static int lastPercent = -1;
  const int percent = static_cast<int>(fraction * 100);
  if (name == lastName && percent == lastPercent) return;
  lastName = name;
  lastPercent = percent;
  const int filled = static_cast<int>(fraction * kWidth);
  std::fprintf(stderr, "\r%-6s [%s%s] %3d%%", name.c_str(), std::string(filled, '#').c_str(),
               std::string(kWidth - filled, '-').c_str(), percent);
  if (fraction >= 1.0) std::fprintf(stderr, "\n");
  std::fflush(stderr);
}

CTablesService MakeService(int nThreads) {
  for (const std::string& warning : ReadOptions()) std::cerr << warning << "\n";
  TTablesSettings settings = TablesSettingsFromOptions(Options());
  settings.nThreads = nThreads;
  return CTablesService(settings, [](const std::string& message) { std::cerr << message << "\n"; });
}

std::vector<TTableMaterial> Materials(const std::vector<std::string>& types) {
  std::vector<TTableMaterial> materials;
  for (const std::string& type : types) materials.push_back(TTableMaterial::Parse(type));
  return materials;
}

std::shared_ptr<const TEndgameTable> Load(CTablesService& service, const std::string& type) {
  auto table = service.Acquire(TTableMaterial::Parse(type));
  if (table == nullptr) throw CommandExit{1};
  return table;
}

void Generate(const TTablesArguments& args) {
  CTablesService service = MakeService(args.nThreads);
  for (const TGeneratedTable& table : service.Generate(Materials(args.types), ShowProgress)) {
    std::printf("%-6s %s %10.2f s %12llu bytes\n", table.name.c_str(),
                table.bGenerated ? "generated" : "on disk  ", table.seconds,
                static_cast<unsigned long long>(table.nBytes));
  }
}

void Verify(const TTablesArguments& args) {
  CTablesService service = MakeService(args.nThreads);
  std::vector<TTableMaterial> materials =
      args.types.empty() ? service.TablesOnDisk() : Materials(args.types);
  bool bAllRight = true;
  for (const TTableMaterial& material : materials) {
    const auto table = Load(service, material.Name());
    const TTableVerification check = VerifyWithService(
        service, *table, [&](double fraction) { ShowProgress(material.Name(), fraction); });
    ShowProgress(material.Name(), 1.0);
    std::printf("%-6s %llu positions checked, %llu wrong, %llu with a missing table\n",
                material.Name().c_str(), static_cast<unsigned long long>(check.nChecked),
                static_cast<unsigned long long>(check.nWrong),
                static_cast<unsigned long long>(check.nUnknown));
    for (const std::string& example : check.examples) std::printf("  %s\n", example.c_str());
    bAllRight = bAllRight && check.nWrong == 0 && check.nUnknown == 0;
  }
  if (!bAllRight) throw CommandExit{1};
}

void Probe(const TTablesArguments& args) {
  CTablesService service = MakeService(args.nThreads);
  const auto answer = ProbeFen(service, args.fen);
  if (!answer) {
    std::cout << "No table holds this position\n";
    throw CommandExit{1};
  }
  std::cout << answer->valueText << "\n";
  if (!answer->bestMoves.empty()) {
    std::cout << "Best moves:";
    for (const std::string& move : answer->bestMoves) std::cout << " " << move;
    std::cout << "\n";
  }
}

void Max(const TTablesArguments& args) {
  CTablesService service = MakeService(args.nThreads);
  const auto table = Load(service, args.type);
  const auto longest = FindLongestMate(*table);
  if (!longest) {
    std::cout << "No position of " << table->Material().Name() << " is a mate\n";
    return;
  }
  std::cout << TableValueText(longest->value, true) << " at index " << longest->index << ": "
            << longest->fen << "\n";
}

void Position(const TTablesArguments& args) {
  CTablesService service = MakeService(args.nThreads);
  const auto table = Load(service, args.type);
  const TIndexedPosition position = PositionAt(*table, args.index);
  if (position.bValid) {
    std::cout << position.fen << "\n"
              << "White to move: " << TableValueText(position.whiteValue, true) << "\n"
              << "Black to move: " << TableValueText(position.blackValue, false) << "\n";
  } else {
    std::cout << "Index " << args.index << " stands for no position of " << table->Material().Name()
              << "\n";
  }
  if (position.previous) std::cout << "Previous: " << *position.previous << "\n";
  if (position.next) std::cout << "Next: " << *position.next << "\n";
}

void Info(const TTablesArguments& args) {
  CTablesService service = MakeService(args.nThreads);
  const TTablesSettings& settings = service.Settings();
  std::cout << "Folder: " << settings.folder.string() << "\n";
  if (!settings.extraFolder.empty()) std::cout << "Also: " << settings.extraFolder.string() << "\n";
  std::cout << "Memory quota: " << (settings.nQuotaBytes >> 20) << " MB\n";
  std::cout << "The search reads tables "
            << (settings.bDiskAccess ? "from their files, block by block" : "whole into memory")
            << " (GlobalRegisterForceDiskAccess=" << settings.bDiskAccess << ")\n";
  for (const TTableMaterial& material : service.TablesOnDisk()) {
    const auto table = service.Acquire(material);
    std::printf("%-6s %12llu positions %12llu bytes in memory%s\n", material.Name().c_str(),
                static_cast<unsigned long long>(TTableIndex(material).Size()),
                static_cast<unsigned long long>(2 * TTableIndex(material).Size()),
                table ? "" : " (not loaded)");
  }
  std::cout << "Loaded: " << service.Loaded().size() << " tables, " << (service.LoadedBytes() >> 10)
            << " KB\n";
}

CLI::App* AddTypes(CLI::App* command, TTablesArguments& args, bool bRequired) {
  auto* option = command->add_option("TYPE", args.types,
                                     "Piece sets, White's pieces then Black's, e.g. KRK KQKR");
  if (bRequired) option->required();
  return command;
}

}  // namespace

// "longmate tables ...": the endgame tables of precalculated mates.
void AddTablesCommand(CLI::App& app) {
  auto args = std::make_shared<TTablesArguments>();
  CLI::App* tables = app.add_subcommand("tables", "Endgame tables: generate, check and read them");
  tables->require_subcommand(1);
  tables->add_option("--threads", args->nThreads, "Threads for generating and checking")
      ->check(CLI::Range(1, 64));
  AddTypes(tables->add_subcommand("generate", "Generate the tables of piece sets"), *args, true)
      ->callback([args] { Generate(*args); });
  AddTypes(tables->add_subcommand("verify", "Check that each value agrees with its successors"),
           *args, false)
      ->callback([args] { Verify(*args); });
  CLI::App* probe = tables->add_subcommand("probe", "The value of a position and its best moves");
  probe->add_option("FEN", args->fen, "Position (the side to move is the FEN's own field)")
      ->required();
  probe->callback([args] { Probe(*args); });
  CLI::App* max =
      tables->add_subcommand("max", "The longest mate of a table and a position with it");
  max->add_option("TYPE", args->type, "Piece set")->required();
  max->callback([args] { Max(*args); });
  CLI::App* position = tables->add_subcommand("position", "The position at an index of a table");
  position->add_option("TYPE", args->type, "Piece set")->required();
  position->add_option("INDEX", args->index, "Index")->required();
  position->callback([args] { Position(*args); });
  tables->add_subcommand("info", "The tables on disk, the memory they take and the quota")
      ->callback([args] { Info(*args); });
}
