#include "compiler/fields/repeated_message.h"

#include "compiler/names.h"
#include "compiler/type_name.h"

namespace vantiro {
namespace compiler {

using google::protobuf::FieldDescriptor;

RepeatedMessageFieldGenerator::RepeatedMessageFieldGenerator(
    const FieldDescriptor* field)
    : FieldGenerator(field),
      is_foreign_(field->message_type()->file() != field->file()) {
  AddVariables({{"Sub", TypeName(field)},
                {"SubInClass", TypeNameInClass(field)},
                {"Repeated", "::google::protobuf::RepeatedPtrField<" +
                                 TypeNameInClass(field) + ">"},
                {"inline", is_foreign_ ? "" : "inline "}});
}

std::string RepeatedMessageFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $Repeated$ $name$_;
  )");
}

std::string RepeatedMessageFieldGenerator::AccessorDeclarations() const {
  return Substitute(variables(), R"(
      int $name$_size() const { return $name$_.size(); }
      void clear_$name$();
      const $SubInClass$& $name$(int index) const { return $name$_.Get(index); }
      $SubInClass$* mutable_$name$(int index) { return $name$_.Mutable(index); }
      $SubInClass$* add_$name$();
      const $Repeated$& $name$() const { return $name$_; }
      $Repeated$* mutable_$name$() { return &$name$_; }
  )");
}

std::string RepeatedMessageFieldGenerator::ClearDefinition() const {
  return Substitute(variables(), R"(
      $inline$void $Class$::clear_$name$() { $name$_.Clear(); }
  )");
}

std::string RepeatedMessageFieldGenerator::InlineAccessorDefinitions() const {
  return Substitute(
      Combine(variables(), {{"clear", is_foreign_ ? "" : ClearDefinition()}}),
      R"(
      $clear$
      inline $Sub$* $Class$::add_$name$() { return ::vantiro::internal::AddMessage(&$name$_); }
  )");
}

std::string RepeatedMessageFieldGenerator::NonInlineAccessorDefinitions()
    const {
  return is_foreign_ ? ClearDefinition() : "";
}

std::string RepeatedMessageFieldGenerator::Clear() const {
  return Substitute(variables(), R"(
      $name$_.Clear();
  )");
}

std::string RepeatedMessageFieldGenerator::Merge() const {
  return Substitute(variables(), R"(
      $name$_.MergeFrom(from.$name$_);
  )");
}

std::string RepeatedMessageFieldGenerator::Copy() const {
  return Substitute(variables(), R"(
      $internal$::CopyRepeated(from.$name$_, target, &$name$_);
  )");
}

std::string RepeatedMessageFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      $name$_.InternalSwap(&other->$name$_);
  )");
}

std::string RepeatedMessageFieldGenerator::ByteSize() const {
  return Substitute(variables(), R"(
      size += $internal$::RepeatedMessageSize<$tag_size$>($name$_);
  )");
}

std::string RepeatedMessageFieldGenerator::Serialize() const {
  return Substitute(variables(), R"(
      p = $internal$::WriteRepeatedMessage<$tag_value$>(p, $name$_, writer);
  )");
}

std::string RepeatedMessageFieldGenerator::Parse() const {
  const std::string message =
      HasArenas(descriptor()->file()) &&
              HasArenas(descriptor()->message_type()->file())
          ? Internal("AddMessage(&self->") + name() + "_, &state->chunk)"
          : "self->" + name() + "_.Add()";
  return ParseWhenTag(Internal("ReadMessage(p + ") +
                      variables().at("tag_size") + ", end, " + message +
                      ", state)");
}

std::string RepeatedMessageFieldGenerator::ArenaInitializer() const {
  return ", " + name() + "_(arena)";
}

std::string RepeatedMessageFieldGenerator::CopyInitializer() const {
  return ", " + name() + "_(from." + name() + "_)";
}

}  // namespace compiler
}  // namespace vantiro
