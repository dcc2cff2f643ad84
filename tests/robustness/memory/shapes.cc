#include "tests/robustness/memory/shapes.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <algorithm>
#include <map>
#include <memory>

#include "tests/conformance/model/schema_model.h"
#include "tests/support/allocations.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::internal::WireFormatLite;

// One more than storage that doubles has room for.
constexpr int kCount = 4097;
// Greater than all that are declared, and two bytes as a tag.
constexpr int kUndeclared = 1000;
// The list of element pointers that a first element brings.
constexpr size_t kFirstPointers = 40;

std::string Tag(int number, WireFormatLite::WireType wire_type) {
  return VarintBytes(WireFormatLite::MakeTag(number, wire_type));
}

std::string Delimited(int number, const std::string& bytes) {
  return BytesTag(number) + VarintBytes(bytes.size()) + bytes;
}

std::string Repeat(const std::string& bytes, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += bytes;
  return all;
}

// A sub-message's content, and what it and all below it take in memory.
struct Tree {
  std::string bytes;
  size_t held;
};

size_t SizeOf(const std::string& type_name) {
  static auto* const sizes = new std::map<std::string, size_t>;
  size_t& size = (*sizes)[type_name];
  if (size == 0) {
    const size_t before = HeldBytes();
    std::unique_ptr<MessageLite> message(FindType(type_name)->create(nullptr));
    size = HeldBytes() - before;
  }
  return size;
}

// A message with each sub-message, and one element in each list of messages,
// that takes at least `density` times its own bytes of memory.
Tree DenseTree(const std::string& type_name, double density) {
  Tree tree = {"", SizeOf(type_name)};
  for (const auto& field : FindMessageModel(type_name).fields) {
    if (field.second.kind != Kind::MESSAGE) continue;
    const Tree sub = DenseTree(field.second.sub_name, density);
    const std::string bytes = Delimited(field.first, sub.bytes);
    const size_t held = sub.held + (field.second.is_list ? kFirstPointers : 0);
    if (static_cast<double>(held) <
        density * static_cast<double>(bytes.size())) {
      continue;
    }
    tree.bytes += bytes;
    tree.held += held;
  }
  return tree;
}

// The element of a list that takes the most for its bytes: the density that
// pays is the one that it has itself.
std::string DensestElement(int number, const std::string& type_name) {
  double density = 0;
  std::string densest;
  while (true) {
    const Tree tree = DenseTree(type_name, density);
    const std::string bytes = Delimited(number, tree.bytes);
    const double reached =
        static_cast<double>(tree.held) / static_cast<double>(bytes.size());
    if (reached <= density) return densest;
    density = reached;
    densest = bytes;
  }
}

// The longest way down, an empty message at its end.
std::string DeepestChain(const std::string& type_name, int* depth) {
  std::string chain;
  for (const auto& field : FindMessageModel(type_name).fields) {
    if (field.second.kind != Kind::MESSAGE) continue;
    int sub_depth = 1;
    const std::string sub = DeepestChain(field.second.sub_name, &sub_depth);
    if (sub_depth < *depth) continue;
    *depth = sub_depth + 1;
    chain = Delimited(field.first, sub);
  }
  return chain;
}

void AddShapesOf(int number, const FieldModel& field,
                 std::vector<Shape>* shapes) {
  const std::string of = "field " + std::to_string(number) + ", ";
  if (field.kind == Kind::MESSAGE && field.is_list) {
    shapes->push_back(
        {of + "empty elements", Repeat(Delimited(number, ""), kCount)});
    shapes->push_back({of + "dense elements",
                       Repeat(DensestElement(number, field.sub_name), kCount)});
  } else if (field.kind == Kind::STRING || field.kind == Kind::BYTES) {
    shapes->push_back(
        {of + "text", Delimited(number, std::string(kCount, 'a'))});
  } else if (field.is_list) {
    const bool is_float = field.kind == Kind::FLOAT;
    const std::string element(is_float ? 4 : 1, '\1');
    shapes->push_back(
        {of + "packed blocks", Delimited(number, Repeat(element, kCount - 1)) +
                                   Delimited(number, element)});
    shapes->push_back(
        {of + "unpacked elements",
         Repeat(Tag(number, is_float ? WireFormatLite::WIRETYPE_FIXED32
                                     : WireFormatLite::WIRETYPE_VARINT) +
                    element,
                kCount)});
  }
}

}  // namespace

std::string BytesTag(int number) {
  return Tag(number, WireFormatLite::WIRETYPE_LENGTH_DELIMITED);
}

std::string VarintBytes(uint64_t value) {
  uint8_t buffer[10];
  uint8_t* const end = CodedOutputStream::WriteVarint64ToArray(value, buffer);
  return {buffer, end};
}

std::vector<Shape> BadShapes(const Type& type) {
  const std::string varint =
      Tag(kUndeclared, WireFormatLite::WIRETYPE_VARINT) + "\1";
  const auto groups = [](WireFormatLite::WireType wire_type, int count) {
    return Repeat(Tag(kUndeclared, wire_type), count);
  };
  constexpr int kLevels = 90;
  int depth = 1;
  std::vector<Shape> shapes = {
      {"all sub-messages, empty", DenseTree(type.name, 0).bytes},
      {"deepest chain", DeepestChain(type.name, &depth)},
      {"unknown varints", Repeat(varint, kCount)},
      {"unknown groups",
       Repeat(groups(WireFormatLite::WIRETYPE_START_GROUP, kLevels) + varint +
                  groups(WireFormatLite::WIRETYPE_END_GROUP, kLevels),
              kCount / kLevels)},
  };
  for (const auto& field : FindMessageModel(type.name).fields) {
    AddShapesOf(field.first, field.second, &shapes);
  }
  return shapes;
}

}  // namespace tests
}  // namespace vantiro
