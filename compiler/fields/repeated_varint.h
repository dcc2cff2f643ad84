// Repeated bool, uint32, int32, sint32, uint64, int64, sint64 and enum

#ifndef VANTIRO_COMPILER_FIELDS_REPEATED_VARINT_H_
#define VANTIRO_COMPILER_FIELDS_REPEATED_VARINT_H_

#include <string>

#include "compiler/fields/repeated_scalar.h"
#include "compiler/fields/varint.h"

namespace vantiro {
namespace compiler {

class RepeatedVarintFieldGenerator : public RepeatedScalarFieldGenerator {
 public:
  RepeatedVarintFieldGenerator(const google::protobuf::FieldDescriptor* field,
                               const VarintKind& kind)
      : RepeatedScalarFieldGenerator(field, VarintAccessorType(field, kind),
                                     kind.stored_type),
        kind_(kind) {}

 protected:
  std::string ElementToGet() const override;
  std::string PayloadSize() const override;
  std::string WriteFunction() const override;
  std::string ReadFunction() const override;

 private:
  const VarintKind kind_;
};

// Every element takes one byte.
class RepeatedBoolFieldGenerator : public RepeatedVarintFieldGenerator {
 public:
  explicit RepeatedBoolFieldGenerator(
      const google::protobuf::FieldDescriptor* field)
      : RepeatedVarintFieldGenerator(field, {"Bool", "bool", 1, 1, ""}) {}

 protected:
  std::string PayloadSize() const override;
  std::string WriteFunction() const override;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_REPEATED_VARINT_H_
