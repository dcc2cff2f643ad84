#include <google/protobuf/io/tokenizer.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>

#include <set>

#include "tools/formats/format_error.h"
#include "tools/formats/text_format.h"
#include "tools/formats/unknown_value.h"
#include "tools/record/value_text.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownFieldSet;
using google::protobuf::internal::WireFormatLite;
using google::protobuf::io::ArrayInputStream;
using google::protobuf::io::Tokenizer;

constexpr int kMaxDepth = 100;

[[noreturn]] void Fail(int line, int column, const std::string& what) {
  throw FormatError("line " + std::to_string(line + 1) + ", column " +
                    std::to_string(column + 1) + ": " + what);
}

// The tokenizer reports its errors here and goes on; the first one is thrown.
class FirstError : public google::protobuf::io::ErrorCollector {
 public:
  void AddError(int line, int column, const std::string& message) override {
    if (what_.empty()) {
      what_ = message;
      line_ = line;
      column_ = column;
    }
  }
  void ThrowIfAny() const {
    if (!what_.empty()) Fail(line_, column_, what_);
  }

 private:
  std::string what_;
  int line_ = 0;
  int column_ = 0;
};

class TextReader {
 public:
  explicit TextReader(const std::string& text)
      : stream_(text.data(), static_cast<int>(text.size())),
        tokens_(&stream_, &error_) {
    tokens_.set_comment_style(Tokenizer::SH_COMMENT_STYLE);
    Next();
  }

  // Reads fields up to `end`: "}", or "" for the end of the input.
  void Read(const std::string& end, Record* record) {
    Enter();
    std::set<const FieldDescriptor*> given;
    while (!AtEnd(end)) {
      if (Type() == Tokenizer::TYPE_INTEGER) {
        ReadUnknown(record->type, &record->unknown);
      } else {
        ReadField(record, &given);
      }
    }
    --depth_;
  }

 private:
  Tokenizer::TokenType Type() { return tokens_.current().type; }
  bool At(const char* symbol) { return tokens_.current().text == symbol; }
  void Next() {
    tokens_.Next();
    error_.ThrowIfAny();
  }
  std::string Take() {
    std::string text = tokens_.current().text;
    Next();
    return text;
  }
  bool TryTake(const char* symbol) {
    if (Type() != Tokenizer::TYPE_SYMBOL || !At(symbol)) return false;
    Next();
    return true;
  }
  void Expect(const char* symbol) {
    if (!TryTake(symbol)) FailHere(std::string("expected ") + symbol);
  }
  [[noreturn]] void FailHere(const std::string& what) {
    const bool at_end = Type() == Tokenizer::TYPE_END;
    Fail(tokens_.current().line, tokens_.current().column,
         what + (at_end ? ", found the end"
                        : ", found " + tokens_.current().text));
  }
  bool AtEnd(const std::string& end) {
    if (Type() == Tokenizer::TYPE_END && end.empty()) return true;
    return !end.empty() && TryTake(end.c_str());
  }
  void Enter() {
    if (++depth_ > kMaxDepth) FailHere("nested deeper than 100 levels");
  }

  void ReadField(Record* record, std::set<const FieldDescriptor*>* given) {
    const FieldDescriptor* const field =
        Type() == Tokenizer::TYPE_IDENTIFIER
            ? record->type->FindFieldByName(tokens_.current().text)
            : nullptr;
    if (field == nullptr) {
      FailHere("expected a field of " + record->type->full_name());
    }
    if (!given->insert(field).second && !field->is_repeated()) {
      FailHere("expected a singular field only once");
    }
    Next();
    FieldValue* const value = record->Mutable(*field);
    const bool has_colon = TryTake(":");
    const bool is_message =
        field->cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE;
    if (!has_colon && !is_message) FailHere("expected :");
    if (!field->is_repeated() || !TryTake("[")) {
      ReadValue(value);
    } else if (!TryTake("]")) {
      do {
        ReadValue(value);
      } while (TryTake(","));
      Expect("]");
    }
    if (!TryTake(",")) TryTake(";");
  }

  void ReadValue(FieldValue* value) {
    const FieldDescriptor& field = *value->field;
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      Expect("{");
      value->messages.emplace_back(*field.message_type());
      Read("}", &value->messages.back());
    } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
      const Tokenizer::Token start = tokens_.current();
      value->string_value = TakeString();
      if (field.type() == FieldDescriptor::TYPE_STRING &&
          !IsUtf8(value->string_value)) {
        Fail(start.line, start.column, "the string is not UTF-8");
      }
    } else {
      value->scalars.push_back(TakeScalar(field));
    }
  }

  uint64_t TakeScalar(const FieldDescriptor& field) {
    const Tokenizer::Token start = tokens_.current();
    std::string text = TryTake("-") ? "-" : "";
    text += Take();
    if (text == "nan" && TryTake("(")) {
      text += '(' + Take() + ')';
      Expect(")");
    }
    uint64_t bits;
    if (!ParseScalar(field, text, &bits)) {
      Fail(start.line, start.column,
           "cannot read " + text + " as " + field.type_name());
    }
    return bits;
  }

  std::string TakeString() {
    if (Type() != Tokenizer::TYPE_STRING) FailHere("expected a string");
    std::string text;
    while (Type() == Tokenizer::TYPE_STRING) {
      Tokenizer::ParseStringAppend(Take(), &text);
    }
    return text;
  }

  void ReadUnknown(const Descriptor* type, UnknownFieldSet* fields) {
    const Tokenizer::Token start = tokens_.current();
    uint64_t number;
    if (!ParseUnsigned(Take(), &number)) number = 0;
    const auto check = [&](WireType wire_type) {
      const std::string why = WhyNotUnknown(type, number, wire_type);
      if (!why.empty()) Fail(start.line, start.column, why);
      return static_cast<int>(number);
    };
    if (TryTake("{")) {
      ReadGroup(fields->AddGroup(check(WireFormatLite::WIRETYPE_START_GROUP)));
      return;
    }
    Expect(":");
    if (Type() == Tokenizer::TYPE_STRING) {
      const int n = check(WireFormatLite::WIRETYPE_LENGTH_DELIMITED);
      fields->AddLengthDelimited(n, TakeString());
      return;
    }
    // The number of digits gives the wire type.
    const std::string text = tokens_.current().text;
    const bool is_hex = text.compare(0, 2, "0x") == 0;
    uint64_t value;
    if (!ParseUnsigned(text, &value) ||
        (is_hex && text.size() != 10 && text.size() != 18)) {
      FailHere(
          "expected a number, 8 or 16 hexadecimal digits after 0x, a string "
          "or {");
    }
    Next();
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
    while (!AtEnd("}")) {
      if (Type() != Tokenizer::TYPE_INTEGER) {
        FailHere("expected the number of an unknown field");
      }
      ReadUnknown(nullptr, fields);
    }
    --depth_;
  }

  FirstError error_;
  ArrayInputStream stream_;
  Tokenizer tokens_;
  // The root is level 0.
  int depth_ = -1;
};

}  // namespace

Record ReadText(const Descriptor& type, const std::string& text) {
  Record record(type);
  TextReader(text).Read("", &record);
  return record;
}

}  // namespace tools
}  // namespace vantiro
