#include "compiler/template.h"

#include <google/protobuf/io/printer.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/stubs/logging.h>

#include <algorithm>
#include <vector>

namespace vantiro {
namespace compiler {
namespace {

namespace io = google::protobuf::io;

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  size_t begin = 0;
  while (begin < text.size()) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

size_t Indentation(const std::string& line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

size_t SharedIndentation(const std::vector<std::string>& lines) {
  size_t shared = std::string::npos;
  for (const std::string& line : lines) {
    if (Indentation(line) < line.size()) {
      shared = std::min(shared, Indentation(line));
    }
  }
  return shared;
}

// The variable's name if `line` is nothing but one variable, otherwise empty.
std::string LoneVariable(const std::string& line) {
  const size_t begin = Indentation(line);
  if (line.size() < begin + 3 || line[begin] != '$' || line.back() != '$') {
    return "";
  }
  const std::string name = line.substr(begin + 1, line.size() - begin - 2);
  return name.find('$') == std::string::npos ? name : "";
}

const std::string& Value(const Variables& variables, const std::string& name) {
  const auto found = variables.find(name);
  GOOGLE_CHECK(found != variables.end()) << "no value for $" << name << "$";
  return found->second;
}

std::string Indent(const std::string& text, size_t indentation) {
  std::string result;
  for (const std::string& line : SplitLines(text)) {
    if (!line.empty()) result.append(indentation, ' ').append(line);
    result += '\n';
  }
  return result;
}

std::string SubstituteLine(const Variables& variables,
                           const std::string& line) {
  std::string result;
  {
    io::StringOutputStream stream(&result);
    io::Printer printer(&stream, '$');
    printer.Print(variables, line.c_str());
    GOOGLE_CHECK(!printer.failed());
  }
  return result + '\n';
}

}  // namespace

std::string Substitute(const Variables& variables, const std::string& text) {
  const size_t begin = !text.empty() && text.front() == '\n' ? 1 : 0;
  std::vector<std::string> lines = SplitLines(text.substr(begin));
  // The line of a raw string's closing parenthesis.
  if (!lines.empty() && Indentation(lines.back()) == lines.back().size()) {
    lines.pop_back();
  }
  const size_t shared = SharedIndentation(lines);
  std::string result;
  for (const std::string& full_line : lines) {
    const std::string line =
        full_line.size() <= shared ? "" : full_line.substr(shared);
    const std::string lone_variable = LoneVariable(line);
    result += lone_variable.empty()
                  ? SubstituteLine(variables, line)
                  : Indent(Value(variables, lone_variable), Indentation(line));
  }
  return result;
}

Variables Combine(Variables base, const Variables& more) {
  for (const auto& entry : more) base[entry.first] = entry.second;
  return base;
}

}  // namespace compiler
}  // namespace vantiro
