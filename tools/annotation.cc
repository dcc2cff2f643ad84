#include "tools/annotation.h"

#include <algorithm>
#include <string>
#include <vector>

#include "tools/node_text.h"
#include "tools/scalar.h"

namespace vantiro {
namespace inspection {
namespace {

// How many bytes of a text or of bytes not read stand in a line.
constexpr size_t kBytesInLine = 12;
constexpr size_t kHexWidth = 3 * kBytesInLine + 2;

class Annotator {
 public:
  Annotator(const RecordTree& tree, const Style& style, std::ostream* out)
      : tree_(tree), style_(style), out_(*out) {}

  void Write() {
    WriteNodes(tree_.nodes, "");
    if (tree_.ok()) return;
    WriteLine({}, style_.Warning("not read: " + tree_.fault->Text()), {});
    WriteRaw({next_, tree_.bytes.size() - next_}, "  ", false);
  }

 private:
  void WriteNodes(const std::vector<Node>& nodes, const std::string& indent) {
    for (const Node& node : nodes) WriteNode(node, indent);
  }

  void WriteNode(const Node& node, const std::string& indent) {
    const std::string name = indent + StyledName(node) + ": ";
    if (IsOneValue(node)) {
      WriteLine({node.tag, node.length, node.value},
                name + ElementText(node, node.elements[0]), node.marks);
    } else if (HasElements(node)) {
      WriteLine({node.tag, node.length}, name + BlockText(node),
                BlockMarks(node));
      WriteElements(node, indent + "  ");
    } else if (HasChildren(node)) {
      WriteLine({node.tag, node.length}, name + ChildrenText(node), node.marks);
      WriteNodes(node.children, indent + "  ");
      if (node.end_tag.size > 0) {
        WriteLine({node.end_tag}, indent + "end of group", {});
      }
    } else {
      WriteLine({node.tag, node.length}, name + ByteCount(node.value.size),
                node.marks);
      WriteRaw(node.value, indent + "  ", true);
    }
  }

  std::string StyledName(const Node& node) const {
    const std::string name = LineName(node);
    return node.field == nullptr ? style_.Warning(name) : style_.Name(name);
  }

  void WriteElements(const Node& node, const std::string& indent) {
    for (size_t i = 0; i < node.elements.size(); ++i) {
      const Element& element = node.elements[i];
      WriteLine({element.span()},
                indent + '[' + std::to_string(node.index + i) +
                    "]: " + ElementText(node, element),
                element.marks);
    }
  }

  void WriteRaw(const Span& span, const std::string& indent, bool with_text) {
    for (size_t offset = span.offset; offset < span.end();
         offset += kBytesInLine) {
      const Span line = {offset, std::min(kBytesInLine, span.end() - offset)};
      const std::string_view bytes = tree_.bytes.substr(line.offset, line.size);
      WriteLine({line}, with_text ? indent + '|' + Printable(bytes) + '|' : "",
                {});
    }
  }

  // A line may end within a character of UTF-8, so only ASCII is shown.
  static std::string Printable(std::string_view bytes) {
    std::string text(bytes);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; },
        '.');
    return text;
  }

  void WriteLine(const std::vector<Span>& spans, const std::string& text,
                 Marks marks) {
    std::string hex;
    size_t offset = next_;
    for (const Span& span : spans) {
      if (span.size == 0) continue;
      if (!hex.empty()) hex += "  ";
      hex += Spaced(tree_.bytes.substr(span.offset, span.size));
      next_ = span.end();
    }
    std::string line = style_.Note(FixedHex(offset, 8).substr(2) + "  ") + hex;
    if (!text.empty()) {
      line += std::string(kHexWidth - std::min(kHexWidth - 2, hex.size()), ' ');
    }
    line += text;
    std::string names;
    for (const std::string& name : marks.Names()) {
      names += (names.empty() ? "<- " : ", ") + name;
    }
    if (!names.empty()) line += "  " + style_.Warning(names);
    out_ << line << '\n';
  }

  static std::string Spaced(std::string_view bytes) {
    std::string hex;
    for (const char c : bytes) {
      if (!hex.empty()) hex += ' ';
      hex += Hex({&c, 1});
    }
    return hex;
  }

  const RecordTree& tree_;
  const Style& style_;
  std::ostream& out_;
  // The first byte that was not written yet.
  size_t next_ = 0;
};

}  // namespace

void WriteAnnotation(const RecordTree& tree, const Style& style,
                     std::ostream* out) {
  Annotator(tree, style, out).Write();
}

}  // namespace inspection
}  // namespace vantiro
