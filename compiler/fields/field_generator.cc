#include "compiler/fields/field_generator.h"

#include <google/protobuf/stubs/strutil.h>
#include <google/protobuf/wire_format_lite.h>

#include "compiler/doc_comment.h"
#include "compiler/names.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::internal::WireFormatLite;

std::string TypeInSchema(const FieldDescriptor* field) {
  if (field->message_type() != nullptr) {
    return field->message_type()->full_name();
  }
  if (field->enum_type() != nullptr) return field->enum_type()->full_name();
  return field->type_name();
}

// The field as in the schema.
std::string DeclarationInSchema(const FieldDescriptor* field) {
  return std::string(field->is_repeated() ? "repeated " : "") +
         TypeInSchema(field) + " " + field->name() + " = " +
         std::to_string(field->number()) + ";";
}

// The tag that the field is written with: the packed one for a repeated scalar.
uint32_t Tag(const FieldDescriptor* field) {
  const auto type = static_cast<WireFormatLite::FieldType>(field->type());
  return WireFormatLite::MakeTag(
      field->number(), field->is_packed()
                           ? WireFormatLite::WIRETYPE_LENGTH_DELIMITED
                           : WireFormatLite::WireTypeForFieldType(type));
}

}  // namespace

FieldGenerator::FieldGenerator(const FieldDescriptor* field)
    : field_(field),
      variables_({{"Class", ClassName(field->containing_type())},
                  {"name", FieldName(field)},
                  {"tag", RawTagText(Tag(field))},
                  {"tag_value", std::to_string(Tag(field))},
                  {"tag_size", Tag(field) < 0x80 ? "1" : "2"},
                  {"PeekTag", PeekFunction(field->containing_type())},
                  {"internal", InternalNamespace(field->file())},
                  {"scalars", ScalarsName(field->containing_type())}}) {}

std::string FieldGenerator::PublicMembers() const {
  return Substitute({{"comment", DocComment(field_)},
                     {"declaration", DeclarationInSchema(field_)},
                     {"accessors", AccessorDeclarations()}},
                    R"(

      $comment$
      // $declaration$
      $accessors$
  )");
}

std::string FieldGenerator::ParseWhenTag(const std::string& read) const {
  return Substitute(
      Combine(variables_, {{"read", read},
                           {"loop", field_->is_repeated() ? "while" : "if"}}),
      R"(
      $loop$ ($internal$::IsNext(tag, $tag$)) {  // $name$
        p = $read$;
        if (!$PeekTag$After(p, end, &tag)) return nullptr;
      }
  )");
}

std::string PeekFunction(const google::protobuf::Descriptor* message) {
  const std::string internal = InternalNamespace(message->file());
  for (int i = 0; i < message->field_count(); ++i) {
    if (Tag(message->field(i)) >= 0x80) return internal + "::PeekTag";
  }
  return internal + "::PeekOneByteTag";
}

std::string RawTagText(uint32_t tag) {
  const uint32_t raw = tag < 0x80 ? tag : (tag & 0x7f) | 0x80 | (tag >> 7) << 8;
  using google::protobuf::strings::Hex;
  return google::protobuf::StrCat(
      "0x", Hex(raw, tag < 0x80 ? google::protobuf::strings::ZERO_PAD_2
                                : google::protobuf::strings::ZERO_PAD_4));
}

}  // namespace compiler
}  // namespace vantiro
