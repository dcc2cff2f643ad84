// The library's own classes, by the names of their types.

#ifndef VANTIRO_TOOLS_CLASSES_H_
#define VANTIRO_TOOLS_CLASSES_H_

#include <google/protobuf/message_lite.h>

#include <memory>
#include <string>

namespace vantiro {
namespace inspection {

// An empty object of the class of that full type name; null if there is none.
std::unique_ptr<google::protobuf::MessageLite> NewMessage(
    const std::string& type_name);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_CLASSES_H_
