#include <iostream>
#include <memory>
#include <string>

#include "app/OptionKeys.h"
#include "app/Options.h"
#include "app/platform/Machine.h"
#include "cli/Commands.h"

namespace {

void PrintSettings(const COptions& options) {
  const auto keys = OptionKeys();
  for (std::size_t i = 0; i < keys.size(); ++i)
    std::cout << keys[i].szName << "=" << EffectiveValueText(options, keys[i])
              << (options.keysFromFile[i] ? " (file)" : " (default)") << "\n";
  std::cout << "TotalPhysicalMemoryBytes=" << platform::TotalPhysicalMemoryBytes() << "\n"
            << "TempRegQuotaMB=" << options.nTempRegQuotaMB << "\n"
            << "TempRegSecondBoundMB=" << options.nTempRegSecondBoundMB << "\n"
            << "PrecalcQuotaBytes=" << options.nPrecalcQuotaBytes << "\n";
}

}  // namespace

// "longmate config [--ini FILE]": the settings as the program would use them.
// SchedulerLevels shows the number of levels, one more than the file holds.
void AddConfigCommand(CLI::App& app) {
  CLI::App* command =
      app.add_subcommand("config", "Print the effective settings of options.ini and their source");
  auto iniFile = std::make_shared<std::string>();
  command->add_option("--ini", *iniFile, "Settings file (default: options.ini here)");
  command->callback([iniFile] {
    const auto warnings = iniFile->empty() ? ReadOptions() : ReadOptions(*iniFile);
    for (const std::string& warning : warnings) std::cerr << warning << "\n";
    PrintSettings(Options());
  });
}
