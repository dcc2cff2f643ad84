// What is known of a type's records, in a form that is quick to compare bytes
// with.

#ifndef VANTIRO_TOOLS_IDENTIFY_STRUCTURE_H_
#define VANTIRO_TOOLS_IDENTIFY_STRUCTURE_H_

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "tools/schema/schema.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {

// Field types that are scored in the same way share a kind.
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

struct MessageStructure;

struct FieldStructure {
  Kind kind = Kind::kNone;
  WireType wire_type = {};
  bool is_repeated = false;
  // How many fields of the message have a lower number.
  uint16_t rank = 0;
  // Of a sub-message.
  const MessageStructure* message = nullptr;
  std::vector<int> enum_numbers;
};

struct MessageStructure {
  // By field number.
  std::vector<FieldStructure> fields;
  size_t field_count = 0;
  // By n: the bits that tell which of n fields comes next, if any.
  std::vector<double> choice_bits;

  const FieldStructure* Find(uint64_t number) const {
    return number < fields.size() && fields[number].kind != Kind::kNone
               ? &fields[number]
               : nullptr;
  }
};

// The structures of the types that were asked for, and of their sub-messages.
// Not thread-safe.
class StructureCache {
 public:
  const MessageStructure& Get(const Descriptor& type);

 private:
  std::unordered_map<const Descriptor*, MessageStructure> structures_;
};

// Whether `byte` is the first byte of the tag of a field.
bool CanBegin(const MessageStructure& structure, uint8_t byte);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IDENTIFY_STRUCTURE_H_
