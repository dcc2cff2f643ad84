#include "compiler/line_breaking.h"

#include <algorithm>
#include <cctype>
#include <sstream>
#include <vector>

#include "compiler/statement_breaker.h"

namespace vantiro {
namespace compiler {
namespace {

constexpr int kIndent = 2;

bool EndsWith(const std::string& text, const std::string& ending) {
  return text.size() >= ending.size() &&
         text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

std::string Line(int indentation, const std::string& text) {
  return std::string(static_cast<size_t>(indentation), ' ') + text + "\n";
}

bool Fits(int indentation, const std::string& text) {
  return indentation + static_cast<int>(text.size()) <= kColumnLimit;
}

// Gives the end of an empty body a line of its own if it does not fit on the
// last of `lines`.
std::string BreakEmptyBody(int indentation, const std::string& lines) {
  const size_t last_line = lines.rfind('\n', lines.size() - 2) + 1;
  const bool fits = Fits(-1, lines.substr(last_line));
  if (fits || !EndsWith(lines, "{}\n")) return lines;
  return lines.substr(0, lines.size() - 2) + "\n" + Line(indentation, "}");
}

std::string BreakIfLong(int indentation, const std::string& text) {
  return Fits(indentation, text) ? Line(indentation, text)
                                 : BreakStatement(indentation, text);
}

// The parts of `text` between commas, of which the parts have none.
std::vector<std::string> Split(const std::string& text) {
  std::vector<std::string> parts;
  for (size_t begin = 0; begin < text.size();) {
    const size_t end = std::min(text.find(", ", begin), text.size());
    parts.push_back(text.substr(begin, end - begin));
    begin = end + 2;
  }
  return parts;
}

// All initialisers are on one line, or each on its own.
std::string BreakConstructor(int indentation, const std::string& head,
                             const std::string& initializers) {
  const int start = indentation;
  indentation += kContinuationIndent;
  std::string result = BreakIfLong(start, head);
  if (Fits(indentation, ": " + initializers)) {
    return result + Line(indentation, ": " + initializers);
  }
  const std::vector<std::string> parts = Split(initializers);
  for (size_t i = 0; i < parts.size(); ++i) {
    const std::string end = i + 1 < parts.size() ? "," : "";
    result += i == 0 ? BreakIfLong(indentation, ": " + parts[i] + end)
                     : BreakIfLong(indentation + kIndent, parts[i] + end);
  }
  return BreakEmptyBody(start, result);
}

std::string BreakFunction(int indentation, const std::string& head,
                          const std::string& body);

std::string BreakCode(int indentation, const std::string& text) {
  if (Fits(indentation, text)) return Line(indentation, text);
  const size_t body = text.find(" { ");
  if (body != std::string::npos && EndsWith(text, " }")) {
    return BreakFunction(indentation, text.substr(0, body),
                         text.substr(body + 3, text.size() - body - 5));
  }
  for (const std::string end_of_head : {")", ") noexcept"}) {
    const size_t colon = text.find(end_of_head + " : ");
    if (colon == std::string::npos) continue;
    const size_t end = colon + end_of_head.size();
    return BreakConstructor(indentation, text.substr(0, end),
                            text.substr(end + 3));
  }
  const size_t end = text.rfind('{') + 1;
  if (end > 0 && !EndsWith(text, "= {};") &&
      Fits(indentation, text.substr(0, end))) {
    return Line(indentation, text.substr(0, end)) +
           Line(indentation, text.substr(end));
  }
  return BreakEmptyBody(indentation, BreakStatement(indentation, text));
}

std::string BreakFunction(int indentation, const std::string& head,
                          const std::string& body) {
  return BreakCode(indentation, head + " {") +
         BreakCode(indentation + kIndent, body) + Line(indentation, "}");
}

// Breaks between words.
std::string BreakComment(int indentation, const std::string& text) {
  std::string result;
  std::string line = "//";
  std::istringstream words(text.substr(line.size()));
  for (std::string word; words >> word;) {
    if (line != "//" && !Fits(indentation, line + " " + word)) {
      result += Line(indentation, line);
      line = "//";
    }
    line += " " + word;
  }
  return result + Line(indentation, line);
}

}  // namespace

std::string BreakLongLines(const std::string& code) {
  std::string result;
  std::istringstream lines(code);
  for (std::string line; std::getline(lines, line);) {
    const bool is_directive = !line.empty() && line[0] == '#';
    if (Fits(0, line) || is_directive) {
      result += line + "\n";
      continue;
    }
    const auto indentation = static_cast<int>(line.find_first_not_of(' '));
    const std::string text = line.substr(static_cast<size_t>(indentation));
    result += text.compare(0, 2, "//") == 0 ? BreakComment(indentation, text)
                                            : BreakCode(indentation, text);
  }
  return result;
}

}  // namespace compiler
}  // namespace vantiro
