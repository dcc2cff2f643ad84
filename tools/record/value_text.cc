#include "tools/record/value_text.h"

#include <google/protobuf/stubs/strutil.h>

#include <charconv>
#include <cmath>
#include <iterator>

#include "tools/wire/escape.h"
#include "tools/wire/hex.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

template <typename T>
void AppendNumber(T number, std::string* text) {
  char digits[32];
  text->append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

void AppendFloat(uint64_t bits, std::string* text) {
  if (!IsNan(bits)) {
    AppendNumber(ToFloat(bits), text);
  } else {
    *text += bits == kUsualNan ? "nan" : "nan(" + FixedHex(bits, 8) + ')';
  }
}

// False unless all of `text` is a number. `base` is for integers alone.
template <typename T, typename... Base>
bool ParseNumber(std::string_view text, T* value, Base... base) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, *value, base...);
  return result.ec == std::errc() && result.ptr == end;
}

// A number that is nearer to 0 than to any other float.
bool ParseTiny(std::string_view text, float* value) {
  double wide;
  if (!ParseNumber(text, &wide) || std::fabs(wide) > 1) return false;
  *value = static_cast<float>(wide);
  return true;
}

bool ParseFloat(std::string_view text, uint64_t* bits) {
  constexpr std::string_view kNanBits = "nan(0x";
  if (text.substr(0, kNanBits.size()) == kNanBits && text.back() == ')') {
    text.remove_prefix(kNanBits.size());
    text.remove_suffix(1);
    uint32_t value;
    if (text.size() != 8 || !ParseNumber(text, &value, 16)) return false;
    *bits = value;
    return IsNan(value);
  }
  if (text == "nan") {
    *bits = kUsualNan;
    return true;
  }
  float value;
  if (!ParseNumber(text, &value) && !ParseTiny(text, &value)) return false;
  *bits = FromFloat(value);
  return !IsNan(*bits);
}

template <typename T>
bool ParseInteger(std::string_view text, uint64_t* bits) {
  T value;
  if (!ParseNumber(text, &value)) return false;
  *bits = sizeof(T) == 4 ? static_cast<uint32_t>(value)
                         : static_cast<uint64_t>(value);
  return true;
}

}  // namespace

void AppendScalarText(const FieldDescriptor& field, uint64_t bits,
                      std::string* text) {
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_FLOAT:
      AppendFloat(bits, text);
      break;
    case FieldDescriptor::CPPTYPE_BOOL:
      *text += bits != 0 ? "true" : "false";
      break;
    case FieldDescriptor::CPPTYPE_INT32:
      AppendNumber(static_cast<int32_t>(bits), text);
      break;
    case FieldDescriptor::CPPTYPE_INT64:
      AppendNumber(static_cast<int64_t>(bits), text);
      break;
    case FieldDescriptor::CPPTYPE_ENUM:
      if (const EnumValueDescriptor* const value = DeclaredValue(field, bits)) {
        *text += value->name();
      } else {
        AppendNumber(static_cast<int32_t>(bits), text);
      }
      break;
    default:
      AppendNumber(bits, text);
  }
}

std::string ScalarText(const FieldDescriptor& field, uint64_t bits) {
  std::string text;
  AppendScalarText(field, bits, &text);
  return text;
}

bool ParseScalar(const FieldDescriptor& field, std::string_view text,
                 uint64_t* bits) {
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_FLOAT:
      return ParseFloat(text, bits);
    case FieldDescriptor::CPPTYPE_BOOL:
      *bits = text == "true" ? 1 : 0;
      return text == "true" || text == "false";
    case FieldDescriptor::CPPTYPE_UINT32:
      return ParseInteger<uint32_t>(text, bits);
    case FieldDescriptor::CPPTYPE_INT64:
      return ParseInteger<int64_t>(text, bits);
    case FieldDescriptor::CPPTYPE_UINT64:
      return ParseInteger<uint64_t>(text, bits);
    case FieldDescriptor::CPPTYPE_ENUM:
      if (const EnumValueDescriptor* const value =
              field.enum_type()->FindValueByName(std::string(text))) {
        *bits = static_cast<uint32_t>(value->number());
        return true;
      }
      return ParseInteger<int32_t>(text, bits);
    default:
      return ParseInteger<int32_t>(text, bits);
  }
}

void AppendValueText(const FieldValue& value, std::string* text) {
  const FieldDescriptor& field = value.field();
  if (field.type() == FieldDescriptor::TYPE_STRING) {
    *text += Quoted(value.string_value());
  } else if (field.type() == FieldDescriptor::TYPE_BYTES) {
    *text += QuotedHex(value.string_value());
  } else if (field.is_repeated()) {
    const char* separator = "[";
    for (const uint64_t bits : value.scalars()) {
      *text += separator;
      AppendScalarText(field, bits, text);
      separator = ", ";
    }
    *text += value.scalars().empty() ? "[]" : "]";
  } else {
    AppendScalarText(field, value.scalars()[0], text);
  }
}

std::string ValueText(const FieldValue& value) {
  std::string text;
  AppendValueText(value, &text);
  return text;
}

std::string SelectedText(const Selected& selected) {
  const FieldValue& value = *selected.value;
  return selected.index.has_value()
             ? ScalarText(value.field(), value.scalars()[*selected.index])
             : ValueText(value);
}

std::string Quoted(std::string_view text) {
  // CEscape also escapes the bytes above 0x7f, which keeps a string printable
  // that is not UTF-8.
  const std::string copy(text);
  return '"' +
         (IsUtf8(text)
              ? EscapeControls(google::protobuf::strings::Utf8SafeCEscape(copy))
              : google::protobuf::CEscape(copy)) +
         '"';
}

std::string QuotedHex(std::string_view bytes) {
  std::string text = "\"";
  for (const char c : bytes) text += "\\x" + Hex({&c, 1});
  return text + '"';
}

}  // namespace tools
}  // namespace vantiro
