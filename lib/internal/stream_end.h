// The end of the space of the runtime's output stream.
//
// The runtime keeps it in a private member. The alternatives are to copy every
// byte through a buffer of our own, or to ask the stream for space before every
// few bytes. Both are slower. Only this file names the member.
//
// This is valid C++: explicit template instantiations may name private members
// ([temp.spec]/6). The compiler checks the member's name and type, and the
// access is an ordinary one through a pointer to member. The member's meaning
// is fixed by the runtime's version: the emitted headers refuse all but 3.21.
// Writing.StaleSizes* tests the meaning: all bytes before `end` may be
// written. For an array these are all its bytes, for a stream all but the last
// 16 of its chunk, which the runtime keeps for itself.

#ifndef VANTIRO_LIB_INTERNAL_STREAM_END_H_
#define VANTIRO_LIB_INTERNAL_STREAM_END_H_

#include <google/protobuf/io/coded_stream.h>

#include <cstdint>

namespace vantiro {
namespace internal {

struct StreamEndMember {
  using Type = uint8_t* google::protobuf::io::EpsCopyOutputStream::*;
  friend constexpr Type MemberOf(StreamEndMember /*tag*/);
};

// Its instantiation defines MemberOf.
template <typename Tag, typename Tag::Type kMember>
struct NameMember {
  friend constexpr typename Tag::Type MemberOf(Tag /*tag*/) { return kMember; }
};
template struct NameMember<StreamEndMember,
                           &google::protobuf::io::EpsCopyOutputStream::end_>;

inline const uint8_t* StreamEnd(
    const google::protobuf::io::EpsCopyOutputStream& stream) {
  return stream.*MemberOf(StreamEndMember());
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_STREAM_END_H_
