#include "tools/formats/json_printer.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

#include "tools/formats/json.h"

namespace vantiro {
namespace tools {
namespace {

// Whether a string holds the text as it is.
bool IsPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) {
    return static_cast<uint8_t>(c) >= 0x20 && static_cast<uint8_t>(c) < 0x7f &&
           c != '"' && c != '\\';
  });
}

}  // namespace

void JsonPrinter::PlainKey(std::string_view key) {
  PlainString(key);
  EndKey();
}

void JsonPrinter::Key(std::string_view key) {
  String(key);
  EndKey();
}

void JsonPrinter::EndKey() {
  text_ += indent_ < 0 ? ":" : ": ";
  is_after_key_ = true;
}

void JsonPrinter::Raw(std::string_view json) { *BeginRaw() += json; }

std::string* JsonPrinter::BeginRaw() {
  BeginItem();
  return &text_;
}

void JsonPrinter::String(std::string_view value) {
  if (IsPlain(value)) {
    PlainString(value);
  } else {
    Raw(JsonText(value, -1));
  }
}

void JsonPrinter::PlainString(std::string_view value) {
  BeginItem();
  text_ += '"';
  text_ += value;
  text_ += '"';
}

void JsonPrinter::Float(float value) {
  char digits[32];
  const char* const end = std::to_chars(digits, std::end(digits), value).ptr;
  const std::string_view text(digits, static_cast<size_t>(end - digits));
  if (text.find('e') == std::string_view::npos) {
    Raw(text);
    if (text.find('.') == std::string_view::npos) text_ += ".0";
    return;
  }
  // Json has its own rule for exponents. It is given the float's own digits:
  // the double that equals the float has more.
  double number = 0;
  std::from_chars(digits, end, number);
  Raw(Json(number).dump());
}

void JsonPrinter::Begin(char bracket) {
  BeginItem();
  text_ += bracket;
  ++depth_;
  is_first_ = true;
}

void JsonPrinter::End(char bracket) {
  --depth_;
  if (!is_first_) BreakLine();
  text_ += bracket;
  is_first_ = false;
}

void JsonPrinter::BeginItem() {
  if (is_after_key_) {
    is_after_key_ = false;
    return;
  }
  if (depth_ == 0) return;
  if (!is_first_) text_ += ',';
  is_first_ = false;
  BreakLine();
}

void JsonPrinter::BreakLine() {
  if (indent_ < 0) return;
  text_ += '\n';
  text_.append(static_cast<size_t>(indent_) * depth_, ' ');
}

}  // namespace tools
}  // namespace vantiro
