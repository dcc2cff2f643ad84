// A repeated message field

#ifndef VANTIRO_COMPILER_FIELDS_REPEATED_MESSAGE_H_
#define VANTIRO_COMPILER_FIELDS_REPEATED_MESSAGE_H_

#include <string>

#include "compiler/fields/field_generator.h"

namespace vantiro {
namespace compiler {

// A RepeatedPtrField, which keeps cleared elements and reuses them.
class RepeatedMessageFieldGenerator : public FieldGenerator {
 public:
  explicit RepeatedMessageFieldGenerator(
      const google::protobuf::FieldDescriptor* field);

  std::string Member() const override;
  std::string AccessorDeclarations() const override;
  std::string InlineAccessorDefinitions() const override;
  std::string NonInlineAccessorDefinitions() const override;
  std::string Clear() const override;
  std::string Merge() const override;
  std::string Copy() const override;
  std::string Swap() const override;
  std::string ByteSize() const override;
  std::string Serialize() const override;
  std::string Parse() const override;
  std::string ArenaInitializer() const override;
  std::string CopyInitializer() const override;

 private:
  std::string ClearDefinition() const;

  // The element type comes from another unit; clear_<field> is then exported.
  const bool is_foreign_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_REPEATED_MESSAGE_H_
