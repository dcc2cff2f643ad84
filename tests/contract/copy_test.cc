// What CopyFrom leaves in a target that held something before. That the content
// is right, vectors_test and operations_fuzz test.

#include <gtest/gtest.h>

#include <string>

#include "all_types.h"
#include "tests/conformance/model/encoding.h"
#include "tests/contract/every_kind.h"

namespace vantiro {
namespace tests {
namespace {

using z3a_debug_data::z3abase::RegionDimension;
using z3a_debug_data::zabc::AlgorithmInputs;

// What this means to a repeated field depends on its capacity: to those with
// spare capacity, the length of the packed run is one more element, and what
// follows it are other fields.
std::string LookAheadBytes(const Field& field) {
  return Tag(field.number, TypeOf(field.kind)) + Element(field.kind, 1) +
         Delimited(field.number, FixedSize(field.kind) > 0
                                     ? FromHex("08 01 02 03 08 81 01 10")
                                     : FromHex("08 01"));
}

// The same for all repeated scalars below a message.
std::string LookAheadBytes(const Type& type, bool is_root) {
  std::string bytes;
  for (const auto& [number, field] : type.fields) {
    if (field.kind == Kind::MESSAGE) {
      // Elements of the root are kept as Clear keeps them.
      if (is_root && field.is_repeated) continue;
      bytes += Delimited(number, LookAheadBytes(*field.type, false));
    } else if (!is_root && field.is_repeated &&
               TypeOf(field.kind) != kDelimited) {
      bytes += LookAheadBytes(field);
    }
  }
  return bytes;
}

std::string Repeat(const std::string& record, int times) {
  std::string bytes;
  for (; times > 0; --times) bytes += record;
  return bytes;
}

using Copying = LeavesNothing;

TEST_F(Copying, LeavesSubMessagesAsIfTheyWereNew) {
  for (const Type& type : AllTypes()) {
    const std::string more = LookAheadBytes(type, true);
    if (more.empty()) continue;
    for (int held = 0; held < 4; ++held) {
      for (int copied = 0; copied < 4; ++copied) {
        Arena arena;
        const Owned source = type.New();
        MergeBytes(Repeat(Sample(type, 2), copied), source.get());
        const Owned on_heap = type.New();
        for (MessageLite* reused : {on_heap.get(), type.create(&arena)}) {
          MergeBytes(Repeat(Sample(type, 1), held), reused);
          const Owned fresh = type.New();
          for (MessageLite* target : {reused, fresh.get()}) {
            type.copy_from(target, *source);
            MergeBytes(more, target);
          }
          EXPECT_EQ(HexOf(*reused), HexOf(*fresh))
              << type.name << " with " << held << ", then " << copied;
        }
      }
    }
  }
}

template <typename T>
class CopyingTo : public LeavesNothing {};
TYPED_TEST_SUITE(CopyingTo, EveryKindTypes);

TYPED_TEST(CopyingTo, AMessageTakesAwayWhatTheSourceDoesNotHold) {
  for (const bool has_child : {false, true}) {
    auto to = Filled<TypeParam>(1);
    TypeParam from;
    if (has_child) from.mutable_child();
    to.child().ByteSizeLong();
    to.CopyFrom(from);
    EXPECT_EQ(HexOf(to), has_child ? "62 00" : "");
    to.CopyFrom(TypeParam::default_instance());
    EXPECT_EQ(HexOf(to), "") << "has no child, but a pointer to one";
  }
}

TYPED_TEST(CopyingTo, ASubMessageTakesAwayItsCachedSize) {
  auto to = Filled<TypeParam>(1);
  to.ByteSizeLong();
  EXPECT_GT(to.child().GetCachedSize(), 0);
  to.CopyFrom(Filled<TypeParam>(2));
  EXPECT_EQ(to.child().GetCachedSize(), 0);
}

TEST_F(Copying, LeavesAloneWhatLiesElsewhere) {
  Arena arena;
  AlgorithmInputs from;
  from.mutable_face_roi()->add_region_dimension_list()->set_field_1(2);
  auto* const to = Arena::CreateMessage<AlgorithmInputs>(&arena);
  RegionDimension element;
  to->mutable_face_roi()
      ->mutable_region_dimension_list()
      ->UnsafeArenaAddAllocated(&element);
  to->CopyFrom(from);
  EXPECT_NE(&to->face_roi().region_dimension_list(0), &element);
  EXPECT_EQ(HexOf(element), "");
  EXPECT_EQ(HexOf(*to), HexOf(from));

  z3a_debug_data::z3abase::FaceRoiType child;
  to->unsafe_arena_set_allocated_face_roi(&child);
  to->CopyFrom(from);
  EXPECT_NE(&to->face_roi(), &child);
  EXPECT_EQ(HexOf(child), "");
  EXPECT_EQ(HexOf(*to), HexOf(from));
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
