// The bytes of a record beside what each of them is.

#ifndef VANTIRO_TOOLS_ANNOTATION_H_
#define VANTIRO_TOOLS_ANNOTATION_H_

#include <ostream>

#include "tools/record_tree.h"
#include "tools/style.h"

namespace vantiro {
namespace inspection {

// Writes every byte once, in its order: the offset, the bytes with two spaces
// between tag, length and value, and the field, indented by its depth, with its
// marks behind "<-". What a damaged record could not be read of comes last.
void WriteAnnotation(const RecordTree& tree, const Style& style,
                     std::ostream* out);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_ANNOTATION_H_
