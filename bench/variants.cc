#include "bench/variants.h"

#include <dlfcn.h>

#include <stdexcept>

namespace vantiro {
namespace bench {

const std::vector<BuiltVariant>& BuiltVariants() {
  static const auto* const variants = new std::vector<BuiltVariant>{
#include "variant_paths.inc"
  };
  return *variants;
}

const BuiltVariant& FindVariant(const std::string& name) {
  for (const BuiltVariant& variant : BuiltVariants()) {
    if (variant.name == name) return variant;
  }
  throw std::runtime_error("no variant " + name);
}

const Variant& Load(const BuiltVariant& variant) {
  void* const plugin = dlopen(variant.plugin.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (plugin == nullptr) throw std::runtime_error(dlerror());
  const auto entry = reinterpret_cast<decltype(&VantiroBenchVariant)>(
      dlsym(plugin, "VantiroBenchVariant"));
  if (entry == nullptr) throw std::runtime_error(dlerror());
  return *entry();
}

}  // namespace bench
}  // namespace vantiro
