// Emits the code of a message: its class, and the definitions that go with it.

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

class MessageGenerator {
 public:
  explicit MessageGenerator(const google::protobuf::Descriptor* message);

  const google::protobuf::Descriptor* descriptor() const { return message_; }
  // In the order of field numbers.
  const std::vector<std::unique_ptr<FieldGenerator>>& fields() const {
    return fields_;
  }

  // The header: declarations before all classes; the class; its inline
  // accessors, which follow all classes.
  std::string ForwardDeclarations() const;
  std::string CreationDeclaration() const;
  std::string ClassDefinition() const;
  std::string InlineAccessorDefinitions() const;

  // The source: the default instance and the class _Internal; the SccInfo and
  // the function that initialises it; the operations;
  // Arena::CreateMaybeMessage.
  std::string DefaultInstance() const;
  std::string SccInfo() const;
  std::string Operations() const;
  std::string CreationDefinition() const;

 private:
  using FieldFunction = std::string (FieldGenerator::*)() const;

  // What `function` returns for each field, in the order of field numbers.
  std::string ForFields(FieldFunction function) const;
  // The function `head`, whose body is the lines `body`.
  std::string Function(const std::string& head, const std::string& body) const;

  std::string NestedTypes() const;
  std::string FieldNumbers() const;
  std::string ArenaOperations() const;
  std::string ArenaMembers() const;
  std::string Members() const;
  std::string Scalars() const;

  // Leaves an operation on `message` by `statement` if that is the default
  // instance: it has no sub-messages, but pointers to default instances.
  std::string IfDefaultInstance(const std::string& message,
                                const std::string& statement) const;

  std::string ExportedAccessors() const;
  std::string Constructors() const;
  std::string Destructor() const;
  std::string DefaultInstanceOperations() const;
  std::string Arena() const;
  std::string Clearing() const;
  std::string Merging() const;
  std::string Copying() const;
  std::string Swapping() const;
  std::string Serialization() const;
  std::string SizeFields() const;
  std::string AddSizes(const std::vector<const FieldGenerator*>& group) const;
  std::string SerializeFields() const;
  std::string WriteFloats(const std::vector<const FieldGenerator*>& run) const;
  // The fields of a message that has one run of small fields and no others.
  std::string SerializeOneRun(const std::string& run, int size) const;
  // The floats with consecutive field numbers from the field at `begin` on, if
  // there are enough to take them together, otherwise none.
  std::vector<const FieldGenerator*> FloatRun(size_t begin) const;
  std::string ParseFields() const;
  std::string Parsing() const;
  std::string TypeInformation() const;

  // The scalars in the order in which they are members, those of one kind
  // together.
  std::vector<std::vector<const FieldGenerator*>> ScalarGroups() const;
  // Those of several scalars that one call sizes or merges together.
  std::vector<std::vector<const FieldGenerator*>> JoinedGroups() const;
  // What `function` returns for each field that is in none of these.
  std::string ForOtherFields(FieldFunction function) const;
  // variables() with those of fields that one call takes together: $first$,
  // $last$, $count$, $tag$ and $tag_value$ of the first; and $comment$, which
  // names the fields if there are several.
  Variables GroupVariables(
      const std::vector<const FieldGenerator*>& group) const;
  // The message types of the fields, each once, in the order of their names.
  std::vector<const google::protobuf::Descriptor*> Dependencies() const;
  bool NeedsSccInfoCheck() const;
  bool HasScalars() const;
  // Whether a field is a singular message.
  bool HasSubMessages() const;

  const google::protobuf::Descriptor* const message_;
  const bool has_arenas_;
  std::vector<std::unique_ptr<FieldGenerator>> fields_;
  Variables variables_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_MESSAGE_GENERATOR_H_
