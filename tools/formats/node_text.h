// The text next to the bytes of a node.

#ifndef VANTIRO_TOOLS_FORMATS_NODE_TEXT_H_
#define VANTIRO_TOOLS_FORMATS_NODE_TEXT_H_

#include <string>

#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {

// A sub-message or a group.
bool HasChildren(const Node& node);
// A scalar, an unpacked element, or an unknown varint, fixed32 or fixed64.
bool IsOneValue(const Node& node);

// "field_3", "region_list[2]"; "field 7" for an unknown field.
std::string NodeName(const Node& node);
// The text after the name of a node with children: "RoiDim, 12 bytes".
std::string ChildrenText(const Node& node);
// The same for a packed run: "3 elements in 12 bytes".
std::string PackedRunText(const Node& node);
// The value of one element.
std::string ElementText(const Node& node, const Element& element);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_NODE_TEXT_H_
