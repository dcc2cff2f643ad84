// Who owns what: messages on the heap and on an arena, what they hold, and
// classes that don't know arenas. That nothing is left is tested at the end of
// each test.

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

#include "all_types.h"
#include "tests/contract/every_kind.h"

namespace vantiro {
namespace tests {
namespace {

using z3a_debug_data::zaf::ZAfExifDebugOutput;
using z3a_debug_data::zaf::ZAfModFocusFinderOutput;
using Ownership = LeavesNothing;

template <typename T>
class OwnershipOf : public LeavesNothing {};
TYPED_TEST_SUITE(OwnershipOf, EveryKindTypes);

TYPED_TEST(OwnershipOf, FieldsIsTheMessagesUntilTheyAreReleased) {
  Arena arena;
  Arena* const known =
      std::is_same<TypeParam, ArenaLess>::value ? nullptr : &arena;
  TypeParam on_heap;
  TypeParam* const on_arena = TypeParam::default_instance().New(&arena);
  EXPECT_EQ(on_arena->GetArena(), known);
  for (TypeParam* message : {&on_heap, on_arena}) {
    EXPECT_EQ(message->release_child(), nullptr);
    EXPECT_EQ(message->release_string_value(), nullptr);
    Fill(1, message);
    const Leaf* const child = message->mutable_child();
    EXPECT_EQ(child->GetArena(), message->GetArena());
    EXPECT_EQ(message->children(0).GetArena(), message->GetArena());
    // What lies on an arena can't leave it: the caller gets a copy.
    const std::unique_ptr<Leaf> released(message->release_child());
    EXPECT_EQ(released.get() == child, message->GetArena() == nullptr);
    EXPECT_EQ(released->GetArena(), nullptr);
    EXPECT_FALSE(message->has_child());
    const std::unique_ptr<std::string> string(message->release_string_value());
    const std::unique_ptr<std::string> bytes(message->release_bytes_value());
    EXPECT_EQ(*string, *bytes);
    EXPECT_NE(*string, "");
    EXPECT_EQ(message->string_value() + message->bytes_value(), "");
  }
}

TYPED_TEST(OwnershipOf, AnObjectPassesToTheMessageBySetAllocated) {
  Arena arena;
  TypeParam on_heap;
  for (TypeParam* message :
       {&on_heap, TypeParam::default_instance().New(&arena)}) {
    Fill(1, message);
    auto* const leaf = new Leaf;
    message->set_allocated_child(leaf);
    EXPECT_EQ(message->mutable_child(), leaf);
    message->set_allocated_string_value(new std::string(LongString(2)));
    message->set_allocated_bytes_value(new std::string(LongString(3)));
    EXPECT_EQ(message->string_value(), LongString(2));
    EXPECT_EQ(message->bytes_value(), LongString(3));
    message->set_allocated_child(nullptr);
    message->set_allocated_string_value(nullptr);
    EXPECT_FALSE(message->has_child());
    EXPECT_EQ(message->string_value(), "");
  }
}

TYPED_TEST(OwnershipOf, AChildOnAnotherArenaStaysThereAndIsCopied) {
  Arena arena;
  Arena other;
  auto* const child = Arena::CreateMessage<Leaf>(&other);
  child->set_text(LongString(1));
  TypeParam on_heap;
  for (TypeParam* message :
       {&on_heap, TypeParam::default_instance().New(&arena)}) {
    message->set_allocated_child(child);
    EXPECT_NE(message->mutable_child(), child);
    EXPECT_EQ(message->child().GetArena(), message->GetArena());
    EXPECT_EQ(message->child().text(), LongString(1));
  }
}

TEST_F(Ownership, IsTakenUnaskedByTheUnsafeAccessors) {
  Arena arena;
  auto* const message = Arena::CreateMessage<EveryKind>(&arena);
  auto* const child = Arena::CreateMessage<Leaf>(&arena);
  message->unsafe_arena_set_allocated_child(child);
  EXPECT_EQ(message->unsafe_arena_release_child(), child);
  EXPECT_FALSE(message->has_child());
  // The old one is deleted on the heap only.
  EveryKind on_heap;
  on_heap.mutable_child()->set_text(LongString(1));
  on_heap.unsafe_arena_set_allocated_child(new Leaf);
}

// Their destructors run when the arena dies, or the fixture finds the children.
TEST_F(Ownership, StaysWithMessagesThatLieOnAnArenaWithoutKnowingIt) {
  EXPECT_FALSE(Arena::is_arena_constructable<ZAfModFocusFinderOutput>::value);
  EXPECT_TRUE(Arena::is_destructor_skippable<Mixed>::value);
  Arena arena;
  auto* const message = ZAfModFocusFinderOutput::default_instance().New(&arena);
  const uint64_t used = arena.SpaceUsed();
  EXPECT_GE(used, sizeof *message);
  EXPECT_EQ(message->GetArena(), nullptr);
  EXPECT_EQ(AllocationsOf([&] { message->mutable_focus_range(); }), 1);
  EXPECT_EQ(message->focus_range().GetArena(), nullptr);
  EXPECT_EQ(arena.SpaceUsed(), used);
  auto* const root = ZAfExifDebugOutput::default_instance().New(&arena);
  EXPECT_EQ(root->add_frame_output()->GetArena(), nullptr);
  root->add_mod_focus_finder_output_list()->mutable_focus_range();
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
