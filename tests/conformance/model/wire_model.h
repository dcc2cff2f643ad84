// A model of the wire rules, written from the rules: slow, plain, and without a
// line of the library or of the runtime. The library is held to it.

#ifndef VANTIRO_TESTS_CONFORMANCE_MODEL_WIRE_MODEL_H_
#define VANTIRO_TESTS_CONFORMANCE_MODEL_WIRE_MODEL_H_

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/conformance/model/schema_model.h"

namespace vantiro {
namespace tests {

// What a message holds.
class ModelMessage {
 public:
  explicit ModelMessage(const MessageModel& model) : model_(&model) {}

  // Forgets everything, but lists keep their capacity.
  void Clear();
  // Takes over what `from` holds as a merge does: zeros and what is empty leave
  // things as they are.
  void MergeFrom(const ModelMessage& from);
  // The sub-message of a singular field, to be taken out, put in or left empty.
  std::unique_ptr<ModelMessage>& Sub(int number);
  // The bytes that it serialises to.
  std::string Serialize() const;

 private:
  friend class ModelParser;

  struct Value {
    // A scalar's or an element's bits, before any encoding.
    uint64_t scalar = 0;
    std::vector<uint64_t> list;
    size_t capacity = 0;
    std::string text;
    std::unique_ptr<ModelMessage> sub;
    std::vector<std::unique_ptr<ModelMessage>> subs;
  };

  const MessageModel* model_;
  std::map<int, Value> values_;
  std::string unknown_;
};

// How input is given to a parse.
struct ModelInput {
  std::string bytes;
  // The stream's blocks; 0 for one piece.
  size_t block = 0;
  // Whether the parser knows beforehand where the bytes end: always so for one
  // piece, by a limit for a stream.
  bool has_limit = true;
  int recursion_budget = 100;
};

struct ModelVerdict {
  // What a merge says.
  bool merged;
  // Whether the bytes ended where a message may end, which a parse also asks.
  bool ended_well;
};

ModelVerdict MergeModel(const ModelInput& input, ModelMessage* message);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_MODEL_WIRE_MODEL_H_
