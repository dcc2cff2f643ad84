// Pictures of trees, as SVG in HTML.

#ifndef VANTIRO_TOOLS_REFERENCE_TREE_PICTURE_H_
#define VANTIRO_TOOLS_REFERENCE_TREE_PICTURE_H_

#include <google/protobuf/descriptor.h>

#include <string>

#include "tools/reference/tree.h"

namespace vantiro {
namespace reference {

// One line for each node, indented by depth and connected to its parent, with
// links for the page of `from`.
std::string TreePicture(const Tree& tree,
                        const google::protobuf::FileDescriptor* from,
                        const std::string& title);

// A small picture without text: one column for each depth, in which every node
// is as high as all of its children.
std::string TreeOutline(const Tree& tree, const std::string& title);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_TREE_PICTURE_H_
