// Who owns what: messages on the heap and on an arena, what they carry, and
// classes that don't know arenas. That nothing is left is tested by each
// test's end.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

#include "all_units.h"
#include "mixed.pb.h"
#include "tests/contract/allocations.h"
#include "tests/contract/contract_only.h"
#include "tests/contract/fill.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

using z3a_debug_data::zaf::ZAfExifDebugOutput;
using z3a_debug_data::zaf::ZAfModFocusFinderOutput;
using Ownership = LeavesNothing;

template <typename T>
class OwnershipOf : public LeavesNothing {};
TYPED_TEST_SUITE(OwnershipOf, EveryKindTypes);

TYPED_TEST(OwnershipOf, AllFieldsEndsWithTheMessageOrItsArena) {
  { const auto on_heap = Filled<TypeParam>(1); }
  Arena arena;
  Arena* const known =
      std::is_same<TypeParam, ArenaLess>::value ? nullptr : &arena;
  TypeParam* const message = TypeParam::default_instance().New(&arena);
  EXPECT_EQ(MaybeArenaPointer(*message), known);
  for (int round = 1; round <= 2; ++round) {
    Fill(round, message);
    EXPECT_EQ(message->GetArena(), known);
    EXPECT_EQ(message->child().GetArena(), known);
    EXPECT_EQ(message->children(1).GetArena(), known);
    message->Clear();
  }
}

TYPED_TEST(OwnershipOf, AFieldPassesToTheCallerByRelease) {
  Arena arena;
  TypeParam on_heap;
  for (TypeParam* message :
       {&on_heap, TypeParam::default_instance().New(&arena)}) {
    EXPECT_EQ(message->release_child(), nullptr);
    EXPECT_EQ(message->release_string_value(), nullptr);
    Fill(1, message);
    const Leaf* const child = message->mutable_child();
    // What lies on an arena can't leave it: the caller gets a copy.
    const bool is_copied = child->GetArena() != nullptr;
    const std::unique_ptr<Leaf> released(message->release_child());
    EXPECT_EQ(released.get() != child, is_copied);
    EXPECT_EQ(released->GetArena(), nullptr);
    EXPECT_EQ(released->text(), LongText(1));
    EXPECT_FALSE(message->has_child());
    const std::unique_ptr<std::string> text(message->release_string_value());
    const std::unique_ptr<std::string> bytes(message->release_bytes_value());
    EXPECT_EQ(*text + "\xff", *bytes);
    EXPECT_EQ(message->string_value() + message->bytes_value(), "");
  }
}

TYPED_TEST(OwnershipOf, AFieldPassesToTheMessageBySetAllocated) {
  Arena arena;
  TypeParam on_heap;
  for (TypeParam* message :
       {&on_heap, TypeParam::default_instance().New(&arena)}) {
    Fill(1, message);
    auto* const leaf = new Leaf;
    message->set_allocated_child(leaf);
    EXPECT_EQ(message->mutable_child(), leaf);
    message->set_allocated_string_value(new std::string(LongText(2)));
    message->set_allocated_bytes_value(new std::string(LongText(3)));
    EXPECT_EQ(message->string_value(), LongText(2));
    EXPECT_EQ(message->bytes_value(), LongText(3));
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
  child->set_text(LongText(1));
  TypeParam on_heap;
  for (TypeParam* message :
       {&on_heap, TypeParam::default_instance().New(&arena)}) {
    message->set_allocated_child(child);
    EXPECT_NE(message->mutable_child(), child);
    EXPECT_EQ(message->child().GetArena(), message->GetArena());
    EXPECT_EQ(message->child().text(), LongText(1));
  }
}

TEST_F(Ownership, IsTakenUnaskedByTheUnsafeAccessors) {
  Arena arena;
  auto* const message = Arena::CreateMessage<EveryKind>(&arena);
  auto* const child = Arena::CreateMessage<Leaf>(&arena);
  message->unsafe_arena_set_allocated_child(child);
  EXPECT_EQ(message->mutable_child(), child);
  EXPECT_EQ(message->unsafe_arena_release_child(), child);
  EXPECT_FALSE(message->has_child());
  auto* const text = Arena::Create<std::string>(&arena, LongText(1));
  UnsafeArenaSetAllocatedString(text, message);
  EXPECT_EQ(&message->string_value(), text);
  EXPECT_EQ(UnsafeArenaReleaseString(message), text);
  EXPECT_EQ(message->string_value(), "");
  // The old one is deleted on the heap only.
  EveryKind on_heap;
  on_heap.mutable_child()->set_text(LongText(1));
  auto* const leaf = new Leaf;
  on_heap.unsafe_arena_set_allocated_child(leaf);
  EXPECT_EQ(on_heap.mutable_child(), leaf);
  on_heap.unsafe_arena_set_allocated_child(nullptr);
  EXPECT_FALSE(on_heap.has_child());
}

// Their destructors run when the arena dies, or the fixture finds the children.
TEST_F(Ownership, StaysWithMessagesThatLieOnAnArenaWithoutKnowingIt) {
  EXPECT_FALSE(Arena::is_arena_constructable<ZAfModFocusFinderOutput>::value);
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

TEST_F(Ownership, OfThoseInsideAMessageOnAnArenaIsTheArenas) {
  EXPECT_TRUE(Arena::is_destructor_skippable<Mixed>::value);
  Arena arena;
  auto* const mixed = Arena::CreateMessage<Mixed>(&arena);
  Fill(1, mixed->mutable_one());
  Fill(2, mixed->add_list());
  EXPECT_EQ(mixed->one().child().GetArena(), nullptr);
  mixed->Clear();
  Fill(3, mixed->add_list());
  auto* const given = new ArenaLess(Filled<ArenaLess>(4));
  mixed->set_allocated_one(given);
  EXPECT_EQ(mixed->mutable_one(), given);
  const Mixed copy(*mixed);
  const std::unique_ptr<ArenaLess> released(mixed->release_one());
  EXPECT_NE(released.get(), given);
  EXPECT_EQ(HexOf(*released), HexOf(copy.one()));
  Mixed on_heap;
  on_heap.Swap(mixed);
  EXPECT_EQ(HexOf(on_heap.list(0)), HexOf(copy.list(0)));
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
