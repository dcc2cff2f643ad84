#include "tools/page/annotation_page.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

#include "tools/formats/node_text.h"
#include "tools/page/html.h"
#include "tools/page/page_head.h"
#include "tools/record/value_text.h"
#include "tools/wire/hex.h"

extern "C" const char vantiro_annotation_style_begin[];
extern "C" const char vantiro_annotation_style_end[];
extern "C" const char vantiro_annotation_script_begin[];
extern "C" const char vantiro_annotation_script_end[];

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kBytesInLine = 16;

// The bytes of one part of a field: tag, length, value ...
struct Piece {
  Span span;
  const char* part;
  size_t line;
};

std::string Offset(size_t offset) {
  char text[24];
  static_cast<void>(std::snprintf(text, sizeof(text), "%08zx", offset));
  return text;
}

std::string StringText(const Node& node, std::string_view bytes) {
  const bool is_string = node.field != nullptr &&
                         node.field->type() == FieldDescriptor::TYPE_STRING;
  return is_string ? Quoted(bytes) : Hex(bytes);
}

class PageWriter {
 public:
  PageWriter(const RecordTree& tree, std::ostream* out)
      : tree_(tree), out_(*out) {}

  void WriteFields() {
    out_ << "<ul>\n";
    for (const Node& node : tree_.nodes) WriteNode(node);
    WriteUnread();
    out_ << "</ul>\n";
  }

  // Writes the bytes, with links to the fields. To be called after WriteFields.
  void WriteBytes() {
    size_t piece = 0;
    for (size_t begin = 0; begin < tree_.bytes.size(); begin += kBytesInLine) {
      const size_t end = std::min(begin + kBytesInLine, tree_.bytes.size());
      out_ << "<div><span class=\"at\">" << Offset(begin) << "</span>";
      while (piece < pieces_.size() && pieces_[piece].span.offset < end) {
        WritePiece(pieces_[piece], begin, end);
        if (pieces_[piece].span.end() > end) break;
        ++piece;
      }
      out_ << "</div>\n";
    }
  }

 private:
  void Add(const Span& span, const char* part) {
    if (span.size == 0) return;
    pieces_.push_back({span, part, line_});
    next_ = span.end();
  }

  void WriteNode(const Node& node) {
    ++line_;
    Add(node.tag, node.field == nullptr ? "unknown" : "tag");
    Add(node.length, "length");
    if (HasChildren(node)) {
      WriteParent(node, ChildrenText(node), node.flags);
    } else if (node.IsPackedRun()) {
      WriteParent(node, PackedRunText(node), node.FlagsOfRun());
    } else {
      Add(node.value, node.field == nullptr ? "unknown" : "value");
      const bool is_one = IsOneValue(node);
      WriteLeaf(node.span(), NodeName(node),
                is_one ? ElementText(node, node.elements[0])
                       : StringText(node, tree_.bytes.substr(node.value.offset,
                                                             node.value.size)),
                node.flags);
    }
  }

  void WriteParent(const Node& node, const std::string& text,
                   EncodingFlags flags) {
    const size_t line = line_;
    out_ << "<li><details open><summary" << Attributes(node.span()) << ">";
    WriteText(node.span(), NodeName(node), text, flags);
    out_ << "</summary>\n<ul>\n";
    for (const Node& child : node.children) WriteNode(child);
    if (node.IsPackedRun()) WriteElements(node);
    out_ << "</ul></details></li>\n";
    if (node.end_tag.size > 0) {
      pieces_.push_back({node.end_tag, "unknown", line});
      next_ = node.end_tag.end();
    }
  }

  void WriteElements(const Node& node) {
    for (size_t i = 0; i < node.elements.size(); ++i) {
      const Element& element = node.elements[i];
      ++line_;
      Add(element.span(), "value");
      WriteLeaf(element.span(), '[' + std::to_string(node.index + i) + ']',
                ElementText(node, element), element.flags);
    }
  }

  void WriteUnread() {
    if (tree_.ok()) return;
    ++line_;
    const Span rest = {next_, tree_.bytes.size() - next_};
    Add(rest, "unread");
    out_ << "<li class=\"fault\"><a" << Attributes(rest);
    // If no byte is left there is nothing to link to.
    if (rest.size == 0) {
      out_ << " tabindex=\"0\">";
    } else {
      out_ << " href=\"#b" << line_ << "\">";
    }
    WriteText(rest, "not readable", tree_.fault->Text(), {});
    out_ << "</a></li>\n";
  }

