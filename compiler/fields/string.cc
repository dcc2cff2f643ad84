#include "compiler/fields/string.h"

#include "compiler/names.h"

namespace vantiro {
namespace compiler {

StringFieldGenerator::StringFieldGenerator(
    const google::protobuf::FieldDescriptor* field, Kind kind)
    : FieldGenerator(field),
      kind_(kind),
      has_arenas_(HasArenas(field->file())) {
  AddVariables({{"data", kind == kString ? "const char*" : "const void*"},
                {"set", kind == kString ? "Set" : "SetBytes"},
                {"path", field->full_name()}});
}

std::string StringFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      ::google::protobuf::internal::ArenaStringPtr $name$_;
  )");
}

std::string StringFieldGenerator::AccessorDeclarations() const {
  const std::string unsafe_arena =
      !has_arenas_ ? "" : Substitute(variables(), R"(
      ::std::string* unsafe_arena_release_$name$() { return ::vantiro::internal::UnsafeArenaReleaseString(&$name$_); }
      void unsafe_arena_set_allocated_$name$(::std::string* value) { ::vantiro::internal::UnsafeArenaSetAllocatedString(value, GetArenaForAllocation(), &$name$_); }
  )");
  return Substitute(Combine(variables(), {{"unsafe_arena", unsafe_arena}}), R"(
      void clear_$name$() { $name$_.ClearToEmpty(); }
      const ::std::string& $name$() const { return $name$_.Get(); }
      void set_$name$(const ::std::string& value) { $name$_.$set$(value, GetArenaForAllocation()); }
      void set_$name$(::std::string&& value) { $name$_.$set$(::std::move(value), GetArenaForAllocation()); }
      void set_$name$(const char* value) { $name$_.$set$(value, GetArenaForAllocation()); }
      void set_$name$($data$ value, ::size_t size) { $name$_.$set$(value, size, GetArenaForAllocation()); }
      ::std::string* mutable_$name$() { return $name$_.Mutable(GetArenaForAllocation()); }
      ::std::string* release_$name$() { return $name$_.Release(); }
      void set_allocated_$name$(::std::string* value) { $name$_.SetAllocated(value, GetArenaForAllocation()); }
      $unsafe_arena$
  )");
}

std::string StringFieldGenerator::Construct() const {
  return Substitute(variables(), R"(
      $name$_.InitDefault();
  )");
}

std::string StringFieldGenerator::CopyConstruct() const {
  return Substitute(variables(), R"(
      $name$_.InitDefault();
      $internal$::MergeString(from.$name$_, nullptr, &$name$_);
  )");
}

std::string StringFieldGenerator::Destroy() const {
  return Substitute(variables(), R"(
      $name$_.Destroy();
  )");
}

std::string StringFieldGenerator::Clear() const {
  return Substitute(variables(), R"(
      $name$_.ClearToEmpty();
  )");
}

std::string StringFieldGenerator::Merge() const {
  return Substitute(variables(), R"(
      $internal$::MergeString(from.$name$_, GetArenaForAllocation(), &$name$_);
  )");
}

std::string StringFieldGenerator::Copy() const {
  return Substitute(variables(), R"(
      $internal$::CopyString(from.$name$_, GetArenaForAllocation(), &$name$_);
  )");
}

std::string StringFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      ::google::protobuf::internal::ArenaStringPtr::InternalSwap(&$name$_, GetArenaForAllocation(), &other->$name$_, other->GetArenaForAllocation());
  )");
}

std::string StringFieldGenerator::ByteSize() const {
  return Substitute(variables(), R"(
      if (!$name$_.Get().empty()) {
        size += $internal$::StringSize<$tag_size$>($name$_.Get());
      }
  )");
}

std::string StringFieldGenerator::Serialize() const {
  const std::string check = kind_ == kBytes ? "" : Substitute(variables(), R"(
      // An invalid string is logged and written all the same.
      $internal$::CheckUtf8($name$_.Get(), $internal$::WireFormatLite::SERIALIZE, "$path$");
  )");
  return Substitute(Combine(variables(), {{"check", check}}), R"(
      if (!$name$_.Get().empty()) {
        $check$
        p = $internal$::WriteBytes<$tag_value$>(p, $name$_.Get(), writer);
      }
  )");
}

std::string StringFieldGenerator::Parse() const {
  return ParseWhenTag(
      Internal(kind_ == kBytes ? "ReadBytes(p + " : "ReadString(p + ") +
      variables().at("tag_size") + ", end, &self->" + name() +
      "_, self->GetArenaForAllocation()" +
      (kind_ == kBytes ? "" : ", \"" + descriptor()->full_name() + "\"") + ")");
}

}  // namespace compiler
}  // namespace vantiro
