// All the roads by which bytes get into a message and out of it.

#ifndef VANTIRO_TESTS_SUPPORT_ROADS_H_
#define VANTIRO_TESTS_SUPPORT_ROADS_H_

#include <functional>
#include <string>
#include <vector>

#include "tests/support/types.h"

namespace vantiro {
namespace tests {

// A road into a message. A merge gives the parser's own verdict; a parse clears
// the message first and also asks that the bytes ended where a message may end.
struct ReadRoad {
  std::string name;
  bool is_parse;
  std::function<bool(const Type& type, const std::string& bytes,
                     MessageLite* message)>
      read;
};

// How the bytes are given: in one piece, or in blocks of so many bytes; as all
// that there is, or with more behind a limit. Roads that are given the bytes
// alike read alike in everything. Others differ in two points only: how far a
// list looks ahead, and what is kept of a block of floats that is cut off.
struct Given {
  int block;
  bool has_limit;
};

// All roads for bytes given in one of these ways. A block of 0 is one piece.
std::vector<ReadRoad> RoadsFor(Given given);

// What `message` serialises to. Takes all roads, and fails the test if they, or
// ByteSizeLong and GetCachedSize, do not agree.
std::string Serialize(const Type& type, const MessageLite& message);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_ROADS_H_
