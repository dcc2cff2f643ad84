// The values that records are filled with: the same in every process and on
// every machine.

#ifndef VANTIRO_BENCH_VALUES_H_
#define VANTIRO_BENCH_VALUES_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

namespace vantiro {
namespace bench {

// Hands out values one after another from a table that is made beforehand, so
// that filling a record spends its time in the record's accessors. No value is
// zero, hence none of them is left out when the record is written.
class Values {
 public:
  // A full record has every field; a sparse one some, and short lists. Two
  // seeds give two records.
  Values(bool is_sparse, uint32_t seed);

  // The same values again.
  void Restart() { position_ = start_; }

  bool HasScalar() { return Next().has_scalar; }
  bool HasMessage() { return Next().has_message; }
  int ScalarCount() { return Next().scalar_count; }
  int MessageCount() { return Next().message_count; }

  // One for each type that a schema can name.
  float Float() { return Next().real; }
  bool Bool() { return true; }
  uint32_t Uint32() { return Next().number; }
  uint64_t Uint64() { return uint64_t{Next().number} << 20 | 1; }
  int32_t Int32() { return static_cast<int32_t>(Next().number_or_negative); }
  int64_t Int64() { return Next().number_or_negative; }
  int32_t Sint32() { return Next().around_zero; }
  int64_t Sint64() { return Next().around_zero; }
  const std::string& String() { return Next().text; }
  template <typename Enum>
  Enum OneOf(std::initializer_list<int> numbers) {
    return static_cast<Enum>(numbers.begin()[Next().number % numbers.size()]);
  }

 private:
  // Few enough for the first cache, and a prime: a message that recurs in a
  // record gets other values.
  static constexpr size_t kStepCount = 251;

  // What one step can give. Only one of its members is used.
  struct Step {
    uint32_t number;
    int64_t number_or_negative;
    int32_t around_zero;
    float real;
    std::string text;
    bool has_scalar;
    bool has_message;
    int scalar_count;
    int message_count;
  };

  const Step& Next() { return steps_[position_++ % kStepCount]; }

  std::array<Step, kStepCount> steps_;
  size_t start_;
  size_t position_;
};

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_VALUES_H_
