#include "tools/node_text.h"

#include "tools/scalar.h"

namespace vantiro {
namespace inspection {

using google::protobuf::internal::WireFormatLite;

bool HasChildren(const Node& node) {
  if (node.field == nullptr) {
    return node.wire_type == WireFormatLite::WIRETYPE_START_GROUP;
  }
  return node.field->cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE;
}

bool IsOneValue(const Node& node) {
  return node.elements.size() == 1 && node.length.size == 0;
}

bool HasElements(const Node& node) {
  return node.field != nullptr && IsScalar(*node.field) && !IsOneValue(node);
}

std::string LineName(const Node& node) {
  if (node.field == nullptr) return "field " + std::to_string(node.number);
  const bool has_index = node.field->is_repeated() && !HasElements(node);
  return node.field->name() +
         (has_index ? '[' + std::to_string(node.index) + ']' : "");
}

std::string ChildrenText(const Node& node) {
  if (node.field == nullptr) return "group";
  return node.field->message_type()->name() + ", " + ByteCount(node.value.size);
}

std::string BlockText(const Node& node) {
  return std::to_string(node.elements.size()) +
         (node.elements.size() == 1 ? " element in " : " elements in ") +
         ByteCount(node.value.size);
}

std::string ElementText(const Node& node, const Element& element) {
  if (node.field != nullptr) return ScalarText(*node.field, element.bits);
  switch (node.wire_type) {
    case WireFormatLite::WIRETYPE_FIXED32:
      return FixedHex(element.bits, 8);
    case WireFormatLite::WIRETYPE_FIXED64:
      return FixedHex(element.bits, 16);
    default:
      return std::to_string(element.bits);
  }
}

Marks BlockMarks(const Node& node) {
  Marks marks = node.marks;
  for (const Element& element : node.elements) marks.Remove(element.marks);
  return marks;
}

std::string ByteCount(size_t count) {
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

}  // namespace inspection
}  // namespace vantiro
