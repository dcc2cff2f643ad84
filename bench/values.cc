#include "bench/values.h"

#include <random>

namespace vantiro {
namespace bench {
namespace {

// The standard says which numbers it gives.
using Random = std::mt19937;

uint32_t Below(uint32_t bound, Random* random) {
  return static_cast<uint32_t>((*random)()) % bound;
}

bool Percent(uint32_t percent, Random* random) {
  return Below(100, random) < percent;
}

// Most numbers in records are small: 45 % take one byte as a varint, 35 % two,
// 14 % three, 6 % five.
uint32_t Number(Random* random) {
  const uint32_t kind = Below(100, random);
  if (kind < 45) return 1 + Below((1U << 7) - 1, random);
  if (kind < 80) return (1U << 7) + Below((1U << 14) - (1U << 7), random);
  if (kind < 94) return (1U << 14) + Below((1U << 21) - (1U << 14), random);
  return (1U << 28) + Below(1U << 28, random);
}

std::string Text(Random* random) {
  std::string text(8 + Below(24, random), ' ');
  for (char& c : text) c = static_cast<char>('a' + Below(26, random));
  return text;
}

}  // namespace

Values::Values(bool is_sparse, uint32_t seed)
    : start_(seed * size_t{37}), position_(start_) {
  Random random;
  for (Step& step : steps_) {
    step.number = Number(&random);
    step.number_or_negative = step.number >> 1 | 1;
    if (Percent(5, &random)) step.number_or_negative *= -1;
    step.around_zero = static_cast<int32_t>(step.number >> 1 | 1);
    if (Percent(50, &random)) step.around_zero *= -1;
    step.real = static_cast<float>(1 + Below(1 << 20, &random)) / 1024.F;
    step.text = Text(&random);
    step.has_scalar = !is_sparse || Percent(30, &random);
    step.has_message = !is_sparse || Percent(95, &random);
    step.scalar_count = is_sparse ? static_cast<int>(Below(6, &random)) : 10;
    step.message_count = is_sparse ? static_cast<int>(Below(3, &random)) : 3;
  }
}

}  // namespace bench
}  // namespace vantiro
