// double, fixed32, sfixed32, fixed64 and sfixed64

#ifndef VANTIRO_COMPILER_FIELDS_FIXED_H_
#define VANTIRO_COMPILER_FIELDS_FIXED_H_

#include <string>

#include "compiler/fields/scalar.h"

namespace vantiro {
namespace compiler {

// How the kinds of this family differ.
struct FixedKind {
  const char* type;
  int width;
};

inline constexpr FixedKind kDouble = {"double", 8};
inline constexpr FixedKind kFixed32 = {"::uint32_t", 4};
inline constexpr FixedKind kSFixed32 = {"::int32_t", 4};
inline constexpr FixedKind kFixed64 = {"::uint64_t", 8};
inline constexpr FixedKind kSFixed64 = {"::int64_t", 8};

// The zero test of a double is that of a float (FloatFieldGenerator).
class FixedFieldGenerator : public ScalarFieldGenerator {
 public:
  FixedFieldGenerator(const google::protobuf::FieldDescriptor* field,
                      const FixedKind& kind)
      : ScalarFieldGenerator(field, "Fixed", kind.type, kind.type),
        width_(kind.width) {}

  int scalar_width() const override { return width_; }
  int max_encoded_size() const override { return tag_size() + width_; }

 protected:
  std::string IsNonZero(const std::string& value) const override {
    return Internal("IsNonZero(") + value + ")";
  }
  std::string ValueSize() const override { return std::to_string(width_); }

 private:
  const int width_;
};

class DoubleFieldGenerator : public FixedFieldGenerator {
 public:
  explicit DoubleFieldGenerator(const google::protobuf::FieldDescriptor* field)
      : FixedFieldGenerator(field, kDouble) {}

  std::string AfterCopyOfScalars() const override;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_FIXED_H_
