// What all singular scalars have in common.

#ifndef VANTIRO_COMPILER_FIELDS_SCALAR_H_
#define VANTIRO_COMPILER_FIELDS_SCALAR_H_

#include <string>

#include "compiler/fields/field_generator.h"

namespace vantiro {
namespace compiler {

// Held by value in the class's struct Scalars. A value of zero is neither
// written nor merged. A kind adds how it is sized, written and read.
class ScalarFieldGenerator : public FieldGenerator {
 public:
  // `type` is the C++ type of the accessors, `stored_type` that of the member.
  ScalarFieldGenerator(const google::protobuf::FieldDescriptor* field,
                       const std::string& type, const std::string& stored_type);

  std::string Member() const override;
  std::string AccessorDeclarations() const override;
  std::string InlineAccessorDefinitions() const override;
  std::string Merge() const override;
  std::string ByteSize() const override;
  std::string Serialize() const override;

 protected:
  // An expression that is true if `value` is written and merged.
  virtual std::string IsNonZero(const std::string& value) const {
    return value + " != 0";
  }
  // An expression for the encoded size of the value, without the tag.
  virtual std::string ValueSize() const = 0;
  // The function of lib/internal that writes the field unless it is zero, and
  // the expression of the value that it takes.
  virtual std::string WriteFunction() const = 0;
  virtual std::string ValueToWrite() const { return "scalars_." + name(); }
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_SCALAR_H_
