// The capacities of repeated fields of scalars. Only how far a parse looks
// ahead after an unpacked element shows them in what is read.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "all_types.h"
#include "tests/contract/every_kind.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::io::ArrayInputStream;
using z3a_debug_data::zabc::AlgorithmInputs;
using z3a_debug_data::zhawb::ZHawbDebugParameterInput;

template <typename T>
class CapacityOf : public testing::Test {};
TYPED_TEST_SUITE(CapacityOf, EveryKindTypes);

template <typename T>
T WithFloats(int count) {
  T message;
  for (int i = 0; i < count; ++i) message.add_float_list(1);
  return message;
}

TYPED_TEST(CapacityOf, ElementsAddedDoublesFromFourOn) {
  TypeParam message;
  const struct {
    int count;
    int capacity;
  } cases[] = {{1, 4}, {4, 4}, {5, 8}, {8, 8}, {9, 16}, {16, 16}, {17, 32}};
  for (const auto& c : cases) {
    while (message.float_list_size() < c.count) {
      message.add_float_list(1);
      message.add_int64_list(1);
      message.add_enum_list(Level{});
    }
    EXPECT_EQ(message.float_list().Capacity(), c.capacity);
    EXPECT_EQ(message.int64_list().Capacity(), c.capacity);
    EXPECT_EQ(message.enum_list().Capacity(), c.capacity);
  }
}

TYPED_TEST(CapacityOf, AMergeOrACopyIsWhatIsNeededUnlessTwiceTheOldIsMore) {
  const struct {
    int old_count;
    int count;
    int merged;
    int copied;
  } cases[] = {{0, 0, 0, 0},  {0, 1, 4, 4},   {0, 5, 5, 5},
               {0, 9, 9, 9},  {3, 1, 4, 4},   {3, 2, 8, 4},
               {3, 7, 10, 8}, {9, 1, 16, 16}, {8, 17, 25, 17}};
  for (const auto& c : cases) {
    const auto from = WithFloats<TypeParam>(c.count);
    auto merged = WithFloats<TypeParam>(c.old_count);
    merged.MergeFrom(from);
    EXPECT_EQ(merged.float_list_size(), c.old_count + c.count);
    EXPECT_EQ(merged.float_list().Capacity(), c.merged);
    auto copied = WithFloats<TypeParam>(c.old_count);
    copied.CopyFrom(from);
    EXPECT_EQ(copied.float_list().Capacity(), c.copied);
    TypeParam made(from);
    EXPECT_EQ(made.mutable_float_list()->Capacity(),
              c.count == 0 ? 0 : std::max(c.count, 4));
  }
}

// CopyFrom clears first, which frees a child: a copy of it has no other
// capacity than that of a new message.
TEST(Capacity, OfAChildThatIsCopiedIsThatOfANewOne) {
  for (const int count : {0, 1, 5}) {
    for (const int old_count : {0, 1, 5}) {
      AlgorithmInputs from;
      AlgorithmInputs to;
      auto* const child = from.mutable_zawb_info();
      for (int i = 0; i < count; ++i) child->add_field_2(1);
      for (int i = 0; i < old_count; ++i) {
        to.mutable_zawb_info()->add_field_2(1);
      }
      to.CopyFrom(from);
      EXPECT_EQ(to.zawb_info().field_2().Capacity(),
                count == 0 ? 0 : std::max(count, 4))
          << count << " instead of " << old_count;
    }
  }
}

// An element that was cleared keeps its capacity, and is the next one that is
// added.
TEST(Capacity, OfAnElementClearedInAChildThatIsCopiedIsThatOfANewOne) {
  ZHawbDebugParameterInput from;
  from.mutable_calibration_information();
  ZHawbDebugParameterInput to;
  auto* const child = to.mutable_calibration_information();
  child->add_calibration_data_list()->add_field_2(1);
  child->clear_calibration_data_list();
  to.CopyFrom(from);
  const auto* const element =
      to.mutable_calibration_information()->add_calibration_data_list();
  EXPECT_EQ(element->field_2().Capacity(), 0);
}

TEST(Capacity, StaysWithAMessageSwappedAcrossArenas) {
  Arena arena;
  auto* const on_arena = Arena::CreateMessage<EveryKind>(&arena);
  *on_arena = WithFloats<EveryKind>(1);
  auto on_heap = WithFloats<EveryKind>(9);
  on_heap.Swap(on_arena);
  EXPECT_EQ(on_heap.float_list_size(), 1);
  EXPECT_EQ(on_heap.float_list().Capacity(), 16);
  EXPECT_EQ(on_arena->float_list().Capacity(), 9);
}

// A packed run of `count` floats.
std::string Floats(int count) {
  return FromHex("aa 01") + static_cast<char>(4 * count) +
         std::string(static_cast<size_t>(4 * count), '\x01');
}

TEST(Capacity, OfAPackedRunThatFailsIsThatOfItsElementsBeforeIt) {
  // A varint of eleven bytes is after one element and before four.
  const std::string run =
      FromHex("b2 01 10 05 ff ff ff ff ff ff ff ff ff ff 01 01 02 03 04");
  EveryKind message;
  EXPECT_FALSE(MergeBytes(run, &message));
  EXPECT_EQ(message.uint32_list_size(), 1);
  EXPECT_EQ(message.uint32_list().Capacity(), 4);
}

// A limit allows for all elements of a run, a total bytes limit does not.
TEST(Capacity, OfPackedFloatsDoublesWithoutALimit) {
  const std::string bytes = Floats(5) + Floats(6);
  const auto capacity = [&bytes](int chunk_size, auto set_limit) {
    ArrayInputStream chunks(bytes.data(), static_cast<int>(bytes.size()),
                            chunk_size);
    CodedInputStream input(&chunks);
    set_limit(&input);
    EveryKind message;
    EXPECT_TRUE(message.MergePartialFromCodedStream(&input));
    EXPECT_EQ(message.float_list_size(), 11);
    return message.float_list().Capacity();
  };
  const int size = static_cast<int>(bytes.size());
  for (const int chunk_size : {1, 64}) {
    EXPECT_EQ(capacity(chunk_size, [](auto*) {}), 16);
    EXPECT_EQ(capacity(chunk_size,
                       [=](auto* input) { input->SetTotalBytesLimit(size); }),
              16);
    EXPECT_EQ(
        capacity(chunk_size, [=](auto* input) { input->PushLimit(size); }), 11);
  }
  EveryKind message;
  EXPECT_TRUE(message.ParseFromString(bytes));
  EXPECT_EQ(message.float_list().Capacity(), 11);
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
