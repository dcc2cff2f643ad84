// The two sets of classes as the benchmark sees them.

#ifndef VANTIRO_BENCH_CLASSES_H_
#define VANTIRO_BENCH_CLASSES_H_

#include <google/protobuf/message_lite.h>

#include <vector>

namespace vantiro {
namespace bench {

using google::protobuf::Arena;
using google::protobuf::MessageLite;

// One class of a set. The records are named after `name`.
struct Class {
  const char* name;
  MessageLite* (*create)(Arena* arena);
  void (*copy_from)(MessageLite* to, const MessageLite& from);
  // Fills a cleared message through its accessors; null for most classes.
  void (*fill)(MessageLite* message);
};

// The same classes in the same order.
std::vector<Class> OurClasses();
std::vector<Class> StockClasses();

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_CLASSES_H_
