#include "compiler/fields/message.h"

#include "compiler/names.h"
#include "compiler/type_name.h"

namespace vantiro {
namespace compiler {

using google::protobuf::FieldDescriptor;

MessageFieldGenerator::MessageFieldGenerator(const FieldDescriptor* field)
    : FieldGenerator(field),
      has_arenas_(HasArenas(field->file())),
      is_foreign_(field->message_type()->file() != field->file()) {
  AddVariables(
      {{"Sub", TypeName(field)},
       {"SubInClass", TypeNameInClass(field)},
       // Without arenas messages and their sub-messages are on the heap.
       {"arena", has_arenas_ ? "GetArenaForAllocation()" : "nullptr"},
       {"local_arena", has_arenas_ ? "arena" : "nullptr"}});
}

std::string MessageFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $SubInClass$* $name$_ = nullptr;
  )");
}

std::string MessageFieldGenerator::AccessorDeclarations() const {
  const std::string unsafe_arena =
      !has_arenas_ ? "" : Substitute(variables(), R"(
      void unsafe_arena_set_allocated_$name$($SubInClass$* value);
      $SubInClass$* unsafe_arena_release_$name$() { return ::vantiro::internal::UnsafeArenaReleaseMessage(&$name$_); }
  )");
  return Substitute(Combine(variables(), {{"unsafe_arena", unsafe_arena}}), R"(
      bool has_$name$() const { return $name$_ != nullptr && this != internal_default_instance(); }
      void clear_$name$();
      const $SubInClass$& $name$() const;
      $SubInClass$* mutable_$name$();
      $SubInClass$* release_$name$();
      void set_allocated_$name$($SubInClass$* value);
      $unsafe_arena$
  )");
}

std::string MessageFieldGenerator::ClearDefinition() const {
  return Substitute(
      Combine(variables(), {{"inline", is_foreign_ ? "" : "inline "}}), R"(
      $inline$void $Class$::clear_$name$() { ::vantiro::internal::ClearMessage($arena$, &$name$_); }
  )");
}

std::string MessageFieldGenerator::InlineAccessorDefinitions() const {
  return Substitute(
      Combine(variables(), {{"clear", is_foreign_ ? "" : ClearDefinition()}}),
      R"(
      $clear$
      inline const $Sub$& $Class$::$name$() const { return ::vantiro::internal::GetMessage($name$_); }
      inline $Sub$* $Class$::mutable_$name$() { return ::vantiro::internal::MutableMessage($arena$, &$name$_); }
      inline $Sub$* $Class$::release_$name$() { return ::vantiro::internal::ReleaseMessage($arena$, &$name$_); }
      inline void $Class$::set_allocated_$name$($Sub$* value) { ::vantiro::internal::SetAllocatedMessage(value, $arena$, &$name$_); }
  )");
}

std::string MessageFieldGenerator::NonInlineAccessorDefinitions() const {
  const std::string unsafe_arena =
      !has_arenas_ ? "" : Substitute(variables(), R"(
      void $Class$::unsafe_arena_set_allocated_$name$($Sub$* value) { $internal$::UnsafeArenaSetAllocatedMessage(value, $arena$, &$name$_); }
  )");
  return Substitute(
      Combine(variables(), {{"clear", is_foreign_ ? ClearDefinition() : ""},
                            {"unsafe_arena", unsafe_arena}}),
      R"(
      const $Sub$& $Class$::_Internal::$name$(const $Class$* message) { return *message->$name$_; }
      $clear$
      $unsafe_arena$
  )");
}

std::string MessageFieldGenerator::InternalAccessorDeclaration() const {
  return Substitute(variables(), R"(
      static const $Sub$& $name$(const $Class$* message);
  )");
}

std::string MessageFieldGenerator::InitAsDefaultInstance() const {
  return Substitute(variables(), R"(
      $internal$::SetDefaultMessage(&instance->$name$_);
  )");
}

std::string MessageFieldGenerator::CopySubMessage() const {
  return Substitute(variables(), R"(
      $name$_ = $internal$::CopyMessage(from.$name$_);
  )");
}

std::string MessageFieldGenerator::DeleteSubMessage() const {
  return Substitute(variables(), R"(
      delete $name$_;
  )");
}

std::string MessageFieldGenerator::Clear() const {
  return Substitute(variables(), R"(
      $internal$::ClearMessage($local_arena$, &$name$_);
  )");
}

std::string MessageFieldGenerator::Merge() const {
  return Substitute(variables(), R"(
      $internal$::MergeMessage(from.$name$_, $local_arena$, &$name$_);
  )");
}

std::string MessageFieldGenerator::Copy() const {
  return Substitute(variables(), R"(
      $internal$::CopySubMessage(from.$name$_, $local_arena$, &$name$_);
  )");
}

std::string MessageFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      ::std::swap($name$_, other->$name$_);
  )");
}

std::string MessageFieldGenerator::ByteSize() const {
  return Substitute(variables(), R"(
      size += $internal$::MessageSize<$tag_size$>($name$_);
  )");
}

std::string MessageFieldGenerator::Serialize() const {
  return Substitute(variables(), R"(
      p = $internal$::WriteMessageField<$tag_value$>(p, $name$_, writer);
  )");
}

std::string MessageFieldGenerator::Parse() const {
  const std::string message =
      has_arenas_ && HasArenas(descriptor()->message_type()->file())
          ? Internal("MutableMessage(self->GetArenaForAllocation(), &self->") +
                name() + "_, &state->chunk)"
          : Internal("MutableMessage(") +
                (has_arenas_ ? "self->GetArenaForAllocation()" : "nullptr") +
                ", &self->" + name() + "_)";
  return ParseWhenTag(Internal("ReadMessage(p + ") +
                      variables().at("tag_size") + ", end, " + message +
                      ", state)");
}

}  // namespace compiler
}  // namespace vantiro
