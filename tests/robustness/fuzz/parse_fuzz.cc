// Any bytes into any type by any entry point: what the model says, and what it
// writes.
//
// Input: two bytes for the type, one for how the bytes are given, one for the
// recursion limit (0: the default), then the bytes.

#include <gtest/gtest.h>

#include "tests/conformance/model/checked_message.h"
#include "tests/robustness/fuzz/fuzz_input.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

void Run(FuzzInput fuzz_input) {
  static const auto* const ways = new std::vector<Input>(InputsOf(""));
  const Type& type = AllTypes()[fuzz_input.TakeIndex(AllTypes().size())];
  Input input = ways->at(fuzz_input.TakeByte() % ways->size());
  const int limit = fuzz_input.TakeByte() % 12;
  if (limit > 0) input.recursion_limit = limit;
  input.bytes = fuzz_input.TakeRest();
  std::string written;
  if (!ReadByAllEntryPoints(type, input, &written).complete) return;
  std::string again;
  ReadByAllEntryPoints(type, {written}, &again);
  EXPECT_TRUE(AreSame(again, written)) << type.name;
}

}  // namespace
}  // namespace tests
}  // namespace vantiro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  vantiro::tests::Run({data, size});
  return 0;
}
