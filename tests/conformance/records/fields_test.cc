// Every field of every message: by its own accessors, and on the wire.

#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "tests/conformance/model/encoding.h"
#include "tests/conformance/records/field_table.h"
#include "tests/support/bytes.h"
#include "tests/support/roads.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

// Values that no other kind writes alike: negative ones, and long ones.
std::vector<Value> ValuesOf(Kind kind) {
  const uint64_t minus_one = UINT64_MAX;
  const auto min32 = static_cast<uint64_t>(int64_t{INT32_MIN});
  switch (kind) {
    case Kind::FLOAT:  // 1.5, -2, a NaN, the smallest
      return {{0x3fc00000, ""}, {0xc0000000, ""}, {0x7fc01234, ""}, {1, ""}};
    case Kind::UINT32:
      return {{1, ""}, {300, ""}, {0x80000001, ""}};
    case Kind::INT32:
    case Kind::SINT32:
      return {{1, ""}, {minus_one, ""}, {min32, ""}, {INT32_MAX, ""}};
    case Kind::ENUM:
      return {{1, ""}, {99, ""}, {minus_one, ""}};
    case Kind::BOOL:
      return {{1, ""}};
    case Kind::UINT64:
    case Kind::INT64:
    case Kind::SINT64:
      return {{1, ""}, {minus_one, ""}, {uint64_t{1} << 33, ""}};
    case Kind::STRING:
      return {{0, "ab"}, {0, "\xc3\xa9"}};
    case Kind::BYTES:
      return {{0, "ab"}, {0, "\xff\xfe"}};
    case Kind::MESSAGE:  // With a field that no message declares.
      return {{0, ""}, {0, "\xf8\x7f\x07"}};
  }
  return {};
}

// What the field writes with these values.
std::string Encode(const Field& field, const std::vector<Value>& values) {
  const WireType wire_type = TypeOf(field.kind);
  const bool is_packed = field.is_repeated && wire_type != kDelimited;
  std::string bytes;
  for (const Value& value : values) {
    if (wire_type == kDelimited) {
      bytes += Delimited(field.number, value.bytes);
    } else {
      if (!is_packed) bytes += Tag(field.number, wire_type);
      bytes += Element(field.kind, value.number);
    }
  }
  return is_packed && !bytes.empty() ? Delimited(field.number, bytes) : bytes;
}

using Owned = std::unique_ptr<MessageLite>;

Owned Create(const std::string& type) {
  return Owned(FindType(type)->create(nullptr));
}

// The kinds that accessors tell apart.
Kind AccessorKind(Kind kind) {
  if (kind == Kind::SINT32) return Kind::INT32;
  if (kind == Kind::SINT64) return Kind::INT64;
  return kind == Kind::BYTES ? Kind::STRING : kind;
}

void ExpectValue(const Field& field, const Value& value, const Value& wanted) {
  EXPECT_EQ(value.number, wanted.number);
  EXPECT_EQ(ToHex(value.bytes), ToHex(wanted.bytes));
  EXPECT_EQ(value.kind, AccessorKind(field.kind));
  if (field.kind == Kind::MESSAGE) {
    EXPECT_EQ(value.type, field.type);
  }
}

void ExpectValues(const Field& field, const MessageLite& message,
                  const std::vector<Value>& values) {
  const auto count = static_cast<int>(values.size());
  if (field.is_repeated || field.kind == Kind::MESSAGE) {
    EXPECT_EQ(field.size(message), count);
  }
  if (count == 0 && !field.is_repeated) {
    ExpectValue(field, field.get(message, 0), {0, ""});
  }
  for (int i = 0; i < count; ++i) {
    ExpectValue(field, field.get(message, i), values[static_cast<size_t>(i)]);
  }
  EXPECT_EQ(ToHex(message.SerializeAsString()), ToHex(Encode(field, values)));
}

void ExpectField(const Field& field, const std::vector<Value>& values) {
  const Owned message = Create(field.message);
  ExpectValues(field, *message, {});
  for (const Value& value : values) field.set(message.get(), value);
  ExpectValues(field, *message, values);
  const Owned read = Create(field.message);
  EXPECT_TRUE(read->ParseFromString(Encode(field, values)));
  ExpectValues(field, *read, values);
  field.clear(read.get());
  ExpectValues(field, *read, {});
}

TEST(Fields, StandOnTheWireUnderTheirNumberAndKind) {
  for (const Field& field : AllFields()) {
    SCOPED_TRACE(std::string(field.message) + "." + field.name);
    const std::vector<Value> values = ValuesOf(field.kind);
    if (field.is_repeated) {
      ExpectField(field, values);
    } else {
      for (const Value& value : values) ExpectField(field, {value});
    }
  }
}

TEST(Fields, GoOutInAscendingOrder) {
  std::map<std::string, std::map<int, const Field*>> messages;
  for (const Field& field : AllFields()) {
    messages[field.message][field.number] = &field;
  }
  for (const Type& type : AllTypes()) {
    const auto& fields = messages[type.name];
    const Owned message = Create(type.name);
    EXPECT_EQ(message->GetTypeName(), type.name);
    EXPECT_EQ(ToHex(Serialize(type, *message)), "");
    std::string wanted;
    for (const auto& field : fields) {
      wanted += Encode(*field.second, {ValuesOf(field.second->kind).back()});
    }
    for (auto field = fields.rbegin(); field != fields.rend(); ++field) {
      field->second->set(message.get(), ValuesOf(field->second->kind).back());
    }
    EXPECT_EQ(ToHex(Serialize(type, *message)), ToHex(wanted)) << type.name;
    const Owned read = Create(type.name);
    EXPECT_TRUE(read->ParseFromString(wanted)) << type.name;
    EXPECT_EQ(ToHex(Serialize(type, *read)), ToHex(wanted)) << type.name;
  }
}

TEST(Fields, AreAllThere) {
  EXPECT_EQ(AllTypes().size(), 237u);
  EXPECT_EQ(AllFields().size(), 1774u);
  std::map<Kind, int> singular;
  std::map<Kind, int> repeated;
  for (const Field& field : AllFields()) {
    ++(field.is_repeated ? repeated : singular)[field.kind];
  }
  EXPECT_EQ(singular, (std::map<Kind, int>{{Kind::FLOAT, 441},
                                           {Kind::UINT32, 228},
                                           {Kind::INT32, 156},
                                           {Kind::SINT32, 120},
                                           {Kind::ENUM, 146},
                                           {Kind::BOOL, 229},
                                           {Kind::UINT64, 27},
                                           {Kind::INT64, 1},
                                           {Kind::SINT64, 2},
                                           {Kind::STRING, 6},
                                           {Kind::BYTES, 2},
                                           {Kind::MESSAGE, 303}}));
  EXPECT_EQ(repeated, (std::map<Kind, int>{{Kind::FLOAT, 41},
                                           {Kind::UINT32, 9},
                                           {Kind::INT32, 11},
                                           {Kind::SINT32, 10},
                                           {Kind::ENUM, 2},
                                           {Kind::MESSAGE, 40}}));
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
