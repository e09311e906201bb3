#include "problems/ProblemTransforms.h"

#include "core/Fen.h"
#include "core/TextTwins.h"

namespace problemtransforms {
namespace {

using transforms::ETransform;

constexpr TTextTwins kCastlingChanged{
    "Uwaga: w pozycji lustrzanej zmieniają się możliwości roszady",
    "Note: in the mirror position possibilities of castling are changed",
    "Примітка: у дзеркальній позиції можливості рокіровки змінюються"};
constexpr TTextTwins kVariantsWithCastling{
    "Niektóre warianty zapisane w pozycji nie zostały poprawnie obrócone (roszada)",
    "Some variants that position contains were not rotated properly (castling)",
    "Деякі варіанти, що містить позиція, не були правильно повернуті (рокіровка)"};
constexpr TTextTwins kJudgedOtherwise{
    "Bieżąca pozycja traktowana niezależnie może być interpretowana inaczej niż pozycja "
    "oryginalna/wyjściowa (kwestie roszady i/lub bicia w przelocie)",
    "Current position treated independently can be interpreted in another way than the "
    "original/starting position (castling and/or en-passant issues)",
    "Поточна позиція, розглянута окремо, може тлумачитися інакше, ніж оригінальна/початкова "
    "позиція (питання рокіровки та/або взяття на проході)"};

bool IsSquareAt(const std::string& text, std::size_t i) {
  return i + 1 < text.size() && text[i] >= 'a' && text[i] <= 'h' && text[i + 1] >= '1' &&
         text[i + 1] <= '8' && (i + 2 == text.size() || text[i + 2] < '0' || text[i + 2] > '9');
}

// A variant's squares ("e2", "Ng1-f3") moved with the board; the rest of its text stays.
std::string MapVariant(ETransform transform, std::string text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsSquareAt(text, i)) continue;
    const SquareIndex s =
        transforms::MapSquare(transform, square::Make(text[i] - 'a', text[i + 1] - '1'));
    text[i] = static_cast<char>('a' + square::File(s));
    text[++i] = static_cast<char>('1' + square::Rank(s));
  }
  return text;
}

bool NamesCastling(const std::string& text) {
  return text.find("0-0") != std::string::npos || text.find("O-O") != std::string::npos;
}

void MapMoves(ETransform transform, std::vector<TMove>& moves) {
  for (TMove& move : moves) {
    move.from = transforms::MapSquare(transform, move.from);
    move.to = transforms::MapSquare(transform, move.to);
  }
}

const char* DescriptionPrefix(ETransform transform) {
  switch (transform) {
    case ETransform::kSwapColours:
      return "B&Wh.swapped: ";
    case ETransform::kRotate180:
      return "Rotated ";
    case ETransform::kRotate90:
      return "Rotated 90";
    default:
      return "";
  }
}

}  // namespace

std::vector<std::string> Apply(ETransform transform, TProblem& problem, int nLanguageId) {
  TChessboard board = problem.start;
  std::vector<std::string> notes;
  if (transform == ETransform::kMirrorFiles) {
    if (!transforms::MirrorFiles(board))
      notes.emplace_back(PickText(nLanguageId, kCastlingChanged));
  } else {
    transforms::Apply(transform, board);
  }
  problem.start = board;
  problem.ResetLine();
  MapMoves(transform, problem.answer);
  MapMoves(transform, problem.expectedSortedWhiteMoves);
  bool bCastlingLost = false;
  for (std::string& variant : problem.variants) {
    // A swap of colours keeps each castling a castling; a mirror or a turn cannot.
    bCastlingLost =
        bCastlingLost || (transform != ETransform::kSwapColours && NamesCastling(variant));
    variant = MapVariant(transform, variant);
  }
  if (bCastlingLost) notes.emplace_back(PickText(nLanguageId, kVariantsWithCastling));
  for (auto& [number, elements] : problem.sortIndications) {
    for (TSortIndication& element : elements) {
      element.from = transforms::MapSquare(transform, element.from);
      element.to = transforms::MapSquare(transform, element.to);
    }
  }
  problem.description = DescriptionPrefix(transform) + problem.description;
  return notes;
}

std::vector<std::string> StartFromCurrent(TProblem& problem, int nLanguageId) {
  std::vector<std::string> notes;
  if (fen::LineEndDiffersAlone(*problem.current))
    notes.emplace_back(PickText(nLanguageId, kJudgedOtherwise));
  const TChessboard current = *problem.current;
  problem.start = current;
  problem.ResetLine();
  return notes;
}

}  // namespace problemtransforms
