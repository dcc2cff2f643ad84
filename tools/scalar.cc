#include "tools/scalar.h"

#include <google/protobuf/stubs/strutil.h>
#include <google/protobuf/wire_format_lite.h>

#include <charconv>
#include <cstring>

namespace vantiro {
namespace inspection {
namespace {

using google::protobuf::internal::WireFormatLite;
using Kind = FieldDescriptor;

constexpr uint32_t kUsualNan = 0x7fc00000;
constexpr uint32_t kSign = 0x80000000;
constexpr char kDigits[] = "0123456789abcdef";

uint64_t Low(uint64_t bits) { return static_cast<uint32_t>(bits); }

int32_t AsInt32(uint64_t bits) { return static_cast<int32_t>(bits); }

// A negative 32-bit number as the 64 bits of the same number.
uint64_t Extend(uint64_t bits) {
  return static_cast<uint64_t>(int64_t{AsInt32(bits)});
}

std::string FloatText(uint64_t bits) {
  if (IsNan(bits)) {
    return bits == kUsualNan ? "nan" : "nan(" + FixedHex(bits, 8) + ')';
  }
  char text[32];
  const auto end = std::to_chars(text, text + sizeof(text), ToFloat(bits)).ptr;
  return {text, end};
}

// `base` is for integers alone.
template <typename T, typename... Base>
bool ParseWhole(std::string_view text, T* value, Base... base) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, *value, base...);
  return result.ec == std::errc() && result.ptr == end;
}

bool ParseFloat(std::string_view text, uint64_t* bits) {
  constexpr std::string_view kNanBits = "nan(0x";
  if (text.substr(0, kNanBits.size()) == kNanBits && text.back() == ')') {
    text.remove_prefix(kNanBits.size());
    text.remove_suffix(1);
    uint32_t value;
    if (text.size() != 8 || !ParseWhole(text, &value, 16)) return false;
    *bits = value;
    return IsNan(value);
  }
  if (text == "nan") {
    *bits = kUsualNan;
    return true;
  }
  float value;
  if (!ParseWhole(text, &value)) return false;
  *bits = FromFloat(value);
  return !IsNan(*bits);
}

template <typename T>
bool ParseInteger(std::string_view text, uint64_t* bits) {
  T value;
  if (!ParseWhole(text, &value)) return false;
  *bits = static_cast<uint64_t>(value);
  if (sizeof(T) == 4) *bits = Low(*bits);
  return true;
}

}  // namespace

bool AcceptsWireType(const FieldDescriptor& field, WireType type) {
  return type == WireFormatLite::WireTypeForFieldType(
                     static_cast<WireFormatLite::FieldType>(field.type())) ||
         (field.is_packed() &&
          type == WireFormatLite::WIRETYPE_LENGTH_DELIMITED);
}

uint64_t FromVarint(const FieldDescriptor& field, uint64_t varint) {
  switch (field.type()) {
    case Kind::TYPE_BOOL:
      return varint != 0 ? 1 : 0;
    case Kind::TYPE_SINT32:
      return Low(static_cast<uint32_t>(
          WireFormatLite::ZigZagDecode32(static_cast<uint32_t>(varint))));
    case Kind::TYPE_SINT64:
      return static_cast<uint64_t>(WireFormatLite::ZigZagDecode64(varint));
    case Kind::TYPE_UINT64:
    case Kind::TYPE_INT64:
      return varint;
    default:
      return Low(varint);
  }
}

uint64_t ToVarint(const FieldDescriptor& field, uint64_t bits) {
  switch (field.type()) {
    case Kind::TYPE_SINT32:
      return WireFormatLite::ZigZagEncode32(AsInt32(bits));
    case Kind::TYPE_SINT64:
      return WireFormatLite::ZigZagEncode64(static_cast<int64_t>(bits));
    case Kind::TYPE_INT32:
    case Kind::TYPE_ENUM:
      return Extend(bits);
    default:
      return bits;
  }
}

bool IsZero(const FieldDescriptor& field, uint64_t bits) {
  return IsFloat(field) ? (bits & ~uint64_t{kSign}) == 0 : bits == 0;
}

bool IsFloat(const FieldDescriptor& field) {
  return field.type() == Kind::TYPE_FLOAT;
}

