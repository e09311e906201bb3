#include "problems/Collection.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/SafeFile.h"
#include "problems/DefaultClauses.h"
#include "problems/Lexer.h"
#include "problems/ProblemReader.h"
#include "problems/ProblemWriter.h"
#include "problems/TextTools.h"

namespace {

constexpr TTextTwins kNewFileDescription{"Kliknij, aby zmienić opis problemu",
                                         "Click here to change problem description",
                                         "Натисніть, щоб змінити опис задачі"};
constexpr TTextTwins kFile{"Plik ", "File ", "Файл "};
constexpr TTextTwins kReplaceIt{" już istnieje.\nCzy chcesz go zastąpić nowym plikiem?",
                                " already exists.\nDo you want to replace it with a new file?",
                                " вже існує.\nБажаєте замінити його новим файлом?"};
constexpr TTextTwins kQuestion{"Pytanie", "Question", "Питання"};

// Where the problems begin: behind a byte-order mark, blanks and the word "UTF-8".
std::size_t SkipFileHeader(std::string_view text) {
  std::size_t pos = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  while (pos < text.size() && text::BlankLength(text, pos) != 0)
    pos += text::BlankLength(text, pos);
  if (text.substr(pos).starts_with("UTF-8")) pos += 5;
  return pos;
}

// Problem files are UTF-8; a text in another encoding would be read as garbled letters and,
// saved again, lose them for good.
std::optional<TFileError> EncodingError(const std::string& path, std::string_view text) {
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
    return TFileError{path, 0, 0,
                      "Error reading file: " + path + ": the text is UTF-16, not UTF-8"};
  const std::size_t at = text::FirstNonUtf8(text);
  if (at == std::string_view::npos) return std::nullopt;
  return TFileError::At(path, text, at,
                        "the text is not UTF-8 (another encoding, such as Latin-2?)");
}

void Log(const TLogSink& log, const std::string& line) {
  if (log) log(line);
}

}  // namespace

std::optional<TFileError> TProblemCollection::ReadFile(const std::string& path,
                                                       const TReadOptions& options) {
  std::error_code error;
  if (options.bCreateIfMissing && !std::filesystem::exists(path, error)) {
    if (auto failure = WriteNewFile(path, options.nLanguageId))
      return TFileError{path, 0, 0, *failure};
  }
  std::ifstream file(path, std::ios::binary);
  // A folder opens like a file on some systems but has no text to read.
  if (!file || std::filesystem::is_directory(path, error)) {
    return TFileError{path, 0, 0, "Error opening file: " + path};
  }
  std::ostringstream content;
  content << file.rdbuf();
  const std::string text = content.str();
  if (auto failure = EncodingError(path, text)) return failure;
  return ReadText(text, path, options);
}

std::optional<TFileError> TProblemCollection::ReadText(std::string_view text,
                                                       const std::string& fileName,
                                                       const TReadOptions& options) {
  std::size_t pos = SkipFileHeader(text);
  TDefaultClauses defaults;
  try {
    while (defaults.ReadClause(text, pos)) {
    }
  } catch (const ProblemSyntaxError& e) {
    return TFileError::At(fileName, text, e.Offset(), e.what());
  }
  CLexer lexer(text, pos);
  try {
    while (!lexer.AtEnd()) {
      std::unique_ptr<TProblem> problem =
          CProblemReader(lexer, defaults, options.nLanguageId).Read();
      const TProblem& read = *problem;
      const int id = read.id;
      if (Put(std::move(problem))) {
        Log(options.log,
            "WARINING: Problem id=" + std::to_string(id) + " redefinition - overwriting.\n");
      }
      Log(options.log, "Problem " + std::to_string(id) + " read from file.\n");
      if (options.note) options.note(read, read.Notes(options.nLanguageId));
    }
  } catch (const ProblemSyntaxError& e) {
    return TFileError::At(fileName, text, e.Offset(), e.what());
  } catch (const std::exception& e) {
    // A failure of the chess core that the grammar did not foresee still names its place.
    return TFileError::At(fileName, text, lexer.Offset(), e.what());
  }
  return std::nullopt;
}

std::string TProblemCollection::WriteText() const {
  std::string out = problemwriter::kFileHeader;
  for (const auto& [id, problem] : problems) problemwriter::AppendProblem(out, *problem);
  return out;
}

std::optional<std::string> TProblemCollection::WriteFile(const std::string& path) const {
  return safefile::Save(path, WriteText());
}

std::string TProblemCollection::NewFileTemplate(int nLanguageId) {
  return std::string("UTF-8\n1 #2\n{\n\tDesc: ") + PickText(nLanguageId, kNewFileDescription) +
         "\n\tWhite: Ke1\n\tBlack: Ke8\n}\n";
}

std::string TProblemCollection::NewFileQuestion(const std::string& path, int nLanguageId) {
  return PickText(nLanguageId, kFile) + path + PickText(nLanguageId, kReplaceIt);
}

const char* TProblemCollection::QuestionTitle(int nLanguageId) {
  return PickText(nLanguageId, kQuestion);
}

std::optional<std::string> TProblemCollection::WriteNewFile(const std::string& path,
                                                            int nLanguageId) {
  return safefile::Save(path, NewFileTemplate(nLanguageId));
}

bool TProblemCollection::Put(std::unique_ptr<TProblem> problem) {
  const int id = problem->id;
  auto [slot, bInserted] = problems.try_emplace(id);
  slot->second = std::move(problem);
  return !bInserted;
}

const TProblem* TProblemCollection::Find(int id) const {
  const auto found = problems.find(id);
  return found == problems.end() ? nullptr : found->second.get();
}

std::unique_ptr<TProblem> TProblemCollection::Take(int id) {
  auto node = problems.extract(id);
  return node.empty() ? nullptr : std::move(node.mapped());
}
