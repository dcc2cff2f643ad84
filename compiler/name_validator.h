// Whether emitted code can declare what a schema names.

#ifndef VANTIRO_COMPILER_NAME_VALIDATOR_H_
#define VANTIRO_COMPILER_NAME_VALIDATOR_H_

#include <google/protobuf/descriptor.h>

#include "compiler/validation_errors.h"

namespace vantiro {
namespace compiler {

// Reports every name in `file` with which its code would not compile: one that
// C++ or an included header has taken, or that is declared twice in a namespace
// or class. `file` has nothing else that is not supported.
void ValidateNames(const google::protobuf::FileDescriptor* file,
                   ValidationErrors* errors);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_NAME_VALIDATOR_H_
