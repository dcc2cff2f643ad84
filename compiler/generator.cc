#include "compiler/generator.h"

#include <google/protobuf/io/printer.h>
#include <google/protobuf/io/zero_copy_stream.h>

#include <memory>

#include "compiler/file_generator.h"
#include "compiler/names.h"
#include "compiler/validator.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::FileDescriptor;
using google::protobuf::compiler::GeneratorContext;

void Write(GeneratorContext* context, const std::string& name,
           const std::string& text) {
  const std::unique_ptr<google::protobuf::io::ZeroCopyOutputStream> stream(
      context->Open(name));
  google::protobuf::io::Printer printer(stream.get(), '$');
  printer.PrintRaw(text);
}

}  // namespace

bool Generator::Generate(const FileDescriptor* file,
                         const std::string& parameter,
                         GeneratorContext* context, std::string* error) const {
  return GenerateAll({file}, parameter, context, error);
}

bool Generator::GenerateAll(const std::vector<const FileDescriptor*>& files,
                            const std::string& parameter,
                            GeneratorContext* context,
                            std::string* error) const {
  if (!parameter.empty()) {
    *error = "no parameter is known, got: " + parameter;
    return false;
  }
  ValidationErrors errors;
  for (const FileDescriptor* file : files) Validate(file, &errors);
  if (!errors.lines().empty()) {
    *error = std::to_string(errors.lines().size()) + " not supported:";
    for (const std::string& line : errors.lines()) *error += "\n" + line;
    return false;
  }
  for (const FileDescriptor* file : files) {
    const FileGenerator generator(file);
    Write(context, Stem(file) + ".pb.h", generator.Header());
    Write(context, Stem(file) + ".pb.cc", generator.Source());
  }
  return true;
}

}  // namespace compiler
}  // namespace vantiro
