// The reference vectors of tests/data/vectors.tsv.

#ifndef VANTIRO_TESTS_SUPPORT_VECTORS_H_
#define VANTIRO_TESTS_SUPPORT_VECTORS_H_

#include <string>
#include <vector>

namespace vantiro {
namespace tests {

// One line of the file, whose head tells what the columns mean.
struct Vector {
  std::string id;
  std::string kind;
  std::string op;
  std::string type_name;
  // 0: in one piece.
  int chunk_size;
  bool ok;
  std::string a;
  bool has_b;
  std::string b;
  // Whether the state afterwards can be relied on.
  bool has_out;
  std::string out;
  bool has_out2;
  std::string out2;
};

const std::vector<Vector>& AllVectors();

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_VECTORS_H_
