// Whole records, byte for byte. What they hold, reference_test tells.

#include <gtest/gtest.h>

#include <memory>

#include "tests/conformance/records/record_files.h"
#include "tests/support/bytes.h"
#include "tests/support/roads.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

TEST(Records, WriteTheBytesThatTheyRead) {
  const std::vector<std::string> records = RecordFiles();
  EXPECT_EQ(records.size(), 22u);
  for (const std::string& record : records) {
    const std::string bytes = ReadData("records/" + record + ".bin");
    const Type* const type = FindType(record);
    ASSERT_NE(type, nullptr) << record;
    for (const Given given : {Given{0, false}, Given{1, false}, Given{1, true},
                              Given{7, true}, Given{64, false}}) {
      for (const ReadRoad& road : RoadsFor(given)) {
        SCOPED_TRACE(record + ", " + road.name + ", blocks of " +
                     std::to_string(given.block));
        const std::unique_ptr<MessageLite> message(type->create(nullptr));
        EXPECT_TRUE(road.read(*type, bytes, message.get()));
        EXPECT_EQ(ToHex(Serialize(*type, *message)), ToHex(bytes));
      }
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
