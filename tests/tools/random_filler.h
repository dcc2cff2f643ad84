// Fills messages with random values.

#ifndef VANTIRO_TESTS_TOOLS_RANDOM_FILLER_H_
#define VANTIRO_TESTS_TOOLS_RANDOM_FILLER_H_

#include <google/protobuf/message.h>

#include <cstdint>
#include <random>
#include <string>

namespace vantiro {
namespace tools {

class RandomFiller {
 public:
  enum Values {
    // As records have them.
    kPlausible,
    // Of the whole range of their types, often at its limits.
    kExtreme,
  };

  RandomFiller(std::mt19937::result_type seed, Values values)
      : random_(seed), is_extreme_(values == kExtreme) {}

  // Sets about two of three fields.
  void Fill(google::protobuf::Message* message);

 private:
  int Number(int below);
  uint64_t Bits();
  float Float();
  std::string String(bool is_utf8);
  void Set(const google::protobuf::FieldDescriptor& field,
           google::protobuf::Message* message);

  std::mt19937 random_;
  const bool is_extreme_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TESTS_TOOLS_RANDOM_FILLER_H_
