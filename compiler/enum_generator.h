// Emits the code of an enum: its C++ type and its functions.

#ifndef VANTIRO_COMPILER_ENUM_GENERATOR_H_
#define VANTIRO_COMPILER_ENUM_GENERATOR_H_

#include <google/protobuf/descriptor.h>

#include <string>
#include <vector>

#include "compiler/template.h"

namespace vantiro {
namespace compiler {

class EnumGenerator {
 public:
  explicit EnumGenerator(const google::protobuf::EnumDescriptor* enum_type);

  // The header: the enum and the declarations of its functions; the type trait
  // by which the runtime knows enums, for the runtime's namespace.
  std::string Declaration() const;
  std::string Trait() const;

  // The names of a nested enum in the class of the message around it.
  std::string MembersOfClass() const;

  // The source: the tables and functions.
  std::string Definition() const;

 private:
  using ValueList = std::vector<const google::protobuf::EnumValueDescriptor*>;

  bool IsDenseFromZero() const;
  std::string ValidityTest() const;
  // The enum's values in the order of the schema.
  std::string Values() const;
  // The definition of the table of all names, which are one literal.
  std::string Names() const;
  std::string Entries() const;
  std::string EntriesByNumber() const;
  std::string Tables() const;
  // Whether there is a number for the constant of the size.
  bool HasArraySize() const;

  const google::protobuf::EnumDescriptor* const enum_type_;
  const ValueList by_name_;
  // Without aliases.
  const ValueList by_number_;
  const Variables variables_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_ENUM_GENERATOR_H_
