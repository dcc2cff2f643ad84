#include "compiler/fields/message.h"

#include "compiler/names.h"

namespace vantiro {
namespace compiler {

using google::protobuf::FieldDescriptor;

MessageFieldGenerator::MessageFieldGenerator(const FieldDescriptor* field)
    : FieldGenerator(field),
      has_arenas_(HasArenas(field->file())),
      is_foreign_(field->message_type()->file() != field->file()) {
  AddVariables({{"Sub", QualifiedName(field->message_type())}});
  // Without arenas a message always lies on the heap, and so do its children.
  AddVariables(
      {{"arena", has_arenas_ ? "GetArenaForAllocation()" : "nullptr"},
       {"delete_old", has_arenas_ ? "if (GetArenaForAllocation() == nullptr) "
                                    "delete " +
                                        field->name() + "_;"
                                  : "delete " + field->name() + "_;"}});
}

std::string MessageFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $Sub$* $name$_ = nullptr;
  )");
}

std::string MessageFieldGenerator::AccessorDeclarations() const {
  const std::string unsafe_arena =
      !has_arenas_ ? "" : Substitute(variables(), R"(
      // Takes `value`, which may be null, without asking where it lies.
      void unsafe_arena_set_allocated_$name$($Sub$* value);
      $Sub$* unsafe_arena_release_$name$();
  )");
  return Substitute(Combine(variables(), {{"unsafe_arena", unsafe_arena}}), R"(
      // $declaration$
      bool has_$name$() const;
      void clear_$name$();
      const $Sub$& $name$() const;
      $Sub$* mutable_$name$();
      $Sub$* release_$name$();
      void set_allocated_$name$($Sub$* value);
      $unsafe_arena$
  )");
}

std::string MessageFieldGenerator::ClearDefinition() const {
  return Substitute(
      Combine(variables(), {{"inline", is_foreign_ ? "" : "inline "}}), R"(
      $inline$void $Class$::clear_$name$() {
        $delete_old$
        $name$_ = nullptr;
      }
  )");
}

std::string MessageFieldGenerator::InlineAccessorDefinitions() const {
  const std::string release = has_arenas_ ? Substitute(variables(), R"(
      inline $Sub$* $Class$::release_$name$() {
        $Sub$* const released = unsafe_arena_release_$name$();
        return $arena$ == nullptr
                   ? released
                   : ::google::protobuf::internal::DuplicateIfNonNull(released);
      }
      inline $Sub$* $Class$::unsafe_arena_release_$name$() {
        $Sub$* const released = $name$_;
        $name$_ = nullptr;
        return released;
      }
  )")
                                          : Substitute(variables(), R"(
      inline $Sub$* $Class$::release_$name$() {
        $Sub$* const released = $name$_;
        $name$_ = nullptr;
        return released;
      }
  )");
  return Substitute(
      Combine(variables(), {{"clear", is_foreign_ ? "" : ClearDefinition()},
                            {"release", release},
                            {"adopt", AdoptValue()}}),
      R"(
      inline bool $Class$::has_$name$() const {
        return $name$_ != nullptr && this != internal_default_instance();
      }
      $clear$
      inline const $Sub$& $Class$::$name$() const {
        return $name$_ != nullptr ? *$name$_ : *$Sub$::internal_default_instance();
      }
      inline $Sub$* $Class$::mutable_$name$() {
        if ($name$_ == nullptr) $name$_ = CreateMaybeMessage<$Sub$>($arena$);
        return $name$_;
      }
      $release$
      inline void $Class$::set_allocated_$name$($Sub$* value) {
        $delete_old$
        if (value != nullptr && value->GetArena() != $arena$) {
          $adopt$
        }
        $name$_ = value;
      }
  )");
}

// A value on another arena is copied; a value on the heap becomes owned by this
// message's arena.
std::string MessageFieldGenerator::AdoptValue() const {
  std::string copy = Substitute(variables(), R"(
      $Sub$* const copy = CreateMaybeMessage<$Sub$>($arena$);
      copy->MergeFrom(*value);
      value = copy;
  )");
  if (!has_arenas_) return copy;
  return Substitute(Combine(variables(), {{"copy", copy}}), R"(
      if (value->GetArena() == nullptr) {
        $arena$->Own(value);
      } else {
        $copy$
      }
  )");
}

std::string MessageFieldGenerator::NonInlineAccessorDefinitions() const {
  const std::string unsafe_arena =
      !has_arenas_ ? "" : Substitute(variables(), R"(
      void $Class$::unsafe_arena_set_allocated_$name$($Sub$* value) {
        $delete_old$
        $name$_ = value;
      }
  )");
  return Substitute(
      Combine(variables(), {{"clear", is_foreign_ ? ClearDefinition() : ""},
                            {"unsafe_arena", unsafe_arena}}),
      R"(
      const $Sub$& $Class$::_Internal::$name$(const $Class$* message) {
        return *message->$name$_;
      }
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
      instance->$name$_ = const_cast<$Sub$*>($Sub$::internal_default_instance());
  )");
}

std::string MessageFieldGenerator::CopyConstruct() const {
  return Substitute(variables(), R"(
      if (from.has_$name$()) $name$_ = new $Sub$(*from.$name$_);
  )");
}

std::string MessageFieldGenerator::DeleteChild() const {
  return Substitute(variables(), R"(
      delete $name$_;
  )");
}

std::string MessageFieldGenerator::Clear() const {
  return Substitute(variables(), R"(
      if ($name$_ != nullptr) clear_$name$();
  )");
}

std::string MessageFieldGenerator::Merge() const {
  return Substitute(variables(), R"(
      if (from.has_$name$()) mutable_$name$()->MergeFrom(*from.$name$_);
  )");
}

std::string MessageFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      ::std::swap($name$_, other->$name$_);
  )");
}

std::string MessageFieldGenerator::ByteSize() const {
  return Substitute(variables(), R"(
      if (has_$name$()) {
        size += $tag_size$ + internal::WithLength($name$_->ByteSizeLong());
      }
  )");
}

std::string MessageFieldGenerator::Serialize() const {
  return Substitute(variables(), R"(
      if (has_$name$()) {
        p = internal::WriteMessage<$tag_value$>(p, _Internal::$name$(this), writer);
      }
  )");
}

std::string MessageFieldGenerator::Parse() const {
  return ParseWhenTag("internal::ReadMessage(p + " +
                      variables().at("tag_size") + ", end, self->mutable_" +
                      descriptor()->name() + "(), state)");
}

}  // namespace compiler
}  // namespace vantiro
