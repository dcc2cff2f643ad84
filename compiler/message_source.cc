// The code of a message that goes into the source.

#include "compiler/message_generator.h"
#include "compiler/names.h"

namespace vantiro {
namespace compiler {

std::string MessageGenerator::Operations() const {
  return "// " + message_->full_name() + "\n\n" +
         ForFields(&FieldGenerator::NonInlineAccessorDefinitions) + "\n" +
         Lifetime() + "\n" + DefaultInstanceOperations() + "\n" +
         ClearAndMerge() + "\n" + Serialization() + "\n" + Parsing() + "\n" +
         TypeInformation() + "\n";
}

std::string MessageGenerator::Lifetime() const {
  const std::string check =
      !NeedsSccInfoCheck() ? "" : Substitute(variables_, R"(
      internal::InitScc(&$set_up_record$.base);
  )");
  const std::string construct = ForFields(&FieldGenerator::Construct);
  const std::string base = "::google::protobuf::MessageLite";
  const std::string arena_constructor =
      !has_arenas_
          ? ""
          : Substitute(
                Combine(variables_,
                        {{"initializers",
                          Initializers(base + "(arena)",
                                       &FieldGenerator::ArenaInitializer)},
                         {"check", check},
                         {"construct", construct}}),
                R"(
      $Class$::$Class$(::google::protobuf::Arena* arena)
          $initializers$
        $check$
        $construct$
      }
  )");
  const std::string children = ForFields(&FieldGenerator::DeleteChild);
  const std::string delete_children =
      children.empty() ? "" : Substitute({{"children", children}}, R"(
      // The sub-messages of the default instance are default instances too.
      if (this == internal_default_instance()) return;
      $children$
  )");
  return Substitute(
      Combine(
          variables_,
          {{"check", check},
           {"construct", construct},
           {"arena_constructor", arena_constructor},
           {"copy_initializers",
            Initializers(base + "()", &FieldGenerator::CopyInitializer)},
           {"copy", ForFields(&FieldGenerator::CopyConstruct)},
           {"copy_scalars", HasScalars() ? "scalars_ = from.scalars_;\n" : ""},
           {"destroy", ForFields(&FieldGenerator::Destroy)},
           {"delete_children", delete_children}}),
      R"(
      $Class$::$Class$() : ::google::protobuf::MessageLite() {
        $check$
        $construct$
      }
      $arena_constructor$

      $Class$::$Class$(const $Class$& from)
          $copy_initializers$
        _internal_metadata_.MergeFrom<::std::string>(from._internal_metadata_);
        $copy$
        $copy_scalars$
      }

      $Class$::~$Class$() {
        if (_internal_metadata_.DeleteReturnArena<::std::string>() != nullptr) return;
        $destroy$
        $delete_children$
      }
  )");
}

std::string MessageGenerator::DefaultInstanceOperations() const {
  const std::string link = ForFields(&FieldGenerator::InitAsDefaultInstance);
  const std::string set_links =
      link.empty() ? "" : Substitute(Combine(variables_, {{"link", link}}), R"(
      auto* const instance = const_cast<$Class$*>(internal_default_instance());
      $link$
  )");
  const std::string arena = !has_arenas_ ? "" : Substitute(variables_, R"(
      ::google::protobuf::Arena* $Class$::GetArena() const {
        return _internal_metadata_.user_arena();
      }

      void* $Class$::GetMaybeArenaPointer() const {
        return _internal_metadata_.raw_arena_ptr();
      }

      void $Class$::ArenaDtor(void* /*object*/) {}

  )");
  return Substitute(
      Combine(variables_, {{"set_links", set_links}, {"arena", arena}}), R"(
      const $Class$& $Class$::default_instance() {
        internal::InitScc(&$set_up_record$.base);
        return *internal_default_instance();
      }

      void $Class$::InitAsDefaultInstance() {
        $set_links$
      }

      $Class$* $Class$::New() const { return CreateMaybeMessage<$Class$>(nullptr); }

      $Class$* $Class$::New(::google::protobuf::Arena* arena) const {
        return CreateMaybeMessage<$Class$>(arena);
      }

      $arena$
  )");
}

