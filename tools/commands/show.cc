#include <cstdio>
#include <iostream>
#include <memory>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/io/table.h"
#include "tools/wire/scalar.h"
#include "tools/wire/wire_tag.h"

namespace vantiro {
namespace tools {
namespace {

std::string TypeText(const FieldDescriptor& field) {
  std::string type = field.type_name();
  if (field.message_type() != nullptr) type = field.message_type()->full_name();
  if (field.enum_type() != nullptr) type = field.enum_type()->full_name();
  return field.is_repeated() ? "repeated " + type : type;
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
  std::vector<Row> rows = {{"number", "tag", "name", "type", "comment"}};
  for (int i = 0; i < message.field_count(); ++i) {
    const FieldDescriptor& field = *message.field(i);
    rows.push_back({std::to_string(field.number()), WireTag(field),
                    field.name(), TypeText(field), Schema::Comment(field)});
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

template <typename T>
Json HeadJson(const T& type, const char* kind) {
  return {{"name", type.full_name()},
          {"kind", kind},
          {"unit", type.file()->name()},
          {"comment", Schema::Comment(type)}};
}

Json ToJson(const Descriptor& message) {
  Json json = HeadJson(message, "message");
  json["carriers"] = Json::array();
  for (const FieldDescriptor* const carrier :
       Schema::BuiltIn().CarriersOf(message)) {
    json["carriers"].push_back(
        {{"message", carrier->containing_type()->full_name()},
         {"field", carrier->number()}});
  }
  json["fields"] = Json::array();
  for (int i = 0; i < message.field_count(); ++i) {
    const FieldDescriptor& field = *message.field(i);
    json["fields"].push_back({{"number", field.number()},
                              {"tag", WireTag(field)},
                              {"name", field.name()},
                              {"json_name", field.json_name()},
                              {"type", TypeText(field)},
                              {"comment", Schema::Comment(field)}});
  }
  return json;
}

Json ToJson(const EnumDescriptor& enumeration) {
  Json json = HeadJson(enumeration, "enum");
  json["values"] = Json::array();
  for (int i = 0; i < enumeration.value_count(); ++i) {
    const EnumValueDescriptor& value = *enumeration.value(i);
    json["values"].push_back({{"number", value.number()},
                              {"name", value.name()},
                              {"comment", Schema::Comment(value)}});
  }
  return json;
}

void ShowAsJson(const std::string& name) {
  const NamedType type = Schema::BuiltIn().Find(name);
  const Json json = type.message != nullptr ? ToJson(*type.message)
                                            : ToJson(*type.enumeration);
  std::cout << JsonText(json, 2) << '\n';
}

void Show(const std::string& name, const CommandIo& io) {
  const NamedType type = Schema::BuiltIn().Find(name);
  if (type.message != nullptr) {
    ShowMessage(*type.message, io.style());
  } else {
    ShowEnum(*type.enumeration, io.style());
  }
}

}  // namespace

void AddShow(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "show", "Show a message or an enum of the schema");
  const auto name = std::make_shared<std::string>();
  command
      ->add_option("type", *name,
                   "Its name, or the end of it if that is unique")
      ->required()
      ->type_name("TYPE");
  const auto json = std::make_shared<bool>(false);
  command->add_flag("--json", *json, "Write JSON");
  io->AddOutputOptions(command);
  command->footer("Example:\n  vantiro-records show ZAfSmartRoi");
  command->callback([=] {
    if (*json) {
      ShowAsJson(*name);
    } else {
      Show(*name, *io);
    }
  });
}

}  // namespace tools
}  // namespace vantiro
