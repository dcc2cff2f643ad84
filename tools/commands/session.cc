#include "tools/commands/session.h"

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

#include "tools/identify.h"
#include "tools/scalar.h"

namespace vantiro {
namespace inspection {
namespace {

// Hexadecimal as logs have it: with spaces, commas or colons between the bytes,
// and with 0x before them.
std::string FromHexText(const std::string& text, const std::string& file) {
  std::string digits;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '0' && i + 1 < text.size() && text[i + 1] == 'x') {
      ++i;
    } else if (std::isxdigit(c) != 0) {
      digits += text[i];
    } else if (std::isspace(c) == 0 && c != ',' && c != ':') {
      throw UsageError(file + ": character " + std::to_string(i + 1) +
                       " is no hexadecimal digit");
    }
  }
  std::string bytes;
  if (!ParseHex(digits, &bytes)) {
    throw UsageError(file + ": an odd number of hexadecimal digits");
  }
  return bytes;
}

}  // namespace

void Session::AddFile(CLI::App* command, const char* what, std::string* file) {
  command
      ->add_option("file", *file, std::string(what) + "; - is standard input")
      ->required()
      ->type_name("FILE");
}

void Session::AddFiles(CLI::App* command, std::vector<std::string>* files) {
  command->add_option("files", *files, "Records; - is standard input")
      ->required()
      ->type_name("FILE");
}

CLI::Option* Session::AddType(CLI::App* command, const char* what,
                              std::string* type) {
  return command->add_option("-t,--type", *type, what)->type_name("TYPE");
}

void Session::AddOutputOptions(CLI::App* command) {
  command
      ->add_option("--color", color_,
                   "Colours: auto (on a terminal), always, never")
      ->check(CLI::IsMember({"auto", "always", "never"}))
      ->type_name("WHEN");
  command->add_flag("-q,--quiet", quiet_,
                    "No notes, only what was asked for and faults");
}

void Session::AddInputOptions(CLI::App* command) {
  command->add_flag("--hex", hex_, "The input is hexadecimal text");
  AddOutputOptions(command);
}

std::string Session::ReadBytes(const std::string& file) const {
  std::string content = ReadFile(file);
  return hex_ ? FromHexText(content, file) : content;
}

std::string Session::ReadFile(const std::string& file) {
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

const Descriptor& Session::TypeOf(const std::string& name,
                                  const std::string& bytes) const {
  const Schema& schema = Schema::BuiltIn();
  if (!name.empty()) return schema.FindMessage(name);
  const Candidate best = Identify(schema.roots(), bytes).front();
  if (!IsConvincing(best)) {
    throw UsageError(
        "the bytes do not tell their type: say it with --type; 'identify' "
        "shows the candidates, 'list' all types");
  }
  return *best.type;
}

void Session::NoteType(const std::string& file, const std::string& name,
                       const Descriptor& type) const {
  if (!name.empty() || quiet_) return;
  std::cerr << file << ": taken for " << type.full_name() << '\n';
}

void Session::ReportFault(const std::string& file,
                          const std::optional<Fault>& fault) {
  if (!fault.has_value()) return;
  std::cout.flush();
  std::cerr << file << ": " << fault->Text() << '\n';
  Raise(kFound);
}

void Session::Raise(ExitStatus status) { status_ = std::max(status_, status); }

Style Session::style() const {
  const char* const no_color = std::getenv("NO_COLOR");
  const bool is_wanted =
      (no_color == nullptr || *no_color == '\0') && isatty(STDOUT_FILENO) != 0;
  return Style(color_ == "always" || (color_ == "auto" && is_wanted));
}

}  // namespace inspection
}  // namespace vantiro
