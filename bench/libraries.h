// The libraries themselves, and the classes in them.

#ifndef VANTIRO_BENCH_LIBRARIES_H_
#define VANTIRO_BENCH_LIBRARIES_H_

#include <cstddef>
#include <string>
#include <vector>

#include "bench/variants.h"

namespace vantiro {
namespace bench {

struct Library {
  std::string variant;
  size_t text_size;
  size_t data_size;
  size_t bss_size;
  size_t relocation_count;
  size_t named_relocation_count;
  size_t stripped_size;
  // Nanoseconds.
  double load_time;
};

struct ObjectSize {
  std::string root;
  size_t ours;
  size_t stock;
};

// Has to be called before a variant is loaded.
std::vector<Library> ExamineLibraries(
    const std::vector<BuiltVariant>& variants);

// sizeof of all roots.
std::vector<ObjectSize> ObjectSizes(const Variant& ours, const Variant& stock);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_LIBRARIES_H_
