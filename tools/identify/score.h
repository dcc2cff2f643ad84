// How likely bytes are a record of a type.
//
// A type predicts its records: only some tags occur, in ascending order; a bool
// is 1, an enum has one of a few numbers, a float is rarely huge, a string is
// printable, and a sub-message ends where its length says. Each value that
// agrees with the prediction can be encoded in fewer bits than it has, and each
// that does not needs more. The score is the number of bits saved by encoding
// all bytes so. Random bytes reach a score of B with a probability of about
// 2^-B.

#ifndef VANTIRO_TOOLS_IDENTIFY_SCORE_H_
#define VANTIRO_TOOLS_IDENTIFY_SCORE_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tools/identify/structure.h"

namespace vantiro {
namespace tools {

// How many values of one kind were checked, and how many were as predicted.
struct CheckCount {
  size_t passed = 0;
  size_t total = 0;

  void Add(bool passes) {
    ++total;
    passed += passes ? 1 : 0;
  }
};

struct Score {
  // Below zero where the bytes disagree with the type.
  double bits = 0;
  // Bytes in fields that the type declares, and in unknown fields.
  size_t known_bytes = 0;
  size_t unknown_bytes = 0;
  CheckCount enums;
  CheckCount floats;
  CheckCount strings;
  // How many bytes could be read.
  size_t end = 0;
};

// The score of `bytes` as a record, complete or damaged: what disagrees costs
// bits, and what cannot be read saves none.
Score ScoreRecord(const MessageStructure& structure, std::string_view bytes);

struct PrefixScore {
  double bits;
  size_t size;
  // How many bytes were read to find that.
  size_t read_size;
};

// The score of the longest prefix of `bytes` that is an undamaged record as the
// library writes it: as among random bytes, or as in the carrier whose
// Carrier::Bits are given.
PrefixScore ScorePrefix(const MessageStructure& structure,
                        std::string_view bytes,
                        const std::vector<double>* carrier);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IDENTIFY_SCORE_H_
