// string and bytes

#ifndef VANTIRO_COMPILER_FIELDS_STRING_H_
#define VANTIRO_COMPILER_FIELDS_STRING_H_

#include <string>

#include "compiler/fields/field_generator.h"

namespace vantiro {
namespace compiler {

// The two kinds differ in this: strings are checked for UTF-8 when they are
// read and when they are written, bytes are not.
class StringFieldGenerator : public FieldGenerator {
 public:
  enum Kind { kString, kBytes };

  StringFieldGenerator(const google::protobuf::FieldDescriptor* field,
                       Kind kind);

  std::string Member() const override;
  std::string AccessorDeclarations() const override;
  std::string Construct() const override;
  std::string CopyConstruct() const override;
  std::string Destroy() const override;
  std::string Clear() const override;
  std::string Merge() const override;
  std::string Copy() const override;
  std::string Swap() const override;
  std::string ByteSize() const override;
  std::string Serialize() const override;
  std::string Parse() const override;

 private:
  const Kind kind_;
  const bool has_arenas_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_FIELDS_STRING_H_
