// What the functions of all enums share. The tables are compile-time constants.
// The tables of the runtime's own helpers are not, with some compilers: they
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

// Storage for a name, which is constructed by the first call of <Enum>_Name.
using EnumName = google::protobuf::internal::ExplicitlyConstructed<std::string>;

struct EnumTables {
  // Sorted by name.
  const EnumEntry* entries;
  // Indices into `entries`, sorted by value.
  const int* entries_by_number;
  int count;
  // In the same order as entries_by_number.
  EnumName* names;
  // How many more entries there are: further names for the same values.
  int alias_count = 0;
};

// Constructs the names. To be called once. The runtime's shutdown destroys
// them. Returns true, as the initialiser of a local static. Running out of
// memory ends the process: if the initialisation stopped half-way, all other
// threads would wait for ever.
bool BuildEnumNames(const EnumTables& tables) noexcept;

// The name of `value`, or the empty string if it is not declared. To be called
// after BuildEnumNames.
const std::string& FindEnumName(const EnumTables& tables, int value);

// Stores the value that is called `name` and returns true, or returns false and
// leaves `*value` unchanged.
bool FindEnumValue(const EnumTables& tables, const std::string& name,
                   int* value);

// The same for a value of the enum's type.
template <typename Enum>
bool ParseEnum(const EnumTables& tables, const std::string& name, Enum* value) {
  int number;
  if (!FindEnumValue(tables, name, &number)) return false;
  *value = static_cast<Enum>(number);
  return true;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_ENUM_NAMES_H_
