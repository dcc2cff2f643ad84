#include "tools/formats/text_tokens.h"

#include <google/protobuf/io/strtod.h>

#include <algorithm>
#include <cctype>
#include <limits>

#include "tools/formats/format_error.h"
#include "tools/formats/unknown_value.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::io::Tokenizer;

[[noreturn]] void Fail(int line, int column, const std::string& what) {
  throw FormatError("line " + std::to_string(line + 1) + ", column " +
                    std::to_string(column + 1) + ": " + what);
}

std::string LowerCase(std::string text) {
  for (char& c : text) {
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return text;
}

}  // namespace

void TextTokens::FirstError::AddError(int line, int column,
                                      const std::string& message) {
  if (!what_.empty()) return;
  what_ = message;
  line_ = line;
  column_ = column;
}

void TextTokens::FirstError::ThrowIfAny() const {
  if (!what_.empty()) Fail(line_, column_, what_);
}

TextTokens::TextTokens(const std::string& text)
    : stream_(text.data(), static_cast<int>(text.size())),
      tokenizer_(&stream_, &error_) {
  tokenizer_.set_comment_style(Tokenizer::SH_COMMENT_STYLE);
  tokenizer_.set_allow_f_after_float(true);
  Next();
}

bool TextTokens::IsEnd() { return Is(Tokenizer::TYPE_END); }
bool TextTokens::IsInteger() { return Is(Tokenizer::TYPE_INTEGER); }
bool TextTokens::IsIdentifier() { return Is(Tokenizer::TYPE_IDENTIFIER); }
bool TextTokens::IsString() { return Is(Tokenizer::TYPE_STRING); }

void TextTokens::Next() {
  tokenizer_.Next();
  error_.ThrowIfAny();
}

std::string TextTokens::Take() {
  std::string text = current().text;
  Next();
  return text;
}

bool TextTokens::TryTake(const char* symbol) {
  if (!Is(Tokenizer::TYPE_SYMBOL) || !Is(symbol)) return false;
  Next();
  return true;
}

void TextTokens::Expect(const char* symbol) {
  if (!TryTake(symbol)) FailHere(std::string("expected ") + symbol);
}

uint64_t TextTokens::TakeUnsigned(uint64_t max) {
  uint64_t value = 0;
  if (!IsInteger()) FailHere("expected an integer");
  if (!Tokenizer::ParseInteger(current().text, max, &value)) {
    FailHere("expected an integer up to " + std::to_string(max));
  }
  Next();
  return value;
}

int64_t TextTokens::TakeSigned(uint64_t max) {
  const bool is_negative = TryTake("-");
  const uint64_t value = TakeUnsigned(is_negative ? max + 1 : max);
  return static_cast<int64_t>(is_negative ? ~value + 1 : value);
}

uint32_t TextTokens::TakeFloat() {
  const bool is_negative = TryTake("-");
  const bool is_nan = LowerCase(current().text) == "nan";
  const double value = TakeDouble();
  if (is_nan && TryTake("(")) return TakeNanBits();
  return static_cast<uint32_t>(FromFloat(
      google::protobuf::io::SafeDoubleToFloat(is_negative ? -value : value)));
}

double TextTokens::TakeDouble() {
  const std::string& text = current().text;
  double value = 0;
  if (IsInteger()) {
    if (text.size() > 1 && text[0] == '0') {
      FailHere("expected a decimal number");
    }
    uint64_t integer = 0;
    value = Tokenizer::ParseInteger(text, UINT64_MAX, &integer)
                ? static_cast<double>(integer)
                : Tokenizer::ParseFloat(text);
  } else if (Is(Tokenizer::TYPE_FLOAT)) {
    value = Tokenizer::ParseFloat(text);
  } else if (IsIdentifier()) {
    const std::string name = LowerCase(text);
    if (name != "inf" && name != "infinity" && name != "nan") {
      FailHere("expected a number");
    }
    value = name == "nan" ? std::numeric_limits<double>::quiet_NaN()
                          : std::numeric_limits<double>::infinity();
  } else {
    FailHere("expected a number");
  }
  Next();
  return value;
}

uint32_t TextTokens::TakeNanBits() {
  uint64_t bits = 0;
  if (current().text.size() != 10 || !ParseUnsigned(current().text, &bits) ||
      !IsNan(bits)) {
    FailHere("expected the bits of a NaN");
  }
  Next();
  Expect(")");
  return static_cast<uint32_t>(bits);
}

bool TextTokens::TakeBool() {
  if (IsInteger()) return TakeUnsigned(1) == 1;
  const bool is_true = Is("true") || Is("True") || Is("t");
  if (!is_true && !Is("false") && !Is("False") && !Is("f")) {
    FailHere("expected true or false");
  }
  Next();
  return is_true;
}

std::string TextTokens::TakeString() {
  if (!IsString()) FailHere("expected a string");
  std::string text;
  while (IsString()) {
    Tokenizer::ParseStringAppend(Take(), &text);
  }
  return text;
}

void TextTokens::FailHere(const std::string& what) {
  FailAt(current(),
         what + (IsEnd() ? ", found the end" : ", found " + current().text));
}

void TextTokens::FailAt(const Token& token, const std::string& what) {
  Fail(token.line, token.column, what);
}

}  // namespace tools
}  // namespace vantiro
