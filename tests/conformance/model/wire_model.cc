#include "tests/conformance/model/wire_model.h"

#include <algorithm>
#include <utility>

#include "tests/conformance/model/encoding.h"

namespace vantiro {
namespace tests {
namespace {

constexpr uint64_t kMaxLength = 0x7fffffff;

}  // namespace

void ModelMessage::Value::Reserve(Kind kind, size_t size) {
  // Of bools, which no record repeats, the runtime's fields hold at least
  // eight.
  const size_t least = kind == Kind::BOOL ? 8 : 4;
  if (size > capacity) capacity = std::max({least, capacity * 2, size});
}

void ModelMessage::Value::Append(Kind kind, uint64_t bits) {
  Reserve(kind, elements.size() + 1);
  elements.push_back(bits);
}

ModelMessage* ModelMessage::Value::AddChild(const Type& type) {
  if (child_count == children.size()) {
    children.push_back(std::make_unique<ModelMessage>(type));
  }
  return children[child_count++].get();
}

void ModelMessage::Clear() {
  unknown_.clear();
  for (auto& [number, value] : values_) {
    value.scalar = 0;
    value.elements.clear();
    value.string.clear();
    value.strings.clear();
    value.child.reset();
    for (const auto& child : value.children) child->Clear();
    value.child_count = 0;
  }
}

void ModelMessage::MergeFrom(const ModelMessage& from) {
  unknown_ += from.unknown_;
  for (const auto& [number, theirs] : from.values_) {
    const Field& field = type_->fields.at(number);
    Value* const value = &values_[number];
    if (!IsZero(field.kind, theirs.scalar)) value->scalar = theirs.scalar;
    if (!theirs.string.empty()) value->string = theirs.string;
    value->strings.insert(value->strings.end(), theirs.strings.begin(),
                          theirs.strings.end());
    value->Reserve(field.kind, value->elements.size() + theirs.elements.size());
    value->elements.insert(value->elements.end(), theirs.elements.begin(),
                           theirs.elements.end());
    if (theirs.child != nullptr) {
      if (value->child == nullptr) {
        value->child = std::make_unique<ModelMessage>(*field.type);
      }
      value->child->MergeFrom(*theirs.child);
    }
    for (size_t i = 0; i < theirs.child_count; ++i) {
      value->AddChild(*field.type)->MergeFrom(*theirs.children[i]);
    }
  }
}

std::unique_ptr<ModelMessage>& ModelMessage::Child(int number) {
  return values_[number].child;
}

std::string ModelMessage::Serialize() const {
  std::string bytes;
  for (const auto& [number, value] : values_) {
    const Field& field = type_->fields.at(number);
    const Kind kind = field.kind;
    if (value.child != nullptr) {
      bytes += Delimited(number, value.child->Serialize());
    }
    for (size_t i = 0; i < value.child_count; ++i) {
      bytes += Delimited(number, value.children[i]->Serialize());
    }
    for (const std::string& string : value.strings) {
      bytes += Delimited(number, string);
    }
    if (!value.string.empty()) bytes += Delimited(number, value.string);
    std::string packed;
    for (const uint64_t bits : value.elements) {
      if (!field.is_packed) bytes += Tag(number, TypeOf(kind));
      (field.is_packed ? packed : bytes) += Element(kind, bits);
    }
    if (!packed.empty()) bytes += Delimited(number, packed);
    if (!IsZero(kind, value.scalar)) {
      bytes += Tag(number, TypeOf(kind)) + Element(kind, value.scalar);
    }
  }
  return bytes + unknown_;
}

// One parse. `limit_` is where the innermost message claims to end, which may
// lie behind the end of the input.
class ModelParser {
 public:
  explicit ModelParser(const Input& input)
      : bytes_(input.bytes),
        chunk_size_(static_cast<size_t>(input.chunk_size)),
        limit_(input.chunk_size == 0 || input.has_limit ? bytes_.size()
                                                        : SIZE_MAX),
        recursion_budget_(input.recursion_limit) {}

  Verdict Merge(ModelMessage* message) {
    const bool merged = MergeFields(message);
    return {merged, merged && at_legitimate_end_};
  }

 private:
  using Value = ModelMessage::Value;

  size_t End() const { return std::min(limit_, bytes_.size()); }
  size_t Left() const { return End() - position_; }
  uint64_t ReadByte() {
    return static_cast<unsigned char>(bytes_[position_++]);
  }

  bool ReadVarint(uint64_t* value) {
    *value = 0;
    for (int i = 0; i < 10; ++i) {
      if (Left() == 0) return false;
      const uint64_t byte = ReadByte();
      *value |= (byte & 0x7f) << (7 * i);
      if (byte < 0x80) return true;
    }
    return false;
  }

  // 0 at the end, for a tag of value 0, and for one that can't be read.
  uint32_t ReadTag() {
    at_legitimate_end_ = Left() == 0;
    uint64_t tag;
    if (at_legitimate_end_ || !ReadVarint(&tag)) return 0;
    return static_cast<uint32_t>(tag);
  }

  bool ReadLength(uint64_t* length) {
    return ReadVarint(length) && *length <= kMaxLength;
  }

  bool MergeFields(ModelMessage* message) {
    const auto& fields = message->type_->fields;
    while (const uint32_t tag = ReadTag()) {
      const auto field = fields.find(static_cast<int>(tag >> 3));
      const auto wire_type = static_cast<WireType>(tag & 7);
      const bool is_read =
          field != fields.end() && Takes(field->second, wire_type)
              ? ReadField(field->second, wire_type,
                          &message->values_[field->first])
              : ReadUnknown(tag, &message->unknown_);
      if (!is_read) return false;
    }
    return true;
  }

