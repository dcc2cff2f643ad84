#include "internal/read_repeated.h"

namespace vantiro {
namespace internal {

const uint8_t* ReadPackedFloats(const uint8_t* p, const uint8_t* end,
                                const ParseState& state,
                                RepeatedField<float>* field) {
  return ReadPackedFixed(p, end, state, field);
}

const uint8_t* ReadUnpackedFloat(const uint8_t* p, const uint8_t* end,
                                 RawTag packed_tag, const ParseState& state,
                                 RepeatedField<float>* field) {
  return ReadUnpackedFixed(p, end, packed_tag, state, field);
}

}  // namespace internal
}  // namespace vantiro
