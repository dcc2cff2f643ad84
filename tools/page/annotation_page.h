// The fields and bytes of a record as an HTML page.

#ifndef VANTIRO_TOOLS_PAGE_ANNOTATION_PAGE_H_
#define VANTIRO_TOOLS_PAGE_ANNOTATION_PAGE_H_

#include <ostream>
#include <string>

#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {

// Writes a page that needs no other file: the fields as a tree that can be
// folded, and the bytes. Pointing at a field, or moving the focus to it,
// highlights its bytes, and the other way round. Without JavaScript, fields and
// bytes link to each other.
void WriteAnnotationPage(const RecordTree& tree, const std::string& title,
                         std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PAGE_ANNOTATION_PAGE_H_
