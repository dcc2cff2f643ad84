// One record filled, looked at byte by byte, read back, merged and copied.

#ifndef VANTIRO_EXAMPLES_FIRST_STEPS_H_
#define VANTIRO_EXAMPLES_FIRST_STEPS_H_

#include "examples/checks.h"

namespace vantiro::examples {

void ShowFirstSteps(Checks* checks);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_FIRST_STEPS_H_
