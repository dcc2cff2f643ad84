// A record as the tree of its fields, each with its place in the bytes.

#ifndef VANTIRO_TOOLS_WIRE_RECORD_TREE_H_
#define VANTIRO_TOOLS_WIRE_RECORD_TREE_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

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
// They are contiguous, and so are the nodes of a message.
struct Node {
  // Null for an unknown field: one that the type does not declare, or declares
  // with another wire type.
  const FieldDescriptor* field = nullptr;
  int number = 0;
  WireType wire_type = {};
  EncodingFlags flags;
  // False for a sub-message that was not read to its end.
  bool is_complete = true;
  // In a repeated field: the index of the node's first element.
  size_t index = 0;
  Span tag;
  Span length;
  // In a group: all bytes between its tags.
  Span value;
  // The end-group tag. Size 0 in other nodes, or if it is missing.
  Span end_tag;
  // The value of a singular scalar, the elements of a packed run, or the bits
  // of an unknown varint, fixed32 or fixed64.
  std::vector<Element> elements;
  // The fields of a sub-message or of a group.
  std::vector<Node> children;

  // A packed run, also one that is read as no element.
  bool IsPackedRun() const {
    return field != nullptr && IsScalar(*field) && length.size > 0;
  }
  // The flags without those of the elements.
  EncodingFlags FlagsOfRun() const;

  // Also where the length or the value could not be read.
  Span span() const {
    const size_t end =
        std::max({tag.end(), length.end(), value.end(), end_tag.end()});
    return {tag.offset, end - tag.offset};
  }
};

struct RecordTree {
  const Descriptor* type;
  std::string_view bytes;
  // What could be read. A sub-message, packed run or group that contains the
  // fault is the last node, with the part that could be read; a string that is
  // not UTF-8 is there too; any other field that could not be read is not.
  std::vector<Node> nodes;
  std::optional<Fault> fault;

  bool ok() const { return !fault.has_value(); }
};

// Reads `bytes`, which have to outlive the tree, as the class of `type` parses
// them from memory: with the same result and the same values, also where the
// class reads a packed run after an unpacked element as one element. The memory
// needed is proportional to the size of the input; nesting is limited to 100
// levels.
RecordTree ReadRecord(const Descriptor& type, std::string_view bytes);

// Whether the library would write the same bytes again: no fault, and only
// canonical flags.
bool IsCanonical(const RecordTree& tree);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_RECORD_TREE_H_
