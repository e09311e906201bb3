#pragma once
#include <cstdint>
#include <string>

#include "core/Chessboard.h"

// Exact identifier of a placement: per square a 0 bit when empty, or a 1 bit and a
// 4-bit short code. Side to move, castling and ply are not part of it.
class TChessboardId {
 public:
  TChessboardId() = default;
  // Throws "Exception in TChessboardId" beyond 40 bytes, "Unknown figure code" for a non-piece.
  explicit TChessboardId(const TChessboard& board);
  // An identifier kept as its bit count and bytes (in files); throws "Wrong chessboard id"
  // for a bit count outside 0..320.
  static TChessboardId FromBits(std::int16_t nBits, const std::uint8_t* bytes);
  // Throws "Wrong chessboard id" or "Unknown figure short code".
  void DecodeTo(PieceCode* squares) const;

  std::string ToAlphanum6() const;
  std::string ToAlphanum5() const;
  // The name of the files kept for this placement, before their extension. The bit count
  // tells apart identifiers whose texts differ only in the padding of the last group.
  std::string FileBaseName() const;
  std::int16_t BitCount() const { return nBits; }
  const std::uint8_t* Bits() const { return bits; }
  bool operator==(const TChessboardId&) const = default;

 private:
  std::int16_t nBits = 0;
  std::uint8_t bits[40] = {};
};
