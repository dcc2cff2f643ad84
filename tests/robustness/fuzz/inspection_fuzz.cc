// Any bytes as a record of any type: the inspection program's core says what
// the class says, and its formats give back what the class would write. The
// bytes as text and JSON: a record or an error.
//
// Input: two bytes for the type, then the bytes.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/robustness/fuzz/fuzz_input.h"
#include "tests/support/bytes.h"
#include "tools/check/classes.h"
#include "tools/formats/annotation.h"
#include "tools/formats/format_error.h"
#include "tools/formats/json.h"
#include "tools/formats/outline.h"
#include "tools/formats/text_format.h"
#include "tools/record/difference.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {
namespace {

using tests::AreSame;

std::string ToText(const Record& record) {
  std::ostringstream text;
  WriteText(record, Style(false), &text);
  return text.str();
}

// Of a group that is damaged the class keeps what cannot be a field again.
bool EndsInGroup(const std::vector<Node>& nodes) {
  if (nodes.empty()) return false;
  const Node& last = nodes.back();
  if (last.field != nullptr) return EndsInGroup(last.children);
  return last.wire_type ==
         google::protobuf::internal::WireFormatLite::WIRETYPE_START_GROUP;
}

std::string AllAsJson(const Record& record) {
  return RecordJson(record, JsonOptions());
}

// The record, and the bytes that the class writes for it.
void CheckFormats(Record* record, const std::string& written) {
  const Descriptor& type = *record->type;
  for (const bool with_zeros : {false, true}) {
    if (with_zeros) {
      AddDefaults(record);
    } else {
      RemoveDefaults(record);
    }
    EXPECT_TRUE(AreSame(Serialize(ReadText(type, ToText(*record))), written));
    EXPECT_TRUE(
        AreSame(Serialize(ReadJson(type, AllAsJson(*record))), written));
  }
}

void CheckRecord(const Descriptor& type, const std::string& bytes) {
  SCOPED_TRACE(type.full_name());
  const auto message = NewMessage(type.full_name());
  const bool parsed = message->ParseFromString(bytes);
  const std::string written = message->SerializeAsString();
  const RecordTree tree = ReadRecord(type, bytes);
  EXPECT_EQ(tree.ok(), parsed);
  Record record = DecodeRecord(*tree.type, tree.bytes).record;
  if (parsed || !EndsInGroup(tree.nodes)) {
    EXPECT_TRUE(AreSame(Serialize(record), written));
  }
  EXPECT_EQ(IsCanonical(tree), parsed && written == bytes);
  Compare(record, record, {}, [](const Difference& difference) {
    ADD_FAILURE() << difference.Path();
  });
  std::ostringstream shown;
  WriteAnnotation(tree, Style(true), &shown);
  WriteOutline(record, Style(true), &shown);
  if (parsed) {
    CheckFormats(&record, written);
  } else {
    shown << ToText(record) << AllAsJson(record);
  }
}

// The bytes as a record in another format, or not.
template <typename Read>
void CheckFormatted(const Descriptor& type, const std::string& text,
                    const Read& read) {
  std::string bytes;
  try {
    bytes = Serialize(read(type, text));
  } catch (const FormatError&) {
    return;
  }
  CheckRecord(type, bytes);
}

void Run(tests::FuzzInput input) {
  const auto& types = Schema::BuiltIn().messages();
  const Descriptor& type = *types[input.TakeIndex(types.size())];
  const std::string bytes = input.TakeRest();
  CheckRecord(type, bytes);
  CheckFormatted(type, bytes, ReadText);
  CheckFormatted(type, bytes, ReadJson);
}

}  // namespace
}  // namespace tools
}  // namespace vantiro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  vantiro::tools::Run({data, size});
  return 0;
}
