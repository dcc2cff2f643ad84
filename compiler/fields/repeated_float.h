// repeated float

#ifndef VANTIRO_COMPILER_FIELDS_REPEATED_FLOAT_H_
#define VANTIRO_COMPILER_FIELDS_REPEATED_FLOAT_H_

#include <string>

#include "compiler/fields/repeated_scalar.h"

namespace vantiro {
namespace compiler {

// Elements are never tested: a list keeps its zeros, -0.0 among them.
class RepeatedFloatField : public RepeatedScalarField {
 public:
  explicit RepeatedFloatField(const google::protobuf::FieldDescriptor* field)
      : RepeatedScalarField(field, "float", "float") {}

 protected:
  std::string PayloadSize() const override;
  std::string WriteFunction() const override;
  std::string ReadPackedFunction() const override;
  std::string ReadUnpackedFunction() const override;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_REPEATED_FLOAT_H_
