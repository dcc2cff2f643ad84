// What the program asks of a variant of the classes. Each variant is a plug-in,
// made from variant.cc and that variant's headers: all have classes of the same
// names, so the program itself knows none of them.

#ifndef VANTIRO_BENCH_VARIANT_H_
#define VANTIRO_BENCH_VARIANT_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vantiro {
namespace bench {

// A record that is made by the generator.
struct Record {
  std::string root;
  bool is_sparse;
  uint32_t seed;
};

// One operation on some records, with all that it needs prepared.
class Work {
 public:
  virtual ~Work() = default;
  // Does it with each record in turn, and all that so many times.
  virtual void Run(int times) = 0;
};

class Variant {
 public:
  virtual ~Variant() = default;
  // The names of the roots, messages that no other message carries.
  virtual std::vector<std::string> Roots() const = 0;
  virtual size_t ObjectSize(const std::string& root) const = 0;
  virtual std::string Serialize(const Record& record) const = 0;
  virtual std::vector<std::string> Operations() const = 0;
  virtual std::unique_ptr<Work> Prepare(
      const std::string& operation,
      const std::vector<Record>& records) const = 0;
};

}  // namespace bench
}  // namespace vantiro

// The one symbol that a plug-in exports.
extern "C" const vantiro::bench::Variant* VantiroBenchVariant();

#endif  // VANTIRO_BENCH_VARIANT_H_
