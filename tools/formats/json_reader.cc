#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tools/formats/format_error.h"
#include "tools/formats/json.h"
#include "tools/formats/unknown_value.h"
#include "tools/record/value_text.h"
#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownFieldSet;
using google::protobuf::internal::WireFormatLite;

constexpr int kMaxDepth = 100;
constexpr char kUnknown[] = "@unknown";
// A note of the fault of a damaged record.
constexpr char kError[] = "@error";

// The text of a scalar, as ScalarText writes it.
std::string TextOf(const Json& value) {
  if (!value.is_string()) return value.dump();
  const auto text = value.get<std::string>();
  if (text.compare(0, 3, "NaN") == 0) return "nan" + text.substr(3);
  if (text == "Infinity") return "inf";
  return text == "-Infinity" ? "-inf" : text;
}

class JsonReader {
 public:
  void Read(const Json& object, Record* record) {
    if (!object.is_object()) Fail("expected an object");
    Enter();
    for (const auto& item : object.items()) {
      path_.push_back(item.key());
      if (item.key() == kUnknown) {
        ReadUnknown(item.value(), record->type, &record->unknown);
      } else if (item.key() != kError) {
        ReadField(item.value(), record);
      }
      path_.pop_back();
    }
    --depth_;
  }

 private:
  void Enter() {
    if (++depth_ > kMaxDepth) Fail("nested deeper than 100 levels");
  }

  [[noreturn]] void Fail(const std::string& what) const {
    std::string path;
    for (const std::string& step : path_) {
      if (!path.empty() && step[0] != '[') path += '.';
      path += step;
    }
    throw FormatError(path.empty() ? what : "in " + path + ": " + what);
  }

  void ReadField(const Json& value, Record* record) {
    const FieldDescriptor* const field =
        record->type->FindFieldByName(path_.back());
    if (field == nullptr) {
      Fail(record->type->full_name() + " has no such field");
    }
    FieldValue* const target = record->Mutable(*field);
    if (!field->is_repeated()) {
      ReadValue(value, target);
      return;
    }
    if (!value.is_array()) Fail("expected an array");
    size_t index = 0;
    for (const Json& element : value) {
      path_.push_back('[' + std::to_string(index++) + ']');
      ReadValue(element, target);
      path_.pop_back();
    }
  }

  void ReadValue(const Json& value, FieldValue* target) {
    const FieldDescriptor& field = *target->field;
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      target->messages.emplace_back(*field.message_type());
      Read(value, &target->messages.back());
    } else if (field.type() == FieldDescriptor::TYPE_BYTES) {
      target->string_value = ReadHex(value);
    } else if (field.type() == FieldDescriptor::TYPE_STRING) {
      if (!value.is_string())
        Fail("expected a string instead of " + value.dump());
      target->string_value = value.get<std::string>();
    } else {
      uint64_t bits;
      if (!ParseScalar(field, TextOf(value), &bits)) {
        Fail("cannot read " + value.dump() + " as " + field.type_name());
      }
      target->scalars.push_back(bits);
    }
  }

  std::string ReadHex(const Json& value) {
    std::string bytes;
    if (!value.is_string() || !ParseHex(value.get<std::string>(), &bytes)) {
      Fail("expected bytes as a string of hexadecimal digits");
    }
    return bytes;
  }

  uint64_t ReadNumber(const Json& value, uint64_t max) {
    uint64_t number;
    if (!ParseUnsigned(TextOf(value), &number) || number > max) {
      Fail("expected a number up to " + std::to_string(max) + " instead of " +
           value.dump());
    }
    return number;
  }

  void ReadUnknown(const Json& array, const Descriptor* type,
                   UnknownFieldSet* fields) {
    if (!array.is_array()) Fail("expected an array of unknown fields");
    for (const Json& item : array) {
      if (!item.is_object() || item.size() != 2 || !item.contains("number")) {
        Fail("expected a number and one value of an unknown field");
      }
      const uint64_t number = ReadNumber(item["number"], UINT32_MAX);
      for (const auto& value : item.items()) {
        if (value.key() == "number") continue;
        path_.push_back(value.key());
        ReadUnknownValue(number, value.value(), type, fields);
        path_.pop_back();
      }
    }
  }

  void ReadUnknownValue(uint64_t number, const Json& value,
                        const Descriptor* type, UnknownFieldSet* fields) {
    const int n = static_cast<int>(number);
    const auto check = [&](WireType wire_type) {
      const std::string why = WhyNotUnknown(type, number, wire_type);
      if (!why.empty()) Fail(why);
    };
    const std::string& kind = path_.back();
    if (kind == "varint") {
      check(WireFormatLite::WIRETYPE_VARINT);
      fields->AddVarint(n, ReadNumber(value, UINT64_MAX));
    } else if (kind == "fixed32") {
      check(WireFormatLite::WIRETYPE_FIXED32);
      fields->AddFixed32(n,
                         static_cast<uint32_t>(ReadNumber(value, UINT32_MAX)));
    } else if (kind == "fixed64") {
      check(WireFormatLite::WIRETYPE_FIXED64);
      fields->AddFixed64(n, ReadNumber(value, UINT64_MAX));
    } else if (kind == "length_delimited") {
      check(WireFormatLite::WIRETYPE_LENGTH_DELIMITED);
      fields->AddLengthDelimited(n, ReadHex(value));
    } else if (kind == "group") {
      check(WireFormatLite::WIRETYPE_START_GROUP);
      Enter();
      ReadUnknown(value, nullptr, fields->AddGroup(n));
      --depth_;
    } else {
      Fail("expected varint, fixed32, fixed64, length_delimited or group");
    }
  }

  std::vector<std::string> path_;
  // The root is level 0.
  int depth_ = -1;
};

// Rejects an object with two equal keys, of which the parser would silently
// drop one.
class KeyCheck {
 public:
  bool operator()(int /*depth*/, Json::parse_event_t event,
                  const Json& parsed) {
    if (event == Json::parse_event_t::object_start) keys_.emplace_back();
    if (event == Json::parse_event_t::object_end) keys_.pop_back();
    if (event == Json::parse_event_t::key &&
        !keys_.back().insert(parsed.get<std::string>()).second) {
      throw FormatError(parsed.dump() + " occurs twice in an object");
    }
    return true;
  }

 private:
  std::vector<std::set<std::string>> keys_;
};

}  // namespace

Record ReadJson(const Descriptor& type, const std::string& text) {
  Json json;
  try {
    KeyCheck check;
    json = Json::parse(text, std::ref(check));
  } catch (const Json::exception& error) {
    throw FormatError(std::string("invalid JSON: ") + error.what());
  }
  Record record(type);
  JsonReader().Read(json, &record);
  return record;
}

}  // namespace tools
}  // namespace vantiro
