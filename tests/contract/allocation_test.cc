// What operations allocate, what they free, and what they keep for reuse.

#include <google/protobuf/generated_message_util.h>
#include <gtest/gtest.h>

#include "tests/contract/every_kind.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::internal::GetEmptyString;
using Allocation = LeavesNothing;

template <typename T>
class AllocationOf : public LeavesNothing {};
TYPED_TEST_SUITE(AllocationOf, EveryKindTypes);

TEST_F(Allocation, IsMadeForAnObjectAndForNothingInIt) {
  for (const Type& type : AllTypes()) {
    Owned message;
    EXPECT_EQ(AllocationsOf([&] { message = type.New(); }), 1) << type.name;
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
}

TYPED_TEST(AllocationOf, ReadingIntoTheSameObjectAgainIsNone) {
  auto source = Filled<TypeParam>(1);
  // Clear deletes a child, unlike the elements of a repeated field.
  source.clear_child();
  const std::string bytes = source.SerializeAsString();
  TypeParam message;
  EXPECT_TRUE(message.ParseFromString(bytes));
  const auto* const floats = message.float_list().data();
  const Leaf* const element = &message.children(0);
  EXPECT_EQ(AllocationsOf([&] {
              message.ParseFromString(bytes);
              message.CopyFrom(source);
            }),
            0);
  EXPECT_EQ(message.float_list().data(), floats);
  EXPECT_EQ(&message.children(0), element);
}

TEST_F(Allocation, ReadingIntoTheSameElementsAgainTakesNoSpaceOfAnArena) {
  auto source = Filled<EveryKind>(1);
  source.clear_child();
  const std::string bytes = source.SerializeAsString();
  Arena arena;
  auto* const message = Arena::CreateMessage<EveryKind>(&arena);
  EXPECT_TRUE(message->ParseFromString(bytes));
  const uint64_t used = arena.SpaceUsed();
  EXPECT_TRUE(message->ParseFromString(bytes));
  EXPECT_EQ(arena.SpaceUsed(), used);
}

TYPED_TEST(AllocationOf, AChildIsFreedByClear) {
  TypeParam message;
  message.mutable_child()->set_text(LongString(1));
  const int live = LiveAllocationCount();
  const size_t size = message.ByteSizeLong();
  message.Clear();
  // The child, its string object and the string's storage.
  EXPECT_EQ(LiveAllocationCount(), live - 3);
  EXPECT_EQ(message.GetCachedSize(), static_cast<int>(size)) << "is kept";
}

TYPED_TEST(AllocationOf, AStringIsMadeWhenItIsFirstSet) {
  const std::string& shared = GetEmptyString();
  TypeParam message;
  message.Clear();
  message.clear_string_value();
  EXPECT_EQ(&message.string_value(), &shared);
  message.mutable_string_value()->clear();
  EXPECT_NE(&message.string_value(), &shared);
  EXPECT_EQ(&TypeParam(message).string_value(), &shared) << "of a copy";
  message.set_string_value("own");
  const std::string* const own = &message.string_value();
  message.Clear();
  EXPECT_EQ(&message.string_value(), own);
  EXPECT_EQ(shared, "");
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
