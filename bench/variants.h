// The variants that were built, and how to load them.

#ifndef VANTIRO_BENCH_VARIANTS_H_
#define VANTIRO_BENCH_VARIANTS_H_

#include <string>
#include <vector>

#include "bench/variant.h"

namespace vantiro {
namespace bench {

struct BuiltVariant {
  std::string name;
  std::string plugin;
  std::string library;
};

// The library first, then protoc's classes, then the same without calls
// through the PLT.
const std::vector<BuiltVariant>& BuiltVariants();

const BuiltVariant& FindVariant(const std::string& name);

// Loads the plug-in. Nothing of one variant is seen by another.
const Variant& Load(const BuiltVariant& variant);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_VARIANTS_H_
