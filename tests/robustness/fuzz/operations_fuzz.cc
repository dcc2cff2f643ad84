// A sequence of operations on a few messages of one type, each beside the model
// of what it must hold.
//
// Input: two bytes for the type, then operations: a byte for which, one for the
// message, one for the other, and what the operation takes.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "tests/conformance/model/checked_message.h"
#include "tests/robustness/fuzz/fuzz_input.h"

namespace vantiro {
namespace tests {
namespace {

class Operations {
 public:
  Operations(const Type& type, FuzzInput* input) : type_(type), input_(*input) {
    for (const auto& [number, field] : type.fields) {
      if (field.release != nullptr) message_fields_.push_back(&field);
    }
    for (Slot& slot : slots_) Create(nullptr, &slot);
  }

  void Run() {
    while (!input_.empty()) {
      const int operation = input_.TakeByte() % 12;
      Slot* const slot = &slots_[input_.TakeByte() % slots_.size()];
      Slot* const other = &slots_[input_.TakeByte() % slots_.size()];
      Do(operation, slot, other);
      (*slot)->Serialize();
      (*other)->Serialize();
    }
  }

 private:
  using Slot = std::unique_ptr<CheckedMessage>;

  void Do(int operation, Slot* slot, Slot* other) {
    switch (operation) {
      case 0:
        return Create(nullptr, slot);
      case 1:
        return Create(&arena_, slot);
      case 2:
        (*slot)->Parse(TakeBytes());
        return;
      case 3:
        (*slot)->Merge({TakeBytes()});
        return;
      case 4:
        return (*slot)->Clear();
      case 5:
        if (slot != other) (*slot)->MergeFrom(**other);
        return;
      case 6:
        return (*slot)->CopyFrom(**other);
      case 7:
        return (*slot)->Swap(other->get());
      case 8:
        *slot = std::make_unique<CheckedMessage>(**other);
        return;
      default:
        return ChangeField(operation, slot, other);
    }
  }

  void Create(Arena* arena, Slot* slot) {
    *slot = std::make_unique<CheckedMessage>(type_, arena);
  }

  std::string TakeBytes() {
    return input_.TakeBytes(input_.TakeIndex(size_t{1} << 16));
  }

  void ChangeField(int operation, Slot* slot, Slot* other) {
    if (message_fields_.empty()) return;
    const Field& field =
        *message_fields_[input_.TakeIndex(message_fields_.size())];
    if (operation == 9) return (*slot)->Clear(field);
    if (operation == 10) return (*slot)->Create(field);
    (*slot)->Move(field, other->get());
  }

  const Type& type_;
  std::vector<const Field*> message_fields_;
  FuzzInput& input_;
  Arena arena_;
  std::array<Slot, 3> slots_;
};

}  // namespace
}  // namespace tests
}  // namespace vantiro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  vantiro::tests::FuzzInput input(data, size);
  const auto& types = vantiro::tests::AllTypes();
  const auto& type = types[input.TakeIndex(types.size())];
  vantiro::tests::Operations(type, &input).Run();
  return 0;
}
