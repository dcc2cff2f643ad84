#include "tools/identify/structure.h"

#include <google/protobuf/wire_format_lite.h>

#include <cmath>
#include <set>

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::internal::WireFormatLite;

Kind KindOf(FieldDescriptor::Type type) {
  switch (type) {
    case FieldDescriptor::TYPE_BOOL:
      return Kind::kBool;
    case FieldDescriptor::TYPE_ENUM:
      return Kind::kEnum;
    case FieldDescriptor::TYPE_UINT32:
      return Kind::kUnsigned32;
    case FieldDescriptor::TYPE_INT32:
      return Kind::kSigned32;
    case FieldDescriptor::TYPE_SINT32:
      return Kind::kZigZag32;
    case FieldDescriptor::TYPE_FLOAT:
      return Kind::kFloat;
    case FieldDescriptor::TYPE_STRING:
      return Kind::kString;
    case FieldDescriptor::TYPE_BYTES:
      return Kind::kBytes;
    case FieldDescriptor::TYPE_MESSAGE:
      return Kind::kMessage;
    default:
      return Kind::kNumber64;
  }
}

FieldStructure StructureOf(const FieldDescriptor& field) {
  FieldStructure structure;
  structure.kind = KindOf(field.type());
  structure.is_repeated = field.is_repeated();
  if (structure.kind >= Kind::kString || field.is_packed()) {
    structure.wire_type = WireFormatLite::WIRETYPE_LENGTH_DELIMITED;
  } else {
    structure.wire_type = structure.kind == Kind::kFloat
                              ? WireFormatLite::WIRETYPE_FIXED32
                              : WireFormatLite::WIRETYPE_VARINT;
  }
  if (structure.kind == Kind::kEnum) {
    for (int i = 0; i < field.enum_type()->value_count(); ++i) {
      structure.enum_numbers.push_back(field.enum_type()->value(i)->number());
    }
  }
  return structure;
}

}  // namespace

const MessageStructure& StructureCache::Get(const Descriptor& type) {
  const auto [entry, is_new] = structures_.try_emplace(&type);
  MessageStructure* const structure = &entry->second;
  if (!is_new) return *structure;
  std::set<int> numbers;
  for (int i = 0; i < type.field_count(); ++i) {
    numbers.insert(type.field(i)->number());
  }
  structure->field_count = numbers.size();
  structure->fields.resize(
      numbers.empty() ? 0 : static_cast<size_t>(*numbers.rbegin()) + 1);
  uint16_t rank = 0;
  for (const int number : numbers) {
    const FieldDescriptor& field = *type.FindFieldByNumber(number);
    FieldStructure* const field_structure =
        &structure->fields[static_cast<size_t>(number)];
    *field_structure = StructureOf(field);
    field_structure->rank = rank++;
    // The schema has no recursive messages. References into the map stay valid.
    if (field_structure->kind == Kind::kMessage) {
      field_structure->message = &Get(*field.message_type());
    }
  }
  for (size_t n = 0; n <= structure->field_count; ++n) {
    structure->choice_bits.push_back(std::log2(static_cast<double>(n + 1)));
  }
  return *structure;
}

bool CanBegin(const MessageStructure& structure, uint8_t byte) {
  for (size_t number = 1; number < structure.fields.size(); ++number) {
    const FieldStructure& field = structure.fields[number];
    const size_t tag = number << 3 | static_cast<size_t>(field.wire_type);
    const size_t first = tag < 0x80 ? tag : (tag & 0x7f) | 0x80;
    if (field.kind != Kind::kNone && first == byte) return true;
  }
  return false;
}

}  // namespace tools
}  // namespace vantiro
