// float

#ifndef VANTIRO_COMPILER_FIELDS_FLOAT_H_
#define VANTIRO_COMPILER_FIELDS_FLOAT_H_

#include <string>

#include "compiler/fields/scalar.h"

namespace vantiro {
namespace compiler {

// The zero test gives what a floating-point comparison gives: -0.0 is zero, and
// no NaN is.
class FloatFieldGenerator : public ScalarFieldGenerator {
 public:
  explicit FloatFieldGenerator(const google::protobuf::FieldDescriptor* field)
      : ScalarFieldGenerator(field, "Float", "float", "float") {}

  int scalar_width() const override { return 4; }
  std::string size_kind() const override { return "Float"; }
  int max_encoded_size() const override { return tag_size() + 4; }

 protected:
  std::string IsNonZero(const std::string& value) const override {
    return Internal("IsNonZero(") + value + ")";
  }
  std::string ValueSize() const override { return "4"; }
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_FLOAT_H_
