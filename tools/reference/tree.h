// The messages in a root, at all depths, as a tree.

#ifndef VANTIRO_TOOLS_REFERENCE_TREE_H_
#define VANTIRO_TOOLS_REFERENCE_TREE_H_

#include <google/protobuf/descriptor.h>

#include <cstddef>
#include <vector>

namespace vantiro {
namespace reference {

struct TreeNode {
  const google::protobuf::Descriptor* message = nullptr;
  // The field whose type it is; null at the root.
  const google::protobuf::FieldDescriptor* field = nullptr;
  int depth = 0;
  // The index of the parent; the root is its own parent.
  size_t parent = 0;
  // Its fields are shown at an earlier node of the same message.
  bool repeats = false;
  // How many nodes below it are left out.
  int hidden_count = 0;
};

// The nodes of a tree, each before its children.
using Tree = std::vector<TreeNode>;

Tree TreeOf(const google::protobuf::Descriptor* root);

// The nodes down to `depth`; at 0 the root alone.
Tree CutAt(const Tree& tree, int depth);

// As many levels of `tree` as have no more than `node_count` nodes, but at
// least two.
Tree CutToCount(const Tree& tree, size_t node_count);

// The number of levels; 1 for a root alone.
int DepthOf(const Tree& tree);
// The number of different messages, the root included.
size_t TypeCountOf(const Tree& tree);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_TREE_H_
