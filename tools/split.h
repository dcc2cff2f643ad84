// Records one behind the other, each behind its length as a varint.

#ifndef VANTIRO_TOOLS_SPLIT_H_
#define VANTIRO_TOOLS_SPLIT_H_

#include <optional>
#include <string_view>
#include <vector>

#include "tools/record_tree.h"

namespace vantiro {
namespace inspection {

struct SplitStream {
  // Where the records are, without their lengths.
  std::vector<Span> records;
  // Why the stream ends before its bytes do.
  std::optional<Fault> fault;
};

SplitStream Split(std::string_view bytes);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_SPLIT_H_
