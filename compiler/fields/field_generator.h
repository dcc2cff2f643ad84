// A field as the emitted class sees it: the same verbs for every kind.

#ifndef VANTIRO_COMPILER_FIELDS_FIELD_GENERATOR_H_
#define VANTIRO_COMPILER_FIELDS_FIELD_GENERATOR_H_

#include <google/protobuf/descriptor.h>

#include <cstdint>
#include <memory>
#include <string>

#include "compiler/template.h"

namespace vantiro {
namespace compiler {

// Each verb gives the text of one part of the class, whole lines that go
// together with those of the message's other fields. A kind that has nothing to
// do for a verb gives no text.
class Field {
 public:
  explicit Field(const google::protobuf::FieldDescriptor* field);
  virtual ~Field() = default;
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  const google::protobuf::FieldDescriptor* descriptor() const { return field_; }

  // The header: members, accessors in the class, accessors behind it.
  //
  // A scalar is no member of its own: it stands in the class's block of
  // scalars, which is cleared, copied and swapped as one.
  virtual std::string Member() const = 0;
  virtual std::string AccessorDeclarations() const = 0;
  virtual std::string AccessorDefinitions() const = 0;

  // The source: what the field exports, and its line in the class _Internal.
  virtual std::string ExportedDefinitions() const { return ""; }
  virtual std::string InternalDeclaration() const { return ""; }

  // Statements in the operations of the class. `from` and `other` are the other
  // message, `self` is the message that is parsed into, `p` the position.
  virtual std::string InitAsDefaultInstance() const { return ""; }
  virtual std::string Construct() const { return ""; }
  virtual std::string CopyConstruct() const { return ""; }
  virtual std::string Destroy() const { return ""; }
  virtual std::string DeleteChild() const { return ""; }
  virtual std::string Clear() const { return ""; }
  virtual std::string Merge() const = 0;
  virtual std::string Swap() const { return ""; }
  virtual std::string ByteSize() const = 0;
  virtual std::string Serialize() const = 0;
  virtual std::string Parse() const = 0;

  // Entries in the initialiser lists of the constructors.
  virtual std::string ArenaInitializer() const { return ""; }
  virtual std::string CopyInitializer() const { return ""; }

  // The width of a scalar in memory, 0 for every other kind.
  virtual int scalar_width() const { return 0; }
  // The most bytes that a scalar takes, tag included; 0 if the field asks for
  // its own room.
  virtual int max_encoded_size() const { return 0; }

 protected:
  // The holes that all kinds have: $Class$, $name$, $Number$ (the constant),
  // $declaration$ (as in the schema), $tag$ (raw, in hexadecimal),
  // $tag_value$, $tag_size$, $PeekTag$.
  const Holes& holes() const { return holes_; }
  void AddHoles(const Holes& more) { holes_ = With(holes_, more); }

  // The parser's lines for one tag: `read` is an expression that gives the
  // position behind the value. A repeated field goes on while its tag follows.
  std::string ParseWhenTag(const std::string& read) const;

 private:
  const google::protobuf::FieldDescriptor* const field_;
  Holes holes_;
};

// The bytes of a tag of at most two bytes as a number in hexadecimal, the first
// byte lowest: the form in which the emitted parser compares tags.
std::string RawTagText(uint32_t tag);

// The function of the frame by which the message's parser looks at tags.
std::string PeekFunction(const google::protobuf::Descriptor* message);

// The field's kind decides which class serves it. This is the only place where
// kinds are told apart.
std::unique_ptr<Field> MakeField(
    const google::protobuf::FieldDescriptor* field);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_FIELD_GENERATOR_H_
