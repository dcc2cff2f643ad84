#include "tools/manual/completion.h"

#include <algorithm>
#include <map>
#include <string>

#include "tools/program/program.h"
#include "tools/schema/schema.h"

namespace vantiro {
namespace tools {
namespace {

// The shell code that completes the value of `option`: "auto always never" for
// "WHEN:{auto,always,never}", types, files, or nothing.
std::string CompleteValue(const CLI::Option& option) {
  std::string type = option.get_type_name();
  if (type == "TYPE") return "offer \"$types\"";
  if (type == "FILE" || type == "OUT" || type == "A" || type == "B") {
    return "files";
  }
  const size_t begin = type.find('{');
  const size_t end = type.find('}');
  if (begin == std::string::npos || end == std::string::npos) return ":";
  type = type.substr(begin + 1, end - begin - 1);
  std::replace(type.begin(), type.end(), ',', ' ');
  return "offer \"" + type + "\"";
}

// The names of the option: "-t|--type" if `separator` is "|".
std::string Names(const CLI::Option& option, const std::string& separator) {
  std::string names;
  for (const std::string& name : option.get_snames()) {
    names += (names.empty() ? "-" : separator + "-") + name;
  }
  for (const std::string& name : option.get_lnames()) {
    names += (names.empty() ? "--" : separator + "--") + name;
  }
  return names;
}

// All full names, and their last parts where these are unique.
std::string Types() {
  std::map<std::string, int> counts;
  const Schema& schema = Schema::BuiltIn();
  for (const Descriptor* message : schema.messages()) ++counts[message->name()];
  for (const EnumDescriptor* type : schema.enums()) ++counts[type->name()];
  std::string types;
  for (const Descriptor* message : schema.messages()) {
    types += (types.empty() ? "" : " ") + message->full_name();
    if (counts[message->name()] == 1) types += " " + message->name();
  }
  return types;
}

void WriteCommand(const CLI::App& command, std::ostream& out) {
  const std::string& name = command.get_name();
  std::string options;
  std::string positional = "files";
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_positional()) {
      positional = CompleteValue(*option);
      continue;
    }
    options += (options.empty() ? "" : " ") + Names(*option, " ");
    if (option->get_items_expected_max() == 0) continue;
    std::string pattern = Names(*option, "|" + name + ":");
    out << "    " << name << ':' << pattern << ") " << CompleteValue(*option)
        << " ;;\n";
  }
  out << "    " << name << ":*)\n      if [[ $word == -* ]]; then offer \""
      << options << "\"; else " << positional << "; fi ;;\n";
}

}  // namespace

void WriteCompletion(const CLI::App& program, std::ostream* out) {
  std::string commands;
  for (const CLI::App* command : CommandsOf(program)) {
    commands += (commands.empty() ? "" : " ") + command->get_name();
  }
  const std::string types = Types();
  *out << R"(# Completion of vantiro-records for bash.

_vantiro_records() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}
  local types=")"
       << types << R"("
  offer() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$word"); }
  files() { mapfile -t COMPREPLY < <(compgen -f -- "$word"); }
  if ((COMP_CWORD == 1)); then
    offer ")"
       << commands << R"( --help"
    unset -f offer files
    return
  fi
  case ${COMP_WORDS[1]}:$before in
)";
  for (const CLI::App* command : CommandsOf(program)) {
    WriteCommand(*command, *out);
  }
  *out << R"(  esac
  unset -f offer files
}
complete -o filenames -F _vantiro_records vantiro-records
)";
}

}  // namespace tools
}  // namespace vantiro
