#include "tests/conformance/model/wire_model.h"

#include <algorithm>
#include <utility>

#include "tests/conformance/model/encoding.h"

namespace vantiro {
namespace tests {
namespace {

constexpr uint64_t kMaxLength = 0x7fffffff;

}  // namespace

void ModelMessage::Clear() {
  unknown_.clear();
  for (auto& entry : values_) {
    Value& value = entry.second;
    value.scalar = 0;
    value.list.clear();
    value.text.clear();
    value.sub.reset();
    value.subs.clear();
  }
}

void ModelMessage::MergeFrom(const ModelMessage& from) {
  unknown_ += from.unknown_;
  for (const auto& entry : from.values_) {
    const Value& theirs = entry.second;
    const FieldModel& field = model_->fields.at(entry.first);
    Value* const value = &values_[entry.first];
    if (!IsZero(field.kind, theirs.scalar)) value->scalar = theirs.scalar;
    if (!theirs.text.empty()) value->text = theirs.text;
    value->list.insert(value->list.end(), theirs.list.begin(),
                       theirs.list.end());
    if (theirs.sub != nullptr) {
      if (value->sub == nullptr) {
        value->sub = std::make_unique<ModelMessage>(*field.sub);
      }
      value->sub->MergeFrom(*theirs.sub);
    }
    for (const auto& sub : theirs.subs) {
      value->subs.push_back(std::make_unique<ModelMessage>(*field.sub));
      value->subs.back()->MergeFrom(*sub);
    }
  }
}

std::unique_ptr<ModelMessage>& ModelMessage::Sub(int number) {
  return values_[number].sub;
}

std::string ModelMessage::Serialize() const {
  std::string bytes;
  for (const auto& entry : values_) {
    const int number = entry.first;
    const Value& value = entry.second;
    const FieldModel& field = model_->fields.at(number);
    if (value.sub != nullptr) {
      bytes += Delimited(number, value.sub->Serialize());
    }
    for (const auto& sub : value.subs) {
      bytes += Delimited(number, sub->Serialize());
    }
    if (!value.text.empty()) bytes += Delimited(number, value.text);
    std::string block;
    for (const uint64_t bits : value.list) block += Element(field.kind, bits);
    if (!block.empty()) bytes += Delimited(number, block);
    if (!IsZero(field.kind, value.scalar)) {
      bytes +=
          Tag(number, TypeOf(field.kind)) + Element(field.kind, value.scalar);
    }
  }
  return bytes + unknown_;
}

// One parse. `limit_` is where the innermost message claims to end, which may
// lie behind the end of the input.
class ModelParser {
 public:
  explicit ModelParser(const ModelInput& input)
      : input_(input),
        has_limit_(input.block == 0 || input.has_limit),
        limit_(has_limit_ ? input.bytes.size() : SIZE_MAX),
        budget_(input.recursion_budget) {}

  ModelVerdict Merge(ModelMessage* message) {
    const bool merged = MergeFields(message);
    return {merged, merged && ended_well_};
  }

 private:
  using Value = ModelMessage::Value;

  size_t End() const { return std::min(limit_, input_.bytes.size()); }
  size_t Left() const { return End() - position_; }
  unsigned char Byte(size_t at) const {
    return static_cast<unsigned char>(input_.bytes[at]);
  }

  bool ReadVarint(uint64_t* value) {
    *value = 0;
    for (int i = 0; i < 10; ++i) {
      if (Left() == 0) return false;
      const unsigned char byte = Byte(position_++);
      *value |= static_cast<uint64_t>(byte & 0x7f) << (7 * i);
      if (byte < 0x80) return true;
    }
    return false;
  }

  // 0 at the end, for a tag of value 0, and for one that can't be read.
  uint32_t ReadTag() {
    ended_well_ = Left() == 0;
    uint64_t tag;
    if (ended_well_ || !ReadVarint(&tag)) return 0;
    return static_cast<uint32_t>(tag);
  }

