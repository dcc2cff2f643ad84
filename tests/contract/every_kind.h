// For tests of the classes that have every kind of field.

#ifndef VANTIRO_TESTS_CONTRACT_EVERY_KIND_H_
#define VANTIRO_TESTS_CONTRACT_EVERY_KIND_H_

#include <gtest/gtest.h>

#include <string>

#include "arena_less.pb.h"
#include "every_kind.pb.h"
#include "tests/conformance/model/samples.h"
#include "tests/support/allocations.h"
#include "tests/support/bytes.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {

// One whose messages know arenas, and one whose messages don't.
using EveryKindTypes = testing::Types<EveryKind, ArenaLess>;

// Fails a test that leaves anything allocated. Uses all classes first, since
// the first use allocates for good.
class LeavesNothing : public testing::Test {
 protected:
  void SetUp() override {
    for (const Type& type : AllTypes()) FindType(type.name).default_instance();
    live_before_ = LiveAllocationCount();
  }
  void TearDown() override {
    // A failure that was noted stays allocated.
    if (!HasFailure()) {
      EXPECT_EQ(LiveAllocationCount(), live_before_) << "not freed";
    }
  }

 private:
  int live_before_ = 0;
};

// Too long to be held in a string object itself.
inline std::string LongString(int seed) {
  return "a string that takes storage of its own " + std::to_string(seed);
}

// Something in every field, and an unknown field: others with another `seed`.
template <typename T>
void Fill(size_t seed, T* message) {
  const Type& type = FindType(T::default_instance().GetTypeName());
  EXPECT_TRUE(MergeBytes(Sample(type, seed), message));
}

template <typename T>
T Filled(size_t seed) {
  T message;
  Fill(seed, &message);
  return message;
}

template <typename T>
T* FilledOn(Arena* arena, size_t seed) {
  T* const message = T::default_instance().New(arena);
  Fill(seed, message);
  return message;
}

inline std::string HexOf(const MessageLite& message) {
  return ToHex(message.SerializeAsString());
}

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONTRACT_EVERY_KIND_H_
