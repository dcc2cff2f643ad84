#include "tools/formats/annotation.h"

#include <algorithm>
#include <string>
#include <vector>

#include "tools/formats/node_text.h"
#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

// How many bytes of a string, or of those that could not be read, are in a
// line.
constexpr size_t kBytesInLine = 12;
constexpr size_t kHexWidth = 3 * kBytesInLine + 2;

class Annotator {
 public:
  Annotator(const RecordTree& tree, const Style& style, std::ostream* out)
      : tree_(tree), style_(style), out_(*out) {}

  void Write() {
    WriteNodes(tree_.nodes, "");
    if (tree_.ok()) return;
    WriteLine({}, style_.Warning("not readable: " + tree_.fault->Text()), {});
    WriteBytes({next_, tree_.bytes.size() - next_}, "  ", false);
  }

 private:
  void WriteNodes(const std::vector<Node>& nodes, const std::string& indent) {
    for (const Node& node : nodes) WriteNode(node, indent);
  }

  void WriteNode(const Node& node, const std::string& indent) {
    const std::string name = indent + StyledName(node) + ": ";
    if (IsOneValue(node)) {
      WriteLine({node.tag, node.length, node.value},
                name + ElementText(node, node.elements[0]), node.flags);
    } else if (node.IsPackedRun()) {
      WriteLine({node.tag, node.length}, name + PackedRunText(node),
                node.FlagsOfRun());
      WriteElements(node, indent + "  ");
    } else if (HasChildren(node)) {
      WriteLine({node.tag, node.length}, name + ChildrenText(node), node.flags);
      WriteNodes(node.children, indent + "  ");
      if (node.end_tag.size > 0) {
        WriteLine({node.end_tag}, indent + "end of group", {});
      }
    } else {
      WriteLine({node.tag, node.length}, name + ByteCount(node.value.size),
                node.flags);
      WriteBytes(node.value, indent + "  ", true);
    }
  }

  std::string StyledName(const Node& node) const {
    const std::string name = NodeName(node);
    return node.field == nullptr ? style_.Warning(name) : style_.Name(name);
  }

  void WriteElements(const Node& node, const std::string& indent) {
    for (size_t i = 0; i < node.elements.size(); ++i) {
      const Element& element = node.elements[i];
      WriteLine({element.span()},
                indent + '[' + std::to_string(node.index + i) +
                    "]: " + ElementText(node, element),
                element.flags);
    }
  }

  void WriteBytes(const Span& span, const std::string& indent, bool with_text) {
    for (size_t offset = span.offset; offset < span.end();
         offset += kBytesInLine) {
      const Span line = {offset, std::min(kBytesInLine, span.end() - offset)};
      const std::string_view bytes = tree_.bytes.substr(line.offset, line.size);
      WriteLine({line}, with_text ? indent + '|' + Printable(bytes) + '|' : "",
                {});
    }
  }

  // Only ASCII is shown, since a line may end within a character of UTF-8.
  static std::string Printable(std::string_view bytes) {
    std::string text(bytes);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; },
        '.');
    return text;
  }

  void WriteLine(const std::vector<Span>& spans, const std::string& text,
                 EncodingFlags flags) {
    std::string hex;
    size_t offset = next_;
    for (const Span& span : spans) {
      if (span.size == 0) continue;
      if (!hex.empty()) hex += "  ";
      hex += SpacedHex(tree_.bytes.substr(span.offset, span.size));
      next_ = span.end();
    }
    std::string line = style_.Note(FixedHex(offset, 8).substr(2) + "  ") + hex;
    if (!text.empty()) {
      line += std::string(kHexWidth - std::min(kHexWidth - 2, hex.size()), ' ');
    }
    line += text;
    std::string names;
    for (const std::string& name : flags.Names()) {
      names += (names.empty() ? "<- " : ", ") + name;
    }
    if (!names.empty()) line += "  " + style_.Warning(names);
    out_ << line << '\n';
  }

  const RecordTree& tree_;
  const Style& style_;
  std::ostream& out_;
  // The offset of the first byte that is not written yet.
  size_t next_ = 0;
};

}  // namespace

void WriteAnnotation(const RecordTree& tree, const Style& style,
                     std::ostream* out) {
  Annotator(tree, style, out).Write();
}

}  // namespace tools
}  // namespace vantiro
