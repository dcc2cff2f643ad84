// What all singular scalars have in common.

#ifndef VANTIRO_COMPILER_FIELDS_SCALAR_H_
#define VANTIRO_COMPILER_FIELDS_SCALAR_H_

#include <string>

#include "compiler/fields/field_generator.h"

namespace vantiro {
namespace compiler {

// Held by value in the class's struct of scalars. A value of zero is neither
// written nor merged.
class ScalarFieldGenerator : public FieldGenerator {
 public:
  // `kind` is in the names of the functions of lib/internal that read and write
  // the field, `type` is the C++ type of the accessors, `stored_type` that of
  // the member.
  ScalarFieldGenerator(const google::protobuf::FieldDescriptor* field,
                       const std::string& kind, const std::string& type,
                       const std::string& stored_type);

  std::string AccessorDeclarations() const override;
  std::string Member() const override;
  std::string Merge() const override;
  std::string ByteSize() const override;
  std::string Serialize() const override;
  std::string Parse() const override;

 protected:
  // The expression that the accessor returns.
  virtual std::string ValueToGet() const { return StoredValue(); }
  // An expression that is true if `value` is written.
  virtual std::string IsNonZero(const std::string& value) const {
    return value + " != 0";
  }
  // An expression for the encoded size of the value, without the tag.
  virtual std::string ValueSize() const = 0;

  std::string StoredValue() const {
    return variables().at("scalars") + "." + name();
  }
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_SCALAR_H_
