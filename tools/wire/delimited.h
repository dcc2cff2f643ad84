// A stream of records, each after its length as a varint.

#ifndef VANTIRO_TOOLS_WIRE_DELIMITED_H_
#define VANTIRO_TOOLS_WIRE_DELIMITED_H_

#include <optional>
#include <string_view>
#include <vector>

#include "tools/wire/fault.h"

namespace vantiro {
namespace tools {

struct DelimitedStream {
  // The records, without their lengths.
  std::vector<Span> records;
  // Why the rest of the stream could not be read.
  std::optional<Fault> fault;
};

DelimitedStream ReadDelimited(std::string_view bytes);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_DELIMITED_H_