  void WriteLeaf(const Span& span, const std::string& name,
                 const std::string& text, EncodingFlags flags) {
    out_ << "<li><a" << Attributes(span) << " href=\"#b" << line_ << "\">";
    WriteText(span, name, text, flags);
    out_ << "</a></li>\n";
  }

  std::string Attributes(const Span& span) const {
    return R"( class="line" id="f)" + std::to_string(line_) +
           R"(" data-begin=")" + std::to_string(span.offset) +
           R"(" data-end=")" + std::to_string(span.end()) + '"';
  }

  void WriteText(const Span& span, const std::string& name,
                 const std::string& text, EncodingFlags flags) {
    out_ << "<span class=\"at\">" << Offset(span.offset)
         << "</span> <span class=\"name\">" << Escape(name)
         << "</span> <span class=\"text\">" << Escape(text) << "</span>";
    for (const std::string& name_of_flag : flags.Names()) {
      out_ << " <em>" << Escape(name_of_flag) << "</em>";
    }
  }

  // Writes the bytes of `piece` that are in the line [begin, end). The first
  // piece of a field has the field's anchor.
  void WritePiece(const Piece& piece, size_t begin, size_t end) {
    const size_t from = std::max(begin, piece.span.offset);
    const size_t to = std::min(end, piece.span.end());
    const bool is_first = from == piece.span.offset && piece.line > anchored_;
    out_ << "<a class=\"" << piece.part << "\" href=\"#f" << piece.line << "\"";
    if (is_first) {
      out_ << " id=\"b" << piece.line << "\"";
      anchored_ = piece.line;
    } else {
      out_ << " tabindex=\"-1\"";
    }
    out_ << " data-begin=\"" << from << "\" data-end=\"" << to << "\">";
    for (size_t at = from; at < to; ++at) {
      out_ << (at == from ? "" : " ") << Hex(tree_.bytes.substr(at, 1));
    }
    out_ << "</a>";
  }

  const RecordTree& tree_;
  std::ostream& out_;
  std::vector<Piece> pieces_;
  // The number of the line of the tree that is being written.
  size_t line_ = 0;
  // The last line with an anchor in the bytes. An end-group tag, which comes
  // after the lines of the group's fields, gets no second anchor.
  size_t anchored_ = 0;
  // The offset of the first byte that belongs to no line yet.
  size_t next_ = 0;
};

void WriteHead(const RecordTree& tree, const std::string& title,
               std::ostream& out) {
  WritePageHead(
      title,
      Between(vantiro_annotation_style_begin, vantiro_annotation_style_end),
      &out);
  out << "<header>\n<div><h1>" << Escape(title) << "</h1>\n<p>"
      << tree.type->full_name() << ", " << ByteCount(tree.bytes.size())
      << "</p>";
  if (!tree.ok()) {
    out << "\n<p class=\"fault\">" << Escape(tree.fault->Text()) << "</p>";
  }
  out << R"(</div>
<form role="search" hidden>
<input id="search" type="search" aria-label="Search fields" placeholder="Name, value or 0x offset" autocomplete="off" spellcheck="false">
<output for="search" id="found"></output>
<button type="button" id="fold">Fold</button>
<button type="button" id="unfold">Unfold</button>
</form>
</header>
<main>
)";
}

void WriteTail(std::ostream& out) {
  const std::string_view script =
      Between(vantiro_annotation_script_begin, vantiro_annotation_script_end);
  out << "</main>\n<script>\n" << script << "</script>\n</body>\n</html>\n";
}

}  // namespace

void WriteAnnotationPage(const RecordTree& tree, const std::string& title,
                         std::ostream* out) {
  PageWriter page(tree, out);
  WriteHead(tree, title, *out);
  *out << "<section id=\"fields\" aria-label=\"Fields\">\n";
  page.WriteFields();
  *out << "</section>\n<section id=\"bytes\" aria-label=\"Bytes\">\n"
          "<p class=\"legend\"><span class=\"tag\">tag</span> "
          "<span class=\"length\">length</span> "
          "<span class=\"value\">value</span> "
          "<span class=\"unknown\">unknown</span> "
          "<span class=\"unread\">not readable</span></p>\n";
  page.WriteBytes();
  *out << "</section>\n";
  WriteTail(*out);
}

}  // namespace tools
}  // namespace vantiro
