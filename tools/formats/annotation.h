// The bytes of a record, each next to the field to which it belongs.

#ifndef VANTIRO_TOOLS_FORMATS_ANNOTATION_H_
#define VANTIRO_TOOLS_FORMATS_ANNOTATION_H_

#include <ostream>

#include "tools/formats/style.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {

// Writes every byte once, in order: the offset, the bytes with two spaces
// between tag, length and value, and the field, indented by its depth, with its
// encoding flags after "<-". The part of a damaged record that could not be
// read comes last.
void WriteAnnotation(const RecordTree& tree, const Style& style,
                     std::ostream* out);

// Writes a line of JSON for each occurrence of a field, in the order of the
// bytes, and for a damaged record a last one with the fault and the bytes that
// could not be read.
void WriteAnnotationJson(const RecordTree& tree, std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_ANNOTATION_H_