  bool ReadLength(uint64_t* length) {
    return ReadVarint(length) && *length <= kMaxLength;
  }

  bool MergeFields(ModelMessage* message) {
    while (true) {
      const uint32_t tag = ReadTag();
      if (tag == 0) return true;
      const auto field = message->model_->fields.find(tag >> 3);
      const bool is_known = field != message->model_->fields.end();
      const auto type = static_cast<WireType>(tag & 7);
      if (is_known && Takes(field->second, type)) {
        Value* const value = &message->values_[field->first];
        if (!ReadField(field->first, field->second, type, value)) return false;
      } else if (!ReadUnknown(tag, &message->unknown_)) {
        return false;
      }
    }
  }

  static bool Takes(const FieldModel& field, WireType type) {
    return type == TypeOf(field.kind) || (field.is_list && type == kDelimited);
  }

  bool ReadField(int number, const FieldModel& field, WireType type,
                 Value* value) {
    if (field.kind == Kind::MESSAGE) return ReadSub(field, value);
    if (field.kind == Kind::STRING || field.kind == Kind::BYTES) {
      return ReadText(field, value);
    }
    if (!field.is_list) return ReadElement(field.kind, &value->scalar);
    if (type == kDelimited) {
      return field.kind == Kind::FLOAT ? ReadFloatBlock(value)
                                       : ReadVarintBlock(field, value);
    }
    return ReadUnpacked(number, field, value);
  }

  bool ReadElement(Kind kind, uint64_t* bits) {
    if (kind != Kind::FLOAT) {
      uint64_t raw;
      if (!ReadVarint(&raw)) return false;
      *bits = FromVarint(kind, raw);
      return true;
    }
    if (Left() < 4) return false;
    *bits = 0;
    for (int i = 0; i < 4; ++i) {
      *bits |= static_cast<uint64_t>(Byte(position_++)) << (8 * i);
    }
    return true;
  }

  bool ReadText(const FieldModel& field, Value* value) {
    uint64_t length;
    if (!ReadLength(&length) || length > Left()) return false;
    value->text = input_.bytes.substr(position_, length);
    position_ += length;
    return field.kind == Kind::BYTES || IsUtf8(value->text);
  }

  // A message that claims more than there is is read as far as it goes.
  bool ReadSub(const FieldModel& field, Value* value) {
    if (field.is_list) {
      value->subs.push_back(std::make_unique<ModelMessage>(*field.sub));
    } else if (value->sub == nullptr) {
      value->sub = std::make_unique<ModelMessage>(*field.sub);
    }
    ModelMessage* const sub =
        field.is_list ? value->subs.back().get() : value->sub.get();
    uint64_t length;
    if (!ReadLength(&length) || --budget_ < 0) return false;
    const bool fits = length <= Left();
    const size_t outer_limit = limit_;
    limit_ = std::min<size_t>(limit_, position_ + length);
    if (!MergeFields(sub) || !ended_well_ || !fits) return false;
    limit_ = outer_limit;
    ++budget_;
    return true;
  }

  // A list grows by doubling, from four on.
  static void Append(uint64_t bits, Value* value) {
    value->list.push_back(bits);
    if (value->list.size() > value->capacity) {
      value->capacity = std::max<size_t>(4, value->capacity * 2);
    }
  }

  bool ReadVarintBlock(const FieldModel& field, Value* value) {
    uint64_t length;
    if (!ReadVarint(&length)) return false;
    if (field.kind == Kind::ENUM) length &= 0xffffffff;
    if (length > kMaxLength) return false;
    const bool fits = length <= Left();
    const size_t outer_limit = limit_;
    limit_ = std::min<size_t>(limit_, position_ + length);
    while (Left() > 0) {
      uint64_t bits = 0;
      if (!ReadElement(field.kind, &bits)) return false;
      Append(bits, value);
    }
    limit_ = outer_limit;
    return fits;
  }

