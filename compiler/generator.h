// The plug-in as protoc sees it.

#ifndef VANTIRO_COMPILER_GENERATOR_H_
#define VANTIRO_COMPILER_GENERATOR_H_

#include <google/protobuf/compiler/code_generator.h>

#include <string>
#include <vector>

namespace vantiro {
namespace compiler {

// Emits <stem>.pb.h and <stem>.pb.cc for every unit. Takes no parameter. If any
// unit contains something that is not supported, nothing is emitted and the
// error has one line for each fault, "<file>:<line>:<column>: <name>: <fault>".
class Generator : public google::protobuf::compiler::CodeGenerator {
 public:
  bool Generate(const google::protobuf::FileDescriptor* file,
                const std::string& parameter,
                google::protobuf::compiler::GeneratorContext* context,
                std::string* error) const override;

  bool GenerateAll(
      const std::vector<const google::protobuf::FileDescriptor*>& files,
      const std::string& parameter,
      google::protobuf::compiler::GeneratorContext* context,
      std::string* error) const override;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_GENERATOR_H_
