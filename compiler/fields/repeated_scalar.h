// What all repeated scalar fields have in common.

#ifndef VANTIRO_COMPILER_FIELDS_REPEATED_SCALAR_H_
#define VANTIRO_COMPILER_FIELDS_REPEATED_SCALAR_H_

#include <string>

#include "compiler/fields/field_generator.h"

namespace vantiro {
namespace compiler {

// A RepeatedField and the cached size of its packed payload. A kind adds how
// its elements are sized, written and read.
class RepeatedScalarFieldGenerator : public FieldGenerator {
 public:
  // `type` is the C++ type of an element's accessors, `element` that of the
  // elements in the RepeatedField.
  RepeatedScalarFieldGenerator(const google::protobuf::FieldDescriptor* field,
                               const std::string& type,
                               const std::string& element);

  std::string Member() const override;
  std::string CachedSizeMember() const override;
  std::string AccessorDeclarations() const override;
  std::string CopyConstruct() const override;
  std::string Clear() const override;
  std::string Merge() const override;
  std::string Copy() const override;
  std::string Swap() const override;
  std::string ByteSize() const override;
  std::string Serialize() const override;
  std::string Parse() const override;
  std::string ArenaInitializer() const override;

 protected:
  // The expression that the accessor of an element returns.
  virtual std::string ElementToGet() const { return name() + "_.Get(index)"; }
  // An expression for the payload's size.
  virtual std::string PayloadSize() const = 0;
  // The functions of lib/internal that write and read the field.
  virtual std::string WriteFunction() const = 0;
  virtual std::string ReadFunction() const = 0;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_REPEATED_SCALAR_H_
