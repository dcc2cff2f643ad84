#include <iostream>
#include <memory>

#include "tools/commands/session.h"
#include "tools/formats.h"

namespace vantiro {
namespace inspection {
namespace {

struct Options {
  std::string type;
  std::string from = "text";
  std::string file = "-";
};

void Encode(const Options& options) {
  const Descriptor& type = Schema::BuiltIn().FindMessage(options.type);
  const std::string text = Session::ReadFile(options.file);
  const Record record =
      options.from == "text" ? ReadText(type, text) : ReadJson(type, text);
  std::cout << Serialize(record);
}

}  // namespace

void AddEncode(CLI::App* program, Session* /*session*/) {
  CLI::App* const command = program->add_subcommand(
      "encode", "Make a record from what decode prints");
  const auto options = std::make_shared<Options>();
  command->add_option("file", options->file, "The text; - is standard input")
      ->type_name("FILE");
  Session::AddType(command, "The record's type", &options->type)->required();
  command->add_option("--from", options->from, "Its format: text or json")
      ->check(CLI::IsMember({"text", "json"}))
      ->type_name("FORMAT");
  command->footer(
      "Example:\n"
      "  echo 'field_1: 5 field_2: 7' |\n"
      "    vantiro-records encode --type ZAfRoiDimLite - | od -An -tx1");
  command->callback([=] { Encode(*options); });
}

}  // namespace inspection
}  // namespace vantiro
