#pragma once
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "problems/Collection.h"
#include "problems/Problem.h"

// The formats other chess-problem programs exchange: the input language of the established
// open problem solver, EPD lines, and plain FEN lists. Longmate reads them into a collection
// and writes a collection out in them.
enum class EProblemFormat { kPopeye, kEpd, kFenList };

// "popeye", "epd", "fen"; nothing for another name.
std::optional<EProblemFormat> FormatFromName(std::string_view name);
// From a file name's extension: ".pop" and ".txt" for the solver's language, ".epd", ".fen".
std::optional<EProblemFormat> FormatFromFileName(std::string_view path);

struct TImportOptions {
  // The move count of positions that come without a stipulation (FEN lists); 0 refuses them.
  int nDefaultMoves = 0;
};

// Reads every problem of text into collection (numbered from 1 in the order read, unless the
// format gives numeric ids). An error names the line and column; the problems read before it
// stay in the collection.
std::optional<TFileError> ImportText(std::string_view text, const std::string& fileName,
                                     EProblemFormat format, const TImportOptions& options,
                                     TProblemCollection& collection);

// The same for a file; a UTF-8 byte-order mark is skipped.
std::optional<TFileError> ImportFile(const std::string& path, EProblemFormat format,
                                     const TImportOptions& options, TProblemCollection& collection);

struct TExportResult {
  std::string text;
  // What the format could not hold, a line per problem concerned ("problem 7: ...").
  std::vector<std::string> warnings;
};
TExportResult ExportText(const TProblemCollection& collection, EProblemFormat format);

// A problem of the given stipulation whose start is board (already analysed).
std::unique_ptr<TProblem> NewImportedProblem(int id, const TStipulation& stipulation,
                                             const TChessboard& board);
// "#3" or "s#12"; throws ChessException for anything else.
TStipulation ParseStipulationText(std::string_view text);