  // Room for the whole block is made at once if the limit allows for it, and
  // then nothing of it stays unless all of it is there.
  bool ReadFloatBlock(Value* value) {
    uint64_t length;
    if (!ReadLength(&length) || length % 4 != 0) return false;
    const bool allowed = limit_ != SIZE_MAX && length <= limit_ - position_;
    if (allowed && length > Left()) return false;
    const size_t count = std::min<size_t>(length, Left()) / 4;
    const size_t wanted = value->list.size() + count;
    if (wanted > value->capacity) {
      value->capacity = std::max({size_t{4}, value->capacity * 2, wanted});
    }
    const bool fits = length <= Left();
    for (size_t i = 0; i < count; ++i) {
      uint64_t bits = 0;
      ReadElement(Kind::FLOAT, &bits);
      Append(bits, value);
    }
    return fits;
  }

  // Where the block of the stream ends that the byte just read lies in.
  size_t EndAtHand() const {
    if (input_.block == 0) return End();
    const size_t blocks = (position_ + input_.block - 1) / input_.block;
    return std::min(End(), blocks * input_.block);
  }

  // After an unpacked element the list looks ahead for its packed tag, while it
  // has capacity to spare, and takes what follows for an element.
  bool ReadUnpacked(int number, const FieldModel& field, Value* value) {
    uint64_t bits = 0;
    if (!ReadElement(field.kind, &bits)) return false;
    Append(bits, value);
    if (field.kind == Kind::ENUM) return true;
    const std::string packed_tag = Tag(number, kDelimited);
    while (value->list.size() < value->capacity) {
      const size_t needed =
          packed_tag.size() + (field.kind == Kind::FLOAT ? 4 : 0);
      if (EndAtHand() - position_ < needed ||
          input_.bytes.compare(position_, packed_tag.size(), packed_tag) != 0) {
        return true;
      }
      position_ += packed_tag.size();
      if (!ReadElement(field.kind, &bits)) return false;
      Append(bits, value);
    }
    return true;
  }

  // Keeps the field in its shortest encoding. Of a group that fails, what was
  // read is kept.
  bool ReadUnknown(uint32_t tag, std::string* unknown) {
    if (tag >> 3 == 0) return false;
    uint64_t value;
    switch (tag & 7) {
      case kVarint:
        if (!ReadVarint(&value)) return false;
        *unknown += Varint(tag) + Varint(value);
        return true;
      case kFixed64:
        return KeepBytes(Varint(tag), 8, unknown);
      case kFixed32:
        return KeepBytes(Varint(tag), 4, unknown);
      case kDelimited:
        return ReadLength(&value) &&
               KeepBytes(Varint(tag) + Varint(value), value, unknown);
      case kStartGroup:
        return ReadGroup(tag, unknown);
      default:
        return false;
    }
  }

  bool KeepBytes(const std::string& head, size_t size, std::string* unknown) {
    if (size > Left()) return false;
    *unknown += head + input_.bytes.substr(position_, size);
    position_ += size;
    return true;
  }

  bool ReadGroup(uint32_t tag, std::string* unknown) {
    *unknown += Varint(tag);
    if (--budget_ < 0) return false;
    while (true) {
      const uint32_t inner = ReadTag();
      if (inner == 0) return false;
      if ((inner & 7) == kEndGroup) {
        *unknown += Varint(inner);
        ++budget_;
        return inner >> 3 == tag >> 3;
      }
      if (!ReadUnknown(inner, unknown)) return false;
    }
  }

  const ModelInput& input_;
  const bool has_limit_;
  size_t position_ = 0;
  size_t limit_;
  int budget_;
  bool ended_well_ = false;
};

ModelVerdict MergeModel(const ModelInput& input, ModelMessage* message) {
  return ModelParser(input).Merge(message);
}

}  // namespace tests
}  // namespace vantiro
