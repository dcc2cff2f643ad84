// How much memory a parse takes, in bytes per byte of its input. The figures
// stand in docs/security.md.

#include <google/protobuf/arena.h>
#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <iostream>

#include "tests/robustness/worst_inputs.h"
#include "tests/support/allocations.h"
#include "tests/support/entry_points.h"

namespace vantiro {
namespace tests {
namespace {

// What even a few bytes may take: a large sub-message, a block of an arena, of
// which the last one is always partly unused.
constexpr size_t kConstant = 10 << 10;

// The most that the entry points make of any input, on heap and arena. The
// bound is tested from both sides: if the most is far below it, the figure in
// the document has to change as well.
void ExpectBound(double bound, int chunk_size) {
  double most = 0;
  std::string what;
  for (const Type& type : AllTypes()) {
    if (type.IsTestType()) continue;
    type.default_instance();
    for (const auto& [name, bytes] : WorstInputs(type)) {
      const Input input = {bytes, chunk_size};
      for (const EntryPoint& entry_point : EntryPointsFor(input)) {
        for (const bool on_arena : {false, true}) {
          Arena arena;
          MessageLite* const message = type.create(on_arena ? &arena : nullptr);
          const size_t peak = PeakOf([&, &name = name] {
            EXPECT_TRUE(entry_point.read(type, input, message).complete)
                << type.name << ", " << name;
          });
          const double ratio =
              (static_cast<double>(peak) - static_cast<double>(kConstant)) /
              static_cast<double>(bytes.size());
          if (ratio > most) {
            most = ratio;
            what = std::string(type.name) + ", " + name + ", by " +
                   entry_point.name;
          }
          if (!on_arena) delete message;
        }
      }
    }
  }
  std::cout << most << " per byte: " << what << "\n";
  EXPECT_LE(most, bound);
  EXPECT_GE(most, 0.9 * bound);
}

TEST(MemoryOfAParse, OfOnePieceIsBoundByItsSize) { ExpectBound(180, 0); }

TEST(MemoryOfAParse, OfSingleBytesIsBoundByTheirNumber) { ExpectBound(200, 1); }

TEST(MemoryOfAParse, IsNotTakenForAClaimedLength) {
  const google::protobuf::LogSilencer silence;
  // The objects that the input does make, and the streams' own buffers.
  constexpr size_t kFew = 16 << 10;
  for (const Type& type : AllTypes()) {
    type.default_instance();
    for (const auto& [name, bytes] : FalseLengths(type)) {
      for (const auto& [chunk_size, has_limit] :
           {std::pair(0, false), {1, false}, {1, true}, {4096, true}}) {
        const Input input = {bytes, chunk_size, has_limit};
        for (const EntryPoint& entry_point : EntryPointsFor(input)) {
          const size_t peak = PeakOf([&, &name = name] {
            EXPECT_FALSE(
                entry_point.read(type, input, type.New().get()).complete)
                << type.name << ", " << entry_point.name << ", " << name;
          });
          EXPECT_LE(peak, kFew)
              << type.name << ", " << entry_point.name << ", " << name;
        }
      }
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
