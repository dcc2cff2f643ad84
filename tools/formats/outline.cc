#include "tools/formats/outline.h"

#include <string>

#include "tools/record/value_text.h"
#include "tools/wire/hex.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownField;
using google::protobuf::UnknownFieldSet;

// The value, of an enum with its number.
std::string TextWithNumber(const FieldValue& value) {
  std::string text = ValueText(value);
  const FieldDescriptor& field = value.field();
  if (field.type() == FieldDescriptor::TYPE_ENUM && !field.is_repeated()) {
    const auto number = static_cast<int32_t>(value.scalars()[0]);
    text += DeclaredValue(field, value.scalars()[0]) != nullptr
                ? " (" + std::to_string(number) + ")"
                : " (undeclared)";
  }
  return text;
}

class OutlineWriter {
 public:
  OutlineWriter(const Style& style, std::ostream* out)
      : style_(style), out_(*out) {}

  void Write(const Record& record, const std::string& indent) {
    for (const auto& entry : record.fields) {
      const FieldValue& value = entry.second;
      const std::string& name = value.field().name();
      if (value.field().cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) {
        out_ << indent << style_.Name(name) << ": " << TextWithNumber(value)
             << '\n';
      }
      size_t index = 0;
      for (const Record& message : value.messages()) {
        const std::string index_text = value.field().is_repeated()
                                           ? '[' + std::to_string(index++) + ']'
                                           : "";
        out_ << indent << style_.Name(name + index_text) << ": "
             << style_.Note(message.type->name()) << '\n';
        Write(message, indent + "  ");
      }
    }
    Write(record.unknown, indent);
  }

 private:
  void Write(const UnknownFieldSet& fields, const std::string& indent) {
    static constexpr const char* kTypes[] = {"varint", "fixed32", "fixed64",
                                             "length-delimited", "group"};
    for (int i = 0; i < fields.field_count(); ++i) {
      const UnknownField& field = fields.field(i);
      out_ << indent
           << style_.Warning("unknown " + std::to_string(field.number()) +
                             " (" + kTypes[field.type()] + "):");
      switch (field.type()) {
        case UnknownField::TYPE_VARINT:
          out_ << ' ' << field.varint() << '\n';
          break;
        case UnknownField::TYPE_FIXED32:
          out_ << ' ' << field.fixed32() << '\n';
          break;
        case UnknownField::TYPE_FIXED64:
          out_ << ' ' << field.fixed64() << '\n';
          break;
        case UnknownField::TYPE_LENGTH_DELIMITED:
          out_ << ' ' << Hex(field.length_delimited()) << '\n';
          break;
        case UnknownField::TYPE_GROUP:
          out_ << '\n';
          Write(field.group(), indent + "  ");
      }
    }
  }

  const Style& style_;
  std::ostream& out_;
};

}  // namespace

void WriteOutline(const Record& record, const Style& style, std::ostream* out) {
  OutlineWriter(style, out).Write(record, "");
}

}  // namespace tools
}  // namespace vantiro
