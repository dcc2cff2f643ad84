// Merge, copy, swap and move: which objects they leave where. That they give
// the right content, vectors_test and operations_fuzz test.

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <utility>

#include "tests/conformance/model/checked_message.h"
#include "tests/conformance/model/encoding.h"
#include "tests/contract/every_kind.h"

namespace vantiro {
namespace tests {
namespace {

// An unpacked element and then a packed run for each repeated field of scalars
// of a message and of its sub-messages. To a field with spare capacity, the
// length of the run is one more element, and what follows it are other fields.
std::string LookAheadBytes(const Type& type, int depth) {
  std::string bytes;
  for (const auto& [number, field] : type.fields) {
    if (field.kind == Kind::MESSAGE) {
      if (depth == 0) continue;
      bytes += Delimited(number, LookAheadBytes(*field.type, depth - 1));
    } else if (field.is_repeated && field.kind != Kind::BOOL &&
               TypeOf(field.kind) != kDelimited) {
      // No record repeats bools, and their least capacity is the runtime's.
      bytes += Tag(number, TypeOf(field.kind)) + Element(field.kind, 1) +
               Delimited(number, FromHex(FixedSize(field.kind) > 0
                                             ? "01 02 03 08 81 80 80 00"
                                             : "08 01"));
    }
  }
  return bytes;
}

void ExpectCapacityOfTheModel(const Type& type, CheckedMessage* message) {
  const std::string bytes = LookAheadBytes(type, 2);
  for (int i = 0; i < 6; ++i) message->Merge({bytes});
  message->Serialize();
}

// All operations on a message on the heap, on one on an arena, and on a third
// that lies here or there.
void ExpectOperationsLikeTheModels(const Type& type, const std::string& record,
                                   const std::string& other_record) {
  Arena arena;
  CheckedMessage heap(type, nullptr);
  CheckedMessage on_arena(type, &arena);
  EXPECT_TRUE(heap.Parse(record));
  EXPECT_TRUE(on_arena.Merge({other_record}).complete);
  const auto check = [&] {
    heap.Serialize();
    on_arena.Serialize();
  };
  check();
  for (const auto& [number, field] : type.fields) {
    if (field.release == nullptr) continue;
    CheckedMessage third(type, number % 2 == 0 ? &arena : nullptr);
    heap.Move(field, &on_arena);
    on_arena.Move(field, &heap);
    on_arena.Create(field);
    heap.Move(field, &third);
    third.Move(field, &heap);
    third.Clear(field);
    on_arena.Move(field, &third);
    third.Move(field, &on_arena);
    on_arena.Clear(field);
    third.Serialize();
    check();
  }
  heap.Swap(&on_arena);
  check();
  for (Arena* const place : {static_cast<Arena*>(nullptr), &arena}) {
    CheckedMessage third(type, place);
    third.MergeFrom(heap);
    third.MergeFrom(on_arena);
    third.Serialize();
    third.Swap(&heap);
    third.Swap(&on_arena);
    third.CopyFrom(CheckedMessage(on_arena));
    third.Serialize();
    third.Clear();
    heap.Merge({record});
    third.MergeFrom(heap);
    third.Serialize();
    check();
    for (CheckedMessage* message : {&heap, &on_arena, &third}) {
      ExpectCapacityOfTheModel(type, message);
    }
  }
}

using OperationsOnEveryType = LeavesNothing;

TEST_F(OperationsOnEveryType, KeepTheContentThatTheModelKeeps) {
  for (const Type& type : AllTypes()) {
    ExpectOperationsLikeTheModels(type, Sample(type, 1), Sample(type, 2));
  }
}

TEST_F(OperationsOnEveryType, KeepTheContentOfRandomRecords) {
  std::mt19937 random(1);
  for (const Type& type : AllTypes()) {
    for (int i = 0; i < 20; ++i) {
      const std::string record =
          RandomRecord(type, Values::kExtreme, &random, 1);
      ExpectOperationsLikeTheModels(
          type, record, RandomRecord(type, Values::kExtreme, &random, 1));
    }
  }
}

TEST_F(OperationsOnEveryType, KeepTheContentOfRecords) {
  for (const std::string& name : RecordTypes()) {
    const std::string record = ReadData("records/" + name + ".bin");
    ExpectOperationsLikeTheModels(FindType(name), record, record);
  }
}

template <typename T>
class Operations : public LeavesNothing {};
TYPED_TEST_SUITE(Operations, EveryKindTypes);

TYPED_TEST(Operations, MergeIntoTheChildThatIsThere) {
  auto to = Filled<TypeParam>(1);
  const std::string before = HexOf(to);
  const Leaf* const child = to.mutable_child();
  TypeParam from;
  from.mutable_child();
  to.MergeFrom(from);
  EXPECT_EQ(to.mutable_child(), child);
  EXPECT_EQ(HexOf(to), before);
  TypeParam empty;
  empty.CheckTypeAndMergeFrom(from);
  EXPECT_EQ(HexOf(empty), "62 00") << "a child that is present and empty";
}

// It is not written, but kept in memory. Only a merge, and so CopyFrom, takes
// it for zero.
TYPED_TEST(Operations, KeepNegativeZeroButDoNotMergeIt) {
  TypeParam from;
  EXPECT_TRUE(from.ParseFromString(FromHex("0d 00 00 00 80")));
  TypeParam copy(from);
  EXPECT_TRUE(std::signbit(copy.float_value()));
  TypeParam to;
  to.set_float_value(2);
  to.MergeFrom(from);
  EXPECT_EQ(to.float_value(), 2);
  to.CopyFrom(from);
  EXPECT_FALSE(std::signbit(to.float_value()));
  swap(to, from);
  EXPECT_TRUE(std::signbit(to.float_value()));
}

TYPED_TEST(Operations, CreateObjectsWhereTheTargetLies) {
  Arena source;
  const auto* const from = FilledOn<TypeParam>(&source, 1);
  from->ByteSizeLong();
  Arena arena;
  TypeParam* const on_arena = TypeParam::default_instance().New(&arena);
  on_arena->MergeFrom(*from);
  TypeParam copy(*from);
  for (const TypeParam* to : {on_arena, &copy}) {
    EXPECT_EQ(to->GetCachedSize(), 0);
    EXPECT_EQ(to->child().GetArena(), to->GetArena());
    EXPECT_EQ(to->children(0).GetArena(), to->GetArena());
    EXPECT_EQ(HexOf(*to), HexOf(*from));
  }
  EXPECT_EQ(copy.GetArena(), nullptr);
}

TYPED_TEST(Operations, OnTheSameObjectChangeNothing) {
  auto message = Filled<TypeParam>(1);
  const std::string before = HexOf(message);
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
  EXPECT_EQ(HexOf(message), before);
}

TYPED_TEST(Operations, SwapPointersButNotCachedSizesOnTheHeap) {
  auto a = Filled<TypeParam>(1);
  const Leaf* const child = a.mutable_child();
  const Leaf* const element = a.mutable_children(0);
  const int size = static_cast<int>(a.ByteSizeLong());
  TypeParam b;
  a.Swap(&b);
  EXPECT_EQ(b.mutable_child(), child);
  EXPECT_EQ(b.mutable_children(0), element);
  EXPECT_EQ(a.GetCachedSize(), size);
  EXPECT_EQ(b.GetCachedSize(), 0);
}

TYPED_TEST(Operations, MoveObjectsOnTheHeapAndCopyThemAcrossArenas) {
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
