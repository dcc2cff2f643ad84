#include "bench/variant.h"

#include <google/protobuf/arena.h>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/message_lite.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "all_units.fill.h"
#include "bench/values.h"

namespace vantiro {
namespace bench {
namespace {

using google::protobuf::Arena;
using google::protobuf::MessageLite;
using google::protobuf::io::CodedInputStream;

// The operations that are not in the runtime's interface.
struct Root {
  std::string name;
  size_t object_size;
  const MessageLite* default_instance;
  void (*copy)(const MessageLite& from, MessageLite* to);
  void (*fill)(Values* values, MessageLite* to);
  bool (*merge)(CodedInputStream* input, MessageLite* to);
};

template <typename T>
Root MakeRoot() {
  const MessageLite& default_instance = T::default_instance();
  return {default_instance.GetTypeName(),
          sizeof(T),
          &default_instance,
          [](const MessageLite& from, MessageLite* to) {
            static_cast<T*>(to)->CopyFrom(static_cast<const T&>(from));
          },
          [](Values* values, MessageLite* to) {
            Fill(values, static_cast<T*>(to));
          },
          [](CodedInputStream* input, MessageLite* to) {
            return static_cast<T*>(to)->MergePartialFromCodedStream(input);
          }};
}

const std::vector<Root>& AllRoots() {
  static const auto* const roots = new std::vector<Root>{
      MakeRoot<::z3a_debug_data::zabc::DebugExif>(),
      MakeRoot<::z3a_debug_data::zabc::DebugCompact>(),
      MakeRoot<::z3a_debug_data::zabc::ZabcVideoMetadata>(),
      MakeRoot<::z3a_debug_data::zabc::ZabcStatsLogging>(),
      MakeRoot<::z3a_debug_data::zaf::DebugExif>(),
      MakeRoot<::z3a_debug_data::zaf::ZAfExifDebugOutput>(),
      MakeRoot<::z3a_debug_data::zaf::ZAfVideoMetadata>(),
      MakeRoot<::z3a_debug_data::zaf::ZAfStatsLogging>(),
      MakeRoot<::z3a_debug_data::zaf::ZAfDebugUi>(),
      MakeRoot<::z3a_debug_data::zhawb::DebugExif>(),
      MakeRoot<::z3a_debug_data::zhawb::DebugString>(),
      MakeRoot<::z3a_debug_data::zhawb::ZHAWBDebugLoggingBlob>(),
      MakeRoot<::z3a_debug_data::zhawb::ZHAWBDebugVideoBlob>(),
      MakeRoot<::z3a_debug_data::zatm::DebugExif>(),
      MakeRoot<::zaf::ZAfMultiDepthFaceDeblurInfo>(),
      MakeRoot<::zaf::ZAfTargetFocusInfo>(),
  };
  return *roots;
}

template <typename Table>
const auto& Find(const Table& table, const std::string& name) {
  const auto found =
      std::find_if(std::begin(table), std::end(table),
                   [&name](const auto& entry) { return entry.name == name; });
  if (found == std::end(table)) std::abort();
  return *found;
}

// A record, and what the operations read and write.
struct Subject {
  explicit Subject(const Record& record)
      : root(Find(AllRoots(), record.root)),
        values(record.is_sparse, record.seed),
        message(root.default_instance->New()),
        target(root.default_instance->New()) {
    root.fill(&values, message.get());
    root.copy(*message, target.get());
    bytes = message->SerializeAsString();
    output = bytes;
  }

