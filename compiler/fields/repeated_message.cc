#include "compiler/fields/repeated_message.h"

#include "compiler/names.h"

namespace vantiro {
namespace compiler {

using google::protobuf::FieldDescriptor;

RepeatedMessageField::RepeatedMessageField(const FieldDescriptor* field)
    : Field(field),
      is_foreign_(field->message_type()->file() != field->file()) {
  const std::string sub = QualifiedName(field->message_type());
  AddHoles({{"Sub", sub},
            {"List", "::google::protobuf::RepeatedPtrField<" + sub + ">"},
            {"inline", is_foreign_ ? "" : "inline "}});
}

std::string RepeatedMessageField::Member() const {
  return Fill(holes(), R"(
      $List$ $name$_;
  )");
}

std::string RepeatedMessageField::AccessorDeclarations() const {
  return Fill(holes(), R"(
      // $declaration$
      int $name$_size() const;
      void clear_$name$();
      const $Sub$& $name$(int index) const;
      $Sub$* mutable_$name$(int index);
      $Sub$* add_$name$();
      const $List$& $name$() const;
      $List$* mutable_$name$();
  )");
}

std::string RepeatedMessageField::ClearDefinition() const {
  return Fill(holes(), R"(
      $inline$void $Class$::clear_$name$() { $name$_.Clear(); }
  )");
}

std::string RepeatedMessageField::AccessorDefinitions() const {
  return Fill(With(holes(), {{"clear", is_foreign_ ? "" : ClearDefinition()}}),
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
      inline const $List$& $Class$::$name$() const { return $name$_; }
      inline $List$* $Class$::mutable_$name$() { return &$name$_; }
  )");
}

std::string RepeatedMessageField::ExportedDefinitions() const {
  return is_foreign_ ? ClearDefinition() : "";
}

std::string RepeatedMessageField::Clear() const {
  return Fill(holes(), R"(
      $name$_.Clear();
  )");
}

std::string RepeatedMessageField::Merge() const {
  return Fill(holes(), R"(
      $name$_.MergeFrom(from.$name$_);
  )");
}

std::string RepeatedMessageField::Swap() const {
  return Fill(holes(), R"(
      $name$_.InternalSwap(&other->$name$_);
  )");
}

std::string RepeatedMessageField::ByteSize() const {
  return Fill(holes(), R"(
      size += $tag_size$ * static_cast<size_t>($name$_.size());
      for (const $Sub$& element : $name$_) {
        size += WireFormatLite::LengthDelimitedSize(element.ByteSizeLong());
      }
  )");
}

std::string RepeatedMessageField::Serialize() const {
  return Fill(holes(), R"(
      for (const $Sub$& element : $name$_) {
        p = internal::WriteMessage<$tag_value$>(p, element, writer);
      }
  )");
}

std::string RepeatedMessageField::Parse() const {
  return ParseWhenTag("internal::ReadMessage(p + " + holes().at("tag_size") +
                      ", end, self->" + descriptor()->name() +
                      "_.Add(), state)");
}

std::string RepeatedMessageField::ArenaInitializer() const {
  return Fill(holes(), R"(
      $name$_(arena)
  )");
}

std::string RepeatedMessageField::CopyInitializer() const {
  return Fill(holes(), R"(
      $name$_(from.$name$_)
  )");
}

}  // namespace compiler
}  // namespace vantiro
