// Every field of every type: by its own accessors, and on the wire.

#include <gtest/gtest.h>

#include "tests/conformance/model/samples.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

// The kinds that accessors tell apart.
Kind AccessorKind(Kind kind) {
  if (kind == Kind::SINT32 || kind == Kind::SFIXED32) return Kind::INT32;
  if (kind == Kind::SINT64 || kind == Kind::SFIXED64) return Kind::INT64;
  if (kind == Kind::FIXED32) return Kind::UINT32;
  if (kind == Kind::FIXED64) return Kind::UINT64;
  return kind == Kind::BYTES ? Kind::STRING : kind;
}

void ExpectValue(const Field& field, const Value& got, const Value& wanted) {
  EXPECT_EQ(got.number, wanted.number);
  EXPECT_TRUE(AreSame(got.bytes, wanted.bytes));
  EXPECT_EQ(got.kind, AccessorKind(field.kind));
  EXPECT_EQ(got.type_name, field.type_name);
}

void ExpectValues(const Field& field, const MessageLite& message,
                  const std::vector<Value>& values) {
  const auto count = static_cast<int>(values.size());
  if (field.is_repeated || field.kind == Kind::MESSAGE) {
    EXPECT_EQ(field.count(message), count);
  }
  if (count == 0 && !field.is_repeated) {
    ExpectValue(field, field.get(message, 0), {0, ""});
  }
  for (int i = 0; i < count; ++i) {
    ExpectValue(field, field.get(message, i), values[static_cast<size_t>(i)]);
  }
  EXPECT_TRUE(AreSame(message.SerializeAsString(), Encode(field, values)));
}

void ExpectField(const Type& type, const Field& field,
                 const std::vector<Value>& values) {
  SCOPED_TRACE(std::string(type.name) + "." + field.name);
  const Owned message = type.New();
  ExpectValues(field, *message, {});
  for (const Value& value : values) field.set(message.get(), value);
  ExpectValues(field, *message, values);

  // Elements one by one are read like packed ones.
  Field single = field;
  single.is_repeated = false;
  std::string unpacked;
  for (const Value& value : values) unpacked += Encode(single, {value});
  for (const std::string& bytes : {Encode(field, values), unpacked}) {
    const Owned read = type.New();
    EXPECT_TRUE(read->ParseFromString(bytes));
    ExpectValues(field, *read, values);
    field.clear(read.get());
    ExpectValues(field, *read, {});
  }
}

TEST(Fields, AreReadAndWrittenByTheirNumberAndKind) {
  size_t count = 0;
  for (const Type& type : AllTypes()) {
    EXPECT_EQ(type.New()->GetTypeName(), type.name);
    for (const auto& [number, field] : type.fields) {
      const std::vector<Value> values = ValuesOf(field.kind);
      EXPECT_TRUE(field.is_packed || type.IsTestType()) << field.name;
      if (field.is_repeated) {
        ExpectField(type, field, values);
      } else {
        for (const Value& value : values) ExpectField(type, field, {value});
      }
      ++count;
    }
  }
  // The library's, and those of tests/data/schema.
  EXPECT_EQ(AllTypes().size(), 237u + 19u);
  EXPECT_EQ(count, 1774u + 136u);
}

// Lengths of two and of three bytes.
TEST(Fields, MayHaveManyElements) {
  const Type& type = FindType("vantiro.tests.EveryKind");
  for (const size_t count : {31u, 128u, 4096u, 5000u}) {
    for (const auto& [number, field] : type.fields) {
      if (!field.is_repeated) continue;
      const Value value = ValuesOf(field.kind).back();
      ExpectField(type, field, std::vector<Value>(count, value));
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
