// The pages of the reference: a front page, and one for each unit.

#ifndef VANTIRO_TOOLS_REFERENCE_PAGE_H_
#define VANTIRO_TOOLS_REFERENCE_PAGE_H_

#include <google/protobuf/descriptor.h>

#include <string>

#include "tools/schema/schema.h"

namespace vantiro {
namespace reference {

// The parts that every page contains, so that it needs no other file.
struct PageParts {
  std::string style;
  std::string script;
  std::string search_index;
};

std::string FrontPage(const tools::Schema& schema, const PageParts& parts);
std::string UnitPage(const tools::Schema& schema,
                     const google::protobuf::FileDescriptor* unit,
                     const PageParts& parts);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_PAGE_H_
