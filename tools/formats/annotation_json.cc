#include <string>
#include <vector>

#include "tools/formats/annotation.h"
#include "tools/formats/json.h"
#include "tools/formats/node_text.h"
#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

class JsonAnnotator {
 public:
  JsonAnnotator(const RecordTree& tree, std::ostream* out)
      : tree_(tree), out_(*out) {}

  void Write() {
    WriteNodes(tree_.nodes, "");
    if (tree_.ok()) return;
    const Fault& fault = *tree_.fault;
    Json json = {{"fault",
                  {{"offset", fault.offset},
                   {"path", fault.path},
                   {"what", fault.what}}},
                 {"offset", next_},
                 {"bytes", Bytes({next_, tree_.bytes.size() - next_})}};
    WriteLine(json);
  }

 private:
  void WriteNodes(const std::vector<Node>& nodes, const std::string& prefix) {
    for (const Node& node : nodes) WriteNode(node, prefix);
  }

  // The path is that of faults, with the number of an unknown field.
  void WriteNode(const Node& node, const std::string& prefix) {
    const std::string path =
        prefix +
        (node.field == nullptr ? std::to_string(node.number) : NodeName(node));
    Json json = {{"path", path},
                 {"number", node.number},
                 {"offset", node.tag.offset},
                 {"tag", Bytes(node.tag)}};
    if (node.length.size > 0) json["length"] = Bytes(node.length);
    next_ = node.tag.end() + node.length.size;
    if (HasChildren(node)) {
      json["size"] = node.value.size;
      if (node.end_tag.size > 0) json["end_tag"] = Bytes(node.end_tag);
    } else {
      next_ += node.value.size;
      AddValue(node, &json);
    }
    AddFlags(node.IsPackedRun() ? node.FlagsOfRun() : node.flags, &json);
    WriteLine(json);
    WriteNodes(node.children, path + '.');
    if (node.end_tag.size > 0) next_ = node.end_tag.end();
  }

  void AddValue(const Node& node, Json* json) const {
    if (!node.IsPackedRun()) {
      (*json)["bytes"] = Bytes(node.value);
      if (IsOneValue(node)) {
        (*json)["value"] = ElementText(node, node.elements[0]);
      }
      return;
    }
    Json elements = Json::array();
    for (const Element& element : node.elements) {
      Json member = {{"offset", element.offset},
                     {"bytes", Bytes(element.span())},
                     {"value", ElementText(node, element)}};
      AddFlags(element.flags, &member);
      elements.push_back(std::move(member));
    }
    (*json)["elements"] = std::move(elements);
  }

  static void AddFlags(EncodingFlags flags, Json* json) {
    if (!flags.empty()) (*json)["flags"] = flags.Names();
  }

  std::string Bytes(const Span& span) const {
    return Hex(tree_.bytes.substr(span.offset, span.size));
  }

  void WriteLine(const Json& json) { out_ << JsonText(json, -1) << '\n'; }

  const RecordTree& tree_;
  std::ostream& out_;
  // The offset of the first byte that is not written yet.
  size_t next_ = 0;
};

}  // namespace

void WriteAnnotationJson(const RecordTree& tree, std::ostream* out) {
  JsonAnnotator(tree, out).Write();
}

}  // namespace tools
}  // namespace vantiro
