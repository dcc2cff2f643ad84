// What all repeated scalar fields have in common.

#ifndef VANTIRO_COMPILER_FIELDS_REPEATED_SCALAR_H_
#define VANTIRO_COMPILER_FIELDS_REPEATED_SCALAR_H_

#include <string>

#include "compiler/fields/field_generator.h"

namespace vantiro {
namespace compiler {

// A RepeatedField and, if it is packed, the cached size of its payload. A
// parser takes both encodings, whichever the field is written in. A kind adds
// how its elements are sized, written and read.
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
  // An expression for the size of all elements without tags.
  virtual std::string PayloadSize() const = 0;
  bool is_packed() const { return descriptor()->is_packed(); }
  // Whether the parser looks ahead after an unpacked element. As in 3.9.1 it
  // does not do so for longer tags.
  bool looks_ahead() const { return is_packed() && tag_size() <= 2; }
  // The functions of lib/internal that write and read the field.
  virtual std::string WriteFunction() const = 0;
  virtual std::string ReadFunction() const = 0;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_REPEATED_SCALAR_H_
