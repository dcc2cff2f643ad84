#include "tests/tools/random_filler.h"

#include <cstring>

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::Message;
using google::protobuf::Reflection;

// Not every runtime takes strings in the same way.
template <typename P, typename T>
void Put(void (Reflection::*set)(Message*, const FieldDescriptor*, P) const,
         void (Reflection::*add)(Message*, const FieldDescriptor*, P) const,
         const T& value, const FieldDescriptor& field, Message* message) {
  const auto put = field.is_repeated() ? add : set;
  (message->GetReflection()->*put)(message, &field, value);
}

}  // namespace

void RandomFiller::Fill(Message* message) {
  const Descriptor& type = *message->GetDescriptor();
  for (int i = 0; i < type.field_count(); ++i) {
    const int count = type.field(i)->is_repeated() ? Number(4) : Number(3);
    for (int n = 0; n < (type.field(i)->is_repeated() ? count : count > 0);
         ++n) {
      Set(*type.field(i), message);
    }
  }
}

int RandomFiller::Number(int below) {
  return std::uniform_int_distribution<int>(0, below - 1)(random_);
}

// Of any size, and with all or no bits set as often.
uint64_t RandomFiller::Bits() {
  const uint64_t bits = (uint64_t{random_()} << 32 | random_()) >> Number(64);
  return Number(2) == 0 ? bits : ~bits;
}

float RandomFiller::Float() {
  if (!is_extreme_) return static_cast<float>(Number(100000)) / 7;
  const auto bits = static_cast<uint32_t>(random_());
  float value;
  std::memcpy(&value, &bits, sizeof(value));
  return value;
}

std::string RandomFiller::String(bool is_utf8) {
  if (!is_extreme_) return "rear_wide";
  static constexpr const char* kCharacters[] = {
      "a", "\"",     "\\",     "\n",     "\x01",   "\x7f",      "<",
      "'", "\u00fc", "\u0085", "\u200f", "\u2028", "\U0001f600"};
  std::string text;
  for (int i = Number(12); i > 0; --i) {
    text += is_utf8 ? kCharacters[Number(13)]
                    : std::string(1, static_cast<char>(random_()));
  }
  return text;
}

void RandomFiller::Set(const FieldDescriptor& field, Message* message) {
  using R = Reflection;
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_BOOL:
      return Put(&R::SetBool, &R::AddBool, true, field, message);
    case FieldDescriptor::CPPTYPE_ENUM:
      return Put(&R::SetEnumValue, &R::AddEnumValue,
                 is_extreme_ && Number(4) == 0
                     ? static_cast<int>(Bits())
                     : Number(field.enum_type()->value_count()),
                 field, message);
    case FieldDescriptor::CPPTYPE_FLOAT:
      return Put(&R::SetFloat, &R::AddFloat, Float(), field, message);
    case FieldDescriptor::CPPTYPE_INT32:
      return Put(
          &R::SetInt32, &R::AddInt32,
          is_extreme_ ? static_cast<int32_t>(Bits()) : Number(4000) - 500,
          field, message);
    case FieldDescriptor::CPPTYPE_UINT32:
      return Put(&R::SetUInt32, &R::AddUInt32,
                 is_extreme_ ? static_cast<uint32_t>(Bits())
                             : static_cast<uint32_t>(Number(4000)),
                 field, message);
    case FieldDescriptor::CPPTYPE_INT64:
      return Put(&R::SetInt64, &R::AddInt64,
                 is_extreme_ ? static_cast<int64_t>(Bits())
                             : int64_t{Number(4000)} << 20,
                 field, message);
    case FieldDescriptor::CPPTYPE_UINT64:
      return Put(
          &R::SetUInt64, &R::AddUInt64,
          is_extreme_ ? Bits() : static_cast<uint64_t>(Number(4000)) << 20,
          field, message);
    case FieldDescriptor::CPPTYPE_STRING:
      return Put(&R::SetString, &R::AddString,
                 String(field.type() == FieldDescriptor::TYPE_STRING), field,
                 message);
    case FieldDescriptor::CPPTYPE_MESSAGE:
      return Fill(
          field.is_repeated()
              ? message->GetReflection()->AddMessage(message, &field)
              : message->GetReflection()->MutableMessage(message, &field));
    default:
      return;
  }
}

}  // namespace tools
}  // namespace vantiro
