#include "tools/check/classes.h"

#include <map>

#include "class_list.inc"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::MessageLite;
using Create = MessageLite* (*)();

template <typename T>
void Add(std::map<std::string, Create>* classes) {
  classes->emplace(T::default_instance().GetTypeName(),
                   []() -> MessageLite* { return new T; });
}

}  // namespace

std::unique_ptr<MessageLite> NewMessage(const std::string& type_name) {
  static const auto* const classes = [] {
    auto* const all = new std::map<std::string, Create>;
#define VANTIRO_CLASS(type) Add<type>(all);
#include "class_list.inc"
#undef VANTIRO_CLASS
    return all;
  }();
  const auto found = classes->find(type_name);
  return std::unique_ptr<MessageLite>(
      found == classes->end() ? nullptr : found->second());
}

}  // namespace tools
}  // namespace vantiro
