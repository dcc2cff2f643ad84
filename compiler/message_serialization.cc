// The sizing and the writing of a message, which go into the source.

#include <algorithm>
#include <set>
#include <utility>

#include "compiler/message_generator.h"

namespace vantiro {
namespace compiler {
namespace {

// The most bytes that fields written together may take. The emitted code
// asserts that the library's writer has so much space.
constexpr int kMaxSpace = 128;

// Fields with longer tags are sized, merged, read and written one by one.
constexpr int kMaxJoinedTagSize = 2;

// Fewer floats are not worth testing together. More, with tags of two bytes,
// would not fit into the space that is asked for at once.
constexpr size_t kMinFloatRun = 4;
constexpr size_t kMaxFloatRun = kMaxSpace / (kMaxJoinedTagSize + sizeof(float));

using Fields = std::vector<const FieldGenerator*>;

}  // namespace

std::vector<Fields> MessageGenerator::ScalarGroups() const {
  std::vector<Fields> groups;
  for (const char* kind : {"", "Float", "UInt32", "SInt32", "Int32", "Bool"}) {
    Fields group;
    for (const auto& field : fields_) {
      if (field->scalar_width() > 0 && field->size_kind() == kind) {
        group.push_back(field.get());
      }
    }
    std::stable_sort(group.begin(), group.end(), [](auto* a, auto* b) {
      return a->scalar_width() > b->scalar_width();
    });
    if (!group.empty()) groups.push_back(group);
  }
  return groups;
}

std::vector<Fields> MessageGenerator::JoinedGroups() const {
  std::vector<Fields> groups;
  for (Fields& group : ScalarGroups()) {
    if (group.front()->size_kind().empty()) continue;
    // The fields are in the order of their numbers.
    while (!group.empty() && group.back()->tag_size() > kMaxJoinedTagSize) {
      group.pop_back();
    }
    if (group.size() > 1) groups.push_back(std::move(group));
  }
  return groups;
}

std::string MessageGenerator::ForOtherFields(FieldFunction function) const {
  std::set<const FieldGenerator*> joined;
  for (const Fields& group : JoinedGroups()) {
    joined.insert(group.begin(), group.end());
  }
  std::string result;
  for (const auto& field : fields_) {
    if (joined.count(field.get()) == 0) result += (field.get()->*function)();
  }
  return result;
}

std::string MessageGenerator::AddSizes(const Fields& group) const {
  const auto two_byte_tags = static_cast<size_t>(
      std::count_if(group.begin(), group.end(),
                    [](const auto* field) { return field->tag_size() == 2; }));
  const std::string kind = group.front()->size_kind();
  return Substitute(
      Combine(GroupVariables(group),
              {{"kind", kind},
               {"one_byte", std::to_string(group.size() - two_byte_tags)},
               {"two_byte", std::to_string(two_byte_tags)}}),
      kind == "Bool" ? R"(
      $comment$
      size += $internal$::BoolFieldsSize<$one_byte$, $two_byte$>(&$scalars$.$first$);
  )"
                     : R"(
      $comment$
      sizes.Add<$internal$::$kind$Sizes, $one_byte$, $two_byte$>(&$scalars$.$first$);
  )");
}

std::string MessageGenerator::WriteFloats(const Fields& run) const {
  return Substitute(GroupVariables(run), R"(
      $comment$
      p = $internal$::WriteFloatFields<$tag_value$, $count$>(p, &$scalars$.$first$);
  )");
}

std::string MessageGenerator::SizeFields() const {
  std::string sizes;
  std::string bools;
  for (const Fields& group : JoinedGroups()) {
    (group.front()->size_kind() == "Bool" ? bools : sizes) += AddSizes(group);
  }
  std::string result = bools;
  if (!sizes.empty()) {
    result += Substitute(Combine(variables_, {{"sizes", sizes}}), R"(
      $internal$::FieldSizes sizes;
      $sizes$
      size += sizes.Total();
  )");
  }
  return result + ForOtherFields(&FieldGenerator::ByteSize);
}

Fields MessageGenerator::FloatRun(size_t begin) const {
  Fields run;
  for (size_t i = begin; i < fields_.size() && run.size() < kMaxFloatRun; ++i) {
    const FieldGenerator& field = *fields_[i];
    const bool is_next =
        run.empty() ||
        field.descriptor()->number() == run.back()->descriptor()->number() + 1;
    if (field.size_kind() != "Float" || !is_next ||
        field.tag_size() > kMaxJoinedTagSize) {
      break;
    }
    run.push_back(&field);
  }
  if (run.size() < kMinFloatRun) run.clear();
  return run;
}

// Singular scalars with consecutive field numbers ask for their space together.
// Every function asks first, if only for none: that leaves space for the tag
// and the length of what follows.
std::string MessageGenerator::SerializeFields() const {
  std::string result;
  std::string run;
  int run_size = 0;
  const auto end_run = [&] {
    if (!run.empty() || result.empty()) {
      result += "p = writer->EnsureSpace<" + std::to_string(run_size) +
                ">(p);\n" + run;
    }
    run.clear();
    run_size = 0;
  };
  for (size_t i = 0; i < fields_.size();) {
    const Fields floats = FloatRun(i);
    const size_t count = std::max<size_t>(floats.size(), 1);
    int size = 0;
    for (size_t k = i; k < i + count; ++k) {
      size += fields_[k]->max_encoded_size();
    }
    if (size == 0 || run_size + size > kMaxSpace) end_run();
    (size == 0 ? result : run) +=
        floats.empty() ? fields_[i]->Serialize() : WriteFloats(floats);
    run_size += size;
    i += count;
  }
  if (result.empty()) return SerializeOneRun(run, run_size);
  end_run();
  return result;
}

std::string MessageGenerator::SerializeOneRun(const std::string& run,
                                              int size) const {
  return Substitute(
      Combine(variables_, {{"size", std::to_string(size)}, {"run", run}}), R"(
      if (!writer->HasSpace<$size$>(p)) {
        return $internal$::FlushAndSerialize(*this, p, writer);
      }
      $run$
  )");
}

std::string MessageGenerator::Serialization() const {
  return Substitute(
      Combine(variables_,
              {{"return_size", IfDefaultInstance("this", "return 0;")},
               {"return_p",
                IfDefaultInstance("this", "return writer->EnsureSpace<0>(p);")},
               {"byte_size", SizeFields()},
               {"serialize", SerializeFields()}}),
      R"(
      ::size_t $Class$::ByteSizeLong() const {
        $return_size$
        ::size_t size = $internal$::UnknownFieldsSize(_internal_metadata_);
        $byte_size$
        SetCachedSize(static_cast<int>(size));
        return size;
      }

      ::uint8_t* $Class$::_InternalSerializeFlat(::uint8_t* p, $internal$::Writer* writer) const {
        $return_p$
        $serialize$
        return $internal$::WriteUnknownFields(p, _internal_metadata_, writer);
      }

      ::uint8_t* $Class$::_InternalSerialize(::uint8_t* target, ::google::protobuf::io::EpsCopyOutputStream* stream) const { return $internal$::SerializeToStream(*this, target, stream); }

      void $Class$::SerializeWithCachedSizes(::google::protobuf::io::CodedOutputStream* output) const { $internal$::SerializeToCodedStream(*this, output); }

  )");
}

}  // namespace compiler
}  // namespace vantiro
