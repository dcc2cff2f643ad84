// Whether the plug-in can emit the code of a schema.

#ifndef VANTIRO_COMPILER_VALIDATOR_H_
#define VANTIRO_COMPILER_VALIDATOR_H_

#include <google/protobuf/descriptor.h>

#include "compiler/validation_errors.h"

namespace vantiro {
namespace compiler {

// Reports everything in `file` that the emitted code would not work with: first
// the features that it has no code for; where there are none, the names.
void Validate(const google::protobuf::FileDescriptor* file,
              ValidationErrors* errors);

// The features alone. A file without errors can be given to the generators.
void ValidateFeatures(const google::protobuf::FileDescriptor* file,
                      ValidationErrors* errors);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_VALIDATOR_H_
