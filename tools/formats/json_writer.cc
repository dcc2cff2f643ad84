#include <charconv>
#include <cmath>
#include <utility>

#include "tools/formats/base64.h"
#include "tools/formats/json.h"
#include "tools/formats/json_members.h"
#include "tools/record/leaves.h"
#include "tools/record/value_text.h"
#include "tools/wire/escape.h"
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
  if (IsNan(bits)) return "NaN";
  const float value = ToFloat(bits);
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  const std::string text = ScalarText(field, bits);
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

Json ScalarJson(const FieldDescriptor& field, uint64_t bits) {
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

class JsonWriter {
 public:
  explicit JsonWriter(const JsonOptions& options) : options_(options) {}

  Json Write(const Record& record) const {
    Json object = Json::object();
    for (const auto& entry : record.fields) {
      const FieldDescriptor& field = *entry.second.field;
      WriteField(entry.second,
                 options_.has_original_names ? field.name() : field.json_name(),
                 &object);
    }
    if (!record.unknown.empty() && !options_.is_strict) {
      object[kUnknownMember] = UnknownJson(record.unknown);
    }
    return object;
  }

  // Adds a member of that name, or one that begins with "@", to `*object`.
  void WriteField(const FieldValue& value, const std::string& name,
                  Json* object) const {
    const FieldDescriptor& field = *value.field;
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
      WriteString(value, name, object);
    } else if (field.is_repeated()) {
      Json array = Json::array();
      for (const uint64_t bits : value.scalars) {
        array.push_back(ScalarJson(field, bits));
      }
      for (const Record& message : value.messages) {
        array.push_back(Write(message));
      }
      (*object)[name] = std::move(array);
      for (size_t i = 0; i < value.scalars.size(); ++i) {
        WriteNan(field, value.scalars[i], IndexPath(name, i), object);
      }
    } else if (IsScalar(field)) {
      WriteScalar(field, value.scalars[0], name, object);
    } else {
      (*object)[name] = Write(value.messages[0]);
    }
  }

  void WriteScalar(const FieldDescriptor& field, uint64_t bits,
                   const std::string& name, Json* object) const {
    (*object)[name] = ScalarJson(field, bits);
    WriteNan(field, bits, name, object);
  }

 private:
  void WriteNan(const FieldDescriptor& field, uint64_t bits,
                const std::string& name, Json* object) const {
    if (!IsFloat(field) || !IsNan(bits) || bits == kUsualNan) return;
    if (!options_.is_strict) (*object)[kNanMember][name] = FixedHex(bits, 8);
  }

  void WriteString(const FieldValue& value, const std::string& name,
                   Json* object) const {
    const std::string& text = value.string_value;
    if (value.field->type() == FieldDescriptor::TYPE_BYTES) {
      (*object)[name] = Base64(text);
    } else if (IsUtf8(text)) {
      (*object)[name] = text;
    } else if (!options_.is_strict) {
      (*object)[kNotUtf8Member][name] = Hex(text);
    }
  }

  const JsonOptions& options_;
};

void WriteSelected(const Selected& selected, const std::string& name,
                   const JsonWriter& writer, Json* object) {
  if (selected.message != nullptr) {
    (*object)[name] = writer.Write(*selected.message);
  } else if (selected.index.has_value()) {
    writer.WriteScalar(*selected.value->field,
                       selected.value->scalars[*selected.index], name, object);
  } else {
    writer.WriteField(*selected.value, name, object);
  }
}

// Each value as the only member of an object, to move it from there: what a
// value has beside it in members that begin with "@" has no place in an array.
Json SeveralJson(const std::vector<Selected>& selected,
                 const JsonWriter& writer) {
  Json values = Json::array();
  for (const Selected& value : selected) {
    Json object = Json::object();
    WriteSelected(value, "value", writer, &object);
    values.push_back(object.contains("value") ? object["value"]
                                              : std::move(object));
  }
  return values;
}

}  // namespace

Json ToJson(const Record& record, const JsonOptions& options) {
  return JsonWriter(options).Write(record);
}

Json ToJson(const Paths& paths, const Record& record,
            const JsonOptions& options) {
  const JsonWriter writer(options);
  Json object = Json::object();
  const std::vector<std::optional<Path>>& of_type = paths.For(*record.type);
  for (size_t i = 0; i < of_type.size(); ++i) {
    const std::string& name = paths.texts()[i];
    object[name] = nullptr;
    if (!of_type[i].has_value()) continue;
    const std::vector<Selected> selected = Select(*of_type[i], record);
    if (!of_type[i]->IsSingle()) {
      object[name] = SeveralJson(selected, writer);
    } else if (!selected.empty()) {
      WriteSelected(selected[0], name, writer, &object);
    }
  }
  return object;
}

std::string JsonText(const Json& json, int indent) {
  // A file name may not be UTF-8.
  return EscapeControlsInLines(
      json.dump(indent, ' ', false, Json::error_handler_t::replace));
}

Json ToJson(const Fault& fault) {
  return {{"offset", fault.offset}, {"path", fault.path}, {"what", fault.what}};
}

}  // namespace tools
}  // namespace vantiro
