// Tests that leave nothing allocated.

#ifndef VANTIRO_TESTS_CONTRACT_ALLOCATIONS_H_
#define VANTIRO_TESTS_CONTRACT_ALLOCATIONS_H_

#include <gtest/gtest.h>

#include "tests/support/allocations.h"

namespace vantiro {
namespace tests {

// Fails a test that leaves anything allocated. Sets up all classes first, since
// that allocates for good.
class LeavesNothing : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

 private:
  int live_before_ = 0;
};

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONTRACT_ALLOCATIONS_H_
