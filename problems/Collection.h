#pragma once
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/TextTwins.h"
#include "problems/Problem.h"
#include "problems/ProblemFileError.h"

// Where the reading of a file reports each problem read and each redefined id.
using TLogSink = std::function<void(const std::string&)>;
// Where it reports, for every problem read, what a user should know about it (TProblem::Notes,
// often nothing); a problem that replaces another of its id is reported again.
using TNoteSink = std::function<void(const TProblem&, const std::vector<std::string>&)>;

// The problems of one file by id. Iteration, and so writing, is in ascending id order
// whatever the order of the file read.
class TProblemCollection {
 public:
  using TMap = std::map<int, std::unique_ptr<TProblem>>;

  static constexpr const char* kUserFileName = "myChessProblems.cp";
  static constexpr const char* kSampleFileName = "sample_problems.cp";
  // The one problem of a new file: a mate in 2 with the two kings only, its description in
  // the interface language.
  static std::string NewFileTemplate(int nLanguageId);
  // What to ask before a new file replaces the file at path, and the title of the question.
  static std::string NewFileQuestion(const std::string& path, int nLanguageId);
  static const char* QuestionTitle(int nLanguageId);

  struct TReadOptions {
    bool bCreateIfMissing = false;  // write the new-file template where no file exists
    TLogSink log = nullptr;
    TNoteSink note = nullptr;
    int nLanguageId = kEnglishLanguageId;  // of the texts with a translation
  };

  // Reads every problem of the file into the collection, replacing problems of the same
  // id. A bad problem stops the reading: the problems read before it stay, and the error
  // is returned with its line and column. A file in another encoding than UTF-8 (UTF-16,
  // Latin-2) is refused whole, at its first byte that is not UTF-8.
  std::optional<TFileError> ReadFile(const std::string& path, const TReadOptions& options);
  // The same for a text already in memory; fileName names it in errors.
  std::optional<TFileError> ReadText(std::string_view text, const std::string& fileName,
                                     const TReadOptions& options);
  std::optional<TFileError> ReadText(std::string_view text, const std::string& fileName) {
    return ReadText(text, fileName, TReadOptions());
  }
  // The canonical text of the whole collection.
  std::string WriteText() const;
  // Saves the canonical text safely; returns the error text on failure.
  std::optional<std::string> WriteFile(const std::string& path) const;
  // Writes the new-file template to path (safely); returns the error text on failure.
  static std::optional<std::string> WriteNewFile(const std::string& path, int nLanguageId);

  // Adds the problem; returns whether it replaced one with the same id.
  bool Put(std::unique_ptr<TProblem> problem);
  const TProblem* Find(int id) const;
  TProblem* Find(int id) { return const_cast<TProblem*>(std::as_const(*this).Find(id)); }
  bool Remove(int id) { return problems.erase(id) > 0; }
  // Takes the problem out of the collection; nothing when there is none of that id.
  std::unique_ptr<TProblem> Take(int id);
  const TMap& Problems() const { return problems; }
  std::size_t Size() const { return problems.size(); }
  bool Empty() const { return problems.empty(); }
  void Clear() { problems.clear(); }

 private:
  TMap problems;
};
