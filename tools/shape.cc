#include "tools/shape.h"

#include <google/protobuf/wire_format_lite.h>

#include <cmath>
#include <set>

namespace vantiro {
namespace inspection {
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

FieldShape ShapeOf(const FieldDescriptor& field) {
  FieldShape shape;
  shape.kind = KindOf(field.type());
  shape.is_list = field.is_repeated();
  if (shape.kind >= Kind::kString || field.is_packed()) {
    shape.wire_type = WireFormatLite::WIRETYPE_LENGTH_DELIMITED;
  } else {
    shape.wire_type = shape.kind == Kind::kFloat
                          ? WireFormatLite::WIRETYPE_FIXED32
                          : WireFormatLite::WIRETYPE_VARINT;
  }
  if (shape.kind == Kind::kEnum) {
    for (int i = 0; i < field.enum_type()->value_count(); ++i) {
      shape.enum_numbers.push_back(field.enum_type()->value(i)->number());
    }
  }
  return shape;
}

}  // namespace

const Shape& Shapes::Of(const Descriptor& type) {
  const auto [entry, is_new] = shapes_.try_emplace(&type);
  Shape* const shape = &entry->second;
  if (!is_new) return *shape;
  std::set<int> numbers;
  for (int i = 0; i < type.field_count(); ++i) {
    numbers.insert(type.field(i)->number());
  }
  shape->field_count = numbers.size();
  shape->fields.resize(
      numbers.empty() ? 0 : static_cast<size_t>(*numbers.rbegin()) + 1);
  uint16_t rank = 0;
  for (const int number : numbers) {
    const FieldDescriptor& field = *type.FindFieldByNumber(number);
    FieldShape* const field_shape = &shape->fields[static_cast<size_t>(number)];
    *field_shape = ShapeOf(field);
    field_shape->rank = rank++;
    // No message contains itself, so this comes to an end. References into the
    // map stay valid.
    if (field_shape->kind == Kind::kMessage) {
      field_shape->message = &Of(*field.message_type());
    }
  }
  for (size_t n = 0; n <= shape->field_count; ++n) {
    shape->choice_bits.push_back(std::log2(static_cast<double>(n + 1)));
  }
  return *shape;
}

bool CanBegin(const Shape& shape, uint8_t byte) {
  for (size_t number = 1; number < shape.fields.size(); ++number) {
    const FieldShape& field = shape.fields[number];
    const size_t tag = number << 3 | field.wire_type;
    const size_t first = tag < 0x80 ? tag : (tag & 0x7f) | 0x80;
    if (field.kind != Kind::kNone && first == byte) return true;
  }
  return false;
}

}  // namespace inspection
}  // namespace vantiro
