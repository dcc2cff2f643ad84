#include "tools/formats/node_text.h"

#include "tools/record/value_text.h"
#include "tools/wire/hex.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {

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

std::string NodeName(const Node& node) {
  if (node.field == nullptr) return "field " + std::to_string(node.number);
  const bool has_index = node.field->is_repeated() && !node.IsPackedRun();
  return node.field->name() +
         (has_index ? '[' + std::to_string(node.index) + ']' : "");
}

std::string ChildrenText(const Node& node) {
  if (node.field == nullptr) return "group";
  return node.field->message_type()->name() + ", " + ByteCount(node.value.size);
}

std::string PackedRunText(const Node& node) {
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

}  // namespace tools
}  // namespace vantiro
