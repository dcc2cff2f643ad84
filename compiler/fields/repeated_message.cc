#include "compiler/fields/repeated_message.h"

#include "compiler/names.h"

namespace vantiro {
namespace compiler {

using google::protobuf::FieldDescriptor;

RepeatedMessageFieldGenerator::RepeatedMessageFieldGenerator(
    const FieldDescriptor* field)
    : FieldGenerator(field),
      is_foreign_(field->message_type()->file() != field->file()) {
  const std::string sub = QualifiedName(field->message_type());
  AddVariables(
      {{"Sub", sub},
       {"Repeated", "::google::protobuf::RepeatedPtrField<" + sub + ">"},
       {"inline", is_foreign_ ? "" : "inline "}});
}

std::string RepeatedMessageFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $Repeated$ $name$_;
  )");
}

std::string RepeatedMessageFieldGenerator::AccessorDeclarations() const {
  return Substitute(variables(), R"(
      // $declaration$
      int $name$_size() const;
      void clear_$name$();
      const $Sub$& $name$(int index) const;
      $Sub$* mutable_$name$(int index);
      $Sub$* add_$name$();
      const $Repeated$& $name$() const;
      $Repeated$* mutable_$name$();
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
      inline int $Class$::$name$_size() const { return $name$_.size(); }
      $clear$
      inline const $Sub$& $Class$::$name$(int index) const {
        return $name$_.Get(index);
      }
      inline $Sub$* $Class$::mutable_$name$(int index) {
        return $name$_.Mutable(index);
      }
      inline $Sub$* $Class$::add_$name$() { return $name$_.Add(); }
      inline const $Repeated$& $Class$::$name$() const { return $name$_; }
      inline $Repeated$* $Class$::mutable_$name$() { return &$name$_; }
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

std::string RepeatedMessageFieldGenerator::Swap() const {
  return Substitute(variables(), R"(
      $name$_.InternalSwap(&other->$name$_);
  )");
}

std::string RepeatedMessageFieldGenerator::ByteSize() const {
  return Substitute(variables(), R"(
      size += $tag_size$ * static_cast<size_t>($name$_.size());
      for (const $Sub$& element : $name$_) {
        size += internal::WithLength(element.ByteSizeLong());
      }
  )");
}

std::string RepeatedMessageFieldGenerator::Serialize() const {
  return Substitute(variables(), R"(
      for (const $Sub$& element : $name$_) {
        p = internal::WriteMessage<$tag_value$>(p, element, writer);
      }
  )");
}

std::string RepeatedMessageFieldGenerator::Parse() const {
  return ParseWhenTag("internal::ReadMessage(p + " +
                      variables().at("tag_size") + ", end, self->" +
                      descriptor()->name() + "_.Add(), state)");
}

std::string RepeatedMessageFieldGenerator::ArenaInitializer() const {
  return Substitute(variables(), R"(
      $name$_(arena)
  )");
}

std::string RepeatedMessageFieldGenerator::CopyInitializer() const {
  return Substitute(variables(), R"(
      $name$_(from.$name$_)
  )");
}

}  // namespace compiler
}  // namespace vantiro
