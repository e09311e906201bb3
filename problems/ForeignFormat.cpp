#include "problems/ForeignFormat.h"

#include <cctype>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/ChessException.h"
#include "problems/EpdFormat.h"
#include "problems/FenListFormat.h"
#include "problems/PopeyeFormat.h"
#include "problems/ProblemFileError.h"

std::optional<EProblemFormat> FormatFromName(std::string_view name) {
  if (name == "popeye") return EProblemFormat::kPopeye;
  if (name == "epd") return EProblemFormat::kEpd;
  if (name == "fen") return EProblemFormat::kFenList;
  return std::nullopt;
}

std::optional<EProblemFormat> FormatFromFileName(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  if (dot == std::string_view::npos) return std::nullopt;
  std::string extension(path.substr(dot + 1));
  for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (extension == "pop" || extension == "txt") return EProblemFormat::kPopeye;
  if (extension == "epd") return EProblemFormat::kEpd;
  if (extension == "fen") return EProblemFormat::kFenList;
  return std::nullopt;
}

std::optional<TFileError> ImportText(std::string_view text, const std::string& fileName,
                                     EProblemFormat format, const TImportOptions& options,
                                     TProblemCollection& collection) {
  try {
    switch (format) {
      case EProblemFormat::kPopeye:
        popeyeformat::Read(text, collection);
        break;
      case EProblemFormat::kEpd:
        epdformat::Read(text, options.nDefaultMoves, collection);
        break;
      case EProblemFormat::kFenList:
        fenlistformat::Read(text, options.nDefaultMoves, collection);
        break;
    }
  } catch (const ProblemSyntaxError& error) {
    return TFileError::At(fileName, text, error.Offset(), error.what());
  }
  return std::nullopt;
}

std::optional<TFileError> ImportFile(const std::string& path, EProblemFormat format,
                                     const TImportOptions& options,
                                     TProblemCollection& collection) {
  std::error_code error;
  std::ifstream file(path, std::ios::binary);
  if (!file || std::filesystem::is_directory(path, error))
    return TFileError{path, 0, 0, "Error opening file: " + path};
  std::ostringstream content;
  content << file.rdbuf();
  std::string_view text = content.view();
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  return ImportText(text, path, format, options, collection);
}

TExportResult ExportText(const TProblemCollection& collection, EProblemFormat format) {
  TExportResult result;
  switch (format) {
    case EProblemFormat::kPopeye:
      result.text = popeyeformat::Write(collection, result.warnings);
      break;
    case EProblemFormat::kEpd:
      result.text = epdformat::Write(collection, result.warnings);
      break;
    case EProblemFormat::kFenList:
      result.text = fenlistformat::Write(collection, result.warnings);
      break;
  }
  return result;
}

std::unique_ptr<TProblem> NewImportedProblem(int id, const TStipulation& stipulation,
                                             const TChessboard& board) {
  auto problem = std::make_unique<TProblem>();
  problem->id = id;
  problem->SetStipulation(stipulation);
  problem->start = board;
  problem->ResetLine();
  return problem;
}

TStipulation ParseStipulationText(std::string_view text) {
  const bool bSelfmate = text.starts_with("s#") || text.starts_with("S#");
  const auto unsupported = [text] {
    return ChessException("Unsupported stipulation: " + std::string(text) +
                          " (only #N and s#N are read)");
  };
  // Checked before the count is cut off: the text may be empty.
  if (!bSelfmate && !text.starts_with('#')) throw unsupported();
  const std::string_view count = text.substr(bSelfmate ? 2 : 1);
  int nMoves = 0;
  const auto [end, error] = std::from_chars(count.data(), count.data() + count.size(), nMoves);
  if (error != std::errc() || end != count.data() + count.size()) throw unsupported();
  if (nMoves < 1 || nMoves > TStipulation::kMaxMoves)
    throw ChessException("Improper number of moves: " + std::to_string(nMoves) + " (1 to " +
                         std::to_string(TStipulation::kMaxMoves) + ")");
  return bSelfmate ? TStipulation::Selfmate(nMoves) : TStipulation::DirectMate(nMoves);
}
