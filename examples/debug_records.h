// The three debug records: filled on the heap and on an arena, written to
// files, and read beside the reference records.

#ifndef VANTIRO_EXAMPLES_DEBUG_RECORDS_H_
#define VANTIRO_EXAMPLES_DEBUG_RECORDS_H_

#include <string>

#include "examples/checks.h"

namespace vantiro::examples {

// Writes the records to `folder`.
void ShowDebugRecords(const std::string& folder, Checks* checks);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_DEBUG_RECORDS_H_
