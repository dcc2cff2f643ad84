// The comments of a schema as comments of the emitted code.

#ifndef VANTIRO_COMPILER_DOC_COMMENT_H_
#define VANTIRO_COMPILER_DOC_COMMENT_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace compiler {

// The lines of the comment before an element of the schema, and then those of
// the one after it on its line, each beginning with "//".
std::string CommentLines(const google::protobuf::SourceLocation& location);

// The same for the element of `descriptor`; empty if it has no comment.
template <typename Descriptor>
std::string DocComment(const Descriptor* descriptor) {
  google::protobuf::SourceLocation location;
  return descriptor->GetSourceLocation(&location) ? CommentLines(location) : "";
}

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_DOC_COMMENT_H_
