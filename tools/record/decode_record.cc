#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "tools/record/record.h"
#include "tools/wire/record_reader.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownFieldSet;
using google::protobuf::internal::WireFormatLite;

class RecordMaker : public RecordVisitor {
 public:
  RecordMaker(std::string_view bytes, Record* record) : bytes_(bytes) {
    Open(record);
  }

  void Begin(const Occurrence& occurrence) override {
    if (occurrence.field == nullptr) {
      groups_.push_back(unknown()->AddGroup(occurrence.number));
      return;
    }
    const FieldDescriptor& field = *occurrence.field;
    FieldValue* const value = Value(field);
    if (occurrence.IsPackedRun()) {
      run_ = value;
      if (IsFloat(field)) value->ReserveScalars(occurrence.value.size / 4);
    } else if (field.is_repeated() || value->messages().empty()) {
      Open(value->AddMessage());
    } else {
      Open(&value->mutable_messages()[0]);
    }
  }

  void End(const Occurrence& occurrence) override {
    if (occurrence.field == nullptr) {
      groups_.pop_back();
    } else if (!occurrence.IsPackedRun()) {
      Record* const record = messages_[depth_ - 1].record;
      if (!occurrence.is_complete) record->is_complete = false;
      Close();
    }
  }

  void AddElement(const Element& element) override {
    run_->AddScalar(element.bits);
  }

  void Add(const Occurrence& occurrence, const Element* element) override {
    if (occurrence.field == nullptr) {
      AddUnknown(occurrence, element);
    } else if (element != nullptr) {
      Value(*occurrence.field)->AddScalar(element->bits);
    } else {
      Value(*occurrence.field)->SetString(StringOf(occurrence));
    }
  }

  // The root is read.
  void Close() {
    OpenMessage& message = messages_[--depth_];
    message.record->fields.TakeFrom(&message.fields);
  }

 private:
  struct OpenMessage {
    Record* record = nullptr;
    // Its fields, which grow here so that those of the record, and those of
    // many small ones together, need no more memory than they take.
    FieldValues fields;
  };

  void Open(Record* record) {
    if (depth_ == messages_.size()) messages_.emplace_back();
    OpenMessage& message = messages_[depth_++];
    message.record = record;
    message.fields.TakeFrom(&record->fields);
  }

  FieldValue* Value(const FieldDescriptor& field) {
    return MutableValue(field, &messages_[depth_ - 1].fields);
  }

  UnknownFieldSet* unknown() const {
    return groups_.empty() ? &messages_[depth_ - 1].record->unknown
                           : groups_.back();
  }

  std::string StringOf(const Occurrence& occurrence) const {
    return std::string(
        bytes_.substr(occurrence.value.offset, occurrence.value.size));
  }

  void AddUnknown(const Occurrence& occurrence, const Element* element) {
    const int number = occurrence.number;
    switch (occurrence.wire_type) {
      case WireFormatLite::WIRETYPE_VARINT:
        unknown()->AddVarint(number, element->bits);
        break;
      case WireFormatLite::WIRETYPE_FIXED64:
        unknown()->AddFixed64(number, element->bits);
        break;
      case WireFormatLite::WIRETYPE_FIXED32:
        unknown()->AddFixed32(number, static_cast<uint32_t>(element->bits));
        break;
      default:
        unknown()->AddLengthDelimited(number, StringOf(occurrence));
    }
  }

  const std::string_view bytes_;
  // The first `depth_` are open, the root first; the others keep their memory.
  std::deque<OpenMessage> messages_;
  size_t depth_ = 0;
  // The groups that are open in the innermost message.
  std::vector<UnknownFieldSet*> groups_;
  FieldValue* run_ = nullptr;
};

}  // namespace

DecodedRecord DecodeRecord(const Descriptor& type, std::string_view bytes) {
  DecodedRecord decoded{Record(type), std::nullopt};
  RecordMaker maker(bytes, &decoded.record);
  decoded.fault = RecordReader(bytes, &maker).Read(type);
  maker.Close();
  decoded.record.is_complete = !decoded.fault.has_value();
  return decoded;
}

}  // namespace tools
}  // namespace vantiro
