// What comes with every enum: validity, names, parsing and bounds.

#include <google/protobuf/generated_message_util.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>

#include "all_units.h"
#include "every_kind.pb.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::internal::GetEmptyString;
namespace base = z3a_debug_data::z3abase;

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
  enums[full_name].values[number] = name;
  // Not in order, with gaps and below zero.
  VANTIRO_ENUM(Level, "Level", vantiro::tests, Level)
  enums["Level"].values = {{-3, "LEVEL_BELOW"},
                           {0, "LEVEL_NONE"},
                           {1, "LEVEL_LOW"},
                           {9, "LEVEL_HIGH"}};
#include "all_types.inc"
  return enums;
}

TEST(Enums, KnowTheDeclaredValuesByNumberAndByName) {
  EXPECT_EQ(AllEnums().size(), 73u + 1);
  for (const auto& [full_name, an_enum] : AllEnums()) {
    SCOPED_TRACE(full_name);
    EXPECT_EQ(an_enum.min, an_enum.values.begin()->first);
    EXPECT_EQ(an_enum.max, an_enum.values.rbegin()->first);
    EXPECT_EQ(an_enum.array_size, an_enum.max + 1);
    for (const auto& [number, name] : an_enum.values) {
      EXPECT_TRUE(an_enum.is_valid(number)) << number;
      EXPECT_EQ(an_enum.name_of(number), name);
      EXPECT_EQ(&an_enum.name_of(number), &an_enum.name_of(number)) << name;
      int parsed = number + 1;
      EXPECT_TRUE(an_enum.parse(name, &parsed)) << name;
      EXPECT_EQ(parsed, number) << name;
    }
  }
}

TEST(Enums, GiveTheSharedEmptyStringForUndeclaredValues) {
  for (const auto& [full_name, an_enum] : AllEnums()) {
    std::map<int, bool> numbers = {{std::numeric_limits<int>::min(), false},
                                   {std::numeric_limits<int>::max(), false}};
    for (int i = an_enum.min - 2; i <= an_enum.max + 2; ++i) {
      numbers[i] = an_enum.values.count(i) > 0;
    }
    for (const auto& [number, declared] : numbers) {
      EXPECT_EQ(an_enum.is_valid(number), declared)
          << full_name << ' ' << number;
      EXPECT_EQ(&an_enum.name_of(number) == &GetEmptyString(), !declared)
          << full_name << ' ' << number << " is \"" << an_enum.name_of(number)
          << '"';
    }
  }
  EXPECT_EQ(GetEmptyString(), "");
}

TEST(Enums, ParseOnlyExactNamesAndElseLeaveTheValueAlone) {
  for (const auto& [full_name, an_enum] : AllEnums()) {
    const std::string name = an_enum.values.begin()->second;
    const std::string leaf = full_name.substr(full_name.rfind('.') + 1);
    for (const std::string& text :
         {std::string(), std::string("0"), name + "_", name + '\0',
          name.substr(0, name.size() - 1), "\xff" + name,
          leaf + "_INT_MAX_SENTINEL_DO_NOT_USE_"}) {
      int value = 4711;
      EXPECT_FALSE(an_enum.parse(text, &value))
          << full_name << ' ' << ToHex(text);
      EXPECT_EQ(value, 4711) << full_name << ' ' << ToHex(text);
    }
  }
}

// Spelled out, so that a slip in the schema shows too.
TEST(Enums, NameTheOperationModesAndTheRolesWithTheirGap) {
  EXPECT_EQ(base::OperationModeType_Name(4), "OPERATION_ZERO_SUTTER_LAG");
  EXPECT_EQ(base::OperationModeType_MAX, 5);
  auto mode = base::OPERATION_MODE_MAX;
  EXPECT_TRUE(base::OperationModeType_Parse("OPERATION_PREVIEW", &mode));
  EXPECT_EQ(mode, 1);
  EXPECT_FALSE(base::OperationModeType_Parse("operation_preview", &mode));
  EXPECT_EQ(mode, 1);
  std::string roles;
  for (int i = -1; i < 6; ++i) {
    roles += z3a_debug_data::zaf::ZAfAlgoRole_IsValid(i) ? '1' : '0';
  }
  EXPECT_EQ(roles, "0111010") << "from -1 to 5";
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
