// The first use of every enum's names, from many threads at once, while others
// read, write and drop records of their own.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "all_units.h"
#include "tests/support/bytes.h"
#include "tests/support/race.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

using NameOf = const std::string& (*)(int value);

const std::vector<NameOf>& AllEnums() {
  static const auto* const enums = new std::vector<NameOf>{
#define VANTIRO_ENUM(type, full_name, scope, name)       \
  [](int value) -> const std::string& {                  \
    return scope::name##_Name(static_cast<type>(value)); \
  },
#include "all_types.inc"
  };
  return *enums;
}

// The addresses of the names of the first few values of all enums.
std::vector<const std::string*> Names() {
  std::vector<const std::string*> names;
  for (const NameOf name_of : AllEnums()) {
    EXPECT_FALSE(name_of(0).empty());
    for (int value = 0; value < 8; ++value) names.push_back(&name_of(value));
  }
  return names;
}

void ReadAndWrite(const std::string& name) {
  const std::string bytes = ReadData("records/" + name + ".bin");
  const Type& type = *FindType(name);
  for (int i = 0; i < 20; ++i) {
    const std::unique_ptr<MessageLite> message(type.create(nullptr));
    EXPECT_TRUE(message->ParseFromString(bytes));
    EXPECT_EQ(ToHex(message->SerializeAsString()), ToHex(bytes));
    EXPECT_EQ(type.default_instance().ByteSizeLong(), 0u);
  }
}

TEST(EnumNames, AreBuiltOnceWhileRecordsAreReadAndWritten) {
  constexpr int kThreads = 8;
  std::vector<std::vector<const std::string*>> seen(kThreads);
  Race(kThreads, [&seen](int thread) {
    if (thread % 2 == 0) ReadAndWrite("z3a_debug_data.zaf.DebugExif");
    seen[thread] = Names();
    if (thread % 2 == 1) ReadAndWrite("z3a_debug_data.zabc.DebugExif");
  });
  for (int thread = 1; thread < kThreads; ++thread) {
    EXPECT_EQ(seen[thread], seen[0]);
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
