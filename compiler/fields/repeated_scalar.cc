#include "compiler/fields/repeated_scalar.h"

#include <google/protobuf/wire_format_lite.h>

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::FieldDescriptor;
using google::protobuf::internal::WireFormatLite;

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
       {"unpacked_tag", RawTagText(UnpackedTag(field))}});
}

std::string RepeatedScalarFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $Repeated$ $name$_;
      mutable ::google::protobuf::internal::CachedSize _$name$_cached_byte_size_;
  )");
}

std::string RepeatedScalarFieldGenerator::AccessorDeclarations() const {
  return Substitute(variables(), R"(
      // $declaration$
      int $name$_size() const;
      void clear_$name$();
      $type$ $name$(int index) const;
      void set_$name$(int index, $type$ value);
      void add_$name$($type$ value);
      const $Repeated$& $name$() const;
      $Repeated$* mutable_$name$();
  )");
}

std::string RepeatedScalarFieldGenerator::InlineAccessorDefinitions() const {
  return Substitute(variables(), R"(
      inline int $Class$::$name$_size() const { return $name$_.size(); }
      inline void $Class$::clear_$name$() { $name$_.Clear(); }
      inline $type$ $Class$::$name$(int index) const {
        return static_cast<$type$>($name$_.Get(index));
      }
      inline void $Class$::set_$name$(int index, $type$ value) {
        $name$_.Set(index, value);
      }
      inline void $Class$::add_$name$($type$ value) { $name$_.Add(value); }
      inline const $Repeated$& $Class$::$name$() const { return $name$_; }
      inline $Repeated$* $Class$::mutable_$name$() { return &$name$_; }
  )");
}

std::string RepeatedScalarFieldGenerator::Clear() const {
  return Substitute(variables(), R"(
      $name$_.Clear();
  )");
}

std::string RepeatedScalarFieldGenerator::Merge() const {
  return Substitute(variables(), R"(
      $name$_.MergeFrom(from.$name$_);
  )");
}

std::string RepeatedScalarFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      $name$_.InternalSwap(&other->$name$_);
  )");
}

std::string RepeatedScalarFieldGenerator::ByteSize() const {
  return Substitute(Combine(variables(), {{"payload_size", PayloadSize()}}), R"(
      {
        const size_t payload_size = $payload_size$;
        if (payload_size > 0) {
          size += $tag_size$ + internal::WithLength(payload_size);
        }
        _$name$_cached_byte_size_.Set(static_cast<int>(payload_size));
      }
  )");
}

std::string RepeatedScalarFieldGenerator::Serialize() const {
  return Substitute(Combine(variables(), {{"Write", WriteFunction()}}), R"(
      if (!$name$_.empty()) {
        p = $Write$(p, $name$_, _$name$_cached_byte_size_.Get(), writer);
      }
  )");
}

std::string RepeatedScalarFieldGenerator::Parse() const {
  return Substitute(
      Combine(variables(), {{"ReadPacked", ReadPackedFunction()},
                            {"ReadUnpacked", ReadUnpackedFunction()}}),
      R"(
      while (tag == $tag$ || tag == $unpacked_tag$) {  // $name$
        p = tag == $tag$
                ? $ReadPacked$(p + $tag_size$, end, *state, &self->$name$_)
                : $ReadUnpacked$(p + $tag_size$, end, $tag$, *state, &self->$name$_);
        if (p == nullptr) return nullptr;
        tag = $PeekTag$(p, end);
      }
  )");
}

std::string RepeatedScalarFieldGenerator::ArenaInitializer() const {
  return Substitute(variables(), R"(
      $name$_(arena)
  )");
}

std::string RepeatedScalarFieldGenerator::CopyInitializer() const {
  return Substitute(variables(), R"(
      $name$_(from.$name$_)
  )");
}

}  // namespace compiler
}  // namespace vantiro
