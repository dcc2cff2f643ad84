// Repeated string and bytes

#ifndef VANTIRO_COMPILER_FIELDS_REPEATED_STRING_H_
#define VANTIRO_COMPILER_FIELDS_REPEATED_STRING_H_

#include <string>

#include "compiler/fields/field_generator.h"
#include "compiler/fields/string.h"

namespace vantiro {
namespace compiler {

// A RepeatedPtrField, which keeps cleared elements and reuses them. Elements
// are written whatever they hold, empty ones too.
class RepeatedStringFieldGenerator : public FieldGenerator {
 public:
  using Kind = StringFieldGenerator::Kind;

  RepeatedStringFieldGenerator(const google::protobuf::FieldDescriptor* field,
                               Kind kind);

  std::string Member() const override;
  std::string AccessorDeclarations() const override;
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
  const Kind kind_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_REPEATED_STRING_H_
