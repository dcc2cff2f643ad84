#include <iostream>
#include <memory>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/io/table.h"

namespace vantiro {
namespace tools {
namespace {

std::string Count(int count) { return std::to_string(count); }

std::vector<Row> UnitRows(const Schema& schema) {
  std::vector<Row> rows = {{"unit", "package", "messages", "enums"}};
  for (const FileDescriptor* const unit : schema.units()) {
    int messages = 0;
    int enums = 0;
    for (const Descriptor* const m : schema.messages()) {
      if (m->file() == unit) ++messages;
    }
    for (const EnumDescriptor* const e : schema.enums()) {
      if (e->file() == unit) ++enums;
    }
    rows.push_back(
        {unit->name(), unit->package(), Count(messages), Count(enums)});
  }
  return rows;
}

std::vector<Row> MessageRows(const std::string& head,
                             const Messages& messages) {
  std::vector<Row> rows = {{head, "fields", "unit"}};
  for (const Descriptor* const message : messages) {
    rows.push_back({message->full_name(), Count(message->field_count()),
                    message->file()->name()});
  }
  return rows;
}

std::vector<Row> EnumRows(const Schema& schema) {
  std::vector<Row> rows = {{"enum", "values", "unit"}};
  for (const EnumDescriptor* const enumeration : schema.enums()) {
    rows.push_back({enumeration->full_name(), Count(enumeration->value_count()),
                    enumeration->file()->name()});
  }
  return rows;
}

Json ToJson(const Messages& messages) {
  Json array = Json::array();
  for (const Descriptor* const message : messages) {
    array.push_back({{"name", message->full_name()},
                     {"fields", message->field_count()},
                     {"unit", message->file()->name()}});
  }
  return array;
}

// An object with a member for each table.
void ListAsJson(const std::string& what) {
  const Schema& schema = Schema::BuiltIn();
  const bool all = what == "all";
  Json json = Json::object();
  if (all || what == "roots") json["roots"] = ToJson(schema.roots());
  for (const FileDescriptor* const unit : schema.units()) {
    if (!all && what != "units") break;
    json["units"].push_back({{"name", unit->name()},
                             {"package", unit->package()},
                             {"messages", MessagesOf(unit).size()},
                             {"enums", EnumsOf(unit).size()}});
  }
  if (all || what == "messages") json["messages"] = ToJson(schema.messages());
  for (const EnumDescriptor* const enumeration : schema.enums()) {
    if (!all && what != "enums") break;
    json["enums"].push_back({{"name", enumeration->full_name()},
                             {"values", enumeration->value_count()},
                             {"unit", enumeration->file()->name()}});
  }
  std::cout << JsonText(json, 2) << '\n';
}

void List(const std::string& what, const CommandIo& io) {
  const Schema& schema = Schema::BuiltIn();
  std::vector<std::vector<Row>> tables;
  const bool all = what == "all";
  if (all || what == "roots") {
    tables.push_back(MessageRows("root", schema.roots()));
  }
  if (all || what == "units") tables.push_back(UnitRows(schema));
  if (all || what == "messages") {
    tables.push_back(MessageRows("message", schema.messages()));
  }
  if (all || what == "enums") tables.push_back(EnumRows(schema));
  for (const std::vector<Row>& table : tables) {
    if (&table != &tables.front()) std::cout << '\n';
    WriteTable(table, io.style(), &std::cout);
  }
}

}  // namespace

void AddList(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "list", "List the roots, units, messages and enums of the schema");
  const auto what = std::make_shared<std::string>("all");
  command->add_option("what", *what, "roots, units, messages, enums or all")
      ->check(CLI::IsMember({"all", "roots", "units", "messages", "enums"}))
      ->type_name("WHAT");
  const auto json = std::make_shared<bool>(false);
  command->add_flag("--json", *json, "Write JSON");
  io->AddOutputOptions(command);
  command->footer("Example:\n  vantiro-records list roots");
  command->callback([=] {
    if (*json) {
      ListAsJson(*what);
    } else {
      List(*what, *io);
    }
  });
}

}  // namespace tools
}  // namespace vantiro
