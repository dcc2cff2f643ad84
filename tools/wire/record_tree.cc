#include "tools/wire/record_tree.h"

#include <algorithm>

#include "tools/wire/record_reader.h"

namespace vantiro {
namespace tools {
namespace {

bool AreCanonical(const std::vector<Node>& nodes) {
  return std::all_of(nodes.begin(), nodes.end(), [](const Node& node) {
    return node.flags.IsCanonical() && AreCanonical(node.children);
  });
}

class TreeMaker : public RecordVisitor {
 public:
  explicit TreeMaker(std::vector<Node>* nodes) : open_({nodes}) {}

  void Begin(const Occurrence& occurrence) override {
    Node* const node = AddNode(occurrence);
    open_nodes_.push_back(node);
    open_.push_back(&node->children);
  }

  void End(const Occurrence& occurrence) override {
    static_cast<Occurrence&>(*open_nodes_.back()) = occurrence;
    open_nodes_.pop_back();
    open_.pop_back();
  }

  void AddElement(const Element& element) override {
    open_nodes_.back()->elements.push_back(element);
  }

  void Add(const Occurrence& occurrence, const Element* element) override {
    Node* const node = AddNode(occurrence);
    if (element != nullptr) node->elements.push_back(*element);
  }

 private:
  Node* AddNode(const Occurrence& occurrence) {
    return &open_.back()->emplace_back(Node{occurrence, {}, {}});
  }

  // The nodes that have begun, outermost first, and the lists to which they and
  // the next node belong.
  std::vector<Node*> open_nodes_;
  std::vector<std::vector<Node>*> open_;
};

}  // namespace

RecordTree ReadRecord(const Descriptor& type, std::string_view bytes) {
  RecordTree tree{&type, bytes, {}, std::nullopt};
  TreeMaker maker(&tree.nodes);
  tree.fault = RecordReader(bytes, &maker).Read(type);
  return tree;
}

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
