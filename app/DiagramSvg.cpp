#include <sstream>
#include <string>
#include <vector>

#include "app/Diagram.h"
#include "core/Notation.h"

namespace diagram {
namespace {

constexpr int kSquare = 48;  // pixels of a square
constexpr int kMargin = 24;  // room for the coordinates
constexpr int kLine = 20;    // of the caption below the board
constexpr int kBoard = 8 * kSquare;
constexpr int kWidth = kBoard + 2 * kMargin;
// Characters of the caption's font that fit the board's width.
constexpr std::size_t kLineChars = 50;

const char* GlyphOf(PieceCode type) {
  switch (type) {
    case piece::kKing:
      return "&#x265A;";
    case piece::kQueen:
      return "&#x265B;";
    case piece::kRook:
      return "&#x265C;";
    case piece::kBishop:
      return "&#x265D;";
    case piece::kKnight:
      return "&#x265E;";
    default:
      return "&#x265F;";
  }
}

std::string Escaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
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

std::string Number(int value) {
  return std::to_string(value);
}

void AppendSquares(std::string& out) {
  for (int rank = 0; rank < 8; ++rank)
    for (int file = 0; file < 8; ++file)
      if ((file + rank) % 2 == 0)  // a1 is dark
        out += "<rect x=\"" + Number(kMargin + file * kSquare) + "\" y=\"" +
               Number((7 - rank) * kSquare + kMargin / 2) + "\" width=\"" + Number(kSquare) +
               "\" height=\"" + Number(kSquare) + "\" fill=\"#b9b9b9\"/>\n";
  out += "<rect x=\"" + Number(kMargin) + "\" y=\"" + Number(kMargin / 2) + "\" width=\"" +
         Number(kBoard) + "\" height=\"" + Number(kBoard) +
         "\" fill=\"none\" stroke=\"black\" stroke-width=\"2\"/>\n";
}

void AppendCoordinates(std::string& out) {
  out +=
      "<g font-family=\"DejaVu Sans\" font-size=\"12\" fill=\"#404040\" text-anchor=\"middle\">\n";
  for (int i = 0; i < 8; ++i) {
    out += "<text x=\"" + Number(kMargin + i * kSquare + kSquare / 2) + "\" y=\"" +
           Number(kBoard + kMargin / 2 + 16) + "\">" + std::string(1, static_cast<char>('a' + i)) +
           "</text>\n";
    out += "<text x=\"" + Number(kMargin / 2) + "\" y=\"" +
           Number((7 - i) * kSquare + kMargin / 2 + kSquare / 2 + 4) + "\">" +
           std::string(1, static_cast<char>('1' + i)) + "</text>\n";
  }
  out += "</g>\n";
}

void AppendPieces(std::string& out, const TChessboard& board) {
  out += "<g font-family=\"DejaVu Sans\" font-size=\"" + Number(kSquare * 4 / 5) +
         "\" text-anchor=\"middle\" stroke-linejoin=\"round\">\n";
  for (SquareIndex s = 0; s < 64; ++s) {
    const PieceCode code = board.squares[s];
    if (code == piece::kEmpty) continue;
    const bool bWhite = piece::IsWhite(code);
    out += "<text x=\"" + Number(kMargin + square::File(s) * kSquare + kSquare / 2) + "\" y=\"" +
           Number((7 - square::Rank(s)) * kSquare + kMargin / 2 + kSquare * 4 / 5) + "\" fill=\"" +
           (bWhite ? "white" : "black") + "\" stroke=\"" + (bWhite ? "black" : "#3c3c3c") +
           "\" stroke-width=\"1.2\">" + GlyphOf(piece::TypeOf(code)) + "</text>\n";
  }
  out += "</g>\n";
}

// The description broken at spaces into lines that fit under the board (a word longer than a
// line keeps a line of its own).
std::vector<std::string> CaptionLines(const std::string& description) {
  std::vector<std::string> lines;
  std::istringstream words(description);
  for (std::string word; words >> word;) {
    if (!lines.empty() && lines.back().size() + 1 + word.size() <= kLineChars)
      lines.back() += " " + word;
    else
      lines.push_back(word);
  }
  return lines;
}

void AppendCaption(std::string& out, const TProblem& problem,
                   const std::vector<std::string>& lines) {
  int y = kBoard + kMargin + kLine;
  out += "<g font-family=\"DejaVu Sans\" font-size=\"14\" fill=\"black\">\n";
  for (const std::string& line : lines) {
    out += "<text x=\"" + Number(kMargin) + "\" y=\"" + Number(y) + "\">" + Escaped(line) +
           "</text>\n";
    y += kLine;
  }
  out += "<text x=\"" + Number(kMargin + kBoard) + "\" y=\"" + Number(y + 2) +
         "\" text-anchor=\"end\">" + Escaped(problem.stipulation.Text()) + " " +
         PieceCountText(problem) + "</text>\n";
  out += "</g>\n";
}

}  // namespace

std::string PieceCountText(const TProblem& problem) {
  int nWhite = 0, nBlack = 0;
  for (PieceCode code : problem.start.squares) {
    if (piece::IsWhite(code)) ++nWhite;
    if (piece::IsBlack(code)) ++nBlack;
  }
  return "(" + Number(nWhite) + "+" + Number(nBlack) + ")";
}

std::string Svg(const TProblem& problem) {
  const std::vector<std::string> lines = CaptionLines(problem.description);
  const int nHeight = kBoard + kMargin + kLine * static_cast<int>(lines.size() + 2);
  std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  out += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + Number(kWidth) + "\" height=\"" +
         Number(nHeight) + "\" viewBox=\"0 0 " + Number(kWidth) + " " + Number(nHeight) + "\">\n";
  out += "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
  AppendSquares(out);
  AppendCoordinates(out);
  AppendPieces(out, problem.start);
  AppendCaption(out, problem, lines);
  return out + "</svg>\n";
}

}  // namespace diagram
