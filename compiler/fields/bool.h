// bool

#ifndef VANTIRO_COMPILER_FIELDS_BOOL_H_
#define VANTIRO_COMPILER_FIELDS_BOOL_H_

#include <string>

#include "compiler/fields/scalar.h"

namespace vantiro {
namespace compiler {

class BoolFieldGenerator : public ScalarFieldGenerator {
 public:
  explicit BoolFieldGenerator(const google::protobuf::FieldDescriptor* field)
      : ScalarFieldGenerator(field, "Bool", "bool", "bool") {}

  int scalar_width() const override { return 1; }
  std::string size_kind() const override { return "Bool"; }
  int max_encoded_size() const override { return tag_size() + 1; }

 protected:
  std::string ValueSize() const override { return "1"; }
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_BOOL_H_