  const Root& root;
  Values values;
  std::unique_ptr<MessageLite> message;
  std::unique_ptr<MessageLite> target;
  std::string bytes;
  std::string output;
};

// A failure would make every figure meaningless.
void Require(bool is_done) {
  if (!is_done) std::abort();
}

void Parse(const std::string& bytes, MessageLite* message) {
  Require(
      message->ParseFromArray(bytes.data(), static_cast<int>(bytes.size())));
}

void Serialize(Subject* subject) {
  Require(subject->message->SerializeToArray(
      subject->output.data(), static_cast<int>(subject->output.size())));
}

void ByteSize(Subject* subject) {
  Require(subject->message->ByteSizeLong() == subject->bytes.size());
}

void ParseFresh(Subject* subject) {
  const std::unique_ptr<MessageLite> fresh(
      subject->root.default_instance->New());
  Parse(subject->bytes, fresh.get());
}

void ParseReused(Subject* subject) {
  Parse(subject->bytes, subject->target.get());
}

void ParseArena(Subject* subject) {
  Arena arena;
  Parse(subject->bytes, subject->root.default_instance->New(&arena));
}

void ParseCodedStream(Subject* subject) {
  subject->target->Clear();
  CodedInputStream input(
      reinterpret_cast<const uint8_t*>(subject->bytes.data()),
      static_cast<int>(subject->bytes.size()));
  Require(subject->root.merge(&input, subject->target.get()));
}

void CopyReused(Subject* subject) {
  subject->root.copy(*subject->message, subject->target.get());
}

void CopyFresh(Subject* subject) {
  const std::unique_ptr<MessageLite> fresh(
      subject->root.default_instance->New());
  subject->root.copy(*subject->message, fresh.get());
}

void ClearFill(Subject* subject) {
  subject->target->Clear();
  subject->values.Restart();
  subject->root.fill(&subject->values, subject->target.get());
}

void NewDelete(Subject* subject) {
  delete subject->root.default_instance->New();
}

void SerializeAsString(Subject* subject) {
  Require(subject->message->SerializeAsString().size() ==
          subject->bytes.size());
}

template <void (*kOperation)(Subject*)>
class WorkOf final : public Work {
 public:
  explicit WorkOf(const std::vector<Record>& records)
      : subjects_(records.begin(), records.end()) {}

  void Run(int times) override {
    for (; times > 0; --times) {
      for (Subject& subject : subjects_) kOperation(&subject);
    }
  }

 private:
  std::vector<Subject> subjects_;
};

struct Operation {
  const char* name;
  std::unique_ptr<Work> (*prepare)(const std::vector<Record>& records);
};

template <void (*kOperation)(Subject*)>
std::unique_ptr<Work> Prepare(const std::vector<Record>& records) {
  return std::make_unique<WorkOf<kOperation>>(records);
}

constexpr Operation kOperations[] = {
    {"serialize", Prepare<Serialize>},
    {"byte_size", Prepare<ByteSize>},
    {"parse_fresh", Prepare<ParseFresh>},
    {"parse_reused", Prepare<ParseReused>},
    {"parse_arena", Prepare<ParseArena>},
    {"parse_coded_stream", Prepare<ParseCodedStream>},
    {"copy_reused", Prepare<CopyReused>},
    {"copy_fresh", Prepare<CopyFresh>},
    {"clear_fill", Prepare<ClearFill>},
    {"new_delete", Prepare<NewDelete>},
    {"serialize_as_string", Prepare<SerializeAsString>},
};

class Classes final : public Variant {
 public:
  std::vector<std::string> Roots() const override {
    std::vector<std::string> names;
    for (const Root& root : AllRoots()) names.push_back(root.name);
    return names;
  }

  size_t ObjectSize(const std::string& root) const override {
    return Find(AllRoots(), root).object_size;
  }

  std::string Serialize(const Record& record) const override {
    return Subject(record).bytes;
  }

  std::vector<std::string> Operations() const override {
    std::vector<std::string> names;
    for (const Operation& operation : kOperations) {
      names.emplace_back(operation.name);
    }
    return names;
  }

  std::unique_ptr<Work> Prepare(
      const std::string& operation,
      const std::vector<Record>& records) const override {
    return Find(kOperations, operation).prepare(records);
  }
};

}  // namespace
}  // namespace bench
}  // namespace vantiro

extern "C" const vantiro::bench::Variant* VantiroBenchVariant() {
  static const vantiro::bench::Classes classes;
  return &classes;
}
