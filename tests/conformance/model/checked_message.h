// The classes beside the model: what is done to one is done to the other, and
// the test fails where they do not agree.

#ifndef VANTIRO_TESTS_CONFORMANCE_MODEL_CHECKED_MESSAGE_H_
#define VANTIRO_TESTS_CONFORMANCE_MODEL_CHECKED_MESSAGE_H_

#include <memory>
#include <string>

#include "tests/conformance/model/wire_model.h"

namespace vantiro {
namespace tests {

// Reads by each entry point that takes this input. Gives the model's verdict,
// and in `written` what the message then serialises to.
Verdict ReadByAllEntryPoints(const Type& type, const Input& input,
                             std::string* written);

// A message of a class, and the model's message of the same type.
class CheckedMessage {
 public:
  CheckedMessage(const Type& type, Arena* arena);
  // By the copy constructor of the class.
  CheckedMessage(const CheckedMessage& from);
  ~CheckedMessage();
  CheckedMessage& operator=(const CheckedMessage&) = delete;

  Arena* arena() const { return arena_; }

  Verdict Merge(const Input& input);
  bool Parse(const std::string& bytes);
  void Clear();
  void MergeFrom(const CheckedMessage& from);
  void CopyFrom(const CheckedMessage& from);
  void Swap(CheckedMessage* other);

  // For a singular message field: makes it present; removes it; or releases its
  // value and gives it to `to` by set_allocated.
  void Create(const Field& field);
  void Clear(const Field& field);
  void Move(const Field& field, CheckedMessage* to);

  // What both serialise to.
  std::string Serialize() const;

 private:
  const Type& type_;
  Arena* const arena_ = nullptr;
  MessageLite* const message_;
  std::unique_ptr<ModelMessage> model_;
};

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_MODEL_CHECKED_MESSAGE_H_
