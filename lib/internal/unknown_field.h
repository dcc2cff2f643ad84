// Reading the fields that a message does not declare, and keeping their bytes.

#ifndef VANTIRO_LIB_INTERNAL_UNKNOWN_FIELD_H_
#define VANTIRO_LIB_INTERNAL_UNKNOWN_FIELD_H_

#include <google/protobuf/metadata_lite.h>

#include <cstdint>
#include <string>

namespace vantiro {
namespace internal {

// Reads unknown fields and appends them to a message's unknown fields: tags,
// varints and lengths in their shortest encoding, groups with everything in
// them. Of a group that fails, what was read before the failure is kept.
class UnknownFieldReader {
 public:
  // Reads up to `end`. Each group takes a level of `*recursion_budget`.
  UnknownFieldReader(const uint8_t* end,
                     google::protobuf::internal::InternalMetadata* metadata,
                     int* recursion_budget)
      : end_(end), metadata_(metadata), recursion_budget_(recursion_budget) {}

  // Reads the field with the tag `tag`, whose value starts at `p`. Returns the
  // position after it. Returns null for field number 0, for an end-group tag,
  // for wire types 6 and 7, and for a value that the input truncates.
  const uint8_t* Read(uint32_t tag, const uint8_t* p);

 private:
  const uint8_t* ReadVarintValue(uint32_t tag, const uint8_t* p);
  const uint8_t* ReadFixed(uint32_t tag, const uint8_t* p, int size);
  const uint8_t* ReadLengthDelimited(uint32_t tag, const uint8_t* p);
  const uint8_t* ReadGroup(uint32_t tag, const uint8_t* p);

  void AppendVarint(uint64_t value);
  void AppendRaw(const uint8_t* data, ptrdiff_t size);

  const uint8_t* const end_;
  google::protobuf::internal::InternalMetadata* const metadata_;
  int* const recursion_budget_;
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_UNKNOWN_FIELD_H_
