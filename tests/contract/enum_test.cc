// What comes with every enum: validity, names, parsing and bounds.

#include <google/protobuf/generated_message_util.h>
#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <string>
#include <type_traits>

#include "all_types.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::internal::GetEmptyString;

struct Enum {
  bool (*is_valid)(int value);
  const std::string& (*name_of)(int value);
  bool (*parse)(const std::string& name, int* value);
  int min;
  int max;
  int array_size;
  // As the schema declares them.
  std::map<int, std::string> values;
};

template <typename T, bool (*kParse)(const std::string&, T*)>
bool ParseAsInt(const std::string& name, int* value) {
  auto parsed = static_cast<T>(*value);
  const bool ok = kParse(name, &parsed);
  *value = parsed;
  return ok;
}

std::map<std::string, Enum> AllEnums() {
  std::map<std::string, Enum> enums;
#define VANTIRO_ENUM(type, full_name, scope, name)           \
  enums[full_name] = {scope::name##_IsValid,                 \
                      scope::name##_Name<int>,               \
                      ParseAsInt<type, scope::name##_Parse>, \
                      scope::name##_MIN,                     \
                      scope::name##_MAX,                     \
                      scope::name##_ARRAYSIZE,               \
                      {}};
#define VANTIRO_ENUM_VALUE(type, full_name, name, number) \
  enums[full_name].values.emplace(number, name);
#include "type_table.inc"
  return enums;
}

TEST(Enums, KnowTheDeclaredValuesAndNoOthers) {
  EXPECT_EQ(AllEnums().size(), 73u + 6);
  for (const auto& [full_name, an_enum] : AllEnums()) {
    SCOPED_TRACE(full_name);
    EXPECT_EQ(an_enum.min, an_enum.values.begin()->first);
    EXPECT_EQ(an_enum.max, an_enum.values.rbegin()->first);
    EXPECT_EQ(an_enum.array_size, an_enum.max + 1);
    std::set<int> numbers = {INT_MIN, INT_MAX};
    for (int i = an_enum.min - 2; i <= an_enum.max + 2; ++i) numbers.insert(i);
    for (const int number : numbers) {
      const auto declared = an_enum.values.find(number);
      const bool is_declared = declared != an_enum.values.end();
      EXPECT_EQ(an_enum.is_valid(number), is_declared) << number;
      // The same object each time.
      const std::string& name = an_enum.name_of(number);
      EXPECT_EQ(&name, &an_enum.name_of(number)) << number;
      EXPECT_EQ(&name == &GetEmptyString(), !is_declared) << number;
      EXPECT_EQ(name, is_declared ? declared->second : "") << number;
    }
  }
}

TEST(Enums, HaveTheNameDeclaredFirstAndParseAll) {
  EXPECT_EQ(Alias_Name(ALIAS_STEADY), "ALIAS_SLOW");
  EXPECT_EQ(Alias_Name(ALIAS_ALSO_NONE), "ALIAS_NONE");
  const std::map<std::string, int> values = {{"ALIAS_NONE", 0},
                                             {"ALIAS_ALSO_NONE", 0},
                                             {"ALIAS_SLOW", 1},
                                             {"ALIAS_STEADY", 1},
                                             {"ALIAS_FAST", 3}};
  for (const auto& [name, number] : values) {
    Alias value = ALIAS_NONE;
    EXPECT_TRUE(Alias_Parse(name, &value)) << name;
    EXPECT_EQ(value, number) << name;
  }
}

// Those of the class are tested above with all others.
TEST(Enums, InMessagesHaveTheNamesOfProtocsClasses) {
  static_assert(std::is_same<Gauge::Mode, Gauge_Mode>::value);
  static_assert(!std::is_same<Gauge::Mode, Gauge::Part::Mode>::value);
  static_assert(Gauge::MODE_ON == Gauge_Mode_MODE_ON);
  static_assert(Gauge::int_ == Gauge_Mode_int_);
  static_assert(Gauge::Part::MODE_ON == 2);
  static_assert(Gauge_Mode_Mode_MIN == Gauge::Mode_MIN);
  static_assert(Gauge_Mode_Mode_MAX == Gauge::int_);
  static_assert(Gauge_Mode_Mode_ARRAYSIZE == Gauge::Mode_ARRAYSIZE);
  EXPECT_TRUE(Gauge_Mode_IsValid(-2));
  EXPECT_EQ(Gauge_Mode_Name(Gauge::MODE_RUNNING), "MODE_ON");
  Gauge_Part_Mode mode;
  EXPECT_TRUE(Gauge_Part_Mode_Parse("MODE_ON", &mode));
  EXPECT_EQ(mode, Gauge::Part::MODE_ON);
  // A constant is an object with an address.
  const Gauge::Mode* const address = &Gauge::MODE_BELOW;
  EXPECT_EQ(*address, -2);
}

TEST(Enums, ParseExactNamesOnlyAndElseLeaveTheValueAlone) {
  for (const auto& [full_name, an_enum] : AllEnums()) {
    for (const auto& [number, name] : an_enum.values) {
      int value = number + 1;
      EXPECT_TRUE(an_enum.parse(name, &value)) << name;
      EXPECT_EQ(value, number) << name;
    }
    const std::string name = an_enum.values.begin()->second;
    const std::string leaf = full_name.substr(full_name.rfind('.') + 1);
    for (const std::string& wrong :
         {std::string(), std::string("0"), name + "_", name + '\0',
          name.substr(0, name.size() - 1), "\xff" + name, "l" + name.substr(1),
          leaf + "_INT_MAX_SENTINEL_DO_NOT_USE_"}) {
      int value = 4711;
      EXPECT_FALSE(an_enum.parse(wrong, &value)) << ToHex(wrong);
      EXPECT_EQ(value, 4711) << ToHex(wrong);
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
