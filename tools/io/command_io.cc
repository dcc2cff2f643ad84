#include "tools/io/command_io.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "tools/formats/base64.h"
#include "tools/identify/identify.h"
#include "tools/io/hex_text.h"
#include "tools/io/output_file.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

std::string DecodeBase64(const std::string& text) {
  std::string bytes;
  if (!ParseBase64(text, &bytes)) throw HexError("not base64");
  return bytes;
}

}  // namespace

void CommandIo::AddFile(CLI::App* command, const char* what,
                        std::string* file) {
  command
      ->add_option("file", *file, std::string(what) + "; - is standard input")
      ->required()
      ->type_name("FILE");
}

CLI::Option* CommandIo::AddType(CLI::App* command, const char* what,
                                std::string* type) {
  return command->add_option("-t,--type", *type, what)->type_name("TYPE");
}

void CommandIo::AddOutputOptions(CLI::App* command) {
  command
      ->add_option("--color", color_,
                   "Colours: auto (only on a terminal), always or never")
      ->check(CLI::IsMember({"auto", "always", "never"}))
      ->type_name("WHEN");
  command->add_flag("-q,--quiet", quiet_, "Only results and faults, no notes");
}

void CommandIo::AddInputOptions(CLI::App* command) {
  CLI::Option* const hex = command->add_flag(
      "--hex", hex_,
      "The input is hexadecimal text: digits, a C array, or the output of xxd, "
      "hexdump -C, od -tx1 or a log");
  command->add_flag("--base64", base64_, "The input is base64")->excludes(hex);
  AddOutputOptions(command);
}

std::string CommandIo::ReadBytes(const std::string& file) const {
  std::string content = ReadFile(file);
  try {
    if (hex_) return ReadHexText(content);
    if (base64_) return DecodeBase64(content);
  } catch (const HexError& error) {
    throw UsageError(EscapeControls(file) + ": " + error.what());
  }
  return content;
}

std::string CommandIo::ReadFile(const std::string& file) {
  if (file == "-") {
    return {std::istreambuf_iterator<char>(std::cin),
            std::istreambuf_iterator<char>()};
  }
  std::ifstream stream = Open(file);
  return {std::istreambuf_iterator<char>(stream),
          std::istreambuf_iterator<char>()};
}

std::ifstream CommandIo::Open(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream.good()) {
    throw UsageError("cannot read " + EscapeControls(file) + ": " +
                     std::strerror(errno));
  }
  if (std::filesystem::is_directory(file)) {
    throw UsageError("cannot read " + EscapeControls(file) +
                     ": it is a folder");
  }
  return stream;
}

void CommandIo::WriteFile(const std::string& file, std::string_view bytes) {
  OutputFile output(file);
  output.Write(bytes);
  output.Commit();
}

const Descriptor& CommandIo::TypeOf(const std::string& name,
                                    const std::string& bytes) const {
  const Schema& schema = Schema::BuiltIn();
  if (!name.empty()) return schema.FindMessage(name);
  const Candidate best = Identify(schema.roots(), bytes).front();
  if (!IsConvincing(best)) {
    throw UsageError(
        "the type cannot be identified, give it with --type; 'identify' shows "
        "candidates, 'list' all types");
  }
  return *best.type;
}

void CommandIo::ReportType(const std::string& file, const std::string& name,
                           const Descriptor& type, Report* report) const {
  if (!name.empty() || quiet_) return;
  report->notes +=
      EscapeControls(file) + ": identified as " + type.full_name() + '\n';
}

void CommandIo::ReportFault(const std::string& file,
                            const std::optional<Fault>& fault, Report* report) {
  if (!fault.has_value()) return;
  report->errors += EscapeControls(file) + ": " + fault->Text() + '\n';
  report->status = kFound;
  report->is_damaged = true;
}

void CommandIo::ReportType(const std::string& file, const std::string& name,
                           const Descriptor& type) const {
  Report report;
  ReportType(file, name, type, &report);
  std::cerr << report.notes;
}

void CommandIo::ReportFault(const std::string& file,
                            const std::optional<Fault>& fault) {
  Report report;
  ReportFault(file, fault, &report);
  if (report.errors.empty()) return;
  std::cout.flush();
  std::cerr << report.errors;
  RaiseStatus(report.status);
}

void CommandIo::RaiseStatus(ExitStatus status) {
  status_ = std::max(status_, status);
}

Style CommandIo::style() const {
  const char* const no_color = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  const bool is_auto_coloured =
      !has_output_file_ && (no_color == nullptr || *no_color == '\0') &&
      (terminal == nullptr || std::strcmp(terminal, "dumb") != 0) &&
      isatty(STDOUT_FILENO) != 0;
  return Style(color_ == "always" || (color_ == "auto" && is_auto_coloured));
}

}  // namespace tools
}  // namespace vantiro
