// Elements that another object owns.

#ifndef VANTIRO_TOOLS_WIRE_ARRAY_VIEW_H_
#define VANTIRO_TOOLS_WIRE_ARRAY_VIEW_H_

#include <cstddef>

namespace vantiro {
namespace tools {

// As C++20 has it in std::span.
template <typename T>
class ArrayView {
 public:
  ArrayView() = default;
  ArrayView(T* data, size_t size) : data_(data), size_(size) {}

  bool empty() const { return size_ == 0; }
  size_t size() const { return size_; }
  T* begin() const { return data_; }
  T* end() const { return data_ + size_; }
  T& operator[](size_t index) const { return data_[index]; }

 private:
  T* data_ = nullptr;
  size_t size_ = 0;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_ARRAY_VIEW_H_
