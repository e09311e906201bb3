#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "core/Blanks.h"
#include "core/CastlingRule.h"
#include "core/ChessException.h"
#include "core/MoveMaking.h"
#include "core/Notation.h"
#include "core/PieceLetters.h"

namespace notation {
namespace {

bool IsLetter(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

std::string_view SkipLeadingBlanks(std::string_view text) {
  return text.substr(text::SkipBlanks(text, 0));
}

// "0-0" and "0-0-0" name the king's two-file step of the given side.
std::optional<TMove> ReadCastling(std::string_view text, bool bWhite) {
  if (text != "0-0" && text != "0-0-0") return std::nullopt;
  const TCastlingRule& rule = castling::RulesOf(bWhite)[text == "0-0" ? 0 : 1];
  return TMove{rule.kingFrom, rule.kingTo, 0, 0};
}

// A file letter in either case and a rank digit; square::kNone for anything off the board.
SquareIndex ReadSquare(char fileLetter, char rankDigit) {
  const int file = std::toupper(static_cast<unsigned char>(fileLetter)) - 'A';
  const int rank = rankDigit - '1';
  if (file < 0 || file > 7 || rank < 0 || rank > 7) return square::kNone;
  return square::Make(file, rank);
}

struct TParsedMove {
  TMove move;
  PieceCode type;  // the type the text names for the moving piece
};

std::optional<TParsedMove> ParseMoveText(std::string_view text, bool bWhite) {
  if (const auto castling = ReadCastling(text, bWhite)) return TParsedMove{*castling, piece::kKing};
  if (text.size() < 5 || text[0] == '0') return std::nullopt;
  TParsedMove parsed{{}, piece::kPawn};
  size_t at = 0;
  if (IsLetter(text[1])) {
    parsed.type = letters::FindTypeOfMoveLetter(text[0]);
    at = 1;
  }
  if (parsed.type == piece::kEmpty || text.size() < at + 5) return std::nullopt;
  parsed.move.from = ReadSquare(text[at], text[at + 1]);
  parsed.move.to = ReadSquare(text[at + 3], text[at + 4]);
  if (parsed.move.from == square::kNone || parsed.move.to == square::kNone) return std::nullopt;
  // Annotation marks behind the squares (+, #, !) are no promotion letter.
  if (text.size() > at + 5 && IsLetter(text[at + 5])) {
    const PieceCode promoted = letters::FindTypeOfMoveLetter(text[at + 5]);
    if (promoted == piece::kEmpty) return std::nullopt;
    parsed.move.promotion = piece::SideMask(bWhite) | promoted;
  }
  return parsed;
}

bool IsPathClear(const PieceCode* squares, SquareIndex from, SquareIndex to) {
  const int df = square::File(to) - square::File(from);
  const int dr = square::Rank(to) - square::Rank(from);
  // Squares on no common line (a knight's jump) have nothing between them.
  if (df != 0 && dr != 0 && std::abs(df) != std::abs(dr)) return true;
  const int step = 8 * ((dr > 0) - (dr < 0)) + ((df > 0) - (df < 0));
  for (int s = from + step; s != to; s += step) {
    if (squares[s] != piece::kEmpty) return false;
  }
  return true;
}

// The checks that need no move generation; a failure refuses the text silently.
bool HasPlausibleShape(const TChessboard& board, const TParsedMove& parsed) {
  const TMove move = parsed.move;
  const bool bWhite = board.IsWhiteToMove();
  const PieceCode own = piece::SideMask(bWhite);
  const PieceCode mover = board.squares[move.from];
  if (piece::TypeOf(mover) != parsed.type || (mover & own) == 0) return false;
  if ((board.squares[move.to] & own) != 0) return false;
  if (!IsPathClear(board.squares, move.from, move.to)) return false;
  const bool bReachesLastRank =
      parsed.type == piece::kPawn && square::Rank(move.to) == square::PromotionRank(bWhite);
  return bReachesLastRank == (move.promotion != piece::kEmpty);
}

}  // namespace

TMove FullDescriptionToMove(const std::string& text, bool bWhite) {
  std::string_view rest = text::Trim(text);
  if (rest.empty()) throw ChessException("Empty string");
  if (const auto castling = ReadCastling(rest, bWhite)) return *castling;
  PieceCode promoted = piece::kEmpty;
  if (IsLetter(rest.back())) {
    promoted = letters::FindTypeOfMoveLetter(rest.back());
    if (promoted == piece::kEmpty) {
      throw ChessException(std::string("Unknown figure letter: ") + rest.back());
    }
    rest.remove_suffix(1);
  }
  if (rest.size() != 5 && rest.size() != 6) throw ChessException("Improper string length");
  if (rest.size() == 6)
    rest.remove_prefix(1);  // the piece letter is not needed to find the squares
  const SquareIndex from = ReadSquare(rest[0], rest[1]);
  const SquareIndex to = ReadSquare(rest[3], rest[4]);
  if (from == square::kNone || to == square::kNone) {
    throw ChessException("Improper full description of move");
  }
  // Like generated entries, the promotion carries the type alone.
  return TMove{from, to, promoted, 0};
}

void ReadShortNotation(const std::string&) {
  throw ChessException("Short notation not supported.");
}

TChessboard* MakeMove(const TChessboard& board, const std::string& text, TChessboard& successor,
                      const TMoveCallback& onMade) {
  if (board.ply == 0) return nullptr;
  const auto parsed = ParseMoveText(SkipLeadingBlanks(text), board.IsWhiteToMove());
  if (!parsed || !HasPlausibleShape(board, *parsed)) return nullptr;
  const std::uint32_t code = parsed->move.Code();
  if (!movemaking::IsMoveValid(board, code, successor)) {
    throw ChessException("Invalid move in MakeMove() : " + text);
  }
  if (onMade) onMade(code, -1);
  return &successor;
}

TMoveSequenceEnd ReadMoveSequence(const TChessboard& board, std::string_view text,
                                  std::span<TChessboard> line) {
  const TChessboard* current = &board;
  std::size_t pos = text::SkipBlanks(text, 0);
  int moveNumber = 1;
  while (pos < text.size()) {
    const std::size_t moveStart = pos;
    const std::string label = std::to_string(moveNumber) + ".";
    if (text.substr(pos).starts_with(label)) pos = text::SkipBlanks(text, pos + label.size());
    const std::size_t end = text::SkipWord(text, pos);
    const TChessboard* next = nullptr;
    // A token too long to be a move ends the sequence like any other refused text.
    if (end - pos <= 14 && current->ply < line.size()) {
      try {
        next = MakeMove(*current, std::string(text.substr(pos, end - pos)), line[current->ply]);
      } catch (const ChessException&) {
        // So does an illegal move.
      }
    }
    if (next == nullptr) return {current, text::Trim(text.substr(moveStart))};
    current = next;
    pos = text::SkipBlanks(text, end);
    if (current->IsWhiteToMove()) ++moveNumber;
  }
  return {current, {}};
}

}  // namespace notation
