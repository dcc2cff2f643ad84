#include "tools/reference/tree.h"

#include <algorithm>
#include <set>

#include "tools/schema/unit_types.h"

namespace vantiro {
namespace reference {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using tools::FieldsOf;

bool CarriesMessages(const Descriptor* message) {
  const auto fields = FieldsOf(message);
  return std::any_of(fields.begin(), fields.end(),
                     [](const FieldDescriptor* field) {
                       return field->message_type() != nullptr;
                     });
}

void AddNode(TreeNode node, std::set<const Descriptor*>* seen, Tree* tree) {
  const bool is_new = seen->insert(node.message).second;
  node.repeats = !is_new && CarriesMessages(node.message);
  const size_t index = tree->size();
  tree->push_back(node);
  if (node.repeats) return;
  for (const FieldDescriptor* field : FieldsOf(node.message)) {
    if (field->message_type() == nullptr) continue;
    TreeNode child;
    child.message = field->message_type();
    child.field = field;
    child.depth = node.depth + 1;
    child.parent = index;
    AddNode(child, seen, tree);
  }
}

}  // namespace

Tree TreeOf(const Descriptor* root) {
  TreeNode node;
  node.message = root;
  Tree tree;
  std::set<const Descriptor*> seen;
  AddNode(node, &seen, &tree);
  return tree;
}

Tree CutAt(const Tree& tree, int depth) {
  Tree cut;
  // By node: its index in the result, or that of its nearest ancestor there.
  std::vector<size_t> indexes;
  for (const TreeNode& node : tree) {
    const size_t parent = indexes.empty() ? 0 : indexes[node.parent];
    if (node.depth > depth) {
      ++cut[parent].hidden_count;
      indexes.push_back(parent);
      continue;
    }
    indexes.push_back(cut.size());
    cut.push_back(node);
    cut.back().parent = parent;
  }
  return cut;
}

Tree CutToCount(const Tree& tree, size_t node_count) {
  Tree best = CutAt(tree, 1);
  for (int depth = 2; depth < DepthOf(tree); ++depth) {
    Tree deeper = CutAt(tree, depth);
    if (deeper.size() > node_count) break;
    best = std::move(deeper);
  }
  return best;
}

int DepthOf(const Tree& tree) {
  int depth = 0;
  for (const TreeNode& node : tree) depth = std::max(depth, node.depth);
  return depth + 1;
}

size_t TypeCountOf(const Tree& tree) {
  std::set<const Descriptor*> types;
  for (const TreeNode& node : tree) types.insert(node.message);
  return types.size();
}

}  // namespace reference
}  // namespace vantiro
