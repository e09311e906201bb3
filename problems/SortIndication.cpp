#include "problems/SortIndication.h"

#include <string_view>

#include "core/ChessException.h"
#include "core/PieceLetters.h"
#include "problems/TextTools.h"

namespace sortindication {
namespace {

constexpr TTextTwins kInvalidElement{
    "Niepoprawny opis SortIndication: ", "Invalid description of SortIndication: ",
    "Неправильний опис SortIndication: "};

class CElementParser {
 public:
  CElementParser(const std::string& text, int nLanguage)
      : whole(text), rest(text::Trim(text)), nLanguageId(nLanguage) {}

  TSortIndication Parse() {
    ReadCheckSuffix();
    if (!rest.empty() && rest.front() == '~') {
      element.bNegated = true;
      rest.remove_prefix(1);
    }
    ReadMoveNumber();
    rest = text::Trim(rest);
    ReadPieceLetter();
    if (!rest.empty() && rest.front() == '0') {
      ReadCastling();
      return element;
    }
    if (rest.size() > 1 && text::IsLetter(rest.front()) &&
        rest.find_first_of(":>-") != std::string_view::npos) {
      element.from = TakeSquare();
    }
    ReadSeparator();
    if (rest.size() < 2 || rest.size() > 3 || !text::IsLetter(rest.front())) Fail();
    element.to = TakeSquare();
    if (!rest.empty()) {
      element.promotion = letters::FindTypeOfMoveLetter(rest.front());
      if (element.promotion == piece::kEmpty) Fail();
    }
    return element;
  }

 private:
  [[noreturn]] void Fail() const {
    throw ChessException(PickText(nLanguageId, kInvalidElement) + whole);
  }

  void ReadCheckSuffix() {
    if (rest.ends_with("++")) {
      element.checkMode = 2;
      rest.remove_suffix(2);
    } else if (rest.ends_with('+')) {
      element.checkMode = 1;
      rest.remove_suffix(1);
    }
  }

  void ReadMoveNumber() {
    const std::size_t dot = rest.find('.');
    if (dot == std::string_view::npos) return;
    int number = 0;
    if (!text::ReadNumber(text::Trim(rest.substr(0, dot)), number) || number > 0xFFFF) Fail();
    element.moveNumber = static_cast<std::uint16_t>(number);
    rest.remove_prefix(dot + 1);
  }

  void ReadPieceLetter() {
    if (rest.empty() || !text::IsLetter(rest.front())) return;
    if (rest.size() > 1 && text::IsDigit(rest[1])) return;
    const PieceCode type = letters::FindTypeOfMoveLetter(rest.front());
    if (type == piece::kEmpty) Fail();
    element.piece = piece::kWhite | type;
    rest.remove_prefix(1);
  }

  void ReadCastling() {
    if (rest == "0-0-0") {
      element.to = square::kC1;
    } else if (rest == "0-0") {
      element.to = square::kG1;
    } else {
      Fail();
    }
    element.from = square::kE1;
    element.captureMode = TSortIndication::kNoCapture;
  }

  void ReadSeparator() {
    if (rest.empty()) return;
    switch (rest.front()) {
      case ':':
        element.captureMode = TSortIndication::kCapture;
        break;
      case '>':
        element.captureMode = TSortIndication::kNoCapture;
        break;
      case '-':
        break;
      default:
        return;
    }
    rest.remove_prefix(1);
  }

  SquareIndex TakeSquare() {
    const SquareIndex s = rest.size() >= 2 ? text::ReadSquare(rest[0], rest[1]) : square::kNone;
    if (s == square::kNone) Fail();
    rest.remove_prefix(2);
    return s;
  }

  const std::string& whole;
  std::string_view rest;
  int nLanguageId;
  TSortIndication element;
};

bool IsCastling(const TSortIndication& e) {
  return e.piece == 0 && e.from == square::kE1 && (e.to == square::kG1 || e.to == square::kC1) &&
         e.captureMode == TSortIndication::kNoCapture && e.promotion == 0;
}

}  // namespace

TSortIndication Parse(const std::string& text, int nLanguageId) {
  return CElementParser(text, nLanguageId).Parse();
}

TSortIndications ParseList(const std::string& text, int nLanguageId) {
  const char separator = text.find(',') != std::string::npos ? ',' : ';';
  TSortIndications list;
  std::size_t begin = 0;
  while (begin <= text.size()) {
    std::size_t end = text.find(separator, begin);
    if (end == std::string::npos) end = text.size();
    const std::string piece(text::Trim(std::string_view(text).substr(begin, end - begin)));
    if (!piece.empty()) {
      const TSortIndication element = Parse(piece, nLanguageId);
      list[element.moveNumber].push_back(element);
    }
    begin = end + 1;
  }
  return list;
}

std::string Render(const TSortIndication& e) {
  std::string out = e.bNegated ? "~" : "";
  if (e.moveNumber != 0) out += std::to_string(e.moveNumber) + ". ";
  if (IsCastling(e)) {
    out += e.to == square::kG1 ? "0-0" : "0-0-0";
  } else {
    if (e.piece != 0) out += letters::TypeToLetter(e.piece);
    if (e.from != square::kNone) out += text::SquareText(e.from);
    if (e.captureMode == TSortIndication::kCapture) {
      out += ':';
    } else if (e.captureMode == TSortIndication::kNoCapture) {
      out += '>';
    } else if (e.from != square::kNone) {
      out += '-';
    }
    out += text::SquareText(e.to);
    if (e.promotion != 0) out += letters::TypeToLetter(e.promotion);
  }
  out.append(e.checkMode, '+');
  return out;
}

std::string RenderList(const TSortIndications& list) {
  std::string out;
  for (const auto& [number, elements] : list) {
    for (const TSortIndication& element : elements) {
      if (!out.empty()) out += ", ";
      out += Render(element);
    }
  }
  return out;
}

}  // namespace sortindication
