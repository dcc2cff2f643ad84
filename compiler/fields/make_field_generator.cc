#include <google/protobuf/stubs/logging.h>

#include "compiler/fields/bool.h"
#include "compiler/fields/field_generator.h"
#include "compiler/fields/fixed.h"
#include "compiler/fields/float.h"
#include "compiler/fields/message.h"
#include "compiler/fields/repeated_fixed.h"
#include "compiler/fields/repeated_float.h"
#include "compiler/fields/repeated_message.h"
#include "compiler/fields/repeated_string.h"
#include "compiler/fields/repeated_varint.h"
#include "compiler/fields/string.h"
#include "compiler/fields/varint.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::FieldDescriptor;

template <typename Singular, typename Repeated, typename... Args>
std::unique_ptr<FieldGenerator> Make(const FieldDescriptor* field,
                                     const Args&... args) {
  if (field->is_repeated()) return std::make_unique<Repeated>(field, args...);
  return std::make_unique<Singular>(field, args...);
}

std::unique_ptr<FieldGenerator> MakeVarint(const FieldDescriptor* field,
                                           const VarintKind& kind) {
  return Make<VarintFieldGenerator, RepeatedVarintFieldGenerator>(field, kind);
}

std::unique_ptr<FieldGenerator> MakeFixed(const FieldDescriptor* field,
                                          const FixedKind& kind) {
  return Make<FixedFieldGenerator, RepeatedFixedFieldGenerator>(field, kind);
}

std::unique_ptr<FieldGenerator> MakeDouble(const FieldDescriptor* field) {
  if (field->is_repeated()) return MakeFixed(field, kDouble);
  return std::make_unique<DoubleFieldGenerator>(field);
}

}  // namespace

std::unique_ptr<FieldGenerator> MakeFieldGenerator(
    const FieldDescriptor* field) {
  switch (field->type()) {
    case FieldDescriptor::TYPE_FLOAT:
      return Make<FloatFieldGenerator, RepeatedFloatFieldGenerator>(field);
    case FieldDescriptor::TYPE_DOUBLE:
      return MakeDouble(field);
    case FieldDescriptor::TYPE_FIXED32:
      return MakeFixed(field, kFixed32);
    case FieldDescriptor::TYPE_SFIXED32:
      return MakeFixed(field, kSFixed32);
    case FieldDescriptor::TYPE_FIXED64:
      return MakeFixed(field, kFixed64);
    case FieldDescriptor::TYPE_SFIXED64:
      return MakeFixed(field, kSFixed64);
    case FieldDescriptor::TYPE_BOOL:
      return Make<BoolFieldGenerator, RepeatedBoolFieldGenerator>(field);
    case FieldDescriptor::TYPE_UINT32:
      return MakeVarint(field, kUInt32);
    case FieldDescriptor::TYPE_INT32:
      return MakeVarint(field, kInt32);
    case FieldDescriptor::TYPE_SINT32:
      return MakeVarint(field, kSInt32);
    case FieldDescriptor::TYPE_UINT64:
      return MakeVarint(field, kUInt64);
    case FieldDescriptor::TYPE_INT64:
      return MakeVarint(field, kInt64);
    case FieldDescriptor::TYPE_SINT64:
      return MakeVarint(field, kSInt64);
    case FieldDescriptor::TYPE_ENUM:
      return MakeVarint(field, kEnum);
    case FieldDescriptor::TYPE_STRING:
      return Make<StringFieldGenerator, RepeatedStringFieldGenerator>(
          field, StringFieldGenerator::kString);
    case FieldDescriptor::TYPE_BYTES:
      return Make<StringFieldGenerator, RepeatedStringFieldGenerator>(
          field, StringFieldGenerator::kBytes);
    case FieldDescriptor::TYPE_MESSAGE:
      return Make<MessageFieldGenerator, RepeatedMessageFieldGenerator>(field);
    default:
      GOOGLE_LOG(FATAL) << field->full_name() << ": kind is not supported";
      return nullptr;
  }
}

}  // namespace compiler
}  // namespace vantiro
