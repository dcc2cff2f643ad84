// Emits a message: its class, and what belongs to it outside the class.

#ifndef VANTIRO_COMPILER_MESSAGE_GENERATOR_H_
#define VANTIRO_COMPILER_MESSAGE_GENERATOR_H_

#include <google/protobuf/descriptor.h>

#include <memory>
#include <string>
#include <vector>

#include "compiler/fields/field_generator.h"
#include "compiler/template.h"

namespace vantiro {
namespace compiler {

class Message {
 public:
  explicit Message(const google::protobuf::Descriptor* message);

  const google::protobuf::Descriptor* descriptor() const { return message_; }

  // The header: the class, and its accessors behind all classes.
  std::string ClassDefinition() const;
  std::string AccessorDefinitions() const;

  // The source: the default instance and the class _Internal; the set-up
  // function and record; the operations.
  std::string DefaultInstance() const;
  std::string SetUp() const;
  std::string Operations() const;

 private:
  using Verb = std::string (Field::*)() const;

  // What every field has to say for a verb, in the order of their numbers.
  std::string ForFields(Verb verb) const;
  // The entries of a constructor's initialiser list for a verb, after `base`.
  std::string Initializers(const std::string& base, Verb verb) const;

  std::string NestedTypes() const;
  std::string FieldNumbers() const;
  std::string ArenaDeclarations() const;
  std::string Members() const;
  std::string Scalars() const;

  std::string Lifetime() const;
  std::string Creation() const;
  std::string ClearAndMerge() const;
  std::string Serialization() const;
  std::string SerializeFields() const;
  std::string Parsing() const;
  std::string TypeInformation() const;

  // The message types of the fields, each once, in the order of their names.
  std::vector<const google::protobuf::Descriptor*> Dependencies() const;
  bool NeedsSetUpCheck() const;
  bool HasScalars() const;

  const google::protobuf::Descriptor* const message_;
  const bool has_arenas_;
  // In the order of their numbers.
  std::vector<std::unique_ptr<Field>> fields_;
  Holes holes_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_MESSAGE_GENERATOR_H_
