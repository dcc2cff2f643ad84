#include "compiler/fields/field_generator.h"

#include <google/protobuf/descriptor.pb.h>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/stubs/strutil.h>
#include <google/protobuf/wire_format_lite.h>

#include <algorithm>
#include <sstream>

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

int TagSize(uint32_t tag) {
  return static_cast<int>(
      google::protobuf::io::CodedOutputStream::VarintSize32(tag));
}

std::string HexByte(uint32_t byte) {
  return google::protobuf::StrCat(google::protobuf::strings::Hex(
      byte, google::protobuf::strings::ZERO_PAD_2));
}

// With an attribute for each accessor of a deprecated field.
std::string Attributed(const FieldDescriptor* field,
                       const std::string& accessors) {
  if (!field->options().deprecated()) return accessors;
  std::string result;
  std::istringstream lines(accessors);
  for (std::string line; std::getline(lines, line);) {
    result += "[[deprecated]] " + line + "\n";
  }
  return result;
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
                  {"tag_size", std::to_string(TagSize(Tag(field)))},
                  {"PeekTag", PeekFunction(field->containing_type())},
                  {"internal", InternalNamespace(field->file())},
                  {"scalars", ScalarsName(field->containing_type())}}) {}

std::string FieldGenerator::PublicMembers() const {
  return Substitute({{"comment", DocComment(field_)},
                     {"declaration", DeclarationInSchema(field_)},
                     {"accessors", Attributed(field_, AccessorDeclarations())}},
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
  const int size = MaxTagSize(message);
  return internal + (size == 1   ? "::PeekOneByteTag"
                     : size == 2 ? "::PeekTag"
                                 : "::PeekLongTag");
}

int MaxTagSize(const google::protobuf::Descriptor* message) {
  int size = 1;
  for (int i = 0; i < message->field_count(); ++i) {
    size = std::max(size, TagSize(Tag(message->field(i))));
  }
  return size;
}

std::string RawTagText(uint32_t tag) {
  std::string text;
  for (; tag >= 0x80; tag >>= 7) text = HexByte((tag & 0x7f) | 0x80) + text;
  return "0x" + HexByte(tag) + text;
}

}  // namespace compiler
}  // namespace vantiro
