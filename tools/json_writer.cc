#include <google/protobuf/stubs/common.h>

#include <charconv>
#include <cmath>

#include "tools/formats.h"
#include "tools/scalar.h"

namespace vantiro {
namespace inspection {
namespace {

using google::protobuf::UnknownField;
using google::protobuf::UnknownFieldSet;

// By the digits that the float needs: its own value as a double has more.
Json FloatJson(const FieldDescriptor& field, uint64_t bits) {
  const std::string text = ScalarText(field, bits);
  if (IsNan(bits)) return "NaN" + text.substr(3);
  const float value = ToFloat(bits);
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

Json TextJson(const FieldValue& value) {
  const std::string& text = value.text;
  if (value.field->type() == FieldDescriptor::TYPE_BYTES) return Hex(text);
  if (google::protobuf::internal::IsStructurallyValidUTF8(
          text.data(), static_cast<int>(text.size()))) {
    return text;
  }
  return {{"@not_utf8", Hex(text)}};
}

Json UnknownJson(const UnknownFieldSet& fields) {
  Json list = Json::array();
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
    list.push_back(std::move(item));
  }
  return list;
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
    return TextJson(value);
  }
  if (!field.is_repeated()) {
    return IsScalar(field) ? ToJson(field, value.scalars[0])
                           : ToJson(value.messages[0]);
  }
  Json list = Json::array();
  for (const uint64_t bits : value.scalars) {
    list.push_back(ToJson(field, bits));
  }
  for (const Record& message : value.messages) list.push_back(ToJson(message));
  return list;
}

Json ToJson(const Record& record) {
  Json object = Json::object();
  for (const auto& entry : record.fields) {
    object[entry.second.field->name()] = ToJson(entry.second);
  }
  if (!record.unknown.empty()) object["@unknown"] = UnknownJson(record.unknown);
  return object;
}

}  // namespace inspection
}  // namespace vantiro
