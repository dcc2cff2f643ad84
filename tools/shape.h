// What a type predicts of its records.

#ifndef VANTIRO_TOOLS_SHAPE_H_
#define VANTIRO_TOOLS_SHAPE_H_

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "tools/record_tree.h"
#include "tools/schema.h"

namespace vantiro {
namespace inspection {

// The kinds of field that predict different things.
enum class Kind : uint8_t {
  kNone,
  kBool,
  kEnum,
  kUnsigned32,
  kSigned32,
  kZigZag32,
  kNumber64,
  kFloat,
  kString,
  kBytes,
  kMessage,
};

struct Shape;

struct FieldShape {
  Kind kind = Kind::kNone;
  WireType wire_type = {};
  bool is_list = false;
  // How many fields of the message have lower numbers.
  uint16_t rank = 0;
  const Shape* message = nullptr;
  std::vector<int> enum_numbers;
};

struct Shape {
  // By field number.
  std::vector<FieldShape> fields;
  size_t field_count = 0;
  // What it costs to tell which of the last n fields comes next, or none.
  std::vector<double> choice_bits;

  const FieldShape* Find(uint64_t number) const {
    return number < fields.size() && fields[number].kind != Kind::kNone
               ? &fields[number]
               : nullptr;
  }
};

// The shapes of all messages that are asked for, and of those in them. Not to
// be used from several threads at once.
class Shapes {
 public:
  const Shape& Of(const Descriptor& type);

 private:
  std::unordered_map<const Descriptor*, Shape> shapes_;
};

// Whether a record of the shape can begin with a tag that has this first byte.
bool CanBegin(const Shape& shape, uint8_t byte);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_SHAPE_H_
