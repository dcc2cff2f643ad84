#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "tools/formats/base64.h"
#include "tools/formats/json.h"
#include "tools/formats/json_members.h"
#include "tools/record/leaves.h"
#include "tools/record/value_text.h"
#include "tools/wire/escape.h"
#include "tools/wire/hex.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownField;
using google::protobuf::UnknownFieldSet;

// A NaN that "NaN" does not stand for.
bool IsUnusualNan(uint64_t bits) { return IsNan(bits) && bits != kUsualNan; }

void WriteUnknown(const UnknownFieldSet& fields, JsonPrinter* out) {
  out->BeginArray();
  for (int i = 0; i < fields.field_count(); ++i) {
    const UnknownField& field = fields.field(i);
    out->BeginObject();
    out->PlainKey("number");
    out->Raw(std::to_string(field.number()));
    switch (field.type()) {
      case UnknownField::TYPE_VARINT:
        out->PlainKey("varint");
        out->PlainString(std::to_string(field.varint()));
        break;
      case UnknownField::TYPE_FIXED32:
        out->PlainKey("fixed32");
        out->PlainString(FixedHex(field.fixed32(), 8));
        break;
      case UnknownField::TYPE_FIXED64:
        out->PlainKey("fixed64");
        out->PlainString(FixedHex(field.fixed64(), 16));
        break;
      case UnknownField::TYPE_LENGTH_DELIMITED:
        out->PlainKey("length_delimited");
        out->PlainString(Hex(field.length_delimited()));
        break;
      case UnknownField::TYPE_GROUP:
        out->PlainKey("group");
        WriteUnknown(field.group(), out);
    }
    out->EndObject();
  }
  out->EndArray();
}

// A member of an object: a field, or what a path leads to.
struct Member {
  std::string_view name;
  // Nothing if it is null twice.
  Selected one;
  // Of a path that can lead to several; otherwise null.
  const std::vector<Selected>* several;
};

bool HasNan(const Selected& selected) {
  if (selected.value == nullptr || !IsFloat(selected.value->field())) {
    return false;
  }
  const auto scalars = selected.value->scalars();
  if (selected.index.has_value()) return IsUnusualNan(scalars[*selected.index]);
  return std::any_of(scalars.begin(), scalars.end(), IsUnusualNan);
}

// Writes the bits of NaNs by their names, "field" or "field[2]".
void WriteNans(const Member& member, JsonPrinter* out) {
  if (!HasNan(member.one)) return;
  const FieldValue& value = *member.one.value;
  const auto scalars = value.scalars();
  const std::string name(member.name);
  const auto write = [out](const std::string& key, uint64_t bits) {
    if (!IsUnusualNan(bits)) return;
    out->PlainKey(key);
    out->PlainString(FixedHex(bits, 8));
  };
  if (member.one.index.has_value()) {
    write(name, scalars[*member.one.index]);
  } else if (!value.field().is_repeated()) {
    write(name, scalars[0]);
  } else {
    for (size_t i = 0; i < scalars.size(); ++i) {
      write(IndexPath(name, i), scalars[i]);
    }
  }
}

bool HasNotUtf8(const Selected& selected) {
  return selected.value != nullptr &&
         selected.value->field().type() == FieldDescriptor::TYPE_STRING &&
         !IsUtf8(selected.value->string_value());
}

void WriteNotUtf8(const Member& member, JsonPrinter* out) {
  if (!HasNotUtf8(member.one)) return;
  out->PlainKey(member.name);
  out->PlainString(Hex(member.one.value->string_value()));
}

class JsonWriter {
 public:
  JsonWriter(const JsonOptions& options, JsonPrinter* out)
      : options_(options), out_(*out) {}

  void WriteFields(const Record& record) {
    WriteMembers(/*is_of_paths=*/false, [&](const auto& visit) {
      for (const auto& entry : record.fields) {
        const FieldDescriptor& field = entry.second.field();
        visit(Member{
            options_.has_original_names ? field.name() : field.json_name(),
            {nullptr, &entry.second, std::nullopt},
            nullptr});
      }
    });
    if (record.unknown.empty() || options_.is_strict) return;
    out_.PlainKey(kUnknownMember);
    WriteUnknown(record.unknown, &out_);
  }

  void WritePaths(const Paths& paths, const Record& record) {
    const auto& of_type = paths.For(*record.type);
    const std::vector<std::string>& names = paths.texts();
    std::vector<std::vector<Selected>> selected(names.size());
    for (size_t i = 0; i < names.size(); ++i) {
      if (of_type[i].has_value()) selected[i] = Select(*of_type[i], record);
    }
    WriteMembers(/*is_of_paths=*/true, [&](const auto& visit) {
      for (size_t i = 0; i < names.size(); ++i) {
        const auto position = names.begin() + static_cast<ptrdiff_t>(i);
        if (std::find(names.begin(), position, names[i]) != position) continue;
        Member member{names[i], {}, nullptr};
        if (of_type[i].has_value() && !of_type[i]->IsSingle()) {
          member.several = &selected[i];
        } else if (!selected[i].empty()) {
          member.one = selected[i][0];
        }
        visit(member);
      }
    });
  }

 private:
  void WriteRecord(const Record& record) {
    out_.BeginObject();
    WriteFields(record);
    out_.EndObject();
  }

