// uint32, int32, sint32, uint64, int64, sint64 and enum

#ifndef VANTIRO_COMPILER_FIELDS_VARINT_H_
#define VANTIRO_COMPILER_FIELDS_VARINT_H_

#include <string>

#include "compiler/fields/scalar.h"

namespace vantiro {
namespace compiler {

// How the kinds of this family differ.
struct VarintKind {
  // Its name in lib/internal and in the runtime's size functions.
  const char* name;
  const char* stored_type;
  int width;
  int max_value_size;
  // FieldGenerator::size_kind.
  const char* size_kind;
};

// A negative int32 or enum is extended to 64 bits and takes ten bytes.
inline constexpr VarintKind kUInt32 = {"UInt32", "::uint32_t", 4, 5, "UInt32"};
inline constexpr VarintKind kInt32 = {"Int32", "::int32_t", 4, 10, "Int32"};
inline constexpr VarintKind kSInt32 = {"SInt32", "::int32_t", 4, 5, "SInt32"};
inline constexpr VarintKind kUInt64 = {"UInt64", "::uint64_t", 8, 10, ""};
inline constexpr VarintKind kInt64 = {"Int64", "::int64_t", 8, 10, ""};
inline constexpr VarintKind kSInt64 = {"SInt64", "::int64_t", 8, 10, ""};
inline constexpr VarintKind kEnum = {"Enum", "int", 4, 10, "Int32"};

// The C++ type of the accessors: the enum itself, or the stored type.
std::string VarintAccessorType(const google::protobuf::FieldDescriptor* field,
                               const VarintKind& kind);

class VarintFieldGenerator : public ScalarFieldGenerator {
 public:
  VarintFieldGenerator(const google::protobuf::FieldDescriptor* field,
                       const VarintKind& kind)
      : ScalarFieldGenerator(field, kind.name, VarintAccessorType(field, kind),
                             kind.stored_type),
        kind_(kind) {}

  int scalar_width() const override { return kind_.width; }
  std::string size_kind() const override { return kind_.size_kind; }
  int max_encoded_size() const override {
    return tag_size() + kind_.max_value_size;
  }

 protected:
  std::string ValueToGet() const override;
  std::string ValueSize() const override;

 private:
  const VarintKind kind_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_VARINT_H_
