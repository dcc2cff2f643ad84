// A map of few entries, in one piece of memory.

#ifndef VANTIRO_TOOLS_WIRE_FLAT_MAP_H_
#define VANTIRO_TOOLS_WIRE_FLAT_MAP_H_

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace vantiro {
namespace tools {

// By field number, in ascending order. An addition moves the values, so that
// pointers to them are no longer valid. It is fast if the numbers are added in
// ascending order, as they are in the bytes of most records.
template <typename T>
class FlatMap {
 public:
  using Entry = std::pair<int, T>;
  using Iterator = typename std::vector<Entry>::iterator;
  using ConstIterator = typename std::vector<Entry>::const_iterator;

  bool empty() const { return entries_.empty(); }
  size_t size() const { return entries_.size(); }
  void clear() { entries_.clear(); }
  Iterator begin() { return entries_.begin(); }
  Iterator end() { return entries_.end(); }
  ConstIterator begin() const { return entries_.begin(); }
  ConstIterator end() const { return entries_.end(); }

  ConstIterator find(int number) const {
    const auto found = std::lower_bound(begin(), end(), number, IsLess);
    return found != end() && found->first == number ? found : end();
  }

  size_t count(int number) const { return find(number) == end() ? 0 : 1; }

  // The value of `number`, which is added if there is none.
  T& operator[](int number) {
    if (entries_.empty() || entries_.back().first < number) {
      entries_.emplace_back(number, T());
      return entries_.back().second;
    }
    if (entries_.back().first == number) return entries_.back().second;
    auto found = std::lower_bound(begin(), end(), number, IsLess);
    if (found->first != number) {
      found = entries_.insert(found, Entry(number, T()));
    }
    return found->second;
  }

  // Moves all entries here, where there are none, without spare space.
  void TakeFrom(FlatMap* other) {
    entries_.reserve(other->entries_.size());
    for (Entry& entry : other->entries_) entries_.push_back(std::move(entry));
    other->clear();
  }

  // Removes the entries for which `is_removed` is true.
  template <typename Predicate>
  void RemoveIf(Predicate is_removed) {
    entries_.erase(std::remove_if(begin(), end(), is_removed), end());
  }

 private:
  static bool IsLess(const Entry& entry, int number) {
    return entry.first < number;
  }

  std::vector<Entry> entries_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_FLAT_MAP_H_
