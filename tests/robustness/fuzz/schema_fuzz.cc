// Any schema into the plug-in: it is refused, or emitted, the same text twice.
//
// Input: a FileDescriptorSet of one file.

#include <google/protobuf/descriptor.h>
#include <google/protobuf/descriptor.pb.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "compiler/file_generator.h"
#include "compiler/validator.h"

namespace {

class Silent : public google::protobuf::DescriptorPool::ErrorCollector {
 public:
  void AddError(const std::string& /*file*/, const std::string& /*element*/,
                const google::protobuf::Message* /*descriptor*/,
                ErrorLocation /*location*/,
                const std::string& /*message*/) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  google::protobuf::FileDescriptorSet set;
  if (!set.ParseFromArray(data, static_cast<int>(size))) return 0;
  if (set.file_size() != 1) return 0;
  google::protobuf::DescriptorPool pool;
  Silent errors;
  const auto* const file = pool.BuildFileCollectingErrors(set.file(0), &errors);
  if (file == nullptr) return 0;
  vantiro::compiler::ValidationErrors invalid;
  vantiro::compiler::Validate(file, &invalid);
  if (!invalid.lines().empty()) return 0;
  const vantiro::compiler::FileGenerator first(file);
  const vantiro::compiler::FileGenerator second(file);
  EXPECT_EQ(first.Header(), second.Header());
  EXPECT_EQ(first.Source(), second.Source());
  return 0;
}
