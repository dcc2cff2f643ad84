#include <iostream>
#include <memory>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/formats/text_format.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::string type;
  std::string from = "text";
  std::string file = "-";
};

void Encode(const Options& options) {
  const Descriptor& type = Schema::BuiltIn().FindMessage(options.type);
  const std::string text = CommandIo::ReadFile(options.file);
  const Record record =
      options.from == "text" ? ReadText(type, text) : ReadJson(type, text);
  std::cout << Serialize(record);
}

}  // namespace

void AddEncode(CLI::App* program) {
  CLI::App* const command = program->add_subcommand(
      "encode", "Make a record from text or JSON, as decode writes them");
  const auto options = std::make_shared<Options>();
  command
      ->add_option("file", options->file,
                   "The text or JSON; - is standard input")
      ->type_name("FILE");
  CommandIo::AddType(command, "The record's type", &options->type)->required();
  command
      ->add_option("--from", options->from,
                   "The format of the input: text or json")
      ->check(CLI::IsMember({"text", "json"}))
      ->type_name("FORMAT");
  command->footer(
      "Example:\n"
      "  echo 'field_1: 5 field_2: 7' |\n"
      "    vantiro-records encode --type ZAfRoiDimLite - | od -An -tx1");
  command->callback([=] { Encode(*options); });
}

}  // namespace tools
}  // namespace vantiro
