// Merges bytes into a message in the words that every runtime has had: 3.9 does
// not promise MergeFromString.

#ifndef VANTIRO_TESTS_SUPPORT_MERGE_H_
#define VANTIRO_TESTS_SUPPORT_MERGE_H_

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/message_lite.h>

#include <cstdint>
#include <string>

namespace vantiro {
namespace tests {

inline bool MergeBytes(const std::string& bytes,
                       google::protobuf::MessageLite* message) {
  google::protobuf::io::CodedInputStream input(
      reinterpret_cast<const uint8_t*>(bytes.data()),
      static_cast<int>(bytes.size()));
  return message->MergeFromCodedStream(&input) && input.ConsumedEntireMessage();
}

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_MERGE_H_
