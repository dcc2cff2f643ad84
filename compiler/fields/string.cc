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
  return Substitute(
      Combine(variables(), {{"unsafe_arena", UnsafeArenaDeclarations()}}), R"(
      // $declaration$
      void clear_$name$();
      const ::std::string& $name$() const;
      void set_$name$(const ::std::string& value);
      void set_$name$(::std::string&& value);
      void set_$name$(const char* value);
      void set_$name$($data$ value, size_t size);
      ::std::string* mutable_$name$();
      ::std::string* release_$name$();
      void set_allocated_$name$(::std::string* value);
      $unsafe_arena$
  )");
}

std::string StringFieldGenerator::UnsafeArenaDeclarations() const {
  if (!has_arenas_) return "";
  return Substitute(variables(), R"(
      ::std::string* unsafe_arena_release_$name$();
      void unsafe_arena_set_allocated_$name$(::std::string* value);
  )");
}

std::string StringFieldGenerator::InlineAccessorDefinitions() const {
  return Substitute(
      Combine(variables(), {{"unsafe_arena", UnsafeArenaDefinitions()}}), R"(
      inline void $Class$::clear_$name$() { $name$_.ClearToEmpty(); }
      inline const ::std::string& $Class$::$name$() const { return $name$_.Get(); }
      inline void $Class$::set_$name$(const ::std::string& value) {
        $name$_.$set$(value, GetArenaForAllocation());
      }
      inline void $Class$::set_$name$(::std::string&& value) {
        $name$_.$set$(::std::move(value), GetArenaForAllocation());
      }
      inline void $Class$::set_$name$(const char* value) {
        $name$_.$set$(value, GetArenaForAllocation());
      }
      inline void $Class$::set_$name$($data$ value, size_t size) {
        $name$_.$set$(value, size, GetArenaForAllocation());
      }
      inline ::std::string* $Class$::mutable_$name$() {
        return $name$_.Mutable(GetArenaForAllocation());
      }
      inline ::std::string* $Class$::release_$name$() { return $name$_.Release(); }
      inline void $Class$::set_allocated_$name$(::std::string* value) {
        $name$_.SetAllocated(value, GetArenaForAllocation());
      }
      $unsafe_arena$
  )");
}

std::string StringFieldGenerator::UnsafeArenaDefinitions() const {
  if (!has_arenas_) return "";
  return Substitute(variables(), R"(
      inline ::std::string* $Class$::unsafe_arena_release_$name$() {
        if ($name$_.IsDefault()) return nullptr;
        ::std::string* const released = $name$_.UnsafeMutablePointer();
        $name$_.InitDefault();
        return released;
      }
      inline void $Class$::unsafe_arena_set_allocated_$name$(::std::string* value) {
        if (value == nullptr || GetArenaForAllocation() == nullptr) {
          $name$_.SetAllocated(value, nullptr);
          return;
        }
        // Not owned: the caller's arena outlives this one, or is the same.
        ::google::protobuf::internal::TaggedStringPtr unowned;
        unowned.SetMutableArena(value);
        $name$_.UnsafeSetTaggedPointer(unowned);
      }
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
      if (!from.$name$().empty()) $name$_.Set(from.$name$(), nullptr);
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
      if (!from.$name$().empty()) set_$name$(from.$name$());
  )");
}

std::string StringFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      ::google::protobuf::internal::ArenaStringPtr::InternalSwap(
          &$name$_, GetArenaForAllocation(), &other->$name$_,
          other->GetArenaForAllocation());
  )");
}

std::string StringFieldGenerator::ByteSize() const {
  return Substitute(variables(), R"(
      if (!$name$().empty()) {
        size += $tag_size$ + internal::WithLength($name$().size());
      }
  )");
}

std::string StringFieldGenerator::Serialize() const {
  const std::string check = kind_ == kBytes ? "" : Substitute(variables(), R"(
      // An invalid string is logged and written all the same.
      internal::CheckUtf8($name$(), WireFormatLite::SERIALIZE, "$path$");
  )");
  return Substitute(Combine(variables(), {{"check", check}}), R"(
      if (!$name$().empty()) {
        $check$
        p = internal::WriteBytes<$tag_value$>(p, $name$(), writer);
      }
  )");
}

std::string StringFieldGenerator::Parse() const {
  return ParseWhenTag(
      std::string(kind_ == kBytes ? "internal::ReadBytes(p + "
                                  : "internal::ReadString(p + ") +
      variables().at("tag_size") + ", end, &self->" + descriptor()->name() +
      "_, self->GetArenaForAllocation()" +
      (kind_ == kBytes ? "" : ", \"" + descriptor()->full_name() + "\"") + ")");
}

}  // namespace compiler
}  // namespace vantiro
