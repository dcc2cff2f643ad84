// What Clear takes away, and what it keeps for reuse.

#include <google/protobuf/generated_message_util.h>
#include <gtest/gtest.h>

#include "tests/contract/allocations.h"
#include "tests/contract/fill.h"

namespace vantiro {
namespace tests {
namespace {

template <typename T>
class Clear : public LeavesNothing {};
TYPED_TEST_SUITE(Clear, EveryKindTypes);

TYPED_TEST(Clear, EmptiesMessagesOnHeapAndArena) {
  google::protobuf::Arena arena;
  TypeParam on_heap;
  for (TypeParam* message :
       {&on_heap, TypeParam::default_instance().New(&arena)}) {
    Fill(1, message);
    message->set_float_value(-0.0f);
    const size_t size = message->ByteSizeLong();
    message->Clear();
    EXPECT_EQ(message->GetCachedSize(), static_cast<int>(size)) << "is kept";
    EXPECT_EQ(HexOf(*message), "");
    EXPECT_EQ(BitsOf(message->float_value()), 0u);
    EXPECT_FALSE(message->has_child());
    EXPECT_EQ(message->mutable_child()->text(), "") << "of a new child";
  }
}

TYPED_TEST(Clear, FreesAChildOnTheHeap) {
  TypeParam message;
  message.mutable_child()->set_text(LongText(1));
  const int live = LiveAllocationCount();
  message.Clear();
  // The child, its string object and the string's storage.
  EXPECT_EQ(LiveAllocationCount(), live - 3);
}

TYPED_TEST(Clear, KeepsTextListsAndElementsForReuse) {
  auto message = Filled<TypeParam>(1);
  const std::string* const text = &message.string_value();
  const size_t capacity = text->capacity();
  const auto* const floats = message.float_list().data();
  const Leaf* const elements[] = {&message.children(0), &message.children(1)};
  message.Clear();
  EXPECT_EQ(&message.string_value(), text);
  EXPECT_EQ(text->capacity(), capacity);
  EXPECT_EQ(AllocationsOf([&] {
              message.add_float_list(2.0f);
              EXPECT_EQ(message.add_children(), elements[0]);
              EXPECT_EQ(message.add_children(), elements[1]);
            }),
            0);
  EXPECT_EQ(message.float_list().data(), floats);
  EXPECT_EQ(HexOf(*elements[0]) + HexOf(*elements[1]), "") << "cleared";
}

TYPED_TEST(Clear, NeverWritesTheSharedEmptyString) {
  const std::string& shared = google::protobuf::internal::GetEmptyString();
  TypeParam message;
  message.Clear();
  message.clear_string_value();
  EXPECT_EQ(&message.string_value(), &shared);
  message.mutable_string_value()->assign("own");
  message.Clear();
  EXPECT_NE(&message.string_value(), &shared);
  EXPECT_EQ(shared, "");
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
