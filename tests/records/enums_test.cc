// Every enum: its values, and the numbers and names next to them.

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "all_units.h"

namespace vantiro {
namespace tests {
namespace {

struct Enum {
  const char* full_name;
  bool (*is_valid)(int value);
  const std::string& (*name)(int value);
  bool (*parse)(const std::string& name, int* value);
  int min;
  int max;
  int array_size;
};

const Enum kEnums[] = {
#define VANTIRO_ENUM(E, full_name, scope, enum_name)          \
  {full_name,                                                 \
   scope::enum_name##_IsValid,                                \
   [](int value) -> const std::string& {                      \
     return scope::enum_name##_Name(static_cast<E>(value));   \
   },                                                         \
   [](const std::string& name, int* value) {                  \
     E parsed = static_cast<E>(*value);                       \
     const bool ok = scope::enum_name##_Parse(name, &parsed); \
     *value = parsed;                                         \
     return ok;                                               \
   },                                                         \
   scope::enum_name##_MIN,                                    \
   scope::enum_name##_MAX,                                    \
   scope::enum_name##_ARRAYSIZE},
#include "all_types.inc"
};

struct EnumValue {
  const char* full_name;
  const char* name;
  int number;
};

const EnumValue kValues[] = {
#define VANTIRO_ENUM_VALUE(E, full_name, value_name, number) \
  {full_name, value_name, number},
#include "all_types.inc"
};

std::map<int, std::string> ValuesOf(const Enum& type) {
  std::map<int, std::string> values;
  for (const EnumValue& value : kValues) {
    if (std::string(value.full_name) == type.full_name) {
      values[value.number] = value.name;
    }
  }
  return values;
}

TEST(Enums, AreAllThere) {
  EXPECT_EQ(std::size(kEnums), 73u);
  EXPECT_EQ(std::size(kValues), 413u);
}

TEST(Enums, KnowTheirNumbersAndNoOthers) {
  for (const Enum& type : kEnums) {
    const std::map<int, std::string> values = ValuesOf(type);
    ASSERT_FALSE(values.empty()) << type.full_name;
    EXPECT_EQ(type.min, values.begin()->first) << type.full_name;
    EXPECT_EQ(type.max, values.rbegin()->first) << type.full_name;
    EXPECT_EQ(type.array_size, type.max + 1) << type.full_name;
    std::set<int> numbers = {INT_MIN, -1, INT_MAX};
    for (int i = type.min - 2; i <= type.max + 40; ++i) numbers.insert(i);
    for (const int number : numbers) {
      const auto found = values.find(number);
      const bool known = found != values.end();
      EXPECT_EQ(type.is_valid(number), known) << type.full_name << number;
      EXPECT_EQ(type.name(number), known ? found->second : "")
          << type.full_name << number;
    }
  }
}

TEST(Enums, ParseTheirNamesExactly) {
  constexpr int kUntouched = -77;
  for (const Enum& type : kEnums) {
    std::map<std::string, int> numbers;
    for (const auto& value : ValuesOf(type)) {
      numbers[value.second] = value.first;
    }
    std::set<std::string> names = {"", " ", "~"};
    for (const auto& [name, number] : numbers) {
      std::string other_case = name;
      for (char& c : other_case) c = static_cast<char>(c ^ (c > '@' ? 32 : 0));
      names.insert({name, other_case, name + "X", name + '\0', name.substr(1),
                    name.substr(0, name.size() - 1)});
    }
    for (const std::string& name : names) {
      const auto found = numbers.find(name);
      const bool known = found != numbers.end();
      int value = kUntouched;
      EXPECT_EQ(type.parse(name, &value), known) << type.full_name << name;
      EXPECT_EQ(value, known ? found->second : kUntouched)
          << type.full_name << name;
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
