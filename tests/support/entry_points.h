// All entry points by which bytes get into a message and out of it.

#ifndef VANTIRO_TESTS_SUPPORT_ENTRY_POINTS_H_
#define VANTIRO_TESTS_SUPPORT_ENTRY_POINTS_H_

#include <string>
#include <vector>

#include "tests/support/types.h"

namespace vantiro {
namespace tests {

// Bytes, and how an entry point is given them.
struct Input {
  std::string bytes;
  // Of the chunks of a stream; 0: the bytes lie in one piece.
  int chunk_size = 0;
  // Whether a limit ends them in a stream that goes on behind.
  bool has_limit = false;
  int recursion_limit = 100;
};

// All the ways to give these bytes.
std::vector<Input> InputsOf(const std::string& bytes);

std::string ToString(const Input& input);

struct Verdict {
  // What a merge returns.
  bool merged;
  // Whether the bytes also ended where a message may end, which a parse asks.
  bool complete;
};

struct EntryPoint {
  const char* name;
  // A parse clears the message first, and tells `complete` only.
  bool is_parse;
  // Fails the test if a stream is left otherwise than it has to be.
  Verdict (*read)(const Type& type, const Input& input, MessageLite* message);
};

// The entry points that take bytes given in this way. They read alike. Bytes
// given in other ways are read otherwise in two points only: how far a repeated
// field looks ahead, and what is kept of packed floats that are cut off.
std::vector<EntryPoint> EntryPointsFor(const Input& input);

// The class's own merge, which takes all inputs.
Verdict Merge(const Type& type, const Input& input, MessageLite* message);

// What `message` serialises to. Uses all entry points, and fails the test if
// they, or ByteSizeLong and GetCachedSize, do not agree.
std::string Serialize(const Type& type, const MessageLite& message);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_ENTRY_POINTS_H_
