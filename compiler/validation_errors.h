// The errors that the plug-in reports about a schema.

#ifndef VANTIRO_COMPILER_VALIDATION_ERRORS_H_
#define VANTIRO_COMPILER_VALIDATION_ERRORS_H_

#include <google/protobuf/descriptor.h>

#include <set>
#include <string>
#include <vector>

namespace vantiro {
namespace compiler {

// What an error is about.
struct SchemaElement {
  // "<file>:<line>:<column>"
  std::string place;
  std::string full_name;
};

std::string PlaceOf(const google::protobuf::FileDescriptor* file,
                    const google::protobuf::SourceLocation& location);

// A message, enum, enum value, field ...
template <typename T>
SchemaElement ElementOf(const T* descriptor) {
  google::protobuf::SourceLocation location = {};
  descriptor->GetSourceLocation(&location);
  return {PlaceOf(descriptor->file(), location), descriptor->full_name()};
}

SchemaElement ElementOf(const google::protobuf::FileDescriptor* file);
SchemaElement PackageOf(const google::protobuf::FileDescriptor* file);

class ValidationErrors {
 public:
  // Adds "<file>:<line>:<column>: <name>: <reason>".
  void Add(const SchemaElement& element, const std::string& reason);
  // The same, unless there is an error about the element already.
  void AddFirst(const SchemaElement& element, const std::string& reason);

  const std::vector<std::string>& lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
  std::set<std::string> places_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_VALIDATION_ERRORS_H_
