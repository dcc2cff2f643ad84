// Whole records: those that others wrote, and those that the demo fills.

#ifndef VANTIRO_EXAMPLES_DEMO_RECORDS_H_
#define VANTIRO_EXAMPLES_DEMO_RECORDS_H_

#include <string>

#include "examples/demo/checks.h"

namespace vantiro::examples {

// Reads the reference records.
void ShowReferenceRecords(Checks* checks);

// Fills the three debug records, writes them to `folder` and reads them.
void ShowOwnRecords(const std::string& folder, Checks* checks);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_DEMO_RECORDS_H_
