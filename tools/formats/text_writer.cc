#include "tools/formats/text_format.h"
#include "tools/record/value_text.h"
#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownField;
using google::protobuf::UnknownFieldSet;

class TextWriter {
 public:
  TextWriter(const Style& style, std::ostream* out)
      : style_(style), out_(*out) {}

  void Write(const Record& record, const std::string& indent) {
    for (const auto& entry : record.fields) {
      const FieldValue& value = entry.second;
      const std::string name = indent + style_.Name(value.field().name());
      if (value.field().cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) {
        out_ << name << ": " << ValueText(value) << '\n';
      }
      for (const Record& message : value.messages()) {
        out_ << name << " {\n";
        Write(message, indent + "  ");
        out_ << indent << "}\n";
      }
    }
    Write(record.unknown, indent);
  }

 private:
  void Write(const UnknownFieldSet& fields, const std::string& indent) {
    for (int i = 0; i < fields.field_count(); ++i) {
      const UnknownField& field = fields.field(i);
      out_ << indent << style_.Warning(std::to_string(field.number()));
      if (field.type() == UnknownField::TYPE_GROUP) {
        out_ << " {" << style_.Note("  # unknown, group") << '\n';
        Write(field.group(), indent + "  ");
        out_ << indent << "}\n";
      } else {
        out_ << ": " << UnknownText(field) << '\n';
      }
    }
  }

  std::string UnknownText(const UnknownField& field) const {
    switch (field.type()) {
      case UnknownField::TYPE_VARINT:
        return std::to_string(field.varint()) +
               style_.Note("  # unknown, varint");
      case UnknownField::TYPE_FIXED32:
        return FixedHex(field.fixed32(), 8) +
               style_.Note("  # unknown, fixed32");
      case UnknownField::TYPE_FIXED64:
        return FixedHex(field.fixed64(), 16) +
               style_.Note("  # unknown, fixed64");
      default:
        return QuotedHex(field.length_delimited()) +
               style_.Note("  # unknown, length-delimited");
    }
  }

  const Style& style_;
  std::ostream& out_;
};

}  // namespace

void WriteText(const Record& record, const Style& style, std::ostream* out) {
  TextWriter(style, out).Write(record, "");
}

}  // namespace tools
}  // namespace vantiro
