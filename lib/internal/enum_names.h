// What the functions of all enums have in common. The tables are constant,
// which those of the runtime's own helpers are not with every compiler: they
// would be filled when the library is loaded.

#ifndef VANTIRO_LIB_INTERNAL_ENUM_NAMES_H_
#define VANTIRO_LIB_INTERNAL_ENUM_NAMES_H_

#include <google/protobuf/explicitly_constructed.h>

#include <string>

namespace vantiro {
namespace internal {

struct EnumEntry {
  const char* name;
  int name_size;
  int value;
};

// Storage of a name string that is built at the first call of <Enum>_Name.
using EnumName = google::protobuf::internal::ExplicitlyConstructed<std::string>;

struct EnumTables {
  // Sorted by name.
  const EnumEntry* entries;
  // Sorted by value: where each stands among the entries.
  const int* entries_by_number;
  int count;
  // In the order of entries_by_number.
  EnumName* names;
};

// Builds the name strings. To be called once. The runtime's shutdown destroys
// them. Gives true, to initialise a local static with. Running out of memory
// ends the process: names half built would hold up all threads for ever.
bool BuildEnumNames(const EnumTables& tables) noexcept;

// The name of `value`, the empty string if it is not declared. The name strings
// have been built.
const std::string& FindEnumName(const EnumTables& tables, int value);

// Stores the value named `name` and gives true; or gives false and leaves
// `*value` alone.
bool FindEnumValue(const EnumTables& tables, const std::string& name,
                   int* value);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_ENUM_NAMES_H_
