#include "tools/record_tree.h"

#include <algorithm>
#include <cstdio>

namespace vantiro {
namespace inspection {
namespace {

bool AreCanonical(const std::vector<Node>& nodes) {
  return std::all_of(nodes.begin(), nodes.end(), [](const Node& node) {
    return node.marks.IsCanonical() && AreCanonical(node.children);
  });
}

}  // namespace

std::string Fault::Text() const {
  char place[64];
  std::snprintf(place, sizeof(place), "offset 0x%zx (%zu)", offset, offset);
  return place + (path.empty() ? "" : ", in " + path) + ": " + what;
}

bool IsCanonical(const RecordTree& tree) {
  return tree.ok() && AreCanonical(tree.nodes);
}

}  // namespace inspection
}  // namespace vantiro