bool IsScalar(const FieldDescriptor& field) {
  return field.cpp_type() != Kind::CPPTYPE_STRING &&
         field.cpp_type() != Kind::CPPTYPE_MESSAGE;
}

bool IsNan(uint64_t bits) { return (bits & 0x7fffffff) > 0x7f800000; }

float ToFloat(uint64_t bits) {
  const auto low = static_cast<uint32_t>(bits);
  float value;
  std::memcpy(&value, &low, sizeof(value));
  return value;
}

uint64_t FromFloat(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof(bits));
  return bits;
}

const EnumValueDescriptor* DeclaredValue(const FieldDescriptor& field,
                                         uint64_t bits) {
  return field.enum_type()->FindValueByNumber(AsInt32(bits));
}

std::string ScalarText(const FieldDescriptor& field, uint64_t bits) {
  switch (field.cpp_type()) {
    case Kind::CPPTYPE_FLOAT:
      return FloatText(bits);
    case Kind::CPPTYPE_BOOL:
      return bits != 0 ? "true" : "false";
    case Kind::CPPTYPE_INT32:
      return std::to_string(AsInt32(bits));
    case Kind::CPPTYPE_INT64:
      return std::to_string(static_cast<int64_t>(bits));
    case Kind::CPPTYPE_ENUM: {
      const EnumValueDescriptor* const value = DeclaredValue(field, bits);
      return value == nullptr ? std::to_string(AsInt32(bits)) : value->name();
    }
    default:
      return std::to_string(bits);
  }
}

bool ParseScalar(const FieldDescriptor& field, std::string_view text,
                 uint64_t* bits) {
  switch (field.cpp_type()) {
    case Kind::CPPTYPE_FLOAT:
      return ParseFloat(text, bits);
    case Kind::CPPTYPE_BOOL:
      *bits = text == "true" ? 1 : 0;
      return text == "true" || text == "false";
    case Kind::CPPTYPE_UINT32:
      return ParseInteger<uint32_t>(text, bits);
    case Kind::CPPTYPE_INT64:
      return ParseInteger<int64_t>(text, bits);
    case Kind::CPPTYPE_UINT64:
      return ParseInteger<uint64_t>(text, bits);
    case Kind::CPPTYPE_ENUM:
      if (const EnumValueDescriptor* const value =
              field.enum_type()->FindValueByName(std::string(text))) {
        *bits = Low(static_cast<uint64_t>(value->number()));
        return true;
      }
      return ParseInteger<int32_t>(text, bits);
    default:
      return ParseInteger<int32_t>(text, bits);
  }
}

std::string NameOf(const Node& node) {
  return node.field != nullptr ? node.field->name()
                               : std::to_string(node.number);
}

std::string FixedHex(uint64_t value, size_t digits) {
  std::string text(digits, '0');
  for (size_t i = digits; i-- > 0; value >>= 4) text[i] = kDigits[value & 15];
  return "0x" + text;
}

std::string Hex(std::string_view bytes) {
  std::string hex;
  for (const char c : bytes) {
    hex += kDigits[static_cast<uint8_t>(c) >> 4];
    hex += kDigits[static_cast<uint8_t>(c) & 15];
  }
  return hex;
}

bool ParseHex(std::string_view text, std::string* bytes) {
  if (text.size() % 2 != 0) return false;
  for (size_t i = 0; i < text.size(); i += 2) {
    uint8_t byte;
    if (!ParseWhole(text.substr(i, 2), &byte, 16)) return false;
    *bytes += static_cast<char>(byte);
  }
  return true;
}

std::string Quoted(std::string_view text) {
  // The runtime's escapes for text that is UTF-8, and for what is not.
  const std::string copy(text);
  const bool is_utf8 = google::protobuf::internal::IsStructurallyValidUTF8(
      copy.data(), static_cast<int>(copy.size()));
  return '"' +
         (is_utf8 ? google::protobuf::strings::Utf8SafeCEscape(copy)
                  : google::protobuf::CEscape(copy)) +
         '"';
}

std::string QuotedHex(std::string_view bytes) {
  std::string text = "\"";
  for (const char c : bytes) text += "\\x" + Hex({&c, 1});
  return text + '"';
}

}  // namespace inspection
}  // namespace vantiro
