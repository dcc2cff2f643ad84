// The roads by which bytes reach a class's parser. Both hand it one piece of
// flat memory, so that all roads behave alike.

#ifndef VANTIRO_LIB_INTERNAL_PARSE_ENTRY_POINTS_H_
#define VANTIRO_LIB_INTERNAL_PARSE_ENTRY_POINTS_H_

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/parse_context.h>

#include "internal/parse_state.h"

namespace vantiro {
namespace internal {

// Behind the runtime's `_InternalParse`, to which its convenience operations
// (ParseFromString, ParseFromArray ...) lead: parses what `context` holds up to
// its limit or its end. Parses in place if all of that lies in one piece,
// otherwise it gathers the blocks first. Tells the context how the parse ended;
// returns null on failure.
//
// After a tag of value 0 in a stream of several blocks without a limit, the
// rest of the stream has been read.
const char* ParseFromContext(google::protobuf::MessageLite* message,
                             FlatParser parser, const char* p,
                             google::protobuf::internal::ParseContext* context);

// Behind the class's MergePartialFromCodedStream: parses what `input` holds up
// to its limit or its end, with the stream's recursion budget, and leaves it as
// after reading a tag: ConsumedEntireMessage tells whether the end was a
// legitimate one. Parses in place if the stream's buffer holds everything,
// otherwise it gathers first.
bool MergeFromCodedStream(google::protobuf::MessageLite* message,
                          FlatParser parser,
                          google::protobuf::io::CodedInputStream* input);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_PARSE_ENTRY_POINTS_H_
