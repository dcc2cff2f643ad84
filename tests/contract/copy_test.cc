// What CopyFrom leaves in a target that held something before. That the content
// is right, merge_copy_swap_test and vectors_test test.

#include <gtest/gtest.h>

#include "all_types.h"
#include "tests/contract/every_kind.h"

namespace vantiro {
namespace tests {
namespace {

using z3a_debug_data::z3abase::RegionDimension;
using z3a_debug_data::zabc::AlgorithmInputs;

using Copying = LeavesNothing;

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
