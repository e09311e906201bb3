#include "app/Options.h"

#include <algorithm>
#include <type_traits>

#include "app/IniFile.h"
#include "app/Language.h"
#include "app/OptionKeys.h"
#include "app/platform/Machine.h"

namespace {

constexpr TTextTwins kRecompressionWarning{
    "Wartość parametru AskForGlobalRegisterRecompression nie powinna być większa niż "
    "UseDataPackedForRandomAccess.",
    "Value of parameter AskForGlobalRegisterRecompression should not be greater than "
    "UseDataPackedForRandomAccess.",
    "Значення параметра AskForGlobalRegisterRecompression не повинно перевищувати "
    "UseDataPackedForRandomAccess."};

constexpr TTextTwins kLogMovesWarning{
    "Program został otwarty z opcją zapisu logu pełnej analizy - ta opcja nie jest zalecana "
    "(znacznie wydłuża rozwiązywanie i tworzy duże pliki logów)",
    "Program has been opened with the option to write log of full analysis - this option is not "
    "recommended (it makes solving last much longer and produces large log files)",
    "Програму відкрито з опцією запису журналу повного аналізу - ця опція не рекомендується "
    "(вона значно подовжує розв'язування і створює великі файли журналів)"};

// The path key is read into a buffer of 255 characters: at most 254 stay.
std::string CutToBufferSize(const std::string& text) {
  constexpr std::size_t kMaxCharacters = 254;
  std::size_t nCharacters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool bStartsCharacter = (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80;
    if (bStartsCharacter && nCharacters++ == kMaxCharacters) return text.substr(0, i);
  }
  return text;
}

long long ApplyReadRule(EOptionRule rule, long long value) {
  switch (rule) {
    case EOptionRule::LevelsStoredMinusOne:
      return value + 1;
    case EOptionRule::ReadAsSwitch:
      return value != 0 ? 1 : 0;
    case EOptionRule::RangeZeroToTwo:
      return std::clamp(value, 0LL, 2LL);
    case EOptionRule::Plain:
      break;
  }
  return value;
}

// Reads one key into its member; true when the value came from the file.
bool LoadKey(const CIniFile& ini, const TOptionKey& key, COptions& options) {
  if (const auto* text = std::get_if<std::string COptions::*>(&key.member)) {
    const std::string value = ini.GetString(kOptionsSection, key.szName, "");
    if (!value.empty()) {
      options.** text = CutToBufferSize(value);
    } else if (*key.szDefault != '\0') {
      options.** text = key.szDefault;
    }
    return !value.empty();
  }
  const std::optional<int> found = ini.FindInt(kOptionsSection, key.szName);
  const long long value = ApplyReadRule(key.rule, found.value_or(key.nDefault));
  std::visit(
      [&](auto member) {
        using TValue = std::decay_t<decltype(options.*member)>;
        if constexpr (!std::is_same_v<TValue, std::string>)
          options.*member = static_cast<TValue>(value);
      },
      key.member);
  return found.has_value();
}

}  // namespace

void DeriveMemoryQuotas(std::uint64_t nTotalPhysicalBytes, COptions& options) {
  const std::uint64_t nTotalMB = nTotalPhysicalBytes >> 20;
  options.nTempRegQuotaMB = nTotalMB * options.nMaxMemRatioForTempReg / 100;
  options.nTempRegSecondBoundMB = nTotalMB * 20 / 100;
  options.nPrecalcQuotaBytes = options.nMaxMemRatioForPrecalculatedData * nTotalPhysicalBytes / 100;
}

COptions& Options() {
  static COptions options = DefaultOptions();
  return options;
}

COptions DefaultOptions() {
  COptions options;
  LoadOptions(CIniFile{}, platform::TotalPhysicalMemoryBytes(), options);
  return options;
}

std::filesystem::path DefaultOptionsPath() {
  std::error_code error;
  return std::filesystem::current_path(error) / "options.ini";
}

std::vector<std::string> LoadOptions(const CIniFile& ini, std::uint64_t nTotalPhysicalBytes,
                                     COptions& options) {
  const auto keys = OptionKeys();
  for (std::size_t i = 0; i < keys.size(); ++i)
    options.keysFromFile[i] = LoadKey(ini, keys[i], options);
  DeriveMemoryQuotas(nTotalPhysicalBytes, options);

  std::vector<std::string> warnings;
  if (options.nAskForGlobalRegisterRecompression > options.nUseDataPackedForRandomAccess) {
    warnings.emplace_back(PickText(options.nLanguageId, kRecompressionWarning));
    options.nAskForGlobalRegisterRecompression = options.nUseDataPackedForRandomAccess;
  }
  if (options.bLogMoves) warnings.emplace_back(PickText(options.nLanguageId, kLogMovesWarning));
  return warnings;
}

void StoreOptions(const COptions& options, CIniFile& ini) {
  for (const TOptionKey& key : OptionKeys())
    if (key.bWritten) ini.SetString(kOptionsSection, key.szName, StoredValueText(options, key));
}

std::vector<std::string> ReadOptions() {
  return ReadOptions(DefaultOptionsPath());
}

std::vector<std::string> ReadOptions(const std::filesystem::path& iniFile) {
  CIniFile ini;
  ini.Load(iniFile);  // a missing file means every default
  return LoadOptions(ini, platform::TotalPhysicalMemoryBytes(), Options());
}

std::optional<std::string> WriteOptions() {
  return WriteOptions(DefaultOptionsPath());
}

std::optional<std::string> WriteOptions(const std::filesystem::path& iniFile) {
  CIniFile ini;
  std::error_code error;
  // A file that exists but cannot be read must not be replaced by our keys alone.
  if (!ini.Load(iniFile) && std::filesystem::exists(iniFile, error))
    return "Error reading file: " + iniFile.string();
  StoreOptions(Options(), ini);
  return ini.Save(iniFile);
}
