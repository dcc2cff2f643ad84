// Shows a record's bytes beside what they stand for.

#ifndef VANTIRO_EXAMPLES_HEX_VIEW_H_
#define VANTIRO_EXAMPLES_HEX_VIEW_H_

#include <map>
#include <string>

namespace vantiro::examples {

struct FieldShape;

// The bytes of a record tell field numbers and wire types only. What the fields
// are called, and which of them are messages, the reader has to know.
using MessageShape = std::map<int, FieldShape>;

struct FieldShape {
  std::string name;
  // The fields of a message, null for any other kind.
  const MessageShape* message = nullptr;
};

// A table with one line per field: its bytes, tag, number, wire type and value.
std::string HexView(const std::string& record, const MessageShape& shape);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_HEX_VIEW_H_
