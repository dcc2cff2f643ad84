// One small record: filled, written, read, merged, copied and cleared.

#ifndef VANTIRO_EXAMPLES_DEMO_FIRST_STEPS_H_
#define VANTIRO_EXAMPLES_DEMO_FIRST_STEPS_H_

#include "examples/demo/checks.h"

namespace vantiro::examples {

void ShowFirstSteps(Checks* checks);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_DEMO_FIRST_STEPS_H_
