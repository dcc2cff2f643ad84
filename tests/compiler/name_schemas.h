// Schemas that use given names in every position that has one.

#ifndef VANTIRO_TESTS_COMPILER_NAME_SCHEMAS_H_
#define VANTIRO_TESTS_COMPILER_NAME_SCHEMAS_H_

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vantiro {
namespace tests {

// One name in one place.
struct NameUse {
  std::string position;
  std::string name;
  // "<file>:<line>:<column>"
  std::string place;
  std::string full_name;
};

struct NameSchemas {
  // Their text by file name.
  std::map<std::string, std::string> files;
  std::vector<NameUse> uses;
};

using IsWanted = std::function<bool(const NameUse&)>;

// Uses all names in all positions, except where `is_wanted` says no.
//
// Positions: package, inner_package, message, global_message, nested, enum,
// nested_enum, value, nested_value, field (of every kind).
NameSchemas MakeNameSchemas(const std::vector<std::string>& names,
                            const IsWanted& is_wanted);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_COMPILER_NAME_SCHEMAS_H_
