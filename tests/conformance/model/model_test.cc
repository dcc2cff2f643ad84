// The model says what the reference said.

#include <gtest/gtest.h>

#include "tests/conformance/model/wire_model.h"
#include "tests/support/bytes.h"
#include "tests/support/vectors.h"

namespace vantiro {
namespace tests {
namespace {

TEST(WireModel, GivesTheReferenceResult) {
  int held = 0;
  for (const Vector& vector : AllVectors()) {
    if (vector.op != "merge" && vector.op != "chunk" && vector.op != "parse") {
      continue;
    }
    SCOPED_TRACE(vector.id + " (" + vector.kind + ") " + vector.type_name +
                 "\n  a: " + ToHex(vector.a));
    ModelMessage message(FindMessageModel(vector.type_name));
    const ModelVerdict verdict = MergeModel(
        {vector.a, static_cast<size_t>(vector.block), false}, &message);
    EXPECT_EQ(vector.op == "parse" ? verdict.ended_well : verdict.merged,
              vector.ok);
    if (vector.has_out) {
      EXPECT_EQ(ToHex(message.Serialize()), ToHex(vector.out));
    }
    ++held;
  }
  EXPECT_GT(held, 4000);
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
