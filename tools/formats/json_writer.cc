#include <charconv>
#include <cmath>

#include "tools/formats/json.h"
#include "tools/record/value_text.h"
#include "tools/wire/hex.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownField;
using google::protobuf::UnknownFieldSet;

// Parses the float's own digits as a double: the double that equals the float
// has more digits.
Json FloatJson(const FieldDescriptor& field, uint64_t bits) {
  const std::string text = ScalarText(field, bits);
  if (IsNan(bits)) return "NaN" + text.substr(3);
  const float value = ToFloat(bits);
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

Json StringJson(const FieldValue& value) {
  const std::string& text = value.string_value;
  if (value.field->type() == FieldDescriptor::TYPE_BYTES) return Hex(text);
  if (IsUtf8(text)) return text;
  return {{"@not_utf8", Hex(text)}};
}

Json UnknownJson(const UnknownFieldSet& fields) {
  Json array = Json::array();
  for (int i = 0; i < fields.field_count(); ++i) {
    const UnknownField& field = fields.field(i);
    Json item = {{"number", field.number()}};
    switch (field.type()) {
      case UnknownField::TYPE_VARINT:
        item["varint"] = std::to_string(field.varint());
        break;
      case UnknownField::TYPE_FIXED32:
        item["fixed32"] = FixedHex(field.fixed32(), 8);
        break;
      case UnknownField::TYPE_FIXED64:
        item["fixed64"] = FixedHex(field.fixed64(), 16);
        break;
      case UnknownField::TYPE_LENGTH_DELIMITED:
        item["length_delimited"] = Hex(field.length_delimited());
        break;
      case UnknownField::TYPE_GROUP:
        item["group"] = UnknownJson(field.group());
    }
    array.push_back(std::move(item));
  }
  return array;
}

}  // namespace

Json ToJson(const FieldDescriptor& field, uint64_t bits) {
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_FLOAT:
      return FloatJson(field, bits);
    case FieldDescriptor::CPPTYPE_BOOL:
      return bits != 0;
    case FieldDescriptor::CPPTYPE_INT32:
      return static_cast<int32_t>(bits);
    case FieldDescriptor::CPPTYPE_UINT32:
      return static_cast<uint32_t>(bits);
    case FieldDescriptor::CPPTYPE_ENUM:
      if (DeclaredValue(field, bits) == nullptr) {
        return static_cast<int32_t>(bits);
      }
      return ScalarText(field, bits);
    default:
      return ScalarText(field, bits);
  }
}

Json ToJson(const FieldValue& value) {
  const FieldDescriptor& field = *value.field;
  if (field.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
    return StringJson(value);
  }
  if (!field.is_repeated()) {
    return IsScalar(field) ? ToJson(field, value.scalars[0])
                           : ToJson(value.messages[0]);
  }
  Json array = Json::array();
  for (const uint64_t bits : value.scalars) {
    array.push_back(ToJson(field, bits));
  }
  for (const Record& message : value.messages) array.push_back(ToJson(message));
  return array;
}

Json ToJson(const Record& record) {
  Json object = Json::object();
  for (const auto& entry : record.fields) {
    object[entry.second.field->name()] = ToJson(entry.second);
  }
  if (!record.unknown.empty()) object["@unknown"] = UnknownJson(record.unknown);
  return object;
}

}  // namespace tools
}  // namespace vantiro
