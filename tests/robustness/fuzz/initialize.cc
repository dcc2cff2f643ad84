// What libFuzzer calls first.

#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  // A failed expectation ends the program: nothing catches what it throws.
  GTEST_FLAG_SET(throw_on_failure, true);
  static const google::protobuf::LogSilencer silence;
  return 0;
}
