#include "compiler/fields/repeated_scalar.h"

#include <google/protobuf/wire_format_lite.h>

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::internal::WireFormatLite;

uint32_t PackedTag(const FieldDescriptor* field) {
  return WireFormatLite::MakeTag(field->number(),
                                 WireFormatLite::WIRETYPE_LENGTH_DELIMITED);
}

uint32_t UnpackedTag(const FieldDescriptor* field) {
  const auto type = static_cast<WireFormatLite::FieldType>(field->type());
  return WireFormatLite::MakeTag(field->number(),
                                 WireFormatLite::WireTypeForFieldType(type));
}

}  // namespace

RepeatedScalarFieldGenerator::RepeatedScalarFieldGenerator(
    const FieldDescriptor* field, const std::string& type,
    const std::string& element)
    : FieldGenerator(field) {
  AddVariables(
      {{"type", type},
       {"Repeated", "::google::protobuf::RepeatedField<" + element + ">"},
       {"packed_tag", RawTagText(PackedTag(field))},
       {"other_tag",
        RawTagText(is_packed() ? UnpackedTag(field) : PackedTag(field))}});
}

std::string RepeatedScalarFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $Repeated$ $name$_;
  )");
}

std::string RepeatedScalarFieldGenerator::CachedSizeMember() const {
  if (!is_packed()) return "";
  return Substitute(variables(), R"(
      mutable ::google::protobuf::internal::CachedSize _$name$_cached_byte_size_;
  )");
}

std::string RepeatedScalarFieldGenerator::AccessorDeclarations() const {
  return Substitute(Combine(variables(), {{"value", ElementToGet()}}), R"(
      int $name$_size() const { return $name$_.size(); }
      void clear_$name$() { $name$_.Clear(); }
      $type$ $name$(int index) const { return $value$; }
      void set_$name$(int index, $type$ value) { $name$_.Set(index, value); }
      void add_$name$($type$ value) { ::vantiro::internal::AddElement(value, &$name$_); }
      const $Repeated$& $name$() const { return $name$_; }
      $Repeated$* mutable_$name$() { return &$name$_; }
  )");
}

std::string RepeatedScalarFieldGenerator::Clear() const {
  return Substitute(variables(), R"(
      $name$_.Clear();
  )");
}

std::string RepeatedScalarFieldGenerator::CopyConstruct() const {
  return Merge();
}

std::string RepeatedScalarFieldGenerator::Merge() const {
  return Substitute(variables(), R"(
      $internal$::AddElements(from.$name$_, &$name$_);
  )");
}

std::string RepeatedScalarFieldGenerator::Copy() const {
  return Substitute(variables(), R"(
      $internal$::CopyRepeated(from.$name$_, target, &$name$_);
  )");
}

std::string RepeatedScalarFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      $name$_.InternalSwap(&other->$name$_);
  )");
}

std::string RepeatedScalarFieldGenerator::ByteSize() const {
  return Substitute(Combine(variables(), {{"payload_size", PayloadSize()}}),
                    !is_packed() ? R"(
      size += $tag_size$ * static_cast<::size_t>($name$_.size()) + $payload_size$;
  )"
                                 : R"(
      size += $internal$::PackedSize<$tag_size$>($payload_size$, &_$name$_cached_byte_size_);
  )");
}

std::string RepeatedScalarFieldGenerator::Serialize() const {
  return Substitute(Combine(variables(), {{"Write", WriteFunction()}}),
                    !is_packed() ? R"(
      p = $Write$(p, $name$_, writer);
  )"
                                 : R"(
      p = $Write$(p, $name$_, _$name$_cached_byte_size_.Get(), writer);
  )");
}

std::string RepeatedScalarFieldGenerator::Parse() const {
  return Substitute(Combine(variables(), {{"Read", ReadFunction()}}), R"(
      while ($internal$::IsNext(tag, $tag$) || tag == $other_tag$) {  // $name$
        p = $Read$(p + $tag_size$, end, tag, $packed_tag$, *state, &self->$name$_);
        if (!$PeekTag$After(p, end, &tag)) return nullptr;
      }
  )");
}

std::string RepeatedScalarFieldGenerator::ArenaInitializer() const {
  return ", " + name() + "_(arena)";
}

}  // namespace compiler
}  // namespace vantiro
