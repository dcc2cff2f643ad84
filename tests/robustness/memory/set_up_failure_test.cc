// The first use of a type, and of an enum's names, when memory runs out in the
// middle. Each case has a process of its own, since set-up happens once; so
// nothing here may touch a type outside of one.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <new>
#include <string>
#include <thread>

#include "all_units.h"
#include "tests/support/allocations.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

enum Ending { kNothingFailed, kThrew, kTerminated, kBroken };

std::string NameOf(int ending) {
  switch (ending) {
    case kNothingFailed:
      return "no allocation failed";
    case kThrew:
      return "the exception came through, and what was set up is usable";
    case kTerminated:
      return "std::terminate";
    case kBroken:
      return "half set up";
    default:
      return "signal " + std::to_string(-ending) + ": a crash or a hang";
  }
}

// How a process ends in which the `count`th allocation during `first_use`
// fails, and `use` then judges what is left, on another thread and on this one.
int EndingOf(int count, const std::function<void()>& first_use,
             const std::function<bool()>& use) {
  const pid_t child = fork();
  if (child == 0) {
    alarm(10);
    std::set_terminate([] { _exit(kTerminated); });
    bool threw = false;
    try {
      const FailingAllocations failing(count);
      first_use();
    } catch (const std::bad_alloc&) {
      threw = true;
    }
    bool usable = false;
    std::thread([&] { usable = use(); }).join();
    usable = use() && usable;
    _exit(!usable ? kBroken : threw ? kThrew : kNothingFailed);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// Lets each allocation of `first_use` fail in turn.
void ExpectTermination(const std::function<void()>& first_use,
                       const std::function<bool()>& use) {
  int count = 1;
  int ending;
  while ((ending = EndingOf(count, first_use, use)) != kNothingFailed) {
    ASSERT_EQ(NameOf(ending), NameOf(kTerminated)) << "allocation " << count;
    ++count;
  }
  EXPECT_GT(count, 1) << "no allocation to fail";
}

TEST(SetUpWithoutMemory, EndsTheProcessAndLeavesNoTypeHalfBuilt) {
  for (const char* const name :
       {"z3a_debug_data.zaf.DebugExif", "z3a_debug_data.zabc.DebugExif",
        "z3a_debug_data.zaf.ZAfExifDebugOutput", "zaf.ZAfTargetFocusInfo"}) {
    SCOPED_TRACE(name);
    const Type& type = *FindType(name);
    ExpectTermination(
        [&type] { type.default_instance(); },
        [&type] { return type.default_instance().GetTypeName() == type.name; });
  }
}

TEST(SetUpWithoutMemory, EndsTheProcessAndLeavesNoEnumHalfNamed) {
  namespace z3abase = z3a_debug_data::z3abase;
  const auto name = []() -> const std::string& {
    return z3abase::OperationModeType_Name(z3abase::OPERATION_PREVIEW);
  };
  ExpectTermination(name, [name] { return name() == "OPERATION_PREVIEW"; });
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