  static bool Takes(const Field& field, WireType wire_type) {
    return wire_type == TypeOf(field.kind) ||
           (field.is_repeated && wire_type == kDelimited);
  }

  bool ReadField(const Field& field, WireType wire_type, Value* value) {
    switch (field.kind) {
      case Kind::MESSAGE:
        return ReadChild(field, value);
      case Kind::STRING:
      case Kind::BYTES:
        if (!field.is_repeated) return ReadString(field, &value->string);
        return ReadString(field, &value->strings.emplace_back());
      default:
        break;
    }
    if (!field.is_repeated) return ReadElement(field.kind, &value->scalar);
    if (wire_type != kDelimited) return ReadUnpacked(field, value);
    return FixedSize(field.kind) > 0 ? ReadPackedFixed(field, value)
                                     : ReadPackedVarints(field, value);
  }

  bool ReadElement(Kind kind, uint64_t* bits) {
    const size_t size = FixedSize(kind);
    if (size == 0) {
      uint64_t raw;
      if (!ReadVarint(&raw)) return false;
      *bits = FromVarint(kind, raw);
      return true;
    }
    if (Left() < size) return false;
    *bits = 0;
    for (size_t i = 0; i < size; ++i) *bits |= ReadByte() << (8 * i);
    return true;
  }

  bool ReadString(const Field& field, std::string* string) {
    uint64_t length;
    if (!ReadLength(&length) || length > Left()) return false;
    *string = bytes_.substr(position_, length);
    position_ += length;
    return field.kind == Kind::BYTES || IsUtf8(*string);
  }

  // Of a message that claims more than there is, what is there is read.
  bool ReadChild(const Field& field, Value* value) {
    if (!field.is_repeated && value->child == nullptr) {
      value->child = std::make_unique<ModelMessage>(*field.type);
    }
    ModelMessage* const child =
        field.is_repeated ? value->AddChild(*field.type) : value->child.get();
    uint64_t length;
    if (!ReadLength(&length) || --recursion_budget_ < 0) return false;
    const bool fits = length <= Left();
    const size_t outer_limit = limit_;
    limit_ = std::min<size_t>(limit_, position_ + length);
    if (!MergeFields(child) || !at_legitimate_end_ || !fits) return false;
    limit_ = outer_limit;
    ++recursion_budget_;
    return true;
  }

  bool ReadPackedVarints(const Field& field, Value* value) {
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
      value->Append(field.kind, bits);
    }
    limit_ = outer_limit;
    return fits;
  }

  // If the limit allows for all elements, space is reserved at once, and they
  // are kept only if all are there. Otherwise they are read one by one.
  bool ReadPackedFixed(const Field& field, Value* value) {
    const size_t size = FixedSize(field.kind);
    uint64_t length;
    if (!ReadLength(&length) || length % size != 0) return false;
    const bool fits = length <= Left();
    if (limit_ != SIZE_MAX && length <= limit_ - position_) {
      if (!fits) return false;
      value->Reserve(field.kind, value->elements.size() + length / size);
    }
    for (size_t count = std::min<size_t>(length, Left()) / size; count > 0;
         --count) {
      uint64_t bits = 0;
      ReadElement(field.kind, &bits);
      value->Append(field.kind, bits);
    }
    return fits;
  }

  // Where the stream's chunk ends that the byte just read lies in.
  size_t EndOfChunk() const {
    if (chunk_size_ == 0) return End();
    const size_t chunks = (position_ + chunk_size_ - 1) / chunk_size_;
    return std::min(End(), chunks * chunk_size_);
  }

  // After an unpacked element the reader looks ahead for the packed tag, while
  // the field has capacity to spare, and takes what follows for an element. Not
  // so if the tag has more than two bytes.
  bool ReadUnpacked(const Field& field, Value* value) {
    const std::string packed_tag = Tag(field.number, kDelimited);
    const size_t needed = packed_tag.size() + FixedSize(field.kind);
    while (true) {
      uint64_t bits = 0;
      if (!ReadElement(field.kind, &bits)) return false;
      value->Append(field.kind, bits);
      if (field.kind == Kind::ENUM || !field.is_packed ||
          packed_tag.size() > 2 || value->elements.size() == value->capacity ||
          EndOfChunk() - position_ < needed ||
          bytes_.compare(position_, packed_tag.size(), packed_tag) != 0) {
        return true;
      }
      position_ += packed_tag.size();
    }
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
    *unknown += head + bytes_.substr(position_, size);
    position_ += size;
    return true;
  }

  bool ReadGroup(uint32_t tag, std::string* unknown) {
    *unknown += Varint(tag);
    if (--recursion_budget_ < 0) return false;
    while (const uint32_t inner = ReadTag()) {
      if ((inner & 7) == kEndGroup) {
        *unknown += Varint(inner);
        ++recursion_budget_;
        return inner >> 3 == tag >> 3;
      }
      if (!ReadUnknown(inner, unknown)) return false;
    }
    return false;
  }

  const std::string& bytes_;
  const size_t chunk_size_;
  size_t position_ = 0;
  size_t limit_;
  int recursion_budget_;
  bool at_legitimate_end_ = false;
};

Verdict MergeModel(const Input& input, ModelMessage* message) {
  return ModelParser(input).Merge(message);
}

}  // namespace tests
}  // namespace vantiro
