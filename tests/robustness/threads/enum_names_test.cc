// The first use of every enum's names, from many threads at once, and then all
// that threads may do side by side.

#include <gtest/gtest.h>

#include <chrono>
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

TEST(EnumNames, AreBuiltOnceByThreadsSideBySide) {
  constexpr int kThreads = 8;
  std::vector<std::vector<const std::string*>> seen(kThreads);
  Race(kThreads, [&seen](int thread) { seen[thread] = Names(); });
  for (int thread = 1; thread < kThreads; ++thread) {
    EXPECT_EQ(seen[thread], seen[0]);
  }
}

void ReadWriteAndDrop(const Type& type, const std::string& bytes) {
  const std::unique_ptr<MessageLite> message(type.create(nullptr));
  EXPECT_TRUE(message->ParseFromString(bytes));
  EXPECT_EQ(ToHex(message->SerializeAsString()), ToHex(bytes));
}

void ReadWhatIsShared() {
  for (const Type& type : AllTypes()) {
    EXPECT_EQ(type.default_instance().GetTypeName(), type.name);
    EXPECT_EQ(type.default_instance().SerializeAsString(), "");
  }
  EXPECT_FALSE(Names().empty());
}

TEST(Threads, UseRecordsOfTheirOwnAndReadWhatIsShared) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(3);
  Race(8, [end](int thread) {
    const std::string name = thread % 4 == 0 ? "z3a_debug_data.zaf.DebugExif"
                                             : "z3a_debug_data.zabc.DebugExif";
    const std::string bytes = ReadData("records/" + name + ".bin");
    while (std::chrono::steady_clock::now() < end) {
      if (thread % 2 == 0) {
        ReadWriteAndDrop(*FindType(name), bytes);
      } else {
        ReadWhatIsShared();
      }
    }
  });
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
