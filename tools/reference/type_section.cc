#include "tools/reference/type_section.h"

#include "compiler/template.h"
#include "tools/reference/comment.h"
#include "tools/reference/links.h"
#include "tools/reference/tree.h"
#include "tools/reference/tree_picture.h"
#include "tools/schema/unit_types.h"
#include "tools/wire/wire_tag.h"

namespace vantiro {
namespace reference {
namespace {

using compiler::Substitute;
using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::EnumValueDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;
using std::to_string;
using tools::Fields;
using tools::FieldsOf;
using tools::Messages;

// A picture with more lines is shortened; the complete one can be unfolded.
constexpr size_t kPictureLines = 30;

std::string TypeLink(const FieldDescriptor* field) {
  const FileDescriptor* unit = field->file();
  std::string type = field->is_repeated() ? "repeated " : "";
  if (field->message_type() != nullptr) {
    type += LinkTo(unit, field->message_type());
  } else if (field->enum_type() != nullptr) {
    type += LinkTo(unit, field->enum_type());
  } else {
    type += field->type_name();
  }
  return type + (field->is_packed() ? " <small>packed</small>" : "");
}

// The table row with the comment of a field or value.
std::string NoteRow(const std::string& paragraphs, int columns) {
  if (paragraphs.empty()) return "";
  return Substitute({{"columns", to_string(columns)}, {"note", paragraphs}}, R"(
    <tr class="note"><td></td><td colspan="$columns$">
    $note$
    </td></tr>
    )");
}

std::string FieldRow(const FieldDescriptor* field) {
  return Substitute(
      {{"anchor", AnchorOf(field)},
       {"number", to_string(field->number())},
       {"name", field->name()},
       {"kind", TypeLink(field)},
       {"tag", tools::WireTag(*field)},
       {"wire_type", tools::WireTypeName(*field)},
       {"note", NoteRow(Paragraphs(CommentOf(field), field->file(),
                                   field->containing_type()),
                        3)}},
      R"(
      <tr id="$anchor$"><td class="number">$number$</td><th scope="row"><a class="self" href="#$anchor$">$name$</a></th><td class="kind">$kind$</td><td class="tag"><code>$tag$</code> <small>$wire_type$</small></td></tr>
      $note$
      )");
}

std::string FieldTable(const Descriptor* message) {
  if (message->field_count() == 0) {
    return "<p class=\"empty\">No fields.</p>\n";
  }
  std::string rows;
  for (const FieldDescriptor* field : FieldsOf(message)) {
    rows += FieldRow(field);
  }
  return Substitute({{"rows", rows}}, R"(
    <table class="fields">
    <thead><tr><th scope="col" class="number"><abbr title="field number">No.</abbr></th><th scope="col">Field</th><th scope="col">Type</th><th scope="col">Tag</th></tr></thead>
    <tbody>
    $rows$
    </tbody>
    </table>
    )");
}

std::string ValueRow(const EnumValueDescriptor* value) {
  return Substitute(
      {{"anchor", AnchorOf(value)},
       {"number", to_string(value->number())},
       {"name", Breakable(value->name())},
       {"note",
        NoteRow(Paragraphs(CommentOf(value), value->file(), nullptr), 1)}},
      R"(
      <tr id="$anchor$"><td class="number">$number$</td><th scope="row"><a class="self" href="#$anchor$">$name$</a></th></tr>
      $note$
      )");
}

std::string Carriers(const std::string& heading, const Fields& fields,
                     const FileDescriptor* unit) {
  if (fields.empty()) return "";
  std::string items;
  for (const FieldDescriptor* field : fields) {
    items += Substitute(
        {{"address", Address(unit, field->file(), AnchorOf(field))},
         {"type", Breakable(ShownName(unit, field->containing_type()))},
         {"field", Breakable(field->name())}},
        R"(<li><a href="$address$">$type$<span class="member">.$field$</span></a></li>)");
  }
  return Substitute({{"heading", heading}, {"items", items}}, R"(
    <div class="carriers"><h4>$heading$</h4><ul>
    $items$
    </ul></div>
    )");
}

std::string RootTree(const Descriptor* root) {
  const FileDescriptor* unit = root->file();
  const Tree tree = TreeOf(root);
  if (tree.size() == 1) return "";
  const Tree overview = CutToCount(tree, kPictureLines);
  std::string picture =
      TreePicture(overview, unit, "Messages in " + NameInUnit(root));
  if (overview.size() == tree.size()) return picture;
  return Substitute(
      {{"picture", picture},
       {"types", to_string(TypeCountOf(tree))},
       {"depth", to_string(DepthOf(tree))},
       {"whole",
        TreePicture(tree, unit, "All messages in " + NameInUnit(root))}},
      R"(
              $picture$
              <details class="whole-tree"><summary>The whole tree: $types$ types, $depth$ levels</summary>
              $whole$
              </details>
              )");
}

std::string Section(const std::string& keyword, const std::string& mark,
                    const std::string& name, const std::string& full_name,
                    const std::string& content) {
  return Substitute({{"keyword", keyword},
                     {"mark", mark},
                     {"name", name},
                     {"shown", Breakable(name)},
                     {"full_name", full_name},
                     {"content", content}},
                    R"(
              <section class="type" id="$name$">
              <h3><span class="keyword">$keyword$</span> <a class="self" href="#$name$">$shown$</a>$mark$</h3>
              <p class="full-name">$full_name$</p>
              $content$
              </section>
              )");
}

}  // namespace

std::string MessageSection(const tools::Schema& schema,
                           const Descriptor* message) {
  const FileDescriptor* unit = message->file();
  const Fields& carriers = schema.CarriersOf(*message);
  const bool is_root = carriers.empty();
  return Section("message", is_root ? " <span class=\"mark\">root</span>" : "",
                 NameInUnit(message), message->full_name(),
                 Paragraphs(CommentOf(message), unit, message) +
                     Carriers("Carried by", carriers, unit) +
                     (is_root ? RootTree(message) : "") + FieldTable(message));
}

std::string EnumSection(const tools::Schema& schema,
                        const EnumDescriptor* type) {
  std::string rows;
  for (int i = 0; i < type->value_count(); ++i) {
    rows += ValueRow(type->value(i));
  }
  const FileDescriptor* unit = type->file();
  return Section("enum", "", NameInUnit(type), type->full_name(),
                 Paragraphs(CommentOf(type), unit, nullptr) +
                     Carriers("Used by", schema.UsersOf(*type), unit) +
                     Substitute({{"rows", rows}}, R"(
                     <table class="values">
                     <thead><tr><th scope="col" class="number">No.</th><th scope="col">Value</th></tr></thead>
                     <tbody>
                     $rows$
                     </tbody>
                     </table>
                     )"));
}

}  // namespace reference
}  // namespace vantiro
