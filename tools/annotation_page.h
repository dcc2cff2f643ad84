// The bytes of a record beside what each of them is, as a page for a browser.

#ifndef VANTIRO_TOOLS_ANNOTATION_PAGE_H_
#define VANTIRO_TOOLS_ANNOTATION_PAGE_H_

#include <ostream>
#include <string>

#include "tools/record_tree.h"

namespace vantiro {
namespace inspection {

// Writes one page that needs nothing else: the fields as a tree that folds, and
// the bytes, in which the field that is pointed at or has the focus lights up,
// and the other way round. Without scripts tags and fields link to each other.
void WriteAnnotationPage(const RecordTree& tree, const std::string& title,
                         std::ostream* out);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_ANNOTATION_PAGE_H_
