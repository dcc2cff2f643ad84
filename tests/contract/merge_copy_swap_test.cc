// How one message takes from another: by merge, by copy, by swap and by move.

#include <google/protobuf/generated_message_util.h>
#include <gtest/gtest.h>

#include <utility>

#include "tests/contract/allocations.h"
#include "tests/contract/fill.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::Arena;

template <typename T>
class Taking : public LeavesNothing {};
TYPED_TEST_SUITE(Taking, EveryKindTypes);

template <typename T>
T* FilledOn(Arena* arena, int seed) {
  T* const message = T::default_instance().New(arena);
  Fill(seed, message);
  return message;
}

TYPED_TEST(Taking, ByMergeGivesWhatParsingTheBytesOfBothGives) {
  const auto from = Filled<TypeParam>(2);
  auto to = Filled<TypeParam>(1);
  TypeParam parsed;
  EXPECT_TRUE(parsed.ParseFromString(to.SerializeAsString() +
                                     from.SerializeAsString()));
  to.MergeFrom(from);
  EXPECT_EQ(HexOf(to), HexOf(parsed));
  EXPECT_EQ(HexOf(from), HexOf(Filled<TypeParam>(2))) << "the source";
  TypeParam empty;
  empty.CheckTypeAndMergeFrom(from);
  EXPECT_EQ(HexOf(empty), HexOf(from)) << "into an empty message";
}

TYPED_TEST(Taking, ByMergeCannotResetAField) {
  auto to = Filled<TypeParam>(1);
  const std::string before = HexOf(to);
  const Leaf* const child = to.mutable_child();
  TypeParam from;
  from.mutable_string_value()->clear();
  to.MergeFrom(from);
  from.mutable_child();
  to.MergeFrom(from);
  EXPECT_EQ(HexOf(to), before);
  EXPECT_EQ(to.mutable_child(), child);
  TypeParam empty;
  empty.MergeFrom(from);
  EXPECT_EQ(HexOf(empty), "62 00") << "a child that is present and empty";
}

// Only a merge, and so CopyFrom, asks whether a float is zero.
TYPED_TEST(Taking, KeepsTheBitsOfFloatsButMergesNoZeroOfEitherSign) {
  constexpr uint32_t kMinusZero = 0x80000000;
  for (const uint32_t bits :
       {kMinusZero, 0x7fc00000u, 0xffc12345u, 0x7f800001u, 0xffffffffu}) {
    TypeParam from;
    from.set_float_value(FloatOf(bits));
    TypeParam copy(from);
    EXPECT_EQ(BitsOf(copy.float_value()), bits);
    auto to = Filled<TypeParam>(1);
    to.MergeFrom(from);
    EXPECT_EQ(BitsOf(to.float_value()),
              bits == kMinusZero ? BitsOf(0.5f) : bits);
    to = from;
    EXPECT_EQ(HexOf(to), HexOf(from)) << "nothing else is left";
    EXPECT_EQ(BitsOf(to.float_value()), bits == kMinusZero ? 0u : bits);
    swap(to, from);
    EXPECT_EQ(BitsOf(to.float_value()), bits);
  }
}

TYPED_TEST(Taking, CreatesWhereTheTargetLies) {
  Arena source;
  auto* const from = FilledOn<TypeParam>(&source, 1);
  from->ByteSizeLong();
  Arena arena;
  TypeParam* const on_arena = TypeParam::default_instance().New(&arena);
  on_arena->MergeFrom(*from);
  TypeParam copy(*from);
  from->Clear();
  for (const TypeParam* to : {on_arena, &copy}) {
    EXPECT_EQ(to->GetCachedSize(), 0);
    EXPECT_EQ(to->child().GetArena(), to->GetArena());
    EXPECT_EQ(to->children(0).GetArena(), to->GetArena());
    EXPECT_EQ(HexOf(*to), HexOf(Filled<TypeParam>(1)));
  }
  EXPECT_EQ(copy.GetArena(), nullptr);
}

