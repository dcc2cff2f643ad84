// Repeated double, fixed32, sfixed32, fixed64 and sfixed64

#ifndef VANTIRO_COMPILER_FIELDS_REPEATED_FIXED_H_
#define VANTIRO_COMPILER_FIELDS_REPEATED_FIXED_H_

#include <string>

#include "compiler/fields/fixed.h"
#include "compiler/fields/repeated_scalar.h"

namespace vantiro {
namespace compiler {

// Elements are never tested for zero: zeros are written too, also -0.0.
class RepeatedFixedFieldGenerator : public RepeatedScalarFieldGenerator {
 public:
  RepeatedFixedFieldGenerator(const google::protobuf::FieldDescriptor* field,
                              const FixedKind& kind)
      : RepeatedScalarFieldGenerator(field, kind.type, kind.type) {}

 protected:
  std::string PayloadSize() const override;
  std::string WriteFunction() const override;
  std::string ReadFunction() const override;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_REPEATED_FIXED_H_
