// The error of the readers of text and JSON.

#ifndef VANTIRO_TOOLS_FORMATS_FORMAT_ERROR_H_
#define VANTIRO_TOOLS_FORMATS_FORMAT_ERROR_H_

#include <stdexcept>

namespace vantiro {
namespace tools {

// The input is not a record of the type; `what` says where and why.
class FormatError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_FORMAT_ERROR_H_
