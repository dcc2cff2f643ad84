#include "internal/unknown_field.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include "internal/varint.h"

namespace vantiro {
namespace internal {

using google::protobuf::internal::WireFormatLite;

const uint8_t* UnknownFieldReader::Read(uint32_t tag, const uint8_t* p) {
  if (WireFormatLite::GetTagFieldNumber(tag) == 0) return nullptr;
  switch (WireFormatLite::GetTagWireType(tag)) {
    case WireFormatLite::WIRETYPE_VARINT:
      return ReadVarintValue(tag, p);
    case WireFormatLite::WIRETYPE_FIXED64:
      return ReadFixed(tag, p, 8);
    case WireFormatLite::WIRETYPE_LENGTH_DELIMITED:
      return ReadLengthDelimited(tag, p);
    case WireFormatLite::WIRETYPE_START_GROUP:
      return ReadGroup(tag, p);
    case WireFormatLite::WIRETYPE_FIXED32:
      return ReadFixed(tag, p, 4);
    default:
      return nullptr;
  }
}

const uint8_t* UnknownFieldReader::ReadVarintValue(uint32_t tag,
                                                   const uint8_t* p) {
  const Varint varint = ReadVarint(p, end_);
  if (varint.next == nullptr) return nullptr;
  AppendVarint(tag);
  AppendVarint(varint.value);
  return varint.next;
}

const uint8_t* UnknownFieldReader::ReadFixed(uint32_t tag, const uint8_t* p,
                                             int size) {
  if (end_ - p < size) return nullptr;
  AppendVarint(tag);
  AppendRaw(p, size);
  return p + size;
}

const uint8_t* UnknownFieldReader::ReadLengthDelimited(uint32_t tag,
                                                       const uint8_t* p) {
  ptrdiff_t length;
  p = ReadLength(p, end_, &length);
  if (p == nullptr || length > end_ - p) return nullptr;
  AppendVarint(tag);
  AppendVarint(static_cast<uint64_t>(length));
  AppendRaw(p, length);
  return p + length;
}

const uint8_t* UnknownFieldReader::ReadGroup(uint32_t tag, const uint8_t* p) {
  AppendVarint(tag);
  if (--*recursion_budget_ < 0) return nullptr;
  while (true) {
    const Varint inner = ReadVarint(p, end_);
    const auto inner_tag = static_cast<uint32_t>(inner.value);
    if (inner.next == nullptr || inner_tag == 0) return nullptr;
    p = inner.next;
    if (WireFormatLite::GetTagWireType(inner_tag) ==
        WireFormatLite::WIRETYPE_END_GROUP) {
      // A mismatched end-group tag fails, but is kept with the group's bytes.
      AppendVarint(inner_tag);
      if (WireFormatLite::GetTagFieldNumber(inner_tag) !=
          WireFormatLite::GetTagFieldNumber(tag)) {
        return nullptr;
      }
      ++*recursion_budget_;
      return p;
    }
    p = Read(inner_tag, p);
    if (p == nullptr) return nullptr;
  }
}

void UnknownFieldReader::AppendVarint(uint64_t value) {
  uint8_t buffer[kMaxVarintSize];
  const uint8_t* const end =
      google::protobuf::io::CodedOutputStream::WriteVarint64ToArray(value,
                                                                    buffer);
  AppendRaw(buffer, end - buffer);
}

void UnknownFieldReader::AppendRaw(const uint8_t* data, ptrdiff_t size) {
  metadata_->mutable_unknown_fields<std::string>()->append(
      reinterpret_cast<const char*>(data), static_cast<size_t>(size));
}

}  // namespace internal
}  // namespace vantiro
