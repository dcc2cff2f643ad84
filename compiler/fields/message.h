// A singular message field

#ifndef VANTIRO_COMPILER_FIELDS_MESSAGE_H_
#define VANTIRO_COMPILER_FIELDS_MESSAGE_H_

#include <string>

#include "compiler/fields/field_generator.h"

namespace vantiro {
namespace compiler {

// A pointer that the message owns, unless it lies on an arena. The field is
// present if the pointer is not null and the object is not the class's default
// instance, whose pointers point to the default instances of the sub-types.
class MessageFieldGenerator : public FieldGenerator {
 public:
  explicit MessageFieldGenerator(
      const google::protobuf::FieldDescriptor* field);

  std::string Member() const override;
  std::string AccessorDeclarations() const override;
  std::string InlineAccessorDefinitions() const override;
  std::string NonInlineAccessorDefinitions() const override;
  std::string InternalAccessorDeclaration() const override;
  std::string InitAsDefaultInstance() const override;
  std::string CopySubMessage() const override;
  std::string DeleteSubMessage() const override;
  std::string Clear() const override;
  std::string Merge() const override;
  std::string Copy() const override;
  std::string Swap() const override;
  std::string ByteSize() const override;
  std::string Serialize() const override;
  std::string Parse() const override;

 private:
  std::string ClearDefinition() const;

  const bool has_arenas_;
  // The sub-type comes from another unit; clear_<field> is then exported.
  const bool is_foreign_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_MESSAGE_H_
