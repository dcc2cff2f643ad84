// What happens when memory runs out, at each allocation in turn.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <new>
#include <thread>

#include "all_types.h"
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

// Runs `work` with the `count`th allocation failing, and tells whether it
// threw.
bool Throws(int count, const std::function<void()>& work) {
  const LossIsExpected scope;
  try {
    const FailingAllocations failing(count);
    work();
  } catch (const std::bad_alloc&) {
    return true;
  }
  return false;
}

// How a process ended; or by a signal, whose number this then is.
enum Ending { kNothingFailed = 1000, kThrew, kTerminated, kHalfInitialised };

// How a process ends in which the `count`th allocation during `first_use`
// fails, and `use` then judges what is left, on another thread and on this one.
int EndingOf(int count, const std::function<void()>& first_use,
             const std::function<bool()>& use) {
  const pid_t child = fork();
  if (child == 0) {
    alarm(10);
    std::set_terminate([] { _exit(kTerminated - kNothingFailed); });
    const bool threw = Throws(count, first_use);
    bool usable = false;
    std::thread([&] { usable = use(); }).join();
    usable = use() && usable;
    const int ending = !usable ? kHalfInitialised
                       : threw ? kThrew
                               : kNothingFailed;
    _exit(ending - kNothingFailed);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? kNothingFailed + WEXITSTATUS(status)
                           : WTERMSIG(status);
}

void ExpectTermination(const std::function<void()>& first_use,
                       const std::function<bool()>& use) {
  int count = 1;
  int ending;
  while ((ending = EndingOf(count, first_use, use)) != kNothingFailed) {
    ASSERT_EQ(ending, kTerminated) << "allocation " << count;
    ++count;
  }
  EXPECT_GT(count, 1) << "no allocation to fail";
}

// Each case has a process of its own, since a first use happens once. The name
// makes these run before the other tests use any type.
TEST(FirstUseWithoutMemoryDeathTest, EndsTheProcessAndLeavesNoTypeHalfBuilt) {
  for (const char* const name :
       {"z3a_debug_data.zaf.DebugExif", "z3a_debug_data.zabc.DebugExif",
        "z3a_debug_data.zaf.ZAfExifDebugOutput", "zaf.ZAfTargetFocusInfo"}) {
    SCOPED_TRACE(name);
    const Type& type = FindType(name);
    ExpectTermination(
        [&type] { type.default_instance(); },
        [&type] { return type.default_instance().GetTypeName() == type.name; });
  }
}

TEST(FirstUseWithoutMemoryDeathTest, EndsTheProcessAndLeavesNoEnumHalfNamed) {
  namespace z3abase = z3a_debug_data::z3abase;
  const auto name = []() -> const std::string& {
    return z3abase::OperationModeType_Name(z3abase::OPERATION_PREVIEW);
  };
  ExpectTermination(name, [name] { return name() == "OPERATION_PREVIEW"; });
}

bool Parse(const std::string& bytes, int chunk_size, MessageLite* message) {
  if (chunk_size == 0) return message->ParseFromString(bytes);
  google::protobuf::io::ArrayInputStream chunks(
      bytes.data(), static_cast<int>(bytes.size()), chunk_size);
  return message->ParseFromZeroCopyStream(&chunks);
}

// What is lost is what was not in the message yet, `lost` allocations at most.
void ExpectUsableAfterEachFailure(const Type& type, const std::string& bytes,
                                  int chunk_size, int lost) {
  int count = 0;
  bool threw;
  do {
    const int live_before = LiveAllocationCount();
    Owned message = type.New();
    threw = Throws(
        ++count, [&] { EXPECT_TRUE(Parse(bytes, chunk_size, message.get())); });
    EXPECT_LE(message->SerializeAsString().size(), bytes.size());
    EXPECT_TRUE(Parse(bytes, chunk_size, message.get()));
    EXPECT_TRUE(AreSame(message->SerializeAsString(), bytes));
    message.reset();
    EXPECT_LE(LiveAllocationCount() - live_before, threw ? lost : 0)
        << "allocation " << count;
  } while (threw);
  EXPECT_GT(count, 10) << "hardly an allocation failed";
}

TEST(ParseWithoutMemory, LeavesAMessageToUseAgainOrDestroy) {
  for (const char* const name :
       {"z3a_debug_data.zaf.DebugExif", "z3a_debug_data.zabc.DebugExif",
        "z3a_debug_data.zhawb.DebugExif",
        "z3a_debug_data.zaf.ZAfExifDebugOutput"}) {
    SCOPED_TRACE(name);
    const Type& type = FindType(name);
    type.default_instance();
    // An unknown field, too.
    const std::string bytes =
        ReadData("records/" + std::string(name) + ".bin") + FromHex("f8 3f 01");
    // A new element; from chunks also their copy and their ends.
    ExpectUsableAfterEachFailure(type, bytes, 0, 1);
    ExpectUsableAfterEachFailure(type, bytes, 7, 3);
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
