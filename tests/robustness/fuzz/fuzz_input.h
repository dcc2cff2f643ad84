// The bytes that a fuzz target is given, taken piece by piece.

#ifndef VANTIRO_TESTS_ROBUSTNESS_FUZZ_FUZZ_INPUT_H_
#define VANTIRO_TESTS_ROBUSTNESS_FUZZ_FUZZ_INPUT_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace vantiro {
namespace tests {

class FuzzInput {
 public:
  FuzzInput(const uint8_t* data, size_t size) : data_(data), size_(size) {}

  bool empty() const { return size_ == 0; }

  // The next byte, 0 behind the end.
  uint8_t TakeByte() { return size_ == 0 ? 0 : (--size_, *data_++); }
  size_t TakeIndex(size_t count) {
    const size_t low = TakeByte();
    return (low | static_cast<size_t>(TakeByte()) << 8) % count;
  }

  // The next bytes, as many as there are of `size`.
  std::string TakeBytes(size_t size) {
    size = std::min(size, size_);
    std::string bytes(reinterpret_cast<const char*>(data_), size);
    data_ += size;
    size_ -= size;
    return bytes;
  }
  std::string TakeRest() { return TakeBytes(size_); }

 private:
  const uint8_t* data_;
  size_t size_;
};

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_ROBUSTNESS_FUZZ_FUZZ_INPUT_H_
