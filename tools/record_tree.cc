#include "tools/record_tree.h"

#include <algorithm>
#include <sstream>

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
  std::ostringstream text;
  text << "offset 0x" << std::hex << offset << std::dec << " (" << offset
       << ')';
  if (!path.empty()) text << ", in " << path;
  text << ": " << what;
  return text.str();
}

bool IsCanonical(const RecordTree& tree) {
  return tree.ok() && AreCanonical(tree.nodes);
}

}  // namespace inspection
}  // namespace vantiro
