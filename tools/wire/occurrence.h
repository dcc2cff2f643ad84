// Where and how a field occurs in the bytes of a record.

#ifndef VANTIRO_TOOLS_WIRE_OCCURRENCE_H_
#define VANTIRO_TOOLS_WIRE_OCCURRENCE_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "tools/schema/schema.h"
#include "tools/wire/encoding_flags.h"
#include "tools/wire/fault.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {

// A scalar: one value, or one element of a packed run.
struct Element {
  // As scalar.h describes them.
  uint64_t bits = 0;
  size_t offset = 0;
  uint8_t size = 0;
  EncodingFlags flags;

  Span span() const { return {offset, size}; }
};

// One occurrence of a field: tag, length if the wire type has one, and value.
// They are contiguous, and so are the occurrences in a message.
struct Occurrence {
  // Null for an unknown field: one that the type does not declare, or declares
  // with another wire type.
  const FieldDescriptor* field = nullptr;
  int number = 0;
  WireType wire_type = {};
  EncodingFlags flags;
  // False for a sub-message that was not read to its end.
  bool is_complete = true;
  // In a repeated field: the index of the first element.
  size_t index = 0;
  Span tag;
  Span length;
  // In a group: all bytes between its tags.
  Span value;
  // The end-group tag. Size 0 in other fields, or if it is missing.
  Span end_tag;

  // A packed run, also one that is read as no element.
  bool IsPackedRun() const {
    return field != nullptr && IsScalar(*field) && length.size > 0;
  }

  // Also where the length or the value could not be read.
  Span span() const {
    const size_t end =
        std::max({tag.end(), length.end(), value.end(), end_tag.end()});
    return {tag.offset, end - tag.offset};
  }
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_OCCURRENCE_H_
