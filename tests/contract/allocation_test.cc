// Where no memory is to be taken: in constructors, sizes and reuse.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "all_units.h"
#include "tests/contract/allocations.h"
#include "tests/contract/fill.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

using Allocation = LeavesNothing;

template <typename T>
class AllocationOf : public LeavesNothing {};
TYPED_TEST_SUITE(AllocationOf, EveryKindTypes);

TEST_F(Allocation, IsMadeForAnObjectAndForNothingInIt) {
  for (const Type& type : AllTypes()) {
    std::unique_ptr<MessageLite> message;
    EXPECT_EQ(AllocationsOf([&] { message.reset(type.create(nullptr)); }), 1)
        << type.name;
    EXPECT_EQ(AllocationsOf([&] { delete type.copy(*message); }), 1)
        << type.name;
    EXPECT_EQ(AllocationsOf([&] {
                message->ByteSizeLong();
                message->Clear();
                type.merge_from(message.get(), type.default_instance());
              }),
              0)
        << type.name;
  }
}

TYPED_TEST(AllocationOf, SizingAndWritingIsNone) {
  const auto message = Filled<TypeParam>(1);
  std::string bytes(message.ByteSizeLong(), '\0');
  EXPECT_EQ(AllocationsOf([&] {
              message.ByteSizeLong();
              message.SerializeWithCachedSizesToArray(
                  reinterpret_cast<uint8_t*>(bytes.data()));
            }),
            0);
  EXPECT_EQ(ToHex(bytes), HexOf(message));
}

TYPED_TEST(AllocationOf, ReadingIntoTheSameObjectAgainIsNone) {
  auto source = Filled<TypeParam>(1);
  // Clear deletes a child, unlike the elements of a list.
  source.clear_child();
  const std::string bytes = source.SerializeAsString();
  TypeParam message;
  EXPECT_TRUE(message.ParseFromString(bytes));
  EXPECT_EQ(AllocationsOf([&] {
              message.ParseFromString(bytes);
              message.CopyFrom(source);
            }),
            0);
  EXPECT_EQ(HexOf(message), ToHex(bytes));
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
