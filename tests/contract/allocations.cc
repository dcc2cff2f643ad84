#include "tests/contract/allocations.h"

#include "mixed.pb.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {

void LeavesNothing::SetUp() {
  for (const Type& type : AllTypes()) type.default_instance();
  Mixed::default_instance();
  live_before_ = LiveAllocationCount();
}

void LeavesNothing::TearDown() {
  // A failure that was noted stays allocated.
  if (!HasFailure()) {
    EXPECT_EQ(LiveAllocationCount(), live_before_) << "not freed";
  }
}

}  // namespace tests
}  // namespace vantiro
