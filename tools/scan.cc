#include "tools/scan.h"

#include <algorithm>
#include <array>
#include <optional>

namespace vantiro {
namespace inspection {
namespace {

constexpr size_t kProgressStep = size_t{1} << 20;
// Records have some kilobytes.
constexpr size_t kMaxRecordSize = size_t{1} << 20;
// How far the bytes before a record can look like its first fields.
constexpr size_t kMaxPrefixSize = 64;

class Scanner {
 public:
  Scanner(const std::vector<const Descriptor*>& types, std::string_view bytes,
          double least_bits)
      : bytes_(bytes), least_bits_(least_bits) {
    for (const Descriptor* const type : types) {
      const Shape& shape = shapes_.Of(*type);
      for (int byte = 0; byte < 256; ++byte) {
        if (CanBegin(shape, static_cast<uint8_t>(byte))) {
          beginning_[static_cast<size_t>(byte)].push_back({type, &shape});
        }
      }
    }
  }

  // The best record that begins at the offset, if any is good enough.
  std::optional<Find> At(size_t offset) const {
    std::optional<Find> best;
    const std::string_view rest = bytes_.substr(offset, kMaxRecordSize);
    for (const auto& [type, shape] :
         beginning_[static_cast<uint8_t>(rest.front())]) {
      const Evidence evidence = WeighPrefix(*shape, rest);
      if (evidence.bits < least_bits_) continue;
      if (best.has_value() && evidence.bits <= best->bits) continue;
      best = Find{offset, evidence.end, type, evidence.bits};
    }
    return best;
  }

 private:
  struct Beginning {
    const Descriptor* type;
    const Shape* shape;
  };

  const std::string_view bytes_;
  const double least_bits_;
  Shapes shapes_;
  // The types whose records can begin with a byte.
  std::array<std::vector<Beginning>, 256> beginning_;
};

}  // namespace

std::vector<Find> Scan(const std::vector<const Descriptor*>& types,
                       std::string_view bytes, double least_bits,
                       const std::function<void(size_t)>& progress) {
  const Scanner scanner(types, bytes, least_bits);
  std::vector<Find> finds;
  for (size_t offset = 0; offset < bytes.size(); ++offset) {
    if (progress && offset % kProgressStep == 0) progress(offset);
    std::optional<Find> find = scanner.At(offset);
    if (!find.has_value()) continue;
    // The bytes before a record may look like fields of another type: what
    // begins a little later and is better takes the place of a find.
    const size_t end = offset + std::min(find->size, kMaxPrefixSize);
    for (size_t inner = offset + 1; inner < end; ++inner) {
      const std::optional<Find> other = scanner.At(inner);
      if (other.has_value() && other->bits > find->bits) find = other;
    }
    finds.push_back(*find);
    offset = find->offset + find->size - 1;
  }
  return finds;
}

}  // namespace inspection
}  // namespace vantiro
