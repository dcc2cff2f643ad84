#include "tools/reference/comment.h"

#include <google/protobuf/descriptor.pb.h>

#include <cctype>
#include <sstream>
#include <vector>

#include "tools/page/html.h"
#include "tools/reference/links.h"

namespace vantiro {
namespace reference {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;

// The lines of each paragraph joined by spaces.
std::vector<std::string> SplitParagraphs(const std::string& comment) {
  std::vector<std::string> paragraphs;
  std::istringstream lines(comment);
  std::string line;
  bool inside = false;
  while (std::getline(lines, line)) {
    const size_t begin = line.find_first_not_of(' ');
    if (begin == std::string::npos) {
      inside = false;
      continue;
    }
    if (inside) {
      paragraphs.back() += ' ' + line.substr(begin);
    } else {
      paragraphs.push_back(line.substr(begin));
    }
    inside = true;
  }
  return paragraphs;
}

bool IsNameCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' ||
         c == '.';
}

// The address of the declaration `name` in `scope`, a package or a message;
// empty if there is none.
std::string AddressInScope(const std::string& scope, const std::string& name,
                           const FileDescriptor* unit) {
  const auto* pool = unit->pool();
  const std::string full_name = scope.empty() ? name : scope + "." + name;
  if (const auto* message = pool->FindMessageTypeByName(full_name)) {
    return Address(unit, message->file(), NameInUnit(message));
  }
  if (const auto* type = pool->FindEnumTypeByName(full_name)) {
    return Address(unit, type->file(), NameInUnit(type));
  }
  if (const auto* value = pool->FindEnumValueByName(full_name)) {
    return Address(unit, value->file(), AnchorOf(value));
  }
  return "";
}

// A word such as "time" is a word, not the name of a field.
bool IsPlainWord(const std::string& name) {
  for (const char c : name) {
    if (std::islower(static_cast<unsigned char>(c)) == 0) return false;
  }
  return true;
}

std::string AddressOfName(const std::string& name, const FileDescriptor* unit,
                          const Descriptor* message) {
  if (IsPlainWord(name)) return "";
  if (message != nullptr) {
    const FieldDescriptor* field = message->FindFieldByName(name);
    if (field != nullptr) return Address(unit, unit, AnchorOf(field));
  }
  // From the innermost scope outwards, as type names in a schema are resolved.
  std::string scope =
      message != nullptr ? message->full_name() : unit->package();
  while (true) {
    std::string address = AddressInScope(scope, name, unit);
    if (!address.empty() || scope.empty()) return address;
    const size_t dot = scope.rfind('.');
    scope = dot == std::string::npos ? "" : scope.substr(0, dot);
  }
}

std::string LinkName(const std::string& name, const FileDescriptor* unit,
                     const Descriptor* message) {
  if (const auto* other = unit->pool()->FindFileByName(name + ".proto")) {
    return "<a href=\"" + PageOf(other) + "\">" + name + "</a>";
  }
  const std::string address = AddressOfName(name, unit, message);
  if (address.empty()) return Escape(name);
  return "<a href=\"" + address + "\">" + Escape(name) + "</a>";
}

std::string LinkNames(const std::string& text, const FileDescriptor* unit,
                      const Descriptor* message) {
  std::string result;
  size_t at = 0;
  while (at < text.size()) {
    size_t end = at;
    while (end < text.size() && IsNameCharacter(text[end])) ++end;
    // The full stop of a sentence is not part of the name.
    while (end > at && text[end - 1] == '.') --end;
    if (end == at) {
      result += Escape(text.substr(at++, 1));
      continue;
    }
    result += LinkName(text.substr(at, end - at), unit, message);
    at = end;
  }
  return result;
}

}  // namespace

std::string CommentOf(const FileDescriptor* unit) {
  google::protobuf::SourceLocation location;
  const std::vector<int> syntax = {
      google::protobuf::FileDescriptorProto::kSyntaxFieldNumber};
  if (!unit->GetSourceLocation(syntax, &location)) return "";
  std::string comment;
  for (const std::string& part : location.leading_detached_comments) {
    comment += part + "\n";
  }
  return comment + location.leading_comments;
}

std::string Paragraphs(const std::string& comment, const FileDescriptor* unit,
                       const Descriptor* message) {
  std::string result;
  for (const std::string& paragraph : SplitParagraphs(comment)) {
    result += "<p>" + LinkNames(paragraph, unit, message) + "</p>\n";
  }
  return result;
}

std::string Summary(const std::string& comment) {
  constexpr size_t kTellsEnough = 30;
  const std::vector<std::string> paragraphs = SplitParagraphs(comment);
  if (paragraphs.empty()) return "";
  const size_t stop = paragraphs[0].find(". ", kTellsEnough);
  if (stop == std::string::npos) return Escape(paragraphs[0]);
  return Escape(paragraphs[0].substr(0, stop + 1));
}

}  // namespace reference
}  // namespace vantiro