std::string MessageGenerator::ClearAndMerge() const {
  return Substitute(
      Combine(
          variables_,
          {{"clear", ForFields(&FieldGenerator::Clear)},
           {"clear_scalars", HasScalars() ? "scalars_ = Scalars();\n" : ""},
           {"merge", ForFields(&FieldGenerator::Merge)},
           {"swap", ForFields(&FieldGenerator::Swap)},
           {"swap_scalars",
            HasScalars() ? "::std::swap(scalars_, other->scalars_);\n" : ""}}),
      R"(
      void $Class$::Clear() {
        $clear$
        $clear_scalars$
        _internal_metadata_.Clear<::std::string>();
      }

      void $Class$::MergeFrom(const $Class$& from) {
        _internal_metadata_.MergeFrom<::std::string>(from._internal_metadata_);
        $merge$
      }

      void $Class$::CopyFrom(const $Class$& from) {
        if (&from == this) return;
        Clear();
        MergeFrom(from);
      }

      void $Class$::CheckTypeAndMergeFrom(const ::google::protobuf::MessageLite& from) {
        MergeFrom(static_cast<const $Class$&>(from));
      }

      void $Class$::InternalSwap($Class$* other) {
        _internal_metadata_.Swap<::std::string>(&other->_internal_metadata_);
        $swap$
        $swap_scalars$
      }
  )");
}

std::string MessageGenerator::Parsing() const {
  return Substitute(
      Combine(variables_, {{"fields", ForFields(&FieldGenerator::Parse)}}), R"(
      const ::uint8_t* $Class$::_InternalParseFlat(::google::protobuf::MessageLite* message,
                                                   const ::uint8_t* p,
                                                   const ::uint8_t* end,
                                                   internal::ParseState* state) {
        auto* const self = static_cast<$Class$*>(message);
        internal::RawTag tag = $PeekTag$(p, end);
        // Records are written in the order of field numbers, so each field is
        // followed by the next. Fields in another order need another iteration.
        while (p != end) {
          const ::uint8_t* const start = p;
          $fields$
          if (p != start) continue;
          const internal::NextTag next = internal::HandleUnexpectedTag(
              p, end, tag, &self->_internal_metadata_, state);
          if (next.p == nullptr || state->ended_at_invalid_tag) return next.p;
          p = next.p;
          tag = next.tag;
        }
        return p;
      }

      const char* $Class$::_InternalParse(
          const char* p, ::google::protobuf::internal::ParseContext* context) {
        return internal::ParseFromContext(this, &_InternalParseFlat, p, context);
      }

      bool $Class$::MergePartialFromCodedStream(
          ::google::protobuf::io::CodedInputStream* input) {
        return internal::MergeFromCodedStream(this, &_InternalParseFlat, input);
      }
  )");
}

std::string MessageGenerator::TypeInformation() const {
  return Substitute(variables_, R"(
      ::std::string $Class$::GetTypeName() const { return "$full_name$"; }

      bool $Class$::IsInitialized() const { return true; }

      int $Class$::GetCachedSize() const { return _cached_size_.Get(); }

      void $Class$::SetCachedSize(int size) const { _cached_size_.Set(size); }
  )");
}

// Without arenas an object may be placed on one, but never knows it: the arena
// runs its destructor, and its sub-messages are on the heap.
std::string MessageGenerator::CreationDefinition() const {
  return Substitute(
      Combine(variables_,
              {{"Create", has_arenas_ ? "CreateMessageInternal" : "Create"}}),
      R"(
      template <>
      $QualifiedClass$*
      Arena::CreateMaybeMessage<$QualifiedClass$>(Arena* arena) {
        return Arena::$Create$<$QualifiedClass$>(arena);
      }
  )");
}

}  // namespace compiler
}  // namespace vantiro
