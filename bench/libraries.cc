#include "bench/libraries.h"

#include "bench/elf_file.h"
#include "bench/load_time.h"

namespace vantiro {
namespace bench {
namespace {

constexpr int kLoads = 50;

}  // namespace

std::vector<Library> ExamineLibraries(
    const std::vector<BuiltVariant>& variants) {
  std::vector<Library> libraries;
  for (const BuiltVariant& variant : variants) {
    const ElfFile file(variant.library);
    libraries.push_back({variant.name, file.TextSize(), file.DataSize(),
                         file.BssSize(), file.RelocationCount(),
                         file.NamedRelocationCount(), file.StrippedSize(),
                         LoadTime(variant.library, kLoads)});
  }
  return libraries;
}

std::vector<ObjectSize> ObjectSizes(const Variant& ours, const Variant& stock) {
  std::vector<ObjectSize> sizes;
  for (const std::string& root : ours.Roots()) {
    sizes.push_back({root, ours.ObjectSize(root), stock.ObjectSize(root)});
  }
  return sizes;
}

}  // namespace bench
}  // namespace vantiro
