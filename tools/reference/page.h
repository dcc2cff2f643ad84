// The pages of the reference: a front page, and one for each unit.

#ifndef VANTIRO_TOOLS_REFERENCE_PAGE_H_
#define VANTIRO_TOOLS_REFERENCE_PAGE_H_

#include <google/protobuf/descriptor.h>

#include <string>

#include "tools/schema.h"

namespace vantiro {
namespace reference {

// What every page brings along, so that each stands alone.
struct PageParts {
  std::string style;
  std::string script;
  std::string search_index;
};

std::string FrontPage(const inspection::Schema& schema, const PageParts& parts);
std::string UnitPage(const inspection::Schema& schema,
                     const google::protobuf::FileDescriptor* unit,
                     const PageParts& parts);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_PAGE_H_
