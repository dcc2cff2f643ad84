// A record as the tree of its fields, each with its place in the bytes.

#ifndef VANTIRO_TOOLS_WIRE_RECORD_TREE_H_
#define VANTIRO_TOOLS_WIRE_RECORD_TREE_H_

#include <optional>
#include <string_view>
#include <vector>

#include "tools/schema/schema.h"
#include "tools/wire/fault.h"
#include "tools/wire/occurrence.h"

namespace vantiro {
namespace tools {

struct Node : Occurrence {
  // The value of a singular scalar, the elements of a packed run, or the bits
  // of an unknown varint, fixed32 or fixed64.
  std::vector<Element> elements;
  // The fields of a sub-message or of a group.
  std::vector<Node> children;

  // The flags without those of the elements.
  EncodingFlags FlagsOfRun() const;
};

struct RecordTree {
  const Descriptor* type;
  std::string_view bytes;
  // What could be read, as RecordVisitor says.
  std::vector<Node> nodes;
  std::optional<Fault> fault;

  bool ok() const { return !fault.has_value(); }
};

// Reads `bytes`, which have to outlive the tree, as RecordReader does. The tree
// takes many times the memory of the bytes.
RecordTree ReadRecord(const Descriptor& type, std::string_view bytes);

// Whether the library would write the same bytes again: no fault, and only
// canonical flags.
bool IsCanonical(const RecordTree& tree);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_RECORD_TREE_H_
