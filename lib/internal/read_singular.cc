#include "internal/read_singular.h"

#include <string>

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::Arena;
using google::protobuf::internal::ArenaStringPtr;
using google::protobuf::internal::WireFormatLite;

constexpr uint64_t kNonAscii = 0x8080808080808080u;

bool IsAscii(const std::string& value) {
  const char* p = value.data();
  const char* const end = p + value.size();
  for (; end - p >= 8; p += 8) {
    uint64_t eight;
    std::memcpy(&eight, p, sizeof(eight));
    if ((eight & kNonAscii) != 0) return false;
  }
  for (; p != end; ++p) {
    if ((static_cast<uint8_t>(*p) & 0x80) != 0) return false;
  }
  return true;
}

}  // namespace

const uint8_t* ReadBytes(const uint8_t* p, const uint8_t* end,
                         ArenaStringPtr* field, Arena* arena) {
  ptrdiff_t length;
  p = ReadLength(p, end, &length);
  if (p == nullptr || length > end - p) return nullptr;
  field->MutableNoCopy(arena)->assign(reinterpret_cast<const char*>(p),
                                      static_cast<size_t>(length));
  return p + length;
}

const uint8_t* ReadString(const uint8_t* p, const uint8_t* end,
                          ArenaStringPtr* field, Arena* arena,
                          const char* path) {
  p = ReadBytes(p, end, field, arena);
  if (p == nullptr) return nullptr;
  return CheckUtf8(field->Get(), WireFormatLite::PARSE, path) ? p : nullptr;
}

const uint8_t* ReadBytes(const uint8_t* p, const uint8_t* end,
                         std::string* element) {
  ptrdiff_t length;
  p = ReadLength(p, end, &length);
  if (p == nullptr || length > end - p) return nullptr;
  element->assign(reinterpret_cast<const char*>(p),
                  static_cast<size_t>(length));
  return p + length;
}

const uint8_t* ReadString(const uint8_t* p, const uint8_t* end,
                          std::string* element, const char* path) {
  p = ReadBytes(p, end, element);
  if (p == nullptr) return nullptr;
  return CheckUtf8(*element, WireFormatLite::PARSE, path) ? p : nullptr;
}

void ReadTruncatedMessage(const uint8_t* p, const uint8_t* end,
                          ptrdiff_t length, FlatParser parser,
                          google::protobuf::MessageLite* message,
                          ParseState* state) {
  state->bounds.EnterTruncatedMessage(state->recursion_budget,
                                      length - (end - p));
  parser(message, p, end, state);
}

bool CheckUtf8(const std::string& value, WireFormatLite::Operation operation,
               const char* path) {
  return IsAscii(value) ||
         WireFormatLite::VerifyUtf8String(
             value.data(), static_cast<int>(value.size()), operation, path);
}

}  // namespace internal
}  // namespace vantiro
