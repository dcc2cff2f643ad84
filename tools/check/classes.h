// The library's own classes, by type name.

#ifndef VANTIRO_TOOLS_CHECK_CLASSES_H_
#define VANTIRO_TOOLS_CHECK_CLASSES_H_

#include <google/protobuf/message_lite.h>

#include <memory>
#include <string>

namespace vantiro {
namespace tools {

// A default instance of the class with that full type name; null if there is
// none.
std::unique_ptr<google::protobuf::MessageLite> NewMessage(
    const std::string& type_name);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_CHECK_CLASSES_H_
