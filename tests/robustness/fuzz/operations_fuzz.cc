// A sequence of operations on a few messages of one type, against models of
// what they must hold.
//
// Input: two bytes for the type, then operations: a byte for which, one for the
// message, one for the other, and what the operation takes.

#include <google/protobuf/arena.h>
#include <google/protobuf/stubs/logging.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/conformance/model/wire_model.h"
#include "tests/robustness/fuzz/check.h"
#include "tests/robustness/fuzz/fuzz_input.h"
#include "tests/robustness/fuzz/sub_fields.h"
#include "tests/support/merge.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

class Operations {
 public:
  Operations(const Type& type, FuzzInput* input)
      : type_(type),
        model_(FindMessageModel(type.name)),
        sub_fields_(SubFieldsOf(type.name)),
        input_(*input) {
    for (Slot& slot : slots_) Create(false, &slot);
  }
  ~Operations() {
    for (Slot& slot : slots_) Drop(&slot);
  }
  Operations(const Operations&) = delete;
  Operations& operator=(const Operations&) = delete;

  void Run() {
    while (!input_.empty()) {
      const int operation = input_.TakeByte() % 12;
      Slot* const slot = &slots_[input_.TakeByte() % slots_.size()];
      Slot* const other = &slots_[input_.TakeByte() % slots_.size()];
      Do(operation, slot, other);
      Check(*slot);
      Check(*other);
    }
    CheckEqual(type_.default_instance().ByteSizeLong() == 0, true,
               "default instance");
  }

 private:
  struct Slot {
    MessageLite* message = nullptr;
    bool on_arena = false;
    std::unique_ptr<ModelMessage> model;
  };

  void Do(int operation, Slot* slot, Slot* other) {
    switch (operation) {
      case 0:
      case 1:
        return Create(operation == 1, slot);
      case 2:
        return Parse(slot);
      case 3:
        return Merge(slot);
      case 4:
        slot->message->Clear();
        return slot->model->Clear();
      case 5:
        return MergeFrom(slot, other);
      case 6:
        return CopyFrom(slot, other);
      case 7:
        if (slot != other) std::swap(slot->model, other->model);
        return type_.swap(slot->message, other->message);
      case 8:
        return CopyConstruct(slot, other);
      default:
        return ChangeSub(operation, slot, other);
    }
  }

  void Drop(Slot* slot) {
    if (!slot->on_arena) delete slot->message;
  }

  void Create(bool on_arena, Slot* slot) {
    Drop(slot);
    slot->on_arena = on_arena;
    slot->message = type_.create(on_arena ? &arena_ : nullptr);
    slot->model = std::make_unique<ModelMessage>(model_);
  }

  void Parse(Slot* slot) {
    const ModelInput bytes = {input_.TakeBytes(input_.TakeByte())};
    Create(slot->on_arena, slot);
    const bool ok = slot->message->ParseFromString(bytes.bytes);
    CheckEqual(ok, MergeModel(bytes, slot->model.get()).ended_well, "parse");
  }

  // Merges bytes as the library writes them: how far a list looks ahead depends
  // on its capacity, which is the runtime's.
  void Merge(Slot* slot) {
    const ModelInput bytes = {input_.TakeBytes(input_.TakeByte())};
    ModelMessage read(model_);
    MergeModel(bytes, &read);
    const ModelInput written = {read.Serialize()};
    const bool ok = MergeBytes(written.bytes, slot->message);
    CheckEqual(ok, MergeModel(written, slot->model.get()).ended_well, "merge");
  }

  void MergeFrom(Slot* slot, Slot* other) {
    if (slot == other) return;
    type_.merge_from(slot->message, *other->message);
    slot->model->MergeFrom(*other->model);
  }

  void CopyFrom(Slot* slot, Slot* other) {
    type_.copy_from(slot->message, *other->message);
    if (slot == other) return;
    slot->model->Clear();
    slot->model->MergeFrom(*other->model);
  }

  void CopyConstruct(Slot* slot, Slot* other) {
    MessageLite* const copy = type_.copy(*other->message);
    auto model = std::make_unique<ModelMessage>(model_);
    model->MergeFrom(*other->model);
    Drop(slot);
    *slot = {copy, false, std::move(model)};
  }

  // Takes a sub-message out of one message, and drops it or puts it into
  // another; or clears it, or brings it about.
  void ChangeSub(int operation, Slot* slot, Slot* other) {
    if (sub_fields_.empty()) return;
    const SubField& field = sub_fields_[input_.TakeIndex(sub_fields_.size())];
    auto& sub = slot->model->Sub(field.number);
    CheckEqual(field.has(*slot->message), sub != nullptr, "presence");
    if (operation == 9) {
      field.clear(slot->message);
      sub.reset();
    } else if (operation == 10) {
      field.create(slot->message);
      if (sub == nullptr) {
        sub = std::make_unique<ModelMessage>(FindMessageModel(field.sub_name));
      }
    } else {
      MessageLite* const released = field.release(slot->message);
      auto released_model = std::move(sub);
      field.set_allocated(other->message, released);
      other->model->Sub(field.number) = std::move(released_model);
    }
  }

  void Check(const Slot& slot) {
    CheckEqual(slot.message->SerializeAsString(), slot.model->Serialize(),
               type_.name);
  }

  const Type& type_;
  const MessageModel& model_;
  const std::vector<SubField>& sub_fields_;
  FuzzInput& input_;
  Arena arena_;
  std::array<Slot, 3> slots_;
};

}  // namespace
}  // namespace tests
}  // namespace vantiro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const google::protobuf::LogSilencer silence;
  vantiro::tests::FuzzInput input(data, size);
  const auto& types = vantiro::tests::AllTypes();
  const auto& type = types[input.TakeIndex(types.size())];
  vantiro::tests::Operations(type, &input).Run();
  return 0;
}
