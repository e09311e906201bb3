#include <string>

#include "app/Diagram.h"
#include "core/Notation.h"
#include "problems/ProblemWriter.h"

namespace diagram {
namespace {

// The package reads German letters: König, Dame, Turm, Läufer, Springer, Bauer.
char GermanLetter(PieceCode type) {
  switch (type) {
    case piece::kKing:
      return 'K';
    case piece::kQueen:
      return 'D';
    case piece::kRook:
      return 'T';
    case piece::kBishop:
      return 'L';
    case piece::kKnight:
      return 'S';
    default:
      return 'B';
  }
}

std::string Escaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '\\':
        out += "\\textbackslash{}";
        break;
      case '~':
        out += "\\textasciitilde{}";
        break;
      case '^':
        out += "\\textasciicircum{}";
        break;
      case '&':
      case '%':
      case '$':
      case '#':
      case '_':
      case '{':
      case '}':
        out += '\\';
        out += c;
        break;
      case '\n':
      case '\r':
        out += ' ';
        break;
      default:
        out += c;
    }
  }
  return out;
}

// "wKg3, wDh5, sKd4": kings first, then the rest square by square, white before black.
std::string PieceList(const TChessboard& board) {
  std::string out;
  for (const PieceCode colour : {piece::kWhite, piece::kBlack}) {
    for (const bool bKing : {true, false}) {
      for (SquareIndex s = 0; s < 64; ++s) {
        const PieceCode code = board.squares[s];
        if ((code & colour) == 0 || (piece::TypeOf(code) == piece::kKing) != bKing) continue;
        if (!out.empty()) out += ", ";
        out += colour == piece::kWhite ? 'w' : 's';
        out += GermanLetter(piece::TypeOf(code));
        out += notation::SquareToText(s);
      }
    }
  }
  return out;
}

}  // namespace

std::string Latex(const TProblem& problem) {
  const std::string counts = PieceCountText(problem);
  std::string out = "% needs \\usepackage{diagram} (chess-problem-diagrams)\n\\begin{diagram}\n";
  if (!problem.description.empty()) out += "\\source{" + Escaped(problem.description) + "}\n";
  out +=
      "\\pieces[" + counts.substr(1, counts.size() - 2) + "]{" + PieceList(problem.start) + "}\n";
  out += "\\stip{" + Escaped(problem.stipulation.Text()) + "}\n";
  if (problem.HasFlag(option::kAnswerGiven) && !problem.answer.empty()) {
    std::string keys;
    for (const TMove& key : problem.answer)
      keys += (keys.empty() ? "1." : ", 1.") + problemwriter::AnswerText(problem.start, key) + "!";
    out += "\\sol{" + Escaped(keys) + "}\n";
  }
  return out + "\\end{diagram}\n";
}

}  // namespace diagram
