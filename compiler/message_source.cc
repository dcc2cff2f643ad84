// The code of a message that goes into the source.

#include <algorithm>

#include "compiler/message_generator.h"
#include "compiler/names.h"

namespace vantiro {
namespace compiler {
std::string MessageGenerator::Operations() const {
  return "// " + message_->full_name() + "\n\n" + ExportedAccessors() +
         Constructors() + DefaultInstanceOperations() + Clearing() + Merging() +
         Copying() + Swapping() + Serialization() + Parsing() +
         TypeInformation();
}

std::string MessageGenerator::ExportedAccessors() const {
  const std::string accessors =
      ForFields(&FieldGenerator::NonInlineAccessorDefinitions);
  return accessors.empty() ? "" : accessors + "\n";
}

std::string MessageGenerator::Function(const std::string& head,
                                       const std::string& body) const {
  const auto line_count = std::count(body.begin(), body.end(), '\n');
  if (line_count == 0) return Substitute(variables_, head + " {}");
  if (line_count == 1) {
    return Substitute(variables_,
                      head + " { " + body.substr(0, body.size() - 1) + " }");
  }
  return Substitute(Combine(variables_, {{"body", body}}),
                    head + " {\n  $body$\n}");
}

std::string MessageGenerator::IfDefaultInstance(
    const std::string& message, const std::string& statement) const {
  if (!HasSubMessages()) return "";
  return "if (" + message + " == internal_default_instance()) " + statement +
         "\n";
}

std::string MessageGenerator::Constructors() const {
  const std::string init_scc =
      !NeedsSccInfoCheck() ? "" : Substitute(variables_, R"(
      $internal$::InitScc(&$scc_info$);
  )");
  const std::string construct =
      init_scc + ForFields(&FieldGenerator::Construct);
  const std::string arena_constructor =
      !has_arenas_ ? ""
                   : Function(
                         "$Class$::$Class$(::google::protobuf::Arena* arena) : "
                         "::google::protobuf::MessageLite(arena)" +
                             ForFields(&FieldGenerator::ArenaInitializer),
                         construct);
  const std::string merge_unknown_fields =
      "_internal_metadata_.MergeFrom<::std::string>("
      "from._internal_metadata_);\n";
  const std::string copy_constructor = Function(
      "$Class$::$Class$(const $Class$& from) : "
      "::google::protobuf::MessageLite()" +
          ForFields(&FieldGenerator::CopyInitializer) +
          (HasScalars() ? ", $scalars$(from.$scalars$)" : ""),
      merge_unknown_fields + ForFields(&FieldGenerator::CopyConstruct) +
          IfDefaultInstance("&from", "return;") +
          ForFields(&FieldGenerator::CopySubMessage));
  return Function("$Class$::$Class$()", construct) + "\n" + arena_constructor +
         (has_arenas_ ? "\n" : "") + copy_constructor + "\n" + Destructor();
}

std::string MessageGenerator::Destructor() const {
  const std::string delete_messages =
      IfDefaultInstance("this", "return;") +
      ForFields(&FieldGenerator::DeleteSubMessage);
  return Substitute(
      Combine(variables_, {{"destroy", ForFields(&FieldGenerator::Destroy)},
                           {"delete_messages", delete_messages}}),
      R"(
      $Class$::~$Class$() {
        if (_internal_metadata_.DeleteReturnArena<::std::string>() != nullptr) return;
        $destroy$
        $delete_messages$
      }

  )");
}

std::string MessageGenerator::DefaultInstanceOperations() const {
  const std::string set_messages =
      ForFields(&FieldGenerator::InitAsDefaultInstance);
  const std::string body =
      set_messages.empty() ? "" : Substitute(variables_, R"(
      // They are no sub-messages of it: all operations leave them out.
      auto* const instance = const_cast<$SafeClass$*>(internal_default_instance());
  )") + set_messages;
  const std::string arena = !has_arenas_ ? "" : Substitute(variables_, R"(
      ::google::protobuf::Arena* $Class$::GetArena() const { return _internal_metadata_.user_arena(); }

      void* $Class$::GetMaybeArenaPointer() const { return _internal_metadata_.raw_arena_ptr(); }

      void $Class$::ArenaDtor(void* /*object*/) {}

  )");
  return Substitute(
      Combine(
          variables_,
          {{"init", Function("void $Class$::InitAsDefaultInstance()", body)},
           {"arena", arena}}),
      R"(
      const $Class$& $Class$::default_instance() {
        $internal$::InitScc(&$scc_info$);
        return *internal_default_instance();
      }

      $init$

      $Class$* $Class$::New() const { return CreateMaybeMessage<$SafeClass$>(nullptr); }

      $Class$* $Class$::New(::google::protobuf::Arena* arena) const { return CreateMaybeMessage<$SafeClass$>(arena); }

      $arena$
  )");
}

// Floats with consecutive numbers are read together if all of them are there.
std::string MessageGenerator::ParseFields() const {
  std::string result;
  for (size_t i = 0; i < fields_.size();) {
    const auto floats = FloatRun(i);
    const size_t end = i + std::max<size_t>(floats.size(), 1);
    std::string fields;
    for (; i < end; ++i) fields += fields_[i]->Parse();
    result +=
        floats.empty()
            ? fields
            : Substitute(Combine(GroupVariables(floats), {{"fields", fields}}),
                         R"(
      $comment$
      if ($internal$::IsNext(tag, $tag$) && $internal$::AreFloatsNext<$tag_value$, $count$>(p, end)) {
        p = $internal$::ReadFloatFields<$tag_value$, $count$>(p, &self->$scalars$.$first$);
        tag = $PeekTag$(p, end);
      } else {
        $fields$
      }
  )");
  }
  return result;
}

std::string MessageGenerator::Parsing() const {
  return Substitute(Combine(variables_, {{"fields", ParseFields()}}), R"(
      const ::uint8_t* $Class$::_InternalParseFlat(::google::protobuf::MessageLite* message, const ::uint8_t* p, const ::uint8_t* end, $internal$::ParseState* state) {
        auto* const self = static_cast<$SafeClass$*>(message);
        $internal$::$RawTag$ tag = $PeekTag$(p, end);
        while (p != end) {
          const ::uint8_t* const start = p;
          $fields$
          if (p != start) continue;
          p = $internal$::HandleUnexpectedTag(p, end, &tag, &self->_internal_metadata_, state);
          if (p == nullptr) return nullptr;
        }
        return p;
      }

      const char* $Class$::_InternalParse(const char* p, ::google::protobuf::internal::ParseContext* context) { return $internal$::ParseFromContext(this, &_InternalParseFlat, p, context); }

      bool $Class$::MergePartialFromCodedStream(::google::protobuf::io::CodedInputStream* input) { return $internal$::MergeFromCodedStream(this, &_InternalParseFlat, input); }

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
      $QualifiedClass$* Arena::CreateMaybeMessage(Arena* arena) {
        return $Create$<$QualifiedClass$>(arena);
      }
  )");
}

}  // namespace compiler
}  // namespace vantiro
