#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tools/formats/base64.h"
#include "tools/formats/format_error.h"
#include "tools/formats/json.h"
#include "tools/formats/json_members.h"
#include "tools/formats/unknown_value.h"
#include "tools/record/value_text.h"
#include "tools/wire/hex.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownFieldSet;
using google::protobuf::internal::WireFormatLite;

constexpr int kMaxDepth = 100;

// The largest up to which doubles have all integers.
constexpr double kMaxExactInteger = 9007199254740992;

// A whole number may be written as 1e3 or 1.0.
bool IsWhole(double number) {
  return std::nearbyint(number) == number &&
         std::fabs(number) <= kMaxExactInteger;
}

// The text of a scalar, as ScalarText writes it.
std::string TextOf(const FieldDescriptor& field, const Json& value) {
  // Only -0 is a signed integer that is zero: others are unsigned.
  if (value.is_number_integer() && !value.is_number_unsigned() && value == 0 &&
      IsFloat(field)) {
    return "-0.0";
  }
  if (value.is_number_float() && !IsFloat(field) &&
      IsWhole(value.get<double>())) {
    return std::to_string(static_cast<int64_t>(value.get<double>()));
  }
  if (!value.is_string()) return value.dump();
  auto text = value.get<std::string>();
  if (!IsFloat(field)) return text;
  if (text == "NaN") return "nan";
  if (text == "Infinity") return "inf";
  if (text == "-Infinity") return "-inf";
  // The text format has names for numbers that JSON does not have.
  const bool is_number =
      text.find_first_not_of("0123456789+-.eE") == std::string::npos;
  return is_number ? text : "";
}

class JsonReader {
 public:
  void Read(const Json& object, Record* record) {
    if (!object.is_object()) Fail("expected an object");
    Enter();
    for (const auto& item : object.items()) {
      if (item.key().rfind('@', 0) == 0) continue;
      path_.push_back(item.key());
      ReadField(item.value(), record);
      path_.pop_back();
    }
    // These are about fields, and may come before them.
    for (const auto& item : object.items()) {
      if (item.key().rfind('@', 0) != 0) continue;
      path_.push_back(item.key());
      ReadMember(item.value(), record);
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
    const FieldDescriptor* const field = FindField(*record->type, path_.back());
    if (field == nullptr) {
      Fail(record->type->full_name() + " has no such field");
    }
    if (record->fields.count(field->number()) > 0) {
      Fail("the field occurs twice, by both of its names");
    }
    if (value.is_null()) return;
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
    const FieldDescriptor& field = target->field();
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      Read(value, target->AddMessage());
    } else if (field.type() == FieldDescriptor::TYPE_BYTES) {
      target->SetString(ReadBase64(value));
    } else if (field.type() == FieldDescriptor::TYPE_STRING) {
      if (!value.is_string()) {
        Fail("expected a string instead of " + value.dump());
      }
      target->SetString(value.get<std::string>());
    } else {
      uint64_t bits;
      if (!ParseScalar(field, TextOf(field, value), &bits)) {
        Fail("cannot read " + value.dump() + " as " + field.type_name());
      }
      target->AddScalar(bits);
    }
  }

  // Of the usual alphabet or the one for URLs, with or without padding.
  std::string ReadBase64(const Json& value) {
    std::string bytes;
    if (!value.is_string() || !ParseBase64(value.get<std::string>(), &bytes)) {
      Fail("expected bytes as a string in base64");
    }
    return bytes;
  }

  std::string ReadHex(const Json& value) {
    std::string bytes;
    if (!value.is_string() || !ParseHex(value.get<std::string>(), &bytes)) {
      Fail("expected bytes as a string of hexadecimal digits");
    }
    return bytes;
  }

  void ReadMember(const Json& value, Record* record) {
    const std::string& name = path_.back();
    if (name == kUnknownMember) {
      ReadUnknown(value, record->type, &record->unknown);
    } else if (name == kNanMember) {
      ReadEach(value, [&](const Json& bits) { ReadNan(bits, record); });
    } else if (name == kNotUtf8Member) {
      ReadEach(value, [&](const Json& hex) { ReadNotUtf8(hex, record); });
    } else if (name != kErrorMember) {
      Fail("expected @unknown, @nan, @not_utf8 or @error");
    }
  }

  template <typename Read>
  void ReadEach(const Json& object, const Read& read) {
    if (!object.is_object()) Fail("expected an object");
    for (const auto& item : object.items()) {
      path_.push_back(item.key());
      read(item.value());
      path_.pop_back();
    }
  }

  // Sets the bits of a NaN, "field" or "field[2]", that is in the record.
  void ReadNan(const Json& value, Record* record) {
    const uint64_t bits = ReadNumber(value, UINT32_MAX);
    const std::string_view name = path_.back();
    const size_t bracket = std::min(name.find('['), name.size());
    const FieldDescriptor* const field =
        FindField(*record->type, std::string(name.substr(0, bracket)));
    if (field == nullptr || !IsFloat(*field)) Fail("no such float");
    const ArrayView<uint64_t> scalars =
        record->Mutable(*field)->mutable_scalars();
    uint64_t index = 0;
    const bool has_index =
        bracket < name.size() && name.back() == ']' &&
        ParseUnsigned(name.substr(bracket + 1, name.size() - bracket - 2),
                      &index);
    if (has_index != field->is_repeated() || index >= scalars.size() ||
        !IsNan(scalars[index]) || !IsNan(bits)) {
      Fail("not a NaN");
    }
    scalars[index] = bits;
  }

  void ReadNotUtf8(const Json& value, Record* record) {
    const FieldDescriptor* const field = FindField(*record->type, path_.back());
    if (field == nullptr || field->type() != FieldDescriptor::TYPE_STRING ||
        record->fields.count(field->number()) > 0) {
      Fail("expected a string that has no other value");
    }
    record->Mutable(*field)->SetString(ReadHex(value));
  }

  // By either name.
  const FieldDescriptor* FindField(const Descriptor& type,
                                   const std::string& name) {
    const auto [entry, is_new] = fields_.try_emplace(&type);
    auto& fields = entry->second;
    for (int i = 0; is_new && i < type.field_count(); ++i) {
      fields[type.field(i)->json_name()] = type.field(i);
      fields[type.field(i)->name()] = type.field(i);
    }
    const auto found = fields.find(name);
    return found == fields.end() ? nullptr : found->second;
  }

  uint64_t ReadNumber(const Json& value, uint64_t max) {
    const std::string text =
        value.is_string() ? value.get<std::string>() : value.dump();
    uint64_t number;
    if (!ParseUnsigned(text, &number) || number > max) {
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

  std::unordered_map<const Descriptor*,
                     std::unordered_map<std::string, const FieldDescriptor*>>
      fields_;
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
