#include "internal/varint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace vantiro {
namespace internal {
namespace {

std::vector<uint8_t> Encode(uint64_t value) {
  std::vector<uint8_t> bytes;
  for (; value >= 0x80; value >>= 7) {
    bytes.push_back(static_cast<uint8_t>(value | 0x80));
  }
  bytes.push_back(static_cast<uint8_t>(value));
  return bytes;
}

// `space` bytes follow the varint, so that it is read in each of the ways that
// depend on how much input is left.
void ExpectReads(uint64_t value, size_t space) {
  std::vector<uint8_t> bytes = Encode(value);
  const size_t size = bytes.size();
  bytes.insert(bytes.end(), space, 0xff);
  const uint8_t* const begin = bytes.data();
  const Varint varint = ReadVarint(begin, begin + bytes.size());
  EXPECT_EQ(varint.next, begin + size) << value << ", space " << space;
  EXPECT_EQ(varint.value, value) << "space " << space;
  for (size_t cut = 0; cut < size; ++cut) {
    EXPECT_EQ(ReadVarint(begin, begin + cut).next, nullptr) << value;
  }
}

TEST(Varint, OfEveryLengthIsReadAndNeedsAllItsBytes) {
  for (int bit = 0; bit < 64; ++bit) {
    const uint64_t edge = uint64_t{1} << bit;
    for (const uint64_t value : {edge - 1, edge, ~edge}) {
      for (const size_t space : {0U, 1U, 9U, 20U}) ExpectReads(value, space);
    }
  }
}

TEST(Varint, OfElevenBytesFails) {
  const std::vector<uint8_t> bytes(20, 0xff);
  EXPECT_EQ(ReadVarint(bytes.data(), bytes.data() + 20).next, nullptr);
  EXPECT_EQ(ReadVarint(bytes.data(), bytes.data() + 10).next, nullptr);
}

TEST(Varint, AreCountedByTheirLastBytes) {
  std::mt19937 random(1);
  for (size_t size = 0; size < 50; ++size) {
    std::vector<uint8_t> bytes(size);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
    EXPECT_EQ(CountVarints(bytes.data(), bytes.data() + size),
              std::count_if(bytes.begin(), bytes.end(),
                            [](uint8_t byte) { return byte < 0x80; }))
        << size;
  }
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
