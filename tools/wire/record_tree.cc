#include "tools/wire/record_tree.h"

#include <algorithm>

namespace vantiro {
namespace tools {
namespace {

bool AreCanonical(const std::vector<Node>& nodes) {
  return std::all_of(nodes.begin(), nodes.end(), [](const Node& node) {
    return node.flags.IsCanonical() && AreCanonical(node.children);
  });
}

}  // namespace

EncodingFlags Node::FlagsOfRun() const {
  EncodingFlags result = flags;
  for (const Element& element : elements) result.Remove(element.flags);
  return result;
}

bool IsCanonical(const RecordTree& tree) {
  return tree.ok() && AreCanonical(tree.nodes);
}

}  // namespace tools
}  // namespace vantiro
