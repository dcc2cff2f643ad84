#include <cstdio>
#include <iostream>
#include <memory>
#include <vector>

#include "tools/commands/session.h"
#include "tools/scalar.h"
#include "tools/table.h"
#include "tools/wire_tag.h"

namespace vantiro {
namespace inspection {
namespace {

std::string Kind(const FieldDescriptor& field) {
  std::string kind = field.type_name();
  if (field.message_type() != nullptr) kind = field.message_type()->full_name();
  if (field.enum_type() != nullptr) kind = field.enum_type()->full_name();
  return field.is_repeated() ? "list of " + kind : kind;
}

template <typename T>
void WriteHead(const T& type, const char* what, const Style& style) {
  std::cout << style.Heading(type.full_name()) << "\n  " << what << " of "
            << type.file()->name() << '\n';
  WriteParagraph(Schema::Comment(type), "  ", &std::cout);
}

void ShowMessage(const Descriptor& message, const Style& style) {
  WriteHead(message, "message", style);
  const auto& carriers = Schema::BuiltIn().CarriersOf(message);
  for (const FieldDescriptor* const carrier : carriers) {
    std::cout << "  carried by " << carrier->containing_type()->full_name()
              << ", field " << carrier->number() << '\n';
  }
  if (carriers.empty()) std::cout << "  a root: no other message carries it\n";
  std::vector<Row> rows = {{"no.", "tag", "name", "kind", "comment"}};
  for (int i = 0; i < message.field_count(); ++i) {
    const FieldDescriptor& field = *message.field(i);
    rows.push_back({std::to_string(field.number()), WireTag(field),
                    field.name(), Kind(field), Schema::Comment(field)});
  }
  std::cout << '\n';
  WriteTable(rows, style, &std::cout);
}

void ShowEnum(const EnumDescriptor& enumeration, const Style& style) {
  WriteHead(enumeration, "enum", style);
  std::vector<Row> rows = {{"number", "name", "comment"}};
  for (int i = 0; i < enumeration.value_count(); ++i) {
    const EnumValueDescriptor& value = *enumeration.value(i);
    rows.push_back(
        {std::to_string(value.number()), value.name(), Schema::Comment(value)});
  }
  std::cout << '\n';
  WriteTable(rows, style, &std::cout);
}

void Show(const std::string& name, const Session& session) {
  const NamedType type = Schema::BuiltIn().Find(name);
  if (type.message != nullptr) {
    ShowMessage(*type.message, session.style());
  } else {
    ShowEnum(*type.enumeration, session.style());
  }
}

}  // namespace

void AddShow(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "show", "Show one type: its fields or values, tags and comments");
  const auto name = std::make_shared<std::string>();
  command
      ->add_option("type", *name, "Its name; the end of it if that is unique")
      ->required()
      ->type_name("TYPE");
  session->AddOutputOptions(command);
  command->footer("Example:\n  vantiro-records show ZAfSmartRoi");
  command->callback([=] { Show(*name, *session); });
}

}  // namespace inspection
}  // namespace vantiro
