// float

#ifndef VANTIRO_COMPILER_FIELDS_FLOAT_H_
#define VANTIRO_COMPILER_FIELDS_FLOAT_H_

#include <string>

#include "compiler/fields/scalar.h"

namespace vantiro {
namespace compiler {

// The zero test acts as a floating compare: -0.0 counts as zero, and no NaN
// does.
class FloatField : public ScalarField {
 public:
  explicit FloatField(const google::protobuf::FieldDescriptor* field)
      : ScalarField(field, "float", "float") {}

  std::string Parse() const override;
  int scalar_width() const override { return 4; }
  int max_encoded_size() const override { return tag_size() + 4; }

 protected:
  std::string IsNonZero(const std::string& value) const override {
    return "internal::IsNonZero(" + value + ")";
  }
  std::string ValueSize() const override { return "4"; }
  std::string WriteValue() const override;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_FLOAT_H_
