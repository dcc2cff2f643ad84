// How well bytes fit a type, by what they would cost to describe with it.
//
// A type predicts its records: few of all tags occur, in ascending order; a
// bool is 1, an enum one of a few numbers, a float rarely huge, a string is
// text, and a sub-message ends where its length says. Every prediction that
// holds saves bits against bytes of which nothing is known, every one that
// fails costs some. Bytes that are noise save B bits with a probability of
// about 2^-B.

#ifndef VANTIRO_TOOLS_EVIDENCE_H_
#define VANTIRO_TOOLS_EVIDENCE_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tools/shape.h"

namespace vantiro {
namespace inspection {

// Predictions of one kind: how many there were, and how many held.
struct Tally {
  size_t held = 0;
  size_t all = 0;

  void Add(bool holds) {
    ++all;
    held += holds ? 1 : 0;
  }
};

struct Evidence {
  // Bits saved; below zero where the type fits worse than none.
  double bits = 0;
  // Bytes in fields that the type knows, and in others.
  size_t known_bytes = 0;
  size_t unknown_bytes = 0;
  Tally enums;
  Tally floats;
  Tally strings;
  // How far the bytes could be read.
  size_t end = 0;
};

// The evidence that `bytes` are a record of the shape, whole or damaged: what
// does not fit costs bits, and what cannot be read saves none.
Evidence Weigh(const Shape& shape, std::string_view bytes);

// The evidence that `bytes` begin with an undamaged record of the shape as the
// library writes it. Reads up to where they cease to be one.
Evidence WeighPrefix(const Shape& shape, std::string_view bytes);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_EVIDENCE_H_
