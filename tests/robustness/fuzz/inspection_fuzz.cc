// Any bytes as a record of any type: the inspection program's core says what
// the class says, and its formats give back what the class would write. The
// bytes as text and JSON: a record or a refusal.
//
// Input: two bytes for the type, then the bytes.

#include <google/protobuf/stubs/logging.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "tests/robustness/fuzz/check.h"
#include "tests/robustness/fuzz/fuzz_input.h"
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

using tests::CheckEqual;

const Descriptor& TypeAt(tests::FuzzInput* input) {
  static const auto* const types = [] {
    auto* const sorted =
        new std::vector<const Descriptor*>(Schema::BuiltIn().messages());
    std::sort(sorted->begin(), sorted->end(),
              [](const Descriptor* a, const Descriptor* b) {
                return a->full_name() < b->full_name();
              });
    return sorted;
  }();
  return *types->at(input->TakeIndex(types->size()));
}

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

// The record, and the bytes that the class writes for it.
void CheckFormats(Record* record, const std::string& written) {
  const Descriptor& type = *record->type;
  for (const bool with_zeros : {false, true}) {
    if (with_zeros) {
      AddDefaults(record);
    } else {
      RemoveDefaults(record);
    }
    CheckEqual(Serialize(ReadText(type, ToText(*record))), written,
               type.full_name() + ": by text");
    CheckEqual(Serialize(ReadJson(type, ToJson(*record).dump())), written,
               type.full_name() + ": by JSON");
  }
}

void CheckRecord(const Descriptor& type, const std::string& bytes) {
  const std::string where = type.full_name() + ": ";
  const auto message = NewMessage(type.full_name());
  const bool parsed = message->ParseFromString(bytes);
  const std::string written = message->SerializeAsString();
  const RecordTree tree = ReadRecord(type, bytes);
  CheckEqual(tree.ok(), parsed, where + "verdict");
  Record record = MakeRecord(tree);
  if (parsed || !EndsInGroup(tree.nodes)) {
    CheckEqual(Serialize(record), written, where + "values");
  }
  CheckEqual(IsCanonical(tree), parsed && written == bytes,
             where + "canonical");
  CheckEqual(Compare(record, record, 0).empty(), true, where + "difference");
  std::ostringstream shown;
  WriteAnnotation(tree, Style(true), &shown);
  WriteOutline(record, Style(true), &shown);
  if (parsed) {
    CheckFormats(&record, written);
  } else {
    shown << ToText(record) << ToJson(record).dump();
  }
}

template <typename Read>
void CheckRefusal(const Descriptor& type, const std::string& text,
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
  const Descriptor& type = TypeAt(&input);
  const std::string bytes = input.TakeRest();
  CheckRecord(type, bytes);
  CheckRefusal(type, bytes, ReadText);
  CheckRefusal(type, bytes, ReadJson);
}

}  // namespace
}  // namespace tools
}  // namespace vantiro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const google::protobuf::LogSilencer silence;
  vantiro::tools::Run({data, size});
  return 0;
}
