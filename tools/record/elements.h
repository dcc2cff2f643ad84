// Paths that follow the elements of a repeated field.

#ifndef VANTIRO_TOOLS_RECORD_ELEMENTS_H_
#define VANTIRO_TOOLS_RECORD_ELEMENTS_H_

#include <functional>
#include <string>
#include <vector>

#include "tools/record/path.h"
#include "tools/record/record.h"

namespace vantiro {
namespace tools {

// A path to a repeated field, and paths to what is shown for each element of
// it. As far as one of these has the same steps, without an index of its own,
// it leads to the element, or to the messages around the element; other paths
// lead to the same in each row.
class ElementPaths {
 public:
  // Without `texts` the element itself is shown. Throws a NameError if one of
  // the paths exists in none of `types`, or if `each` leads to no repeated
  // field.
  ElementPaths(const std::string& each, std::vector<std::string> texts,
               const std::vector<const Descriptor*>& types);

  // The paths without indexes of an element.
  const Paths& paths() const { return paths_; }

  // Visits each element in `record`: its path, as in "a.b[2]", and the paths
  // that lead to it.
  using Visitor =
      std::function<void(const std::string& element, const Paths& paths)>;
  void Visit(const Record& record, const Visitor& visit) const;

 private:
  Paths each_;
  Paths paths_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_ELEMENTS_H_
