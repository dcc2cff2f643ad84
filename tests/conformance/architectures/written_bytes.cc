// Prints what the library writes, one line for each record: those of
// tests/data/records, what each reference vector leaves in a message, also one
// that ends badly, and those that the accessors fill.

#include <google/protobuf/stubs/logging.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "tests/conformance/records/field_table.h"
#include "tests/conformance/records/record_files.h"
#include "tests/support/bytes.h"
#include "tests/support/merge.h"
#include "tests/support/types.h"
#include "tests/support/vectors.h"

namespace vantiro {
namespace tests {
namespace {

void Print(const std::string& name, bool ok, const MessageLite& message) {
  std::printf("%s %d %s\n", name.c_str(), ok,
              ToHex(message.SerializeAsString()).c_str());
}

void PrintRead(const std::string& name, const std::string& type_name,
               const std::string& bytes) {
  const std::unique_ptr<MessageLite> message(
      FindType(type_name)->create(nullptr));
  const bool ok = MergeBytes(bytes, message.get());
  Print(name, ok, *message);
}

// A number that fills its bits, and has another sign with every field.
uint64_t Bits(const Field& field) {
  const auto bits = static_cast<uint64_t>(field.number) * 0x9e3779b97f4a7c15;
  return field.number % 2 == 0 ? bits : ~bits;
}

void PrintFilled(const Type& type) {
  const std::unique_ptr<MessageLite> message(type.create(nullptr));
  for (const Field& field : AllFields()) {
    if (field.message != std::string(type.name)) continue;
    const bool is_text =
        field.kind == Kind::STRING || field.kind == Kind::BYTES;
    field.set(message.get(), {Bits(field), is_text ? field.name : ""});
  }
  Print(type.name, true, *message);
}

}  // namespace

void PrintAll() {
  std::vector<std::string> records = RecordFiles();
  std::sort(records.begin(), records.end());
  for (const std::string& name : records) {
    PrintRead(name, name, ReadData("records/" + name + ".bin"));
  }
  for (const Vector& vector : AllVectors()) {
    PrintRead(vector.id, vector.type_name, vector.a);
  }
  for (const Type& type : AllTypes()) PrintFilled(type);
}

}  // namespace tests
}  // namespace vantiro

int main() {
  const google::protobuf::LogSilencer silence;
  vantiro::tests::PrintAll();
}
