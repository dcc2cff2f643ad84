// The two entry points through which bytes reach a class's parser. Both give it
// flat memory, so that they behave alike.

#ifndef VANTIRO_LIB_INTERNAL_PARSE_ENTRY_POINTS_H_
#define VANTIRO_LIB_INTERNAL_PARSE_ENTRY_POINTS_H_

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/parse_context.h>

#include "internal/parse_state.h"

namespace vantiro {
namespace internal {

// The implementation of `_InternalParse`, which the runtime's operations
// (ParseFromString, ParseFromArray ...) call: parses the input of `context` up
// to its limit or its end. Parses in place if all of it lies in one piece,
// otherwise flattens its chunks first. Tells the context how the parse ended.
// Returns null on failure.
//
// After a tag of value 0 in a stream of several chunks without a limit, the
// rest of the stream has been read.
const char* ParseFromContext(google::protobuf::MessageLite* message,
                             FlatParser parser, const char* p,
                             google::protobuf::internal::ParseContext* context);

// The implementation of MergePartialFromCodedStream: parses `input` up to its
// limit or its end, with the stream's recursion budget, and leaves the stream
// as after reading a tag: ConsumedEntireMessage tells whether the end was a
// legitimate one. Parses in place if the stream's buffer holds everything,
// otherwise flattens its chunks first.
bool MergeFromCodedStream(google::protobuf::MessageLite* message,
                          FlatParser parser,
                          google::protobuf::io::CodedInputStream* input);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_PARSE_ENTRY_POINTS_H_