  // `for_each` calls a function for each member. "@nan" and "@not_utf8" follow
  // the first member that needs them.
  template <typename ForEach>
  void WriteMembers(bool is_of_paths, const ForEach& for_each) {
    bool has_nans = options_.is_strict;
    bool has_strings = options_.is_strict;
    for_each([&](const Member& member) {
      WriteMember(member, is_of_paths);
      if (member.one.value == nullptr) return;
      if (!has_nans && HasNan(member.one)) {
        has_nans = true;
        out_.PlainKey(kNanMember);
        out_.BeginObject();
        for_each([this](const Member& other) { WriteNans(other, &out_); });
        out_.EndObject();
      }
      if (!has_strings && HasNotUtf8(member.one)) {
        has_strings = true;
        out_.PlainKey(kNotUtf8Member);
        out_.BeginObject();
        for_each([this](const Member& other) { WriteNotUtf8(other, &out_); });
        out_.EndObject();
      }
    });
  }

  // A string that is not UTF-8 is a null, of a path, or is left out.
  void WriteMember(const Member& member, bool is_of_paths) {
    if (member.several != nullptr) {
      out_.PlainKey(member.name);
      WriteSeveral(*member.several);
    } else if (!HasNotUtf8(member.one)) {
      out_.PlainKey(member.name);
      WriteSelected(member.one);
    } else if (is_of_paths) {
      out_.PlainKey(member.name);
      out_.Raw("null");
    }
  }

  // What a value of an object has beside it in members that begin with "@" has
  // no place in an array.
  void WriteSeveral(const std::vector<Selected>& several) {
    out_.BeginArray();
    for (const Selected& selected : several) {
      if (!HasNotUtf8(selected)) {
        WriteSelected(selected);
        continue;
      }
      out_.BeginObject();
      if (!options_.is_strict) {
        out_.PlainKey(kNotUtf8Member);
        out_.BeginObject();
        WriteNotUtf8({"value", selected, nullptr}, &out_);
        out_.EndObject();
      }
      out_.EndObject();
    }
    out_.EndArray();
  }

  void WriteSelected(const Selected& selected) {
    if (selected.message != nullptr) {
      WriteRecord(*selected.message);
    } else if (selected.value == nullptr) {
      out_.Raw("null");
    } else if (selected.index.has_value()) {
      WriteScalar(selected.value->field(),
                  selected.value->scalars()[*selected.index]);
    } else {
      WriteValue(*selected.value);
    }
  }

  void WriteValue(const FieldValue& value) {
    const FieldDescriptor& field = value.field();
    if (field.type() == FieldDescriptor::TYPE_STRING) {
      out_.String(value.string_value());
    } else if (field.type() == FieldDescriptor::TYPE_BYTES) {
      out_.PlainString(Base64(value.string_value()));
    } else if (field.is_repeated()) {
      out_.BeginArray();
      for (const uint64_t bits : value.scalars()) WriteScalar(field, bits);
      for (const Record& message : value.messages()) WriteRecord(message);
      out_.EndArray();
    } else if (IsScalar(field)) {
      WriteScalar(field, value.scalars()[0]);
    } else {
      WriteRecord(value.messages()[0]);
    }
  }

  void WriteScalar(const FieldDescriptor& field, uint64_t bits) {
    switch (field.cpp_type()) {
      case FieldDescriptor::CPPTYPE_FLOAT:
        WriteFloat(bits);
        break;
      case FieldDescriptor::CPPTYPE_BOOL:
      case FieldDescriptor::CPPTYPE_INT32:
      case FieldDescriptor::CPPTYPE_UINT32:
        AppendScalarText(field, bits, out_.BeginRaw());
        break;
      case FieldDescriptor::CPPTYPE_ENUM:
        if (const EnumValueDescriptor* const value =
                DeclaredValue(field, bits)) {
          out_.PlainString(value->name());
        } else {
          AppendScalarText(field, bits, out_.BeginRaw());
        }
        break;
      default: {
        // A number of 64 bits is a string.
        std::string* const text = out_.BeginRaw();
        *text += '"';
        AppendScalarText(field, bits, text);
        *text += '"';
      }
    }
  }

  void WriteFloat(uint64_t bits) {
    const float value = ToFloat(bits);
    if (std::isfinite(value)) {
      out_.Float(value);
    } else {
      out_.PlainString(IsNan(bits) ? "NaN"
                       : value < 0 ? "-Infinity"
                                   : "Infinity");
    }
  }

  const JsonOptions& options_;
  JsonPrinter& out_;
};

}  // namespace

void WriteMembers(const Record& record, const JsonOptions& options,
                  JsonPrinter* out) {
  JsonWriter(options, out).WriteFields(record);
}

void WriteMembers(const Paths& paths, const Record& record,
                  const JsonOptions& options, JsonPrinter* out) {
  JsonWriter(options, out).WritePaths(paths, record);
}

std::string RecordJson(const Record& record, const JsonOptions& options) {
  std::string text;
  JsonPrinter out(-1, &text);
  out.BeginObject();
  WriteMembers(record, options, &out);
  out.EndObject();
  return text;
}

std::string JsonText(const Json& json, int indent) {
  // A file name may not be UTF-8.
  return EscapeControlsInLines(
      json.dump(indent, ' ', false, Json::error_handler_t::replace));
}

void WriteMember(const Fault& fault, JsonPrinter* out) {
  out->PlainKey(kErrorMember);
  out->BeginObject();
  out->PlainKey("offset");
  out->Raw(std::to_string(fault.offset));
  out->PlainKey("path");
  out->String(fault.path);
  out->PlainKey("what");
  out->String(fault.what);
  out->EndObject();
}

}  // namespace tools
}  // namespace vantiro
