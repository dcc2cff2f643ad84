// What a root carries, at every depth, as a tree.

#ifndef VANTIRO_TOOLS_REFERENCE_TREE_H_
#define VANTIRO_TOOLS_REFERENCE_TREE_H_

#include <google/protobuf/descriptor.h>

#include <vector>

namespace vantiro {
namespace reference {

struct TreeNode {
  const google::protobuf::Descriptor* message = nullptr;
  // The field that carries it; null at the root.
  const google::protobuf::FieldDescriptor* field = nullptr;
  int depth = 0;
  // The place of the parent in the list; that of the root is its own.
  int parent = 0;
  // What it carries stands further up in the list, and not here again.
  bool repeats = false;
  // How many nodes below it a cut has taken away.
  int hidden_count = 0;
};

// The nodes of a tree from the top down, each before those that it carries.
using Tree = std::vector<TreeNode>;

Tree TreeOf(const google::protobuf::Descriptor* root);

// The nodes down to `depth`; at 0 the root alone.
Tree CutAt(const Tree& tree, int depth);

// The most of `tree` that has no more than `node_count` nodes, but always the
// first two levels.
Tree CutToCount(const Tree& tree, int node_count);

// How many records deep the tree is; a root alone is one deep.
int DepthOf(const Tree& tree);
// How many types are in it, the root among them.
int TypeCountOf(const Tree& tree);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_TREE_H_
