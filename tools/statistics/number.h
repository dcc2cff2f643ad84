// Numbers of all kinds that fields have, without loss.

#ifndef VANTIRO_TOOLS_STATISTICS_NUMBER_H_
#define VANTIRO_TOOLS_STATISTICS_NUMBER_H_

#include <cstdint>
#include <string>

#include "tools/schema/schema.h"

namespace vantiro {
namespace tools {

class Number {
 public:
  enum Kind { kSigned, kUnsigned, kFloating };

  // Of an unsigned number, or of a number that is not a NaN.
  static Number Of(uint64_t value) { return {kUnsigned, value}; }
  static Number Of(double value);
  // The value of a numeric field other than a bool or an enum, from its bits as
  // scalar.h describes them; not a NaN.
  static Number Of(const FieldDescriptor& field, uint64_t bits);
  static Kind KindOf(const FieldDescriptor& field);

  // Numbers of one kind have the order of their ranks.
  Number(Kind kind, uint64_t rank) : kind_(kind), rank_(rank) {}
  Kind kind() const { return kind_; }
  uint64_t rank() const { return rank_; }

  double ToDouble() const;
  // As ScalarText has it: with as many digits as identify the number, as a
  // float if it is one.
  std::string Text() const;

 private:
  Kind kind_;
  uint64_t rank_;
};

// A number whose ranks have the order of doubles, and the inverse.
uint64_t RankOfDouble(double value);
double DoubleOfRank(uint64_t rank);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_STATISTICS_NUMBER_H_
