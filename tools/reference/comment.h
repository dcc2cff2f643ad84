// The schema's comments as HTML.

#ifndef VANTIRO_TOOLS_REFERENCE_COMMENT_H_
#define VANTIRO_TOOLS_REFERENCE_COMMENT_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace reference {

// The text of a comment, its marks taken off; empty where there is none.
std::string CommentOf(const google::protobuf::FileDescriptor* unit);
template <typename Declared>
std::string CommentOf(const Declared* declared) {
  google::protobuf::SourceLocation location;
  return declared->GetSourceLocation(&location) ? location.leading_comments
                                                : "";
}

// `comment` as paragraphs for the page of `unit`. Names of messages, enums and
// their values in it become links, also those of fields of `message` if that
// isn't null.
std::string Paragraphs(const std::string& comment,
                       const google::protobuf::FileDescriptor* unit,
                       const google::protobuf::Descriptor* message);

// The beginning of `comment` as plain text for HTML: one sentence, or more
// while they are short.
std::string Summary(const std::string& comment);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_COMMENT_H_
