#include "compiler/validation_errors.h"

#include <google/protobuf/descriptor.pb.h>

namespace vantiro {
namespace compiler {

using google::protobuf::FileDescriptor;
using google::protobuf::FileDescriptorProto;
using google::protobuf::SourceLocation;

std::string PlaceOf(const FileDescriptor* file,
                    const SourceLocation& location) {
  return file->name() + ":" + std::to_string(location.start_line + 1) + ":" +
         std::to_string(location.start_column + 1);
}

SchemaElement ElementOf(const FileDescriptor* file) {
  return {PlaceOf(file, {}), file->name()};
}

SchemaElement PackageOf(const FileDescriptor* file) {
  SourceLocation location = {};
  file->GetSourceLocation({FileDescriptorProto::kPackageFieldNumber},
                          &location);
  return {PlaceOf(file, location), file->package()};
}

void ValidationErrors::Add(const SchemaElement& element,
                           const std::string& reason) {
  lines_.push_back(element.place + ": " + element.full_name + ": " + reason);
  places_.insert(element.place);
}

void ValidationErrors::AddFirst(const SchemaElement& element,
                                const std::string& reason) {
  if (places_.count(element.place) == 0) Add(element, reason);
}

}  // namespace compiler
}  // namespace vantiro
