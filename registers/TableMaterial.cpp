#include "registers/TableMaterial.h"

#include <algorithm>
#include <stdexcept>

#include "core/PieceLetters.h"

namespace {

// Kings first (white, black), then White's pieces, then Black's, each in type order.
bool TableOrder(PieceCode a, PieceCode b) {
  const auto key = [](PieceCode p) {
    if (piece::TypeOf(p) == piece::kKing) return piece::IsWhite(p) ? 0 : 1;
    return (piece::IsWhite(p) ? 2 : 7) + TableTypeRank(p);
  };
  return key(a) < key(b);
}

std::invalid_argument BadName(const std::string& name) {
  return std::invalid_argument("Not a piece set: \"" + name +
                               "\" (White's pieces, then Black's, each starting with K: KRK)");
}

}  // namespace

int TableTypeRank(PieceCode code) {
  switch (piece::TypeOf(code)) {
    case piece::kQueen:
      return 0;
    case piece::kRook:
      return 1;
    case piece::kBishop:
      return 2;
    case piece::kKnight:
      return 3;
    default:
      return 4;
  }
}

TTableMaterial TTableMaterial::OfCodes(const PieceCode* codes, int n) {
  TTableMaterial material;
  for (int i = 0; i < n; ++i)
    if (codes[i] != piece::kEmpty) material.pieces[material.nPieces++] = codes[i];
  n = material.nPieces;
  std::sort(material.pieces, material.pieces + n, TableOrder);
  std::string white = "K", black = "K";
  for (int i = 2; i < n; ++i) {
    const PieceCode p = material.pieces[i];
    (piece::IsWhite(p) ? white : black) += letters::TypeToLetter(piece::TypeOf(p));
  }
  material.name = white + black;
  return material;
}

TTableMaterial TTableMaterial::Parse(const std::string& name) {
  if (name.size() < 2 || name.size() > kMaxPieces || name[0] != 'K') throw BadName(name);
  const size_t blackKing = name.find('K', 1);
  if (blackKing == std::string::npos) throw BadName(name);
  PieceCode codes[kMaxPieces];
  int n = 0;
  for (size_t i = 0; i < name.size(); ++i) {
    const PieceCode white = letters::LetterToPiece(static_cast<unsigned char>(name[i]));
    if (!piece::IsWhite(white)) throw BadName(name);
    const bool bKing = piece::TypeOf(white) == piece::kKing;
    if (bKing != (i == 0 || i == blackKing)) throw BadName(name);
    codes[n++] =
        i < blackKing ? white : static_cast<PieceCode>(piece::TypeOf(white) | piece::kBlack);
  }
  return OfCodes(codes, n);
}

std::optional<TTableMaterial> TTableMaterial::OfBoard(const PieceCode* squares) {
  PieceCode codes[kMaxPieces];
  int n = 0, nWhiteKings = 0, nBlackKings = 0;
  for (int s = 0; s < 64; ++s) {
    if (squares[s] == piece::kEmpty) continue;
    if (n == kMaxPieces) return std::nullopt;
    nWhiteKings += squares[s] == piece::kWhiteKing ? 1 : 0;
    nBlackKings += squares[s] == piece::kBlackKing ? 1 : 0;
    codes[n++] = squares[s];
  }
  if (nWhiteKings != 1 || nBlackKings != 1) return std::nullopt;
  return OfCodes(codes, n);
}

std::string TTableMaterial::PositionType() const {
  std::string type;
  for (int i = 0; i < nPieces; ++i)
    if (i != 1) type += letters::PieceToLetter(pieces[i]);
  const auto nWhite = static_cast<size_t>(
      std::count_if(pieces, pieces + nPieces, [](PieceCode p) { return piece::IsWhite(p); }));
  type.insert(nWhite, 1, 'k');
  return type;
}

bool TTableMaterial::HasPawns() const {
  return std::any_of(pieces, pieces + nPieces,
                     [](PieceCode p) { return piece::TypeOf(p) == piece::kPawn; });
}

bool TTableMaterial::WhiteCanMate() const {
  return std::any_of(pieces + 2, pieces + nPieces, [](PieceCode p) { return piece::IsWhite(p); });
}

std::vector<TTableMaterial> TTableMaterial::Successors() const {
  std::vector<TTableMaterial> result;
  const auto add = [&](const PieceCode* codes) {
    const TTableMaterial next = OfCodes(codes, nPieces);
    if (std::find(result.begin(), result.end(), next) == result.end()) result.push_back(next);
  };
  constexpr PieceCode kTypes[] = {piece::kQueen, piece::kRook, piece::kBishop, piece::kKnight};
  for (int i = 2; i < nPieces; ++i) {
    PieceCode codes[kMaxPieces];
    std::copy(pieces, pieces + nPieces, codes);
    codes[i] = piece::kEmpty;
    add(codes);
    if (piece::TypeOf(pieces[i]) != piece::kPawn) continue;
    for (PieceCode type : kTypes) {
      std::copy(pieces, pieces + nPieces, codes);
      codes[i] = static_cast<PieceCode>((pieces[i] & ~piece::kTypeMask) | type);
      add(codes);
      for (int c = 2; c < std::min(nPieces, kMaxPieces); ++c) {
        if (piece::IsWhite(pieces[c]) == piece::IsWhite(pieces[i])) continue;
        codes[c] = piece::kEmpty;
        add(codes);
        codes[c] = pieces[c];
      }
    }
  }
  return result;
}
