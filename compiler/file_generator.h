// Emits a unit: its header and its source.

#ifndef VANTIRO_COMPILER_FILE_GENERATOR_H_
#define VANTIRO_COMPILER_FILE_GENERATOR_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace compiler {

// The whole text of <stem>.pb.h and of <stem>.pb.cc. The same unit gives the
// same text. The unit holds nothing that FindUnsupported finds.
std::string HeaderText(const google::protobuf::FileDescriptor* file);
std::string SourceText(const google::protobuf::FileDescriptor* file);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FILE_GENERATOR_H_
