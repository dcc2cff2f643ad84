#include "internal/enum_names.h"

#include <google/protobuf/generated_message_util.h>

#include <algorithm>

namespace vantiro {
namespace internal {
namespace {

int Compare(const std::string& name, const EnumEntry& entry) {
  return name.compare(0, std::string::npos, entry.name,
                      static_cast<size_t>(entry.name_size));
}

}  // namespace

bool BuildEnumNames(const EnumTables& tables) noexcept {
  for (int i = 0; i < tables.count; ++i) {
    const EnumEntry& entry = tables.entries[tables.entries_by_number[i]];
    tables.names[i].Construct(entry.name, static_cast<size_t>(entry.name_size));
    google::protobuf::internal::OnShutdownDestroyString(
        tables.names[i].get_mutable());
  }
  return true;
}

const std::string& FindEnumName(const EnumTables& tables, int value) {
  const int* const begin = tables.entries_by_number;
  const int* const end = begin + tables.count;
  const int* const found =
      std::lower_bound(begin, end, value, [&tables](int entry, int wanted) {
        return tables.entries[entry].value < wanted;
      });
  if (found == end || tables.entries[*found].value != value) {
    return google::protobuf::internal::GetEmptyString();
  }
  return tables.names[found - begin].get();
}

bool FindEnumValue(const EnumTables& tables, const std::string& name,
                   int* value) {
  const EnumEntry* const end =
      tables.entries + tables.count + tables.alias_count;
  const EnumEntry* const found =
      std::lower_bound(tables.entries, end, name,
                       [](const EnumEntry& entry, const std::string& wanted) {
                         return Compare(wanted, entry) > 0;
                       });
  if (found == end || Compare(name, *found) != 0) return false;
  *value = found->value;
  return true;
}

}  // namespace internal
}  // namespace vantiro
