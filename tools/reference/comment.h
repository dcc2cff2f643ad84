// The schema's comments as HTML.

#ifndef VANTIRO_TOOLS_REFERENCE_COMMENT_H_
#define VANTIRO_TOOLS_REFERENCE_COMMENT_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace reference {

// The text of the comment above a declaration, or at the head of a unit; empty
// if there is none.
std::string CommentOf(const google::protobuf::FileDescriptor* unit);
template <typename Declared>
std::string CommentOf(const Declared* declared) {
  google::protobuf::SourceLocation location;
  return declared->GetSourceLocation(&location) ? location.leading_comments
                                                : "";
}

// `comment` as paragraphs for the page of `unit`. The names of messages, enums
// and enum values become links, and those of fields of `message` if that is not
// null.
std::string Paragraphs(const std::string& comment,
                       const google::protobuf::FileDescriptor* unit,
                       const google::protobuf::Descriptor* message);

// The first sentence of `comment` as text in HTML; more if it is short.
std::string Summary(const std::string& comment);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_COMMENT_H_
