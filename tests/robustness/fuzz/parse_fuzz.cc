// Any bytes into any type on any road: the model's verdict, the model's bytes.
//
// Input: two bytes for the type, one for how the bytes are given, one for the
// recursion budget (0: the default), then the bytes.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/stubs/logging.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "tests/conformance/model/wire_model.h"
#include "tests/robustness/fuzz/check.h"
#include "tests/robustness/fuzz/fuzz_input.h"
#include "tests/support/roads.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

constexpr std::array<int, 8> kBlocks = {0, 1, 2, 7, 16, 17, 40, 4096};

using Owned = std::unique_ptr<MessageLite>;

const std::vector<ReadRoad>& CachedRoads(size_t given) {
  static const auto* const roads = [] {
    auto* const all = new std::vector<std::vector<ReadRoad>>;
    for (const bool has_limit : {false, true}) {
      for (const int block : kBlocks) {
        all->push_back(RoadsFor({block, has_limit}));
      }
    }
    return all;
  }();
  return roads->at(given);
}

// What a message holds is what it writes, in every way of asking; and what it
// writes reads back as the same.
void CheckWriting(const Type& type, const MessageLite& message, bool reads_back,
                  const std::string& wanted) {
  const std::string where = std::string(type.name) + ": ";
  const std::string bytes = message.SerializeAsString();
  CheckEqual(bytes, wanted, where + "written");
  CheckEqual(message.ByteSizeLong() == bytes.size(), true, where + "size");
  if (!reads_back) return;
  const Owned again(type.create(nullptr));
  CheckEqual(again->ParseFromString(bytes), true, where + "read back");
  CheckEqual(again->SerializeAsString(), bytes, where + "written again");
}

bool MergeWithBudget(const Type& type, const std::string& bytes, int block,
                     int budget, MessageLite* message) {
  google::protobuf::io::ArrayInputStream blocks(
      bytes.data(), static_cast<int>(bytes.size()), block);
  CodedInputStream flat(reinterpret_cast<const uint8_t*>(bytes.data()),
                        static_cast<int>(bytes.size()));
  CodedInputStream stream(&blocks);
  CodedInputStream* const input = block == 0 ? &flat : &stream;
  input->SetRecursionLimit(budget);
  return type.merge_from_stream(message, input);
}

void Run(FuzzInput input) {
  const Type& type = AllTypes()[input.TakeIndex(AllTypes().size())];
  const size_t given = input.TakeByte() % (2 * kBlocks.size());
  const int block = kBlocks[given % kBlocks.size()];
  const int budget = input.TakeByte() % 12;
  ModelInput model_input;
  model_input.block = static_cast<size_t>(block);
  model_input.has_limit = budget == 0 && given >= kBlocks.size();
  if (budget > 0) model_input.recursion_budget = budget;
  model_input.bytes = input.TakeRest();

  ModelMessage model(FindMessageModel(type.name));
  const ModelVerdict verdict = MergeModel(model_input, &model);
  const std::string wanted = model.Serialize();
  if (budget > 0) {
    const Owned message(type.create(nullptr));
    CheckEqual(
        MergeWithBudget(type, model_input.bytes, block, budget, message.get()),
        verdict.merged, std::string(type.name) + ": with a budget");
    CheckWriting(type, *message, false, wanted);
    return;
  }
  for (const ReadRoad& road : CachedRoads(given)) {
    const Owned message(type.create(nullptr));
    const bool ok = road.read(type, model_input.bytes, message.get());
    CheckEqual(ok, road.is_parse ? verdict.ended_well : verdict.merged,
               std::string(type.name) + ": " + road.name);
    CheckWriting(type, *message, ok, wanted);
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const google::protobuf::LogSilencer silence;
  vantiro::tests::Run({data, size});
  return 0;
}
