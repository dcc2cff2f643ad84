// How the nodes of a record are told in lines beside their bytes.

#ifndef VANTIRO_TOOLS_NODE_TEXT_H_
#define VANTIRO_TOOLS_NODE_TEXT_H_

#include <string>

#include "tools/record_tree.h"

namespace vantiro {
namespace inspection {

// A sub-message or a group: its line is followed by those of its children.
bool HasChildren(const Node& node);
// A list's block: its line is followed by those of its elements.
bool HasElements(const Node& node);
// A scalar, an unpacked element, or a varint or fixed value that is unknown.
bool IsOneValue(const Node& node);

// "field_3", "region_list[2]"; "field 7" for one that the type does not know.
std::string LineName(const Node& node);
// What stands behind the name of a node with children: "RoiDim, 12 bytes".
std::string ChildrenText(const Node& node);
// The same for one with elements: "3 elements in 12 bytes".
std::string BlockText(const Node& node);
std::string ElementText(const Node& node, const Element& element);

// The marks of a block but for those that stand beside its elements.
Marks BlockMarks(const Node& node);

// "1 byte", "12 bytes".
std::string ByteCount(size_t count);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_NODE_TEXT_H_
