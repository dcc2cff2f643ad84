// The bytes of a record, read field by field with the place of everything.

#ifndef VANTIRO_TOOLS_RECORD_TREE_H_
#define VANTIRO_TOOLS_RECORD_TREE_H_

#include <google/protobuf/wire_format_lite.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/marks.h"
#include "tools/schema.h"

namespace vantiro {
namespace inspection {

using WireType = google::protobuf::internal::WireFormatLite::WireType;

// Where something stands in the bytes.
struct Span {
  size_t offset = 0;
  size_t size = 0;

  size_t end() const { return offset + size; }
};

// A scalar: `bits` is what the field holds of it, before any encoding: 32 bits
// for a float and the 32-bit kinds, sign and all.
struct Element {
  uint64_t bits;
  size_t offset;
  uint8_t size;
  Marks marks;

  Span span() const { return {offset, size}; }
};

// One occurrence of a field: tag, length where the wire type has one, value.
// They follow each other without a gap, and so do the nodes of a message.
struct Node {
  // Null for a field that the type does not know, or knows with another wire
  // type.
  const FieldDescriptor* field = nullptr;
  int number = 0;
  WireType wire_type = {};
  Marks marks;
  // Of a list: where in the merged list the first element of this node stands.
  size_t index = 0;
  Span tag;
  Span length;
  // Of a group: all that stands between its tags.
  Span value;
  // Of a group: its end tag. Size 0 if it is missing.
  Span end_tag;
  // The value of a singular scalar, the elements of a list's block; of an
  // unknown field the bits of its varint or of its fixed 4 or 8 bytes.
  std::vector<Element> elements;
  // The fields of a sub-message or of a group.
  std::vector<Node> children;

  Span span() const {
    const size_t end = end_tag.size > 0 ? end_tag.end() : value.end();
    return {tag.offset, end - tag.offset};
  }
};

// Why, and where, the bytes are not all of a record.
struct Fault {
  size_t offset;
  // The field that was being read; empty in the root, between fields.
  std::string path;
  std::string what;

  // "offset 0x1a3 (419), in a.b[1].c: float needs 4 bytes, 2 left"
  std::string Text() const;
};

struct RecordTree {
  const Descriptor* type;
  std::string_view bytes;
  // As far as they could be read. A sub-message, block or group that holds the
  // fault is the last node, with what was read of it; a string that is not
  // UTF-8 is there too; any other field that could not be read is not.
  std::vector<Node> nodes;
  std::optional<Fault> fault;

  bool ok() const { return !fault.has_value(); }
};

// Reads `bytes`, which have to outlive the tree, as the class of `type` parses
// them from memory: the same verdict and the same values, also where the class
// misreads a packed block behind an unpacked element of the same list. Memory
// goes with the size of the input; nesting ends at 100 levels.
RecordTree ReadRecord(const Descriptor& type, std::string_view bytes);

// Whether the library would write the same bytes again: no fault, and no mark
// that stands for another form.
bool IsCanonical(const RecordTree& tree);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_TREE_H_
