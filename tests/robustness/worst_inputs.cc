#include "tests/robustness/worst_inputs.h"

#include "tests/conformance/model/encoding.h"
#include "tests/support/allocations.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

// One more than storage that doubles has space for.
constexpr int kCount = 4097;
// Greater than all that are declared, and two bytes as a tag.
constexpr int kUndeclared = 1000;
// The array of element pointers that a first element brings.
constexpr size_t kFirstPointers = 40;

std::string Repeat(const std::string& bytes, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += bytes;
  return all;
}

// The content of a message, and what it and all below it take in memory.
struct Tree {
  std::string bytes;
  size_t held;
  double DensityAs(int number) const {
    return static_cast<double>(held) /
           static_cast<double>(Delimited(number, bytes).size());
  }
};

// A message with each sub-message, and one element in each repeated field of
// messages, that takes at least `density` times its own bytes of memory.
Tree DenseTree(const Type& type, double density) {
  const size_t before = HeldBytes();
  const Owned message = type.New();
  Tree tree = {"", HeldBytes() - before};
  for (const auto& [number, field] : type.fields) {
    if (field.kind != Kind::MESSAGE) continue;
    Tree child = DenseTree(*field.type, density);
    if (field.is_repeated) child.held += kFirstPointers;
    if (child.DensityAs(number) < density) continue;
    tree.bytes += Delimited(number, child.bytes);
    tree.held += child.held;
  }
  return tree;
}

// The element that takes the most for its bytes: the density that pays is the
// one that it has itself.
std::string DensestElement(const Field& field) {
  Tree densest = {"", 0};
  while (true) {
    const double density = densest.DensityAs(field.number);
    const Tree tree = DenseTree(*field.type, density);
    if (tree.DensityAs(field.number) <= density) return densest.bytes;
    densest = tree;
  }
}

void AddInputsOf(const Field& field, std::vector<NamedInput>* inputs) {
  const int number = field.number;
  const auto add = [&](const char* what, const std::string& bytes) {
    inputs->push_back({std::string(field.name) + ", " + what, bytes});
  };
  if (field.kind == Kind::MESSAGE) {
    if (!field.is_repeated) return;
    add("empty elements", Repeat(Delimited(number, ""), kCount));
    add("dense elements",
        Repeat(Delimited(number, DensestElement(field)), kCount));
  } else if (TypeOf(field.kind) == kDelimited) {
    add("string", Delimited(number, std::string(kCount, 'a')));
  } else if (field.is_repeated) {
    const std::string element = Element(field.kind, 1);
    add("packed elements", Delimited(number, Repeat(element, kCount - 1)) +
                               Delimited(number, element));
    add("unpacked elements",
        Repeat(Tag(number, TypeOf(field.kind)) + element, kCount));
  }
}

}  // namespace

std::vector<NamedInput> WorstInputs(const Type& type) {
  constexpr int kLevels = 90;
  const std::string varint = Tag(kUndeclared, kVarint) + "\1";
  const std::string groups = Repeat(Tag(kUndeclared, kStartGroup), kLevels) +
                             varint +
                             Repeat(Tag(kUndeclared, kEndGroup), kLevels);
  std::vector<NamedInput> inputs = {
      {"all sub-messages, empty", DenseTree(type, 0).bytes},
      {"unknown varints", Repeat(varint, kCount)},
      {"unknown groups", Repeat(groups, kCount / kLevels)},
  };
  for (const auto& [number, field] : type.fields) AddInputsOf(field, &inputs);
  return inputs;
}

std::vector<NamedInput> FalseLengths(const Type& type) {
  std::vector<NamedInput> inputs;
  // The greatest, and two that are allowed for floats.
  for (const uint64_t length : {0x7fffffffu, 0x7ffffffcu, 0x00fffffcu}) {
    const auto add = [&](const std::string& head) {
      const std::string bytes = head + Varint(length) + "\1\1\1\1";
      inputs.push_back({ToHex(bytes), bytes});
    };
    add(Tag(kUndeclared, kDelimited));
    for (const auto& [number, field] : type.fields) {
      const std::string tag = Tag(number, kDelimited);
      add(tag);
      if (field.kind != Kind::MESSAGE) continue;
      for (const auto& [child_number, child_field] : field.type->fields) {
        add(tag + Varint(length) + Tag(child_number, kDelimited));
      }
    }
  }
  return inputs;
}

}  // namespace tests
}  // namespace vantiro
