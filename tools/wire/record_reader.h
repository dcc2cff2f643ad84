// Reads a record as the class of its type parses it from memory.

#ifndef VANTIRO_TOOLS_WIRE_RECORD_READER_H_
#define VANTIRO_TOOLS_WIRE_RECORD_READER_H_

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/wire/fault.h"
#include "tools/wire/occurrence.h"
#include "tools/wire/wire_reader.h"

namespace vantiro {
namespace tools {

// What is told of a record while it is read, in the order of its bytes. A
// sub-message, packed run or group that contains a fault is there with the part
// that could be read; a string that is not UTF-8 is there too; any other field
// that could not be read is not.
class RecordVisitor {
 public:
  virtual ~RecordVisitor() = default;

  // A sub-message, group or packed run begins, with what is known by then; what
  // is in it comes before its End, which has all. A packed run has the flags of
  // its elements only at its end.
  virtual void Begin(const Occurrence& occurrence) = 0;
  virtual void End(const Occurrence& occurrence) = 0;
  virtual void AddElement(const Element& element) = 0;
  // Another field. The element is null for a string, bytes, and other
  // length-delimited unknown fields.
  virtual void Add(const Occurrence& occurrence, const Element* element) = 0;

 protected:
  RecordVisitor() = default;
  RecordVisitor(const RecordVisitor&) = default;
  RecordVisitor& operator=(const RecordVisitor&) = default;
};

// With the same result and the same values as the class has, also where the
// class reads a packed run after an unpacked element as one element. Nesting is
// limited to 100 levels.
class RecordReader {
 public:
  // `bytes` and `visitor` have to outlive it.
  RecordReader(std::string_view bytes, RecordVisitor* visitor)
      : bytes_(bytes), visitor_(*visitor), reader_(bytes) {}

  // Why the rest could not be read.
  std::optional<Fault> Read(const Descriptor& type);

 private:
  struct FieldState;
  // By the index of the field in its type.
  using MessageState = std::vector<FieldState>;
  // What was read of a field of a message so far, in all its occurrences.
  struct FieldState {
    bool is_seen = false;
    // In a repeated field: its elements, and the capacity that the class has
    // allocated for them, on which its look-ahead for packed runs depends.
    size_t count = 0;
    size_t capacity = 0;
    // In a singular message, with which further occurrences are merged.
    MessageState* sub = nullptr;
  };
  // A step of the path to the position; the descriptor of an unknown field is
  // null.
  struct Step {
    const FieldDescriptor* field;
    int number;
    size_t index;
  };

  // These return false after a fault.
  bool ReadFields(const Descriptor& type, MessageState* state);
  bool ReadTag(Occurrence* field);
  bool ReadKnown(FieldState* state, Occurrence* field);
  bool ReadMessage(FieldState* state, Occurrence* field);
  bool ReadString(FieldState* state, Occurrence* field);
  bool ReadSingular(FieldState* state, Occurrence* field);
  bool ReadPacked(FieldState* state, Occurrence* field);
  bool ReadPackedFloats(FieldState* state, Occurrence* field);
  bool ReadPackedVarints(FieldState* state, Occurrence* field);
  bool ReadVarintsOfRun(FieldState* state, Occurrence* field, bool is_whole);
  bool ReadUnpacked(FieldState* state, Occurrence* field);
  bool ReadOneElement(Occurrence* field);
  bool ReadElement(const FieldDescriptor& field, Element* element);
  bool ReadUnknown(Occurrence* field);
  bool ReadUnknownVarint(Occurrence* field);
  bool AddUnknown(uint64_t bits, Occurrence* field);
  bool ReadGroup(Occurrence* field);

  bool ReadLength(Occurrence* field, uint64_t* length);
  bool CheckFits(const char* what, size_t size);
  bool Enter();

  // The state of a message of which nothing was read; to be returned with its
  // sub-messages'.
  MessageState* TakeState(const Descriptor& type);
  void ReturnState(MessageState* state);

  // Whether the packed tag of the field comes next, followed by as many bytes
  // as the class asks for before it reads an element.
  bool IsAtPackedTag(const FieldDescriptor& field) const;
  Span SpanFrom(size_t offset) const {
    return {offset, reader_.offset() - offset};
  }

  // These return false.
  bool Fail(size_t offset, const std::string& what);
  bool FailVarint(const char* what);
  bool FailCutOff(const char* what, size_t size, size_t left);
  std::string Path() const;

  const std::string_view bytes_;
  RecordVisitor& visitor_;
  WireReader reader_;
  std::optional<Fault> fault_;
  int depth_budget_ = 100;
  std::vector<Step> path_;
  // All states, and those that are not used at present.
  std::deque<MessageState> states_;
  std::vector<MessageState*> free_states_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_RECORD_READER_H_
