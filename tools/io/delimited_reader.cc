#include "tools/io/delimited_reader.h"

#include <algorithm>

#include "tools/wire/wire_reader.h"

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kChunkSize = size_t{1} << 20;

}  // namespace

bool DelimitedReader::Read(std::string* record) {
  record->clear();
  const size_t begin = offset_;
  size_t length;
  if (fault_.has_value() || !ReadLength(&length)) return false;
  while (record->size() < length) {
    const size_t size = record->size();
    record->resize(size + std::min(kChunkSize, length - size));
    stream_.read(&(*record)[size],
                 static_cast<std::streamsize>(record->size() - size));
    record->resize(size + static_cast<size_t>(stream_.gcount()));
    if (stream_.good()) continue;
    if (record->size() == length) break;
    fault_ = Fault{begin, "",
                   "the record needs " + ByteCount(length) + ", " +
                       std::to_string(record->size()) + " left"};
    return false;
  }
  offset_ += length;
  return true;
}

bool DelimitedReader::ReadLength(size_t* length) {
  std::string bytes;
  while (bytes.size() < kMaxVarintSize) {
    const int byte = stream_.get();
    if (byte == std::istream::traits_type::eof()) break;
    bytes += static_cast<char>(byte);
    if (byte < 0x80) break;
  }
  if (bytes.empty()) return false;
  WireReader reader(bytes);
  Varint varint;
  if (!reader.ReadVarint(&varint) || varint.is_truncated) {
    fault_ = Fault{offset_, "", "the length is not a valid varint"};
    return false;
  }
  offset_ += bytes.size();
  *length = varint.value;
  return true;
}

}  // namespace tools
}  // namespace vantiro
