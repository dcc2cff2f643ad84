#include "tools/reference/tree_picture.h"

#include <algorithm>
#include <vector>

#include "compiler/template.h"
#include "tools/reference/links.h"

namespace vantiro {
namespace reference {
namespace {

using compiler::Substitute;
using google::protobuf::FileDescriptor;
using std::to_string;

constexpr int kRowHeight = 24;
constexpr int kIndentation = 22;
constexpr int kMargin = 10;
// At least the width of a character in the page's fixed-width fonts.
constexpr int kCharacterWidth = 8;

int MiddleOf(size_t row) {
  return static_cast<int>(row) * kRowHeight + kRowHeight / 2;
}

int DotOf(const TreeNode& node) { return kMargin + node.depth * kIndentation; }

std::string FieldName(const TreeNode& node) {
  if (node.field == nullptr) return "";
  return node.field->name() + (node.field->is_repeated() ? "[]" : "");
}

std::string Note(const TreeNode& node) {
  if (node.repeats) return "as above";
  return node.hidden_count > 0 ? "+" + to_string(node.hidden_count) : "";
}

std::string Branch(const Tree& tree, size_t row) {
  if (row == 0) return "";
  const TreeNode& node = tree[row];
  return Substitute({{"x", to_string(DotOf(tree[node.parent]))},
                     {"from", to_string(MiddleOf(node.parent) + 4)},
                     {"to", to_string(MiddleOf(row) - 6)},
                     {"dot", to_string(DotOf(node) - 4)}},
                    R"(<path d="M$x$ $from$V$to$q0 6 6 6H$dot$"/>)");
}

std::string Label(const TreeNode& node, size_t row,
                  const FileDescriptor* from) {
  const std::string kind =
      node.field == nullptr ? "root" : (node.repeats ? "again" : "node");
  return Substitute({{"kind", kind},
                     {"x", to_string(DotOf(node))},
                     {"y", to_string(MiddleOf(row))},
                     {"text_x", to_string(DotOf(node) + 12)},
                     {"text_y", to_string(MiddleOf(row) + 4)},
                     {"address", Address(from, node.message->file(),
                                         NameInUnit(node.message))},
                     {"field", FieldName(node)},
                     {"gap", node.field == nullptr ? "0" : "8"},
                     {"type", ShownName(from, node.message)},
                     {"note", Note(node)}},
                    R"(
<circle class="$kind$" cx="$x$" cy="$y$" r="4"/>
<text x="$text_x$" y="$text_y$"><tspan class="field">$field$</tspan><a href="$address$"><tspan dx="$gap$">$type$</tspan></a><tspan class="note" dx="8">$note$</tspan></text>
              )");
}

int WidthOf(const Tree& tree, const FileDescriptor* from) {
  int width = 0;
  for (const TreeNode& node : tree) {
    const size_t characters = FieldName(node).size() + Note(node).size() +
                              ShownName(from, node.message).size() + 4;
    width = std::max(
        width, DotOf(node) + static_cast<int>(characters) * kCharacterWidth);
  }
  return width;
}

// The number of leaves below each node; 1 for a leaf.
std::vector<int> LeafCounts(const Tree& tree) {
  std::vector<int> counts(tree.size(), 0);
  for (size_t row = tree.size(); row-- > 0;) {
    counts[row] = std::max(counts[row], 1);
    if (row > 0) counts[tree[row].parent] += counts[row];
  }
  return counts;
}

}  // namespace

std::string TreePicture(const Tree& tree, const FileDescriptor* from,
                        const std::string& title) {
  std::string branches;
  std::string labels;
  for (size_t row = 0; row < tree.size(); ++row) {
    branches += Branch(tree, row);
    labels += Label(tree[row], row, from);
  }
  return Substitute(
      {{"title", title},
       {"width", to_string(WidthOf(tree, from))},
       {"height", to_string(static_cast<int>(tree.size()) * kRowHeight)},
       {"branches", branches},
       {"labels", labels}},
      R"(
      <div class="tree"><svg role="group" aria-label="$title$" width="$width$" height="$height$" viewBox="0 0 $width$ $height$">
      <g class="branches">
      $branches$
      </g>
      $labels$
      </svg></div>
      )");
}

std::string TreeOutline(const Tree& tree, const std::string& title) {
  constexpr int kColumn = 16;
  const std::vector<int> counts = LeafCounts(tree);
  const int total_height = std::min(54, counts[0] * 12);
  const double unit = static_cast<double>(total_height) / counts[0];
  std::vector<double> next(tree.size(), 0);
  std::string cells;
  for (size_t row = 0; row < tree.size(); ++row) {
    const TreeNode& node = tree[row];
    double y = 0;
    if (row > 0) {
      y = next[node.parent];
      next[node.parent] += counts[row] * unit;
    }
    next[row] = y;
    const double height = counts[row] * unit;
    cells += Substitute(
        {{"x", to_string(node.depth * kColumn)},
         {"y", to_string(y)},
         {"width", to_string(kColumn - 1)},
         {"height", to_string(std::max(height - 1, height * 0.7))}},
        R"(<rect x="$x$" y="$y$" width="$width$" height="$height$"/>)");
  }
  return Substitute({{"title", title},
                     {"width", to_string(DepthOf(tree) * kColumn)},
                     {"height", to_string(total_height)},
                     {"cells", cells}},
                    R"(
              <svg class="outline" role="img" aria-label="$title$" width="$width$" height="$height$">
              $cells$
              </svg>
              )");
}

}  // namespace reference
}  // namespace vantiro
