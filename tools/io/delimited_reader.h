// Reads a stream of records, each after its length as a varint, record by
// record.

#ifndef VANTIRO_TOOLS_IO_DELIMITED_READER_H_
#define VANTIRO_TOOLS_IO_DELIMITED_READER_H_

#include <cstddef>
#include <istream>
#include <optional>
#include <string>

#include "tools/wire/fault.h"

namespace vantiro {
namespace tools {

class DelimitedReader {
 public:
  // `stream` has to outlive it.
  explicit DelimitedReader(std::istream* stream) : stream_(*stream) {}

  // Reads the next record, without its length. False at the end of the stream
  // or at a fault. Memory grows with what is in the stream, not with what a
  // length says.
  bool Read(std::string* record);

  // Why the rest of the stream cannot be read.
  const std::optional<Fault>& fault() const { return fault_; }

 private:
  // False if the stream ends before a length, or in it.
  bool ReadLength(size_t* length);

  std::istream& stream_;
  size_t offset_ = 0;
  std::optional<Fault> fault_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_DELIMITED_READER_H_