TYPED_TEST(Taking, ByCopyTakesNoStorageForEmptyText) {
  TypeParam from;
  from.mutable_string_value()->clear();
  const TypeParam copy(from);
  EXPECT_EQ(&copy.string_value(),
            &google::protobuf::internal::GetEmptyString());
}

TYPED_TEST(Taking, FromItselfChangesNothing) {
  auto message = Filled<TypeParam>(1);
  const Leaf* const child = message.mutable_child();
  const int live = LiveAllocationCount();
  EXPECT_EQ(AllocationsOf([&] {
              TypeParam& same = message;
              message.CopyFrom(same);
              message.Swap(&same);
              message = std::move(same);
            }),
            0);
  EXPECT_EQ(LiveAllocationCount(), live);
  EXPECT_EQ(message.mutable_child(), child);
  EXPECT_EQ(HexOf(message), HexOf(Filled<TypeParam>(1)));
}

template <typename T>
void ExpectSwaps(T* a, T* b) {
  const std::string of_a = HexOf(*a);
  const std::string of_b = HexOf(*b);
  a->Swap(b);
  EXPECT_EQ(HexOf(*a), of_b);
  EXPECT_EQ(HexOf(*b), of_a);
  // With an empty one, both ways.
  a->Clear();
  for (int i = 0; i < 2; ++i) {
    a->Swap(b);
    EXPECT_EQ(HexOf(*(i == 0 ? a : b)), of_a);
    EXPECT_EQ(HexOf(*(i == 0 ? b : a)), "");
  }
  Fill(1, a);
}

TYPED_TEST(Taking, BySwapExchangesAllWhereverTheSidesLie) {
  Arena arena;
  Arena other;
  auto a = Filled<TypeParam>(1);
  auto b = Filled<TypeParam>(2);
  ExpectSwaps(&a, &b);
  ExpectSwaps(&a, FilledOn<TypeParam>(&arena, 2));
  ExpectSwaps(FilledOn<TypeParam>(&arena, 3), &b);
  ExpectSwaps(FilledOn<TypeParam>(&arena, 1), FilledOn<TypeParam>(&arena, 2));
  ExpectSwaps(FilledOn<TypeParam>(&arena, 1), FilledOn<TypeParam>(&other, 2));
}

TYPED_TEST(Taking, BySwapOnTheHeapExchangesPointersButNotCachedSizes) {
  auto a = Filled<TypeParam>(1);
  const Leaf* const child = a.mutable_child();
  const Leaf* const element = a.mutable_children(0);
  const int size = static_cast<int>(a.ByteSizeLong());
  TypeParam b;
  a.Swap(&b);
  EXPECT_EQ(b.mutable_child(), child);
  EXPECT_EQ(b.mutable_children(0), element);
  EXPECT_FALSE(a.has_child());
  EXPECT_EQ(a.GetCachedSize(), size);
  EXPECT_EQ(b.GetCachedSize(), 0);
}

TYPED_TEST(Taking, ByMoveTakesOverOnTheHeapAndCopiesAcrossArenas) {
  auto from = Filled<TypeParam>(1);
  const std::string bytes = HexOf(from);
  const Leaf* const child = from.mutable_child();
  TypeParam moved(std::move(from));
  auto assigned = Filled<TypeParam>(2);
  assigned = std::move(moved);
  EXPECT_EQ(assigned.mutable_child(), child);
  EXPECT_EQ(HexOf(assigned), bytes);
  Arena arena;
  auto* const on_arena = FilledOn<TypeParam>(&arena, 2);
  *on_arena = std::move(assigned);
  EXPECT_EQ(HexOf(*on_arena), bytes);
  EXPECT_EQ(on_arena->child().GetArena(), on_arena->GetArena());
  const TypeParam off_arena(std::move(*on_arena));
  EXPECT_EQ(HexOf(off_arena), bytes);
  EXPECT_EQ(off_arena.child().GetArena(), nullptr);
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
