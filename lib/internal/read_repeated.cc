#include "internal/read_repeated.h"

namespace vantiro {
namespace internal {

const uint8_t* ReadPackedFloats(const uint8_t* p, const uint8_t* end,
                                const ParseState& state,
                                RepeatedField<float>* field) {
  ptrdiff_t length;
  p = ReadLength(p, end, &length);
  if (p == nullptr || length % kFloatSize != 0) return nullptr;
  const ptrdiff_t missing = length - (end - p);
  const bool at_once =
      state.bounds.IsReadAtOnce(state.recursion_budget, missing);
  if (at_once && missing > 0) return nullptr;
  const ptrdiff_t count = std::min(length, end - p) / kFloatSize;
  if (count > 0) {
    if (at_once) {
      ReserveAtOnce(count, field);
    } else {
      ReserveByDoubling(count, field);
    }
    float* const first = field->AddNAlreadyReserved(static_cast<int>(count));
    std::memcpy(first, p, static_cast<size_t>(count * kFloatSize));
  }
  return missing > 0 ? nullptr : p + length;
}

const uint8_t* ReadUnpackedFloat(const uint8_t* p, const uint8_t* end,
                                 RawTag packed_tag, const ParseState& state,
                                 RepeatedField<float>* field) {
  float element;
  p = ReadFloat(p, end, &element);
  if (p == nullptr) return nullptr;
  AddElement(element, field);
  // Looks ahead for whole elements only: a tag whose value is truncated is left
  // to the parser.
  const int tag_size = RawTagSize(packed_tag);
  const ptrdiff_t available = std::min<ptrdiff_t>(
      field->Capacity() - field->size(),
      (state.bounds.EndOfLookAhead(p, end) - p) / (tag_size + kFloatSize));
  for (ptrdiff_t i = 0; i < available && PeekTag(p, end) == packed_tag; ++i) {
    p = ReadFloat(p + tag_size, end, &element);
    field->AddAlreadyReserved(element);
  }
  return p;
}

}  // namespace internal
}  // namespace vantiro
