// Emits the code of a unit: its header and its source.

#ifndef VANTIRO_COMPILER_FILE_GENERATOR_H_
#define VANTIRO_COMPILER_FILE_GENERATOR_H_

#include <google/protobuf/descriptor.h>

#include <memory>
#include <string>
#include <vector>

#include "compiler/enum_generator.h"
#include "compiler/message_generator.h"
#include "compiler/template.h"

namespace vantiro {
namespace compiler {

// The same unit always gives the same code. Validate must have reported nothing
// in the unit.
class FileGenerator {
 public:
  explicit FileGenerator(const google::protobuf::FileDescriptor* file);

  // All of <stem>.pb.h and of <stem>.pb.cc.
  std::string Header() const;
  std::string Source() const;

 private:
  using EnumFunction = std::string (EnumGenerator::*)() const;
  using MessageFunction = std::string (MessageGenerator::*)() const;

  std::string ForEnums(EnumFunction function) const;
  std::string ForMessages(MessageFunction function) const;

  std::string IncludesOfHeader() const;
  std::string SccInfoDeclarations() const;
  std::string DefaultInstances() const;

  const google::protobuf::FileDescriptor* const file_;
  const Variables variables_;
  std::vector<std::unique_ptr<EnumGenerator>> enums_;
  // Nested messages come before the one that contains them.
  std::vector<std::unique_ptr<MessageGenerator>> messages_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FILE_GENERATOR_H_
