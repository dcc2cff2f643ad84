#include <iostream>
#include <memory>
#include <vector>

#include "tools/commands/session.h"
#include "tools/table.h"

namespace vantiro {
namespace inspection {
namespace {

std::string Count(int count) { return std::to_string(count); }

std::vector<Row> Units(const Schema& schema) {
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

std::vector<Row> Messages(const std::string& head,
                          const std::vector<const Descriptor*>& messages) {
  std::vector<Row> rows = {{head, "fields", "unit"}};
  for (const Descriptor* const message : messages) {
    rows.push_back({message->full_name(), Count(message->field_count()),
                    message->file()->name()});
  }
  return rows;
}

std::vector<Row> Enums(const Schema& schema) {
  std::vector<Row> rows = {{"enum", "values", "unit"}};
  for (const EnumDescriptor* const enumeration : schema.enums()) {
    rows.push_back({enumeration->full_name(), Count(enumeration->value_count()),
                    enumeration->file()->name()});
  }
  return rows;
}

void List(const std::string& what, const Session& session) {
  const Schema& schema = Schema::BuiltIn();
  std::vector<std::vector<Row>> tables;
  const bool all = what == "all";
  if (all || what == "roots") {
    tables.push_back(Messages("root", schema.roots()));
  }
  if (all || what == "units") tables.push_back(Units(schema));
  if (all || what == "messages") {
    tables.push_back(Messages("message", schema.messages()));
  }
  if (all || what == "enums") tables.push_back(Enums(schema));
  for (const std::vector<Row>& table : tables) {
    if (&table != &tables.front()) std::cout << '\n';
    WriteTable(table, session.style(), &std::cout);
  }
}

}  // namespace

void AddList(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "list", "List the roots, units, messages and enums of the schema");
  const auto what = std::make_shared<std::string>("all");
  command->add_option("what", *what, "roots, units, messages, enums or all")
      ->check(CLI::IsMember({"all", "roots", "units", "messages", "enums"}))
      ->type_name("WHAT");
  session->AddOutputOptions(command);
  command->footer("Example:\n  vantiro-records list roots");
  command->callback([=] { List(*what, *session); });
}

}  // namespace inspection
}  // namespace vantiro
