// The reader behind ReadRecord.

#ifndef VANTIRO_TOOLS_TREE_READER_H_
#define VANTIRO_TOOLS_TREE_READER_H_

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tools/record_tree.h"

namespace vantiro {
namespace inspection {

class TreeReader {
 public:
  explicit TreeReader(RecordTree* tree)
      : tree_(tree), end_(tree->bytes.size()) {}

  void Read();

 private:
  // What a message has had of a field so far, in all its occurrences.
  struct FieldState {
    bool seen = false;
    // Of a list: its elements, and the capacity that the class's list has by
    // now, on which its misreading of packed blocks depends.
    size_t count = 0;
    size_t capacity = 0;
    // Of a singular message, into which a further occurrence merges.
    std::unique_ptr<std::map<int, FieldState>> sub;
  };
  using MessageState = std::map<int, FieldState>;
  // A field of the path to the position; the descriptor is null for an unknown
  // one.
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
  bool ReadText(FieldState* state, Node* node, bool* is_there);
  bool ReadSingular(FieldState* state, Node* node);
  bool ReadBlock(FieldState* state, Node* node);
  bool ReadFloatBlock(FieldState* state, Node* node);
  bool ReadVarintBlock(FieldState* state, Node* node);
  bool ReadUnpacked(FieldState* state, Node* node, std::vector<Node>* nodes);
  bool ReadElement(Node* node);
  bool ReadUnknown(Node* node, bool* is_there);
  bool ReadFixed(size_t size, Node* node);
  bool ReadGroup(Node* node);

  bool ReadVarint(const char* what, uint64_t* value, Span* span);
  bool ReadLength(Node* node, uint64_t* length);
  bool CheckFits(const char* what, size_t size);
  bool Enter();

  // Whether the packed tag of the node's field stands at the position, with
  // room for an element where that is asked for.
  bool IsAtPackedTag(const Node& node) const;
  bool IsShortest(const Span& span, uint64_t value) const;
  Element MarkedElement(const FieldDescriptor& field, uint64_t bits,
                        const Span& span, bool is_singular) const;
  size_t Left() const { return end_ - position_; }

  bool Fail(size_t offset, const std::string& what);
  std::string Path() const;

  RecordTree* const tree_;
  size_t position_ = 0;
  // Where the innermost message or block ends.
  size_t end_;
  int budget_ = 100;
  std::vector<Step> path_;
};

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_TREE_READER_H_
