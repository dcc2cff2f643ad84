#include <string>

#include "tools/formats/format_error.h"
#include "tools/formats/text_format.h"
#include "tools/formats/text_tokens.h"
#include "tools/formats/unknown_value.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownFieldSet;
using google::protobuf::internal::WireFormatLite;

constexpr int kMaxDepth = 100;

// A field that has these values may not be given again: the runtime's parser
// overwrites zeros and empty strings.
bool HasValue(const FieldValue& value) {
  return !value.messages().empty() || !value.string_value().empty() ||
         (!value.scalars().empty() && value.scalars()[0] != 0);
}

class TextReader {
 public:
  explicit TextReader(const std::string& text) : tokens_(text) {}

  void Read(Record* record) {
    while (!tokens_.IsEnd()) ReadOne(record);
  }

 private:
  void Enter() {
    if (++depth_ > kMaxDepth) tokens_.FailHere("nested deeper than 100 levels");
  }

  void ReadOne(Record* record) {
    if (tokens_.IsInteger()) {
      ReadUnknown(record->type, &record->unknown);
    } else {
      ReadField(record);
    }
    if (!tokens_.TryTake(";")) tokens_.TryTake(",");
  }

  void ReadField(Record* record) {
    const FieldDescriptor* const field =
        tokens_.IsIdentifier()
            ? record->type->FindFieldByName(tokens_.current().text)
            : nullptr;
    if (field == nullptr) {
      tokens_.FailHere("expected a field of " + record->type->full_name());
    }
    FieldValue* const value = record->Mutable(*field);
    if (!field->is_repeated() && HasValue(*value)) {
      tokens_.FailHere("expected a singular field only once");
    }
    tokens_.Next();
    const bool has_colon = tokens_.TryTake(":");
    if (!has_colon && field->cpp_type() != FieldDescriptor::CPPTYPE_MESSAGE) {
      tokens_.FailHere("expected :");
    }
    if (!field->is_repeated() || !tokens_.TryTake("[")) {
      ReadValue(value);
    } else if (!tokens_.TryTake("]")) {
      do {
        ReadValue(value);
      } while (tokens_.TryTake(","));
      tokens_.Expect("]");
    }
  }

  void ReadValue(FieldValue* value) {
    const FieldDescriptor& field = value->field();
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      ReadMessage(value->AddMessage());
    } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
      const TextTokens::Token start = tokens_.current();
      value->SetString(tokens_.TakeString());
      if (field.type() == FieldDescriptor::TYPE_STRING &&
          !IsUtf8(value->string_value())) {
        TextTokens::FailAt(start, "the string is not UTF-8");
      }
    } else {
      value->AddScalar(TakeScalar(field));
    }
  }

  void ReadMessage(Record* record) {
    Enter();
    const bool is_angle = tokens_.TryTake("<");
    if (!is_angle) tokens_.Expect("{");
    while (!tokens_.Is("}") && !tokens_.Is(">")) ReadOne(record);
    tokens_.Expect(is_angle ? ">" : "}");
    --depth_;
  }

  uint64_t TakeScalar(const FieldDescriptor& field) {
    switch (field.cpp_type()) {
      case FieldDescriptor::CPPTYPE_FLOAT:
        return tokens_.TakeFloat();
      case FieldDescriptor::CPPTYPE_BOOL:
        return tokens_.TakeBool() ? 1 : 0;
      case FieldDescriptor::CPPTYPE_UINT32:
        return tokens_.TakeUnsigned(UINT32_MAX);
      case FieldDescriptor::CPPTYPE_UINT64:
        return tokens_.TakeUnsigned(UINT64_MAX);
      case FieldDescriptor::CPPTYPE_INT64:
        return static_cast<uint64_t>(tokens_.TakeSigned(INT64_MAX));
      case FieldDescriptor::CPPTYPE_ENUM:
        if (tokens_.IsIdentifier()) return TakeEnum(*field.enum_type());
        [[fallthrough]];
      default:
        return static_cast<uint32_t>(tokens_.TakeSigned(INT32_MAX));
    }
  }

  uint64_t TakeEnum(const EnumDescriptor& type) {
    const EnumValueDescriptor* const value =
        type.FindValueByName(tokens_.current().text);
    if (value == nullptr) {
      tokens_.FailHere("expected a value of " + type.full_name());
    }
    tokens_.Next();
    return static_cast<uint32_t>(value->number());
  }

  void ReadUnknown(const Descriptor* type, UnknownFieldSet* fields) {
    const TextTokens::Token start = tokens_.current();
    uint64_t number;
    if (!ParseUnsigned(tokens_.Take(), &number)) number = 0;
    const auto check = [&](WireType wire_type) {
      const std::string why = WhyNotUnknown(type, number, wire_type);
      if (!why.empty()) TextTokens::FailAt(start, why);
      return static_cast<int>(number);
    };
    if (tokens_.TryTake("{")) {
      ReadGroup(fields->AddGroup(check(WireFormatLite::WIRETYPE_START_GROUP)));
      return;
    }
    tokens_.Expect(":");
    if (tokens_.IsString()) {
      const int n = check(WireFormatLite::WIRETYPE_LENGTH_DELIMITED);
      fields->AddLengthDelimited(n, tokens_.TakeString());
      return;
    }
    // The number of digits gives the wire type.
    const std::string text = tokens_.current().text;
    const bool is_hex = text.compare(0, 2, "0x") == 0;
    uint64_t value;
    if (!ParseUnsigned(text, &value) ||
        (is_hex && text.size() != 10 && text.size() != 18)) {
      tokens_.FailHere(
          "expected a number, 8 or 16 hexadecimal digits after 0x, a string "
          "or {");
    }
    tokens_.Next();
    if (!is_hex) {
      fields->AddVarint(check(WireFormatLite::WIRETYPE_VARINT), value);
    } else if (text.size() == 10) {
      fields->AddFixed32(check(WireFormatLite::WIRETYPE_FIXED32),
                         static_cast<uint32_t>(value));
    } else {
      fields->AddFixed64(check(WireFormatLite::WIRETYPE_FIXED64), value);
    }
  }

  void ReadGroup(UnknownFieldSet* fields) {
    Enter();
    while (!tokens_.TryTake("}")) {
      if (!tokens_.IsInteger()) {
        tokens_.FailHere("expected the number of an unknown field");
      }
      ReadUnknown(nullptr, fields);
    }
    --depth_;
  }

  TextTokens tokens_;
  // The root is level 0.
  int depth_ = 0;
};

}  // namespace

Record ReadText(const Descriptor& type, const std::string& text) {
  Record record(type);
  TextReader(text).Read(&record);
  return record;
}

}  // namespace tools
}  // namespace vantiro
