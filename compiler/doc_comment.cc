#include "compiler/doc_comment.h"

#include <algorithm>
#include <sstream>
#include <vector>

namespace vantiro {
namespace compiler {
namespace {

// One line of a comment, which must not continue on the next line of code.
std::string CommentLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(),
      [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  text.erase(text.find_last_not_of(" \\") + 1);
  if (text.empty()) return "//\n";
  return (text[0] == ' ' ? "//" : "// ") + text + "\n";
}

std::string Lines(const std::string& comment) {
  std::string result;
  std::istringstream lines(comment);
  for (std::string line; std::getline(lines, line);) {
    result += CommentLine(line);
  }
  return result;
}

}  // namespace

std::string CommentLines(const google::protobuf::SourceLocation& location) {
  return Lines(location.leading_comments) + Lines(location.trailing_comments);
}

}  // namespace compiler
}  // namespace vantiro
