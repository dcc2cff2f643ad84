// JSON without a Json object for each value, which is where most of the time
// goes.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

#include "tools/formats/base64.h"
#include "tools/formats/json.h"
#include "tools/record/value_text.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

bool IsNanWithBits(const FieldDescriptor& field, uint64_t bits) {
  return IsFloat(field) && IsNan(bits) && bits != kUsualNan;
}

// Whether the object has members that begin with "@", or leaves a field out.
bool IsSpecial(const Record& record) {
  if (!record.unknown.empty()) return true;
  return std::any_of(
      record.fields.begin(), record.fields.end(), [](const auto& entry) {
        const FieldValue& value = entry.second;
        const FieldDescriptor& field = *value.field;
        return (field.type() == FieldDescriptor::TYPE_STRING &&
                !IsUtf8(value.string_value)) ||
               std::any_of(value.scalars.begin(), value.scalars.end(),
                           [&field](uint64_t bits) {
                             return IsNanWithBits(field, bits);
                           });
      });
}

class LineWriter {
 public:
  LineWriter(const JsonOptions& options, std::string* text)
      : options_(options), text_(*text) {}

  void Write(const Record& record) {
    if (IsSpecial(record)) {
      text_ += JsonText(ToJson(record, options_), -1);
      return;
    }
    char separator = '{';
    for (const auto& entry : record.fields) {
      const FieldDescriptor& field = *entry.second.field;
      text_ += separator;
      separator = ',';
      WriteQuoted(options_.has_original_names ? field.name()
                                              : field.json_name());
      text_ += ':';
      WriteValue(entry.second);
    }
    text_ += record.fields.empty() ? "{}" : "}";
  }

 private:
  void WriteValue(const FieldValue& value) {
    const FieldDescriptor& field = *value.field;
    if (field.type() == FieldDescriptor::TYPE_STRING) {
      text_ += JsonText(value.string_value, -1);
    } else if (field.type() == FieldDescriptor::TYPE_BYTES) {
      WriteQuoted(Base64(value.string_value));
    } else if (field.is_repeated()) {
      WriteArray(value);
    } else if (IsScalar(field)) {
      WriteScalar(field, value.scalars[0]);
    } else {
      Write(value.messages[0]);
    }
  }

  void WriteArray(const FieldValue& value) {
    text_ += '[';
    const size_t begin = text_.size();
    for (const uint64_t bits : value.scalars) {
      if (text_.size() > begin) text_ += ',';
      WriteScalar(*value.field, bits);
    }
    for (const Record& message : value.messages) {
      if (text_.size() > begin) text_ += ',';
      Write(message);
    }
    text_ += ']';
  }

  void WriteScalar(const FieldDescriptor& field, uint64_t bits) {
    switch (field.cpp_type()) {
      case FieldDescriptor::CPPTYPE_FLOAT:
        WriteFloat(bits);
        break;
      case FieldDescriptor::CPPTYPE_BOOL:
      case FieldDescriptor::CPPTYPE_INT32:
      case FieldDescriptor::CPPTYPE_UINT32:
        text_ += ScalarText(field, bits);
        break;
      case FieldDescriptor::CPPTYPE_ENUM:
        if (const EnumValueDescriptor* const value =
                DeclaredValue(field, bits)) {
          WriteQuoted(value->name());
        } else {
          text_ += ScalarText(field, bits);
        }
        break;
      default:
        WriteQuoted(ScalarText(field, bits));
    }
  }

  void WriteFloat(uint64_t bits) {
    const float value = ToFloat(bits);
    if (!std::isfinite(value)) {
      WriteQuoted(IsNan(bits) ? "NaN" : value < 0 ? "-Infinity" : "Infinity");
      return;
    }
    char digits[32];
    const char* const end =
        std::to_chars(digits, digits + sizeof(digits), value).ptr;
    const std::string_view text(digits, static_cast<size_t>(end - digits));
    if (text.find('e') == std::string_view::npos) {
      text_ += text;
      if (text.find('.') == std::string_view::npos) text_ += ".0";
      return;
    }
    // Json has its own rule for exponents.
    double number = 0;
    std::from_chars(digits, end, number);
    text_ += Json(number).dump();
  }

  // Of a text without characters that need an escape.
  void WriteQuoted(std::string_view text) {
    text_ += '"';
    text_ += text;
    text_ += '"';
  }

  const JsonOptions& options_;
  std::string& text_;
};

}  // namespace

std::string JsonLine(const Record& record, const JsonOptions& options) {
  std::string text;
  LineWriter(options, &text).Write(record);
  return text;
}

}  // namespace tools
}  // namespace vantiro
