#include "compiler/fields/repeated_string.h"

namespace vantiro {
namespace compiler {

RepeatedStringFieldGenerator::RepeatedStringFieldGenerator(
    const google::protobuf::FieldDescriptor* field, Kind kind)
    : FieldGenerator(field), kind_(kind) {
  const bool is_string = kind == Kind::kString;
  AddVariables(
      {{"data", is_string ? "const char*" : "const void*"},
       {"bytes", is_string ? "value" : "static_cast<const char*>(value)"},
       {"Repeated", "::google::protobuf::RepeatedPtrField<::std::string>"},
       {"path", field->full_name()}});
}

std::string RepeatedStringFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $Repeated$ $name$_;
  )");
}

std::string RepeatedStringFieldGenerator::AccessorDeclarations() const {
  return Substitute(variables(), R"(
      int $name$_size() const { return $name$_.size(); }
      void clear_$name$() { $name$_.Clear(); }
      const ::std::string& $name$(int index) const { return $name$_.Get(index); }
      ::std::string* mutable_$name$(int index) { return $name$_.Mutable(index); }
      void set_$name$(int index, const ::std::string& value) { *$name$_.Mutable(index) = value; }
      void set_$name$(int index, ::std::string&& value) { *$name$_.Mutable(index) = ::std::move(value); }
      void set_$name$(int index, const char* value) { $name$_.Mutable(index)->assign(value); }
      void set_$name$(int index, $data$ value, ::size_t size) { $name$_.Mutable(index)->assign($bytes$, size); }
      ::std::string* add_$name$() { return $name$_.Add(); }
      void add_$name$(const ::std::string& value) { *$name$_.Add() = value; }
      void add_$name$(::std::string&& value) { *$name$_.Add() = ::std::move(value); }
      void add_$name$(const char* value) { $name$_.Add()->assign(value); }
      void add_$name$($data$ value, ::size_t size) { $name$_.Add()->assign($bytes$, size); }
      const $Repeated$& $name$() const { return $name$_; }
      $Repeated$* mutable_$name$() { return &$name$_; }
  )");
}

std::string RepeatedStringFieldGenerator::Clear() const {
  return Substitute(variables(), R"(
      $name$_.Clear();
  )");
}

std::string RepeatedStringFieldGenerator::Merge() const {
  return Substitute(variables(), R"(
      $name$_.MergeFrom(from.$name$_);
  )");
}

std::string RepeatedStringFieldGenerator::Copy() const {
  return Substitute(variables(), R"(
      $name$_.CopyFrom(from.$name$_);
  )");
}

std::string RepeatedStringFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      $name$_.InternalSwap(&other->$name$_);
  )");
}

std::string RepeatedStringFieldGenerator::ByteSize() const {
  return Substitute(variables(), R"(
      size += $internal$::RepeatedStringSize<$tag_size$>($name$_);
  )");
}

std::string RepeatedStringFieldGenerator::Serialize() const {
  const std::string check =
      kind_ == Kind::kBytes ? "" : Substitute(variables(), R"(
        // An invalid string is logged and written all the same.
        $internal$::CheckUtf8(element, $internal$::WireFormatLite::SERIALIZE, "$path$");
  )");
  return Substitute(Combine(variables(), {{"check", check}}), R"(
      for (const ::std::string& element : $name$_) {
        $check$
        p = $internal$::WriteBytes<$tag_value$>(p, element, writer);
      }
  )");
}

std::string RepeatedStringFieldGenerator::Parse() const {
  const bool is_string = kind_ == Kind::kString;
  return ParseWhenTag(
      Internal(is_string ? "ReadString" : "ReadBytes") + "(p + " +
      variables().at("tag_size") + ", end, self->" + name() + "_.Add()" +
      (is_string ? ", \"" + variables().at("path") + "\"" : "") + ")");
}

std::string RepeatedStringFieldGenerator::ArenaInitializer() const {
  return ", " + name() + "_(arena)";
}

std::string RepeatedStringFieldGenerator::CopyInitializer() const {
  return ", " + name() + "_(from." + name() + "_)";
}

}  // namespace compiler
}  // namespace vantiro
