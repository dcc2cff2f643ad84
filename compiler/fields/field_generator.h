// Emits the code of a field: the same functions for every kind of field.

#ifndef VANTIRO_COMPILER_FIELDS_FIELD_GENERATOR_H_
#define VANTIRO_COMPILER_FIELDS_FIELD_GENERATOR_H_

#include <google/protobuf/descriptor.h>

#include <cstdint>
#include <memory>
#include <string>

#include "compiler/template.h"

namespace vantiro {
namespace compiler {

// Each function returns the field's code for one part of the class, as whole
// lines. A kind of field that needs no code there returns an empty string.
class FieldGenerator {
 public:
  explicit FieldGenerator(const google::protobuf::FieldDescriptor* field);
  virtual ~FieldGenerator() = default;
  FieldGenerator(const FieldGenerator&) = delete;
  FieldGenerator& operator=(const FieldGenerator&) = delete;

  const google::protobuf::FieldDescriptor* descriptor() const { return field_; }
  const std::string& name() const { return variables_.at("name"); }
  const std::string& raw_tag() const { return variables_.at("tag"); }
  const std::string& tag_value() const { return variables_.at("tag_value"); }
  // What the source calls the namespace of lib/internal.
  const std::string& internal_namespace() const {
    return variables_.at("internal");
  }
  int tag_size() const { return std::stoi(variables_.at("tag_size")); }

  // The header, in the class: the accessors with the field's comment and its
  // declaration in the schema; the members. Accessors that need the class of a
  // sub-message are only declared in the class and defined after all classes.
  //
  // A scalar is a member of the class's struct of scalars, which is cleared,
  // copied and swapped as one.
  std::string PublicMembers() const;
  virtual std::string AccessorDeclarations() const = 0;
  virtual std::string InlineAccessorDefinitions() const { return ""; }
  virtual std::string Member() const = 0;
  // What ByteSizeLong stores for the field.
  virtual std::string CachedSizeMember() const { return ""; }

  // The source: accessors that the library exports, and the field's accessor in
  // the class _Internal.
  virtual std::string NonInlineAccessorDefinitions() const { return ""; }
  virtual std::string InternalAccessorDeclaration() const { return ""; }

  // Statements in the operations of the class. `from` and `other` are the other
  // message, `self` is the message that is parsed into, `p` the position.
  virtual std::string InitAsDefaultInstance() const { return ""; }
  virtual std::string Construct() const { return ""; }
  virtual std::string CopyConstruct() const { return ""; }
  virtual std::string CopySubMessage() const { return ""; }
  virtual std::string Destroy() const { return ""; }
  virtual std::string DeleteSubMessage() const { return ""; }
  virtual std::string Clear() const { return ""; }
  virtual std::string Merge() const = 0;
  virtual std::string Copy() const { return ""; }
  // For a scalar, after all scalars were copied as one.
  virtual std::string AfterCopyOfScalars() const { return ""; }
  virtual std::string Swap() const { return ""; }
  virtual std::string ByteSize() const = 0;
  virtual std::string Serialize() const = 0;
  virtual std::string Parse() const = 0;

  // Entries in the initialiser lists of the constructors, each after a comma.
  virtual std::string ArenaInitializer() const { return ""; }
  virtual std::string CopyInitializer() const { return ""; }

  // The width of a scalar in memory, 0 for every other kind.
  virtual int scalar_width() const { return 0; }
  // The type of lib/internal that takes the encoded sizes of several scalars of
  // this kind at once; empty for kinds whose sizes are taken one by one.
  virtual std::string size_kind() const { return ""; }
  // The most bytes that a scalar takes, tag included; 0 if the field asks for
  // space itself.
  virtual int max_encoded_size() const { return 0; }

 protected:
  // The variables that all kinds have: $Class$, $name$, $tag$ (raw, in
  // hexadecimal), $tag_value$, $tag_size$, $PeekTag$, $internal$, $scalars$.
  const Variables& variables() const { return variables_; }
  // `name` in the namespace of lib/internal.
  std::string Internal(const std::string& name) const {
    return internal_namespace() + "::" + name;
  }
  void AddVariables(const Variables& more) {
    variables_ = Combine(variables_, more);
  }

  // The parser's code for one tag: `read` is an expression that returns the
  // position after the value. A repeated field continues while its tag follows.
  std::string ParseWhenTag(const std::string& read) const;

 private:
  const google::protobuf::FieldDescriptor* const field_;
  Variables variables_;
};

// The bytes of a tag as a number in hexadecimal, the first byte lowest: emitted
// parsers compare tags in this form.
std::string RawTagText(uint32_t tag);

// The size of the message's longest tag.
int MaxTagSize(const google::protobuf::Descriptor* message);

// The function of lib/internal by which the message's parser looks at tags.
std::string PeekFunction(const google::protobuf::Descriptor* message);

// Makes the generator for the field's kind. Nothing else in the plug-in
// switches on the kind of a field.
std::unique_ptr<FieldGenerator> MakeFieldGenerator(
    const google::protobuf::FieldDescriptor* field);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_FIELD_GENERATOR_H_
