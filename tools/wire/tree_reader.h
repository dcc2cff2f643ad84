// The implementation of ReadRecord.

#ifndef VANTIRO_TOOLS_WIRE_TREE_READER_H_
#define VANTIRO_TOOLS_WIRE_TREE_READER_H_

#include <memory>
#include <string>
#include <vector>

#include "tools/wire/flat_map.h"
#include "tools/wire/record_tree.h"
#include "tools/wire/wire_reader.h"

namespace vantiro {
namespace tools {

class TreeReader {
 public:
  explicit TreeReader(RecordTree* tree) : tree_(tree), reader_(tree->bytes) {}

  void Read();

 private:
  // What was read of a field of a message so far, in all its occurrences.
  struct FieldState {
    bool seen = false;
    // In a repeated field: its elements, and the capacity that the class has
    // allocated for them, on which its look-ahead for packed runs depends.
    size_t count = 0;
    size_t capacity = 0;
    // In a singular message, with which further occurrences are merged.
    std::unique_ptr<FlatMap<FieldState>> sub;
  };
  using MessageState = FlatMap<FieldState>;
  // A step of the path to the position; the descriptor of an unknown field is
  // null.
  struct Step {
    const FieldDescriptor* field;
    int number;
    size_t index;
  };

  // These return false after a fault.
  bool ReadFields(const Descriptor& type, MessageState* state,
                  std::vector<Node>* nodes);
  bool ReadTag(Node* node);
  bool ReadKnown(FieldState* state, Node* node, std::vector<Node>* nodes);
  bool ReadMessage(FieldState* state, Node* node);
  bool ReadString(FieldState* state, Node* node, bool* is_there);
  bool ReadSingular(FieldState* state, Node* node);
  bool ReadPacked(FieldState* state, Node* node);
  bool ReadPackedFloats(FieldState* state, Node* node);
  bool ReadPackedVarints(FieldState* state, Node* node);
  bool ReadUnpacked(FieldState* state, Node* node, std::vector<Node>* nodes);
  bool ReadElement(Node* node);
  bool ReadUnknown(Node* node, bool* is_there);
  bool ReadUnknownVarint(Node* node);
  bool AddUnknown(uint64_t bits, Node* node);
  bool ReadGroup(Node* node);

  bool ReadLength(Node* node, uint64_t* length);
  bool CheckFits(const char* what, size_t size);
  bool Enter();

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

  RecordTree* const tree_;
  WireReader reader_;
  int depth_budget_ = 100;
  std::vector<Step> path_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_TREE_READER_H_
