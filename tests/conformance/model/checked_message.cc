#include "tests/conformance/model/checked_message.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {

Verdict ReadByAllEntryPoints(const Type& type, const Input& input,
                             std::string* written) {
  ModelMessage model(type);
  const Verdict wanted = MergeModel(input, &model);
  *written = model.Serialize();
  for (const EntryPoint& entry_point : EntryPointsFor(input)) {
    SCOPED_TRACE(std::string(type.name) + " by " + entry_point.name + ": " +
                 ToString(input));
    const Owned message = type.New();
    const Verdict verdict = entry_point.read(type, input, message.get());
    if (!entry_point.is_parse) {
      EXPECT_EQ(verdict.merged, wanted.merged);
    }
    EXPECT_EQ(verdict.complete, wanted.complete);
    EXPECT_TRUE(AreSame(Serialize(type, *message), *written));
  }
  return wanted;
}

CheckedMessage::CheckedMessage(const Type& type, Arena* arena)
    : type_(type),
      arena_(arena),
      message_(type.create(arena)),
      model_(std::make_unique<ModelMessage>(type)) {}

CheckedMessage::CheckedMessage(const CheckedMessage& from)
    : type_(from.type_),
      message_(type_.copy(*from.message_)),
      model_(std::make_unique<ModelMessage>(type_)) {
  model_->MergeFrom(*from.model_);
}

CheckedMessage::~CheckedMessage() {
  if (arena_ == nullptr) delete message_;
}

Verdict CheckedMessage::Merge(const Input& input) {
  const Verdict wanted = MergeModel(input, model_.get());
  const Verdict verdict = tests::Merge(type_, input, message_);
  EXPECT_EQ(verdict.merged, wanted.merged) << ToString(input);
  EXPECT_EQ(verdict.complete, wanted.complete) << ToString(input);
  return wanted;
}

bool CheckedMessage::Parse(const std::string& bytes) {
  model_->Clear();
  const bool wanted = MergeModel({bytes}, model_.get()).complete;
  EXPECT_EQ(message_->ParseFromString(bytes), wanted) << ToHex(bytes);
  return wanted;
}

void CheckedMessage::Clear() {
  message_->Clear();
  model_->Clear();
  EXPECT_EQ(message_->ByteSizeLong(), 0u);
}

void CheckedMessage::MergeFrom(const CheckedMessage& from) {
  type_.merge_from(message_, *from.message_);
  model_->MergeFrom(*from.model_);
}

void CheckedMessage::CopyFrom(const CheckedMessage& from) {
  type_.copy_from(message_, *from.message_);
  if (&from == this) return;
  model_->Clear();
  model_->MergeFrom(*from.model_);
  // A -0.0, which is not copied, would not be written either.
  for (const auto& [number, field] : type_.fields) {
    if (field.kind != Kind::FLOAT || field.is_repeated) continue;
    EXPECT_NE(field.get(*message_, 0).number, 0x80000000) << field.name;
  }
}

void CheckedMessage::Swap(CheckedMessage* other) {
  type_.swap(message_, other->message_);
  if (other == this) return;
  if (message_->GetArena() == other->message_->GetArena()) {
    std::swap(model_, other->model_);
    return;
  }
  // Between arenas the content is copied.
  ModelMessage copy(type_);
  copy.MergeFrom(*model_);
  model_->Clear();
  model_->MergeFrom(*other->model_);
  other->model_->Clear();
  other->model_->MergeFrom(copy);
}

void CheckedMessage::Create(const Field& field) {
  field.set(message_, {0, ""});
  auto& child = model_->Child(field.number);
  if (child == nullptr) child = std::make_unique<ModelMessage>(*field.type);
}

void CheckedMessage::Clear(const Field& field) {
  field.clear(message_);
  model_->Child(field.number).reset();
}

void CheckedMessage::Move(const Field& field, CheckedMessage* to) {
  auto child = std::move(model_->Child(field.number));
  EXPECT_EQ(field.count(*message_), child != nullptr) << field.name;
  if (child != nullptr && message_->GetArena() != nullptr) {
    // The child is released as a copy.
    auto copy = std::make_unique<ModelMessage>(*field.type);
    copy->MergeFrom(*child);
    child = std::move(copy);
  }
  field.set_allocated(to->message_, field.release(message_));
  to->model_->Child(field.number) = std::move(child);
}

std::string CheckedMessage::Serialize() const {
  std::string bytes = tests::Serialize(type_, *message_);
  EXPECT_TRUE(AreSame(bytes, model_->Serialize())) << type_.name;
  return bytes;
}

}  // namespace tests
}  // namespace vantiro
