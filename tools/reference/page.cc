#include "tools/reference/page.h"

#include <vector>

#include "compiler/template.h"
#include "tools/reference/comment.h"
#include "tools/reference/links.h"
#include "tools/reference/tree.h"
#include "tools/reference/tree_picture.h"
#include "tools/reference/type_section.h"
#include "tools/schema/unit_types.h"

namespace vantiro {
namespace reference {
namespace {

using compiler::Substitute;
using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FileDescriptor;
using std::to_string;
using tools::Enums;
using tools::EnumsOf;
using tools::Messages;
using tools::MessagesOf;

std::string Count(size_t count, const std::string& noun) {
  return to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

// The list of units, with the types of the unit that is shown.
std::string Contents(const tools::Schema& schema, const FileDescriptor* shown) {
  std::string items;
  for (const FileDescriptor* unit : schema.units()) {
    std::string types;
    if (unit == shown) {
      for (const Descriptor* message : MessagesOf(unit)) {
        types += "<li>" + LinkTo(shown, message) + "</li>\n";
      }
      for (const EnumDescriptor* type : EnumsOf(unit)) {
        types += "<li class=\"enum\">" + LinkTo(shown, type) + "</li>\n";
      }
      types = "<ul class=\"types\">\n" + types + "</ul>\n";
    }
    items +=
        Substitute({{"page", PageOf(unit)},
                    {"stem", StemOf(unit)},
                    {"current", unit == shown ? " aria-current=\"page\"" : ""},
                    {"types", types}},
                   R"(
                  <li><a href="$page$"$current$>$stem$</a>
                  $types$
                  </li>
                  )");
  }
  return items;
}

std::string Page(const tools::Schema& schema, const FileDescriptor* shown,
                 const std::string& title, const std::string& content,
                 const PageParts& parts) {
  return Substitute(
      {{"title", title},
       {"style", parts.style},
       {"front_current", shown == nullptr ? " aria-current=\"page\"" : ""},
       {"contents", Contents(schema, shown)},
       {"content", content},
       {"index", parts.search_index},
       {"script", parts.script}},
      R"(
<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>$title$</title>
<style>
$style$
</style>
</head>
<body>
<a class="skip" href="#content">Skip to the content</a>
<header class="bar">
<a class="brand" href="index.html"$front_current$>Vantiro <span>record types</span></a>
<div class="search" role="search" hidden>
<input id="search" type="search" role="combobox" aria-label="Search types, fields and values" aria-controls="results" aria-expanded="false" aria-autocomplete="list" autocomplete="off" spellcheck="false" placeholder="Search types, fields, values">
<kbd aria-hidden="true">/</kbd>
<ul id="results" role="listbox" aria-label="Found" hidden></ul>
</div>
<a class="to-contents" href="#contents">Contents</a>
</header>
<div class="columns">
<main id="content" tabindex="-1">
$content$
</main>
<nav id="contents" aria-label="Contents">
<h2>Units</h2>
<ul class="units">
$contents$
</ul>
</nav>
</div>
<script type="application/json" id="search-index">
$index$
</script>
<script>
$script$
</script>
</body>
</html>
)");
}

std::string RootCard(const Descriptor* root) {
  const Tree tree = TreeOf(root);
  return Substitute({{"link", LinkTo(nullptr, root)},
                     {"unit", StemOf(root->file())},
                     {"summary", Summary(CommentOf(root))},
                     {"types", Count(TypeCountOf(tree), "type")},
                     {"depth", to_string(DepthOf(tree))},
                     {"outline", TreeOutline(tree, "Outline of its tree")}},
                    R"(
      <li class="card">
      <h3>$link$</h3>
      <p>$summary$</p>
      $outline$
      <p class="facts">$types$, $depth$ levels · $unit$</p>
      </li>
      )");
}

std::string UnitRow(const FileDescriptor* unit) {
  return Substitute({{"page", PageOf(unit)},
                     {"stem", StemOf(unit)},
                     {"summary", Summary(CommentOf(unit))},
                     {"messages", to_string(MessagesOf(unit).size())},
                     {"enums", to_string(EnumsOf(unit).size())}},
                    R"(
              <tr><th scope="row"><a href="$page$">$stem$</a></th><td>$summary$</td><td class="number">$messages$</td><td class="number">$enums$</td></tr>
              )");
}

std::string Totals(const tools::Schema& schema) {
  size_t messages = 0;
  size_t enums = 0;
  size_t fields = 0;
  for (const FileDescriptor* unit : schema.units()) {
    enums += EnumsOf(unit).size();
    for (const Descriptor* message : MessagesOf(unit)) {
      ++messages;
      fields += tools::FieldsOf(message).size();
    }
  }
  return Count(schema.units().size(), "unit") + ", " +
         Count(messages, "message") + ", " + Count(enums, "enum") + " and " +
         Count(fields, "field");
}

std::string UnitList(const std::string& label,
                     const std::vector<const FileDescriptor*>& units) {
  if (units.empty()) return "";
  std::string links;
  for (const FileDescriptor* unit : units) {
    links += (links.empty() ? "" : ", ") + ("<a href=\"" + PageOf(unit)) +
             "\">" + StemOf(unit) + "</a>";
  }
  return "<dt>" + label + "</dt><dd>" + links + "</dd>\n";
}

// The units that this one imports, and those that import it.
std::string Neighbours(const tools::Schema& schema,
                       const FileDescriptor* unit) {
  std::vector<const FileDescriptor*> imported;
  std::vector<const FileDescriptor*> importing;
  for (int i = 0; i < unit->dependency_count(); ++i) {
    imported.push_back(unit->dependency(i));
  }
  for (const FileDescriptor* other : schema.units()) {
    for (int i = 0; i < other->dependency_count(); ++i) {
      if (other->dependency(i) == unit) importing.push_back(other);
    }
  }
  return UnitList("Imports", imported) + UnitList("Imported by", importing);
}

std::string Titled(const std::string& title, const std::string& sections) {
  if (sections.empty()) return "";
  return "<h2>" + title + "</h2>\n" + sections;
}

}  // namespace

std::string FrontPage(const tools::Schema& schema, const PageParts& parts) {
  std::string cards;
  const Messages& roots = schema.roots();
  for (const Descriptor* root : roots) cards += RootCard(root);
  std::string units;
  for (const FileDescriptor* unit : schema.units()) units += UnitRow(unit);
  const std::string content =
      Substitute({{"totals", Totals(schema)},
                  {"roots", Count(roots.size(), "root")},
                  {"cards", cards},
                  {"units", units}},
                 R"(
    <h1>Record types</h1>
    <p class="lead">The debug, metadata and logging records of a camera stack's image control: $totals$.</p>
    <h2>$roots$</h2>
    <p>Messages that no other message carries. A file or a log entry is one of them.</p>
    <ul class="cards">
    $cards$
    </ul>
    <h2>Units</h2>
    <table class="overview">
    <thead><tr><th scope="col">Unit</th><th scope="col">Contents</th><th scope="col" class="number">Messages</th><th scope="col" class="number">Enums</th></tr></thead>
    <tbody>
    $units$
    </tbody>
    </table>
    )");
  return Page(schema, nullptr, "Vantiro record types", content, parts);
}

std::string UnitPage(const tools::Schema& schema, const FileDescriptor* unit,
                     const PageParts& parts) {
  std::string messages;
  for (const Descriptor* message : MessagesOf(unit)) {
    messages += MessageSection(schema, message);
  }
  std::string enums;
  for (const EnumDescriptor* type : EnumsOf(unit)) {
    enums += EnumSection(schema, type);
  }
  const std::string content =
      Substitute({{"stem", StemOf(unit)},
                  {"package", unit->package()},
                  {"neighbours", Neighbours(schema, unit)},
                  {"comment", Paragraphs(CommentOf(unit), unit, nullptr)},
                  {"messages", Titled("Messages", messages)},
                  {"enums", Titled("Enums", enums)}},
                 R"(
           <h1>$stem$</h1>
           <dl class="facts">
           <dt>Package</dt><dd><code>$package$</code></dd>
           $neighbours$
           </dl>
           <div class="about">
           $comment$
           </div>
           $messages$
           $enums$
           )");
  return Page(schema, unit, StemOf(unit) + " · Vantiro record types", content,
              parts);
}

}  // namespace reference
}  // namespace vantiro
