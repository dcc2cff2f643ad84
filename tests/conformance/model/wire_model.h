// A model of the wire rules, written from the rules: slow, plain, and without a
// line of the library or of the runtime. Of the types it takes the numbers and
// the kinds of their fields only.

#ifndef VANTIRO_TESTS_CONFORMANCE_MODEL_WIRE_MODEL_H_
#define VANTIRO_TESTS_CONFORMANCE_MODEL_WIRE_MODEL_H_

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/entry_points.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {

// What a message holds.
class ModelMessage {
 public:
  explicit ModelMessage(const Type& type) : type_(&type) {}

  // Removes everything, but repeated fields keep their capacity, and those of
  // messages their elements, to be used again.
  void Clear();
  // Takes what `from` holds as a merge does: zeros and what is empty change
  // nothing.
  void MergeFrom(const ModelMessage& from);
  // The value of a singular message field, null if it is absent.
  std::unique_ptr<ModelMessage>& Child(int number);
  std::string Serialize() const;

 private:
  friend class ModelParser;

  struct Value {
    // A repeated field grows to four elements, to twice its capacity, or to
    // what is needed, whichever is most.
    void Reserve(Kind kind, size_t size);
    void Append(Kind kind, uint64_t bits);
    // Adds an element, the one that was removed there if there is one.
    ModelMessage* AddChild(const Type& type);

    // A scalar's or an element's bits, before any encoding.
    uint64_t scalar = 0;
    std::vector<uint64_t> elements;
    size_t capacity = 0;
    std::string string;
    // Those of a repeated field.
    std::vector<std::string> strings;
    std::unique_ptr<ModelMessage> child;
    std::vector<std::unique_ptr<ModelMessage>> children;
    // The elements behind have been removed.
    size_t child_count = 0;
  };

  const Type* type_;
  std::map<int, Value> values_;
  std::string unknown_;
};

Verdict MergeModel(const Input& input, ModelMessage* message);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_MODEL_WIRE_MODEL_H_
