// A parse in which memory runs out.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>

#include "tests/support/allocations.h"
#include "tests/support/bytes.h"
#include "tests/support/types.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
using LossIsExpected = __lsan::ScopedDisabler;
#else
struct LossIsExpected {
  LossIsExpected() {}  // NOLINT: else the variable counts as unused.
};
#endif

namespace vantiro {
namespace tests {
namespace {

// Reads in one piece, which is a block of 0, or in blocks.
bool Parse(const std::string& bytes, int block, MessageLite* message) {
  if (block == 0) return message->ParseFromString(bytes);
  google::protobuf::io::ArrayInputStream blocks(
      bytes.data(), static_cast<int>(bytes.size()), block);
  return message->ParseFromZeroCopyStream(&blocks);
}

// Parses with the `count`th allocation failing, and tells whether it did.
bool Fails(int count, const std::string& bytes, int block,
           MessageLite* message) {
  const LossIsExpected scope;
  try {
    const FailingAllocations failing(count);
    EXPECT_TRUE(Parse(bytes, block, message));
  } catch (const std::bad_alloc&) {
    return true;
  }
  return false;
}

// Lets each allocation of a parse fail in turn. What is lost is what was not in
// the message yet, `lost` allocations at most.
void ExpectUsableAfterEachFailure(const Type& type, const std::string& bytes,
                                  int block, int lost) {
  int count = 0;
  bool fails;
  do {
    const int live_before = LiveAllocationCount();
    std::unique_ptr<MessageLite> message(type.create(nullptr));
    fails = Fails(++count, bytes, block, message.get());
    EXPECT_LE(message->SerializeAsString().size(), bytes.size());
    EXPECT_TRUE(Parse(bytes, block, message.get()));
    EXPECT_EQ(ToHex(message->SerializeAsString()), ToHex(bytes));
    message.reset();
    EXPECT_LE(LiveAllocationCount() - live_before, fails ? lost : 0)
        << "allocation " << count;
  } while (fails);
  EXPECT_GT(count, 10) << "hardly an allocation failed";
}

TEST(ParseWithoutMemory, LeavesAMessageToUseAgainOrDestroy) {
  for (const char* const name :
       {"z3a_debug_data.zaf.DebugExif", "z3a_debug_data.zabc.DebugExif",
        "z3a_debug_data.zhawb.DebugExif",
        "z3a_debug_data.zaf.ZAfExifDebugOutput"}) {
    SCOPED_TRACE(name);
    const Type& type = *FindType(name);
    type.default_instance();
    // An unknown field, too.
    const std::string bytes =
        ReadData("records/" + std::string(name) + ".bin") + FromHex("f8 3f 01");
    // A list's new element; from blocks also their copy and their ends.
    ExpectUsableAfterEachFailure(type, bytes, 0, 1);
    ExpectUsableAfterEachFailure(type, bytes, 7, 3);
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
