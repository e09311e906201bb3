#pragma once
#include <stdexcept>
#include <string>

// The chess core's error: carries the exact English text shown to the user.
class ChessException : public std::runtime_error {
 public:
  explicit ChessException(const std::string& text) : std::runtime_error(text) {}
};
