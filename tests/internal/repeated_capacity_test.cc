// The capacities that 3.9.1 gives.

#include "internal/repeated_capacity.h"

#include <google/protobuf/arena.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::Arena;

void AddNext(RepeatedField<uint32_t>* field) {
  AddElement(static_cast<uint32_t>(field->size()) + 1, field);
}

void ExpectNumbersFromOne(const RepeatedField<uint32_t>& field) {
  for (int i = 0; i < field.size(); ++i) {
    EXPECT_EQ(field.Get(i), static_cast<uint32_t>(i) + 1);
  }
}

// The capacities that it has while it grows to 40 elements.
std::vector<int> GrowingCapacities(RepeatedField<uint32_t>* field) {
  std::vector<int> capacities;
  while (field->size() < 40) {
    AddNext(field);
    if (capacities.empty() || capacities.back() != field->Capacity()) {
      capacities.push_back(field->Capacity());
    }
  }
  ExpectNumbersFromOne(*field);
  return capacities;
}

TEST(RepeatedCapacity, DoublesFromFourOn) {
  const std::vector<int> wanted = {4, 8, 16, 32, 64};
  RepeatedField<uint32_t> on_heap;
  EXPECT_EQ(GrowingCapacities(&on_heap), wanted);
  Arena arena;
  auto* const on_arena = Arena::CreateMessage<RepeatedField<uint32_t>>(&arena);
  EXPECT_EQ(GrowingCapacities(on_arena), wanted);
  EXPECT_EQ(on_arena->GetArena(), &arena);
}

// Of a field of `size` elements and no space for more, after as many as `count`
// were added.
struct Capacities {
  int at_once;
  int by_doubling;
};

Capacities AfterAdding(int count, int size) {
  RepeatedField<uint32_t> from;
  for (int i = 0; i < count; ++i) from.Add(static_cast<uint32_t>(size + i + 1));
  RepeatedField<uint32_t> at_once;
  SetCapacity(size, &at_once);
  for (int i = 0; i < size; ++i) AddNext(&at_once);
  RepeatedField<uint32_t> by_doubling(at_once);
  SetCapacity(size, &by_doubling);

  AddElements(from, &at_once);
  EXPECT_EQ(at_once.size(), size + count);
  ExpectNumbersFromOne(at_once);
  ReserveByDoubling(count, &by_doubling);
  EXPECT_EQ(by_doubling.size(), size);
  ExpectNumbersFromOne(by_doubling);
  return {at_once.Capacity(), by_doubling.Capacity()};
}

TEST(RepeatedCapacity, IsWhatIsNeededAtOnceUnlessTwiceTheOldIsMore) {
  const struct {
    int size;
    int count;
    Capacities wanted;
  } cases[] = {
      {0, 0, {0, 0}},   {0, 1, {4, 4}},    {0, 5, {5, 8}},   {0, 9, {9, 16}},
      {4, 1, {8, 8}},   {5, 0, {5, 5}},    {5, 1, {10, 10}}, {5, 5, {10, 10}},
      {5, 6, {11, 20}}, {6, 40, {46, 48}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.count) + " more than " +
                 std::to_string(c.size));
    const Capacities capacities = AfterAdding(c.count, c.size);
    EXPECT_EQ(capacities.at_once, c.wanted.at_once);
    EXPECT_EQ(capacities.by_doubling, c.wanted.by_doubling);
  }
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
