// repeated float

#ifndef VANTIRO_COMPILER_FIELDS_REPEATED_FLOAT_H_
#define VANTIRO_COMPILER_FIELDS_REPEATED_FLOAT_H_

#include <string>

#include "compiler/fields/repeated_scalar.h"

namespace vantiro {
namespace compiler {

// Elements are never tested for zero: zeros are written too, also -0.0.
class RepeatedFloatFieldGenerator : public RepeatedScalarFieldGenerator {
 public:
  explicit RepeatedFloatFieldGenerator(
      const google::protobuf::FieldDescriptor* field)
      : RepeatedScalarFieldGenerator(field, "float", "float") {}

 protected:
  std::string PayloadSize() const override;
  std::string WriteFunction() const override;
  std::string ReadFunction() const override;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_REPEATED_FLOAT_H_
