// What the plug-in takes, and what it refuses.

#ifndef VANTIRO_COMPILER_VALIDATOR_H_
#define VANTIRO_COMPILER_VALIDATOR_H_

#include <google/protobuf/descriptor.h>

#include <string>
#include <vector>

namespace vantiro {
namespace compiler {

// Appends to `faults` one line for everything in `file` that the emitted
// classes have no shape for: "<file>:<line>:<column>: <name>: <fault>".
void FindUnsupported(const google::protobuf::FileDescriptor* file,
                     std::vector<std::string>* faults);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_VALIDATOR_H_
