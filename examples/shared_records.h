// Reads the reference records of the vocabulary that exposure and white balance
// share.

#ifndef VANTIRO_EXAMPLES_SHARED_RECORDS_H_
#define VANTIRO_EXAMPLES_SHARED_RECORDS_H_

#include "examples/checks.h"

namespace vantiro::examples {

void ShowSharedRecords(Checks* checks);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_SHARED_RECORDS_H_
