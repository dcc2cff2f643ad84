// What of reading and writing the bytes alone don't show.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "all_units.h"
#include "tests/conformance/wire/reading.h"
#include "tests/support/merge.h"

namespace vantiro {
namespace tests {
namespace {

using z3a_debug_data::z3abase::FrameInformation;
using z3a_debug_data::z3abase::RegionDimension;
using z3a_debug_data::z3abase::ZhawbInformation;
using z3a_debug_data::zaf::ZAfFrameInputSmartRoi;
using z3a_debug_data::zaf::ZAfManualFocusConfig;

TEST(WireScalars, NegativeZeroIsReadAndCopiedButNotCountedOrMerged) {
  const auto from = Merged<RegionDimension>("0d 00 00 00 80");
  EXPECT_TRUE(std::signbit(from.field_1()));
  EXPECT_EQ(from.ByteSizeLong(), 0u);
  const RegionDimension copy(from);  // NOLINT: a copy is what is tested.
  EXPECT_TRUE(std::signbit(copy.field_1()));
  RegionDimension to;
  to.set_field_1(2);
  to.MergeFrom(from);
  EXPECT_EQ(to.field_1(), 2);
}

TEST(WireScalars, EveryNaNIsMergedWithItsBits) {
  for (const char* record :
       {"0d 00 00 c0 7f", "0d 01 00 c0 ff", "0d 12 34 c5 7f"}) {
    RegionDimension to;
    to.MergeFrom(Merged<RegionDimension>(record));
    EXPECT_EQ(Written(to), record);
  }
}

TEST(WireScalars, AnEnumHoldsAnyNumber) {
  const auto read = Merged<ZAfManualFocusConfig>("08 ff ff ff ff 0f");
  EXPECT_EQ(static_cast<int>(read.field_1()), -1);
  EXPECT_EQ(static_cast<int>(Merged<ZAfManualFocusConfig>("08 63").field_1()),
            99);
}

TEST(WireList, ALyingLengthDoesNotMakeRoom) {
  const auto floats = Merged<ZhawbInformation>("12 fc ff ff ff 07 00 00 80 3f");
  EXPECT_EQ(floats.field_2_size(), 1);
  EXPECT_LT(floats.field_2().Capacity(), 64);
  const auto varints = Merged<ZAfFrameInputSmartRoi>("22 ff ff ff ff 07 05");
  EXPECT_EQ(varints.field_4_size(), 1);
  EXPECT_LT(varints.field_4().Capacity(), 64);
}

// Blocks and lists of single elements beyond 127 and 16383 bytes.
TEST(WireList, LongListsHaveLongLengths) {
  for (const int count : {31, 32, 100, 4095, 4096, 5000}) {
    ZhawbInformation floats;
    ZAfFrameInputSmartRoi varints;
    std::string single_floats;
    std::string single_varints;
    for (int i = 0; i < count; ++i) {
      floats.add_field_2(1);
      varints.add_field_4(0xffffffff);
      single_floats += "15 00 00 80 3f ";
      single_varints += "20 ff ff ff ff 0f ";
    }
    const std::string block = Written(floats);
    EXPECT_EQ(Written(Merged<ZhawbInformation>(block)), block);
    EXPECT_EQ(Written(Merged<ZhawbInformation>(single_floats)), block);
    EXPECT_EQ(Merged<ZhawbInformation>(single_floats).field_2_size(), count);
    EXPECT_EQ(Written(Merged<ZAfFrameInputSmartRoi>(single_varints)),
              Written(Merged<ZAfFrameInputSmartRoi>(Written(varints))));
    EXPECT_EQ(Merged<ZAfFrameInputSmartRoi>(single_varints).field_4_size(),
              count);
  }
}

TEST(WireFailure, AMessageThatFailedCanBeClearedAndUsedAgain) {
  auto message = Merged<FrameInformation>("78 07 22 03 38 05 0c");
  EXPECT_EQ(Written(message), "22 02 38 05 78 07");
  message.Clear();
  EXPECT_EQ(Written(message), "");
  EXPECT_TRUE(MergeBytes(FromHex("22 02 38 06"), &message));
  EXPECT_EQ(Written(message), "22 02 38 06");
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
