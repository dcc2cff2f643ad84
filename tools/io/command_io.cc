#include "tools/io/command_io.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "tools/identify/identify.h"
#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

// Decodes hexadecimal as it is in logs: with spaces, commas or colons between
// the bytes, and 0x before them.
std::string DecodeHex(const std::string& text, const std::string& file) {
  std::string digits;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '0' && i + 1 < text.size() && text[i + 1] == 'x') {
      ++i;
    } else if (std::isxdigit(c) != 0) {
      digits += text[i];
    } else if (std::isspace(c) == 0 && c != ',' && c != ':') {
      throw UsageError(file + ": character " + std::to_string(i + 1) +
                       " is not a hexadecimal digit");
    }
  }
  std::string bytes;
  if (!ParseHex(digits, &bytes)) {
    throw UsageError(file + ": an odd number of hexadecimal digits");
  }
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

void CommandIo::AddFiles(CLI::App* command, std::vector<std::string>* files) {
  command->add_option("files", *files, "Records; - is standard input")
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
  command->add_flag("--hex", hex_, "The input is hexadecimal text");
  AddOutputOptions(command);
}

std::string CommandIo::ReadBytes(const std::string& file) const {
  std::string content = ReadFile(file);
  return hex_ ? DecodeHex(content, file) : content;
}

std::string CommandIo::ReadFile(const std::string& file) {
  if (file == "-") {
    return {std::istreambuf_iterator<char>(std::cin),
            std::istreambuf_iterator<char>()};
  }
  std::ifstream stream(file, std::ios::binary);
  if (!stream.good()) {
    throw UsageError("cannot read " + file + ": " + std::strerror(errno));
  }
  if (std::filesystem::is_directory(file)) {
    throw UsageError("cannot read " + file + ": it is a folder");
  }
  return {std::istreambuf_iterator<char>(stream),
          std::istreambuf_iterator<char>()};
}

void CommandIo::WriteFile(const std::string& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.flush()) {
    throw UsageError("cannot write " + file + ": " + std::strerror(errno));
  }
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
                           const Descriptor& type) const {
  if (!name.empty() || quiet_) return;
  std::cerr << file << ": identified as " << type.full_name() << '\n';
}

void CommandIo::ReportFault(const std::string& file,
                            const std::optional<Fault>& fault) {
  if (!fault.has_value()) return;
  std::cout.flush();
  std::cerr << file << ": " << fault->Text() << '\n';
  RaiseStatus(kFound);
}

void CommandIo::RaiseStatus(ExitStatus status) {
  status_ = std::max(status_, status);
}

Style CommandIo::style() const {
  const char* const no_color = std::getenv("NO_COLOR");
  const bool is_auto_coloured =
      (no_color == nullptr || *no_color == '\0') && isatty(STDOUT_FILENO) != 0;
  return Style(color_ == "always" || (color_ == "auto" && is_auto_coloured));
}

}  // namespace tools
}  // namespace vantiro
