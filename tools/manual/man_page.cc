#include "tools/manual/man_page.h"

#include "tools/program/program.h"

namespace vantiro {
namespace tools {
namespace {

// `text` with the characters escaped that are special in roff.
std::string Escaped(const std::string& text) {
  std::string result;
  bool begins_line = true;
  for (const char c : text) {
    if (begins_line && (c == '.' || c == '\'')) result += "\\&";
    if (c == '\\') {
      result += "\\e";
    } else if (c == '-') {
      result += "\\-";
    } else {
      result += c;
    }
    begins_line = c == '\n';
  }
  return result;
}

// "WHEN" of "WHEN:{auto,always,never}".
std::string Placeholder(const CLI::Option& option) {
  const std::string name = option.get_type_name();
  return name.substr(0, name.find(':'));
}

void WriteOption(const CLI::Option& option, std::ostream& out) {
  std::string names;
  for (const std::string& name : option.get_snames()) {
    names += "-" + name + ", ";
  }
  for (const std::string& name : option.get_lnames()) {
    names += "--" + name + ", ";
  }
  if (!names.empty()) names.resize(names.size() - 2);
  out << ".TP\n";
  if (!names.empty()) out << "\\fB" << Escaped(names) << "\\fR ";
  if (option.get_items_expected_max() > 0 || names.empty()) {
    out << "\\fI" << Escaped(Placeholder(option)) << "\\fR";
  }
  out << '\n' << Escaped(option.get_description()) << '\n';
}

std::string Synopsis(const CLI::App& command) {
  std::string line = R"(\fBvantiro\-records )" + Escaped(command.get_name()) +
                     R"(\fR [\fIOPTION\fR]...)";
  for (const CLI::Option* option : command.get_options()) {
    if (!option->get_positional()) continue;
    const std::string name = "\\fI" + Escaped(Placeholder(*option)) + "\\fR";
    const bool is_repeated = option->get_items_expected_max() > 1;
    line += " " + (option->get_required() ? name : "[" + name + "]") +
            (is_repeated ? "..." : "");
  }
  return line;
}

// The footer of a command has an example, and text before it.
void WriteFooter(const std::string& footer, std::ostream& out) {
  const std::string heading = "Example:\n";
  const size_t example = footer.find(heading);
  if (example != 0) {
    out << ".PP\n" << Escaped(footer.substr(0, example));
    if (footer.substr(0, example).back() != '\n') out << '\n';
  }
  if (example == std::string::npos) return;
  out << ".PP\nExample:\n.PP\n.EX\n"
      << Escaped(footer.substr(example + heading.size())) << "\n.EE\n";
}

void WriteCommand(const CLI::App& command, std::ostream& out) {
  out << ".SS " << Escaped(command.get_name()) << '\n'
      << Synopsis(command) << "\n.PP\n"
      << Escaped(command.get_description()) << ".\n";
  for (const CLI::Option* option : command.get_options()) {
    WriteOption(*option, out);
  }
  if (!command.get_footer().empty()) WriteFooter(command.get_footer(), out);
}

}  // namespace

void WriteManPage(const CLI::App& program, const std::string& version,
                  std::ostream* out) {
  *out << R"(.TH VANTIRO\-RECORDS 1 "" "vantiro\-records )" << version << R"("
.SH NAME
vantiro\-records \- inspect records of the camera stack
.SH SYNOPSIS
\fBvantiro\-records\fR \fICOMMAND\fR [\fIOPTION\fR]... [\fIFILE\fR]...
.SH DESCRIPTION
)" << Escaped(program.get_description())
       << "\n.PP\n"
       << Escaped(program.get_footer()) << "\n.SH COMMANDS\n";
  for (const CLI::App* command : CommandsOf(program)) {
    WriteCommand(*command, *out);
  }
}

}  // namespace tools
}  // namespace vantiro
