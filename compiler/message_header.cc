// The code of a message that goes into the header.

#include <google/protobuf/descriptor.h>

#include "compiler/doc_comment.h"
#include "compiler/enum_generator.h"
#include "compiler/message_generator.h"
#include "compiler/names.h"
#include "compiler/type_name.h"

namespace vantiro {
namespace compiler {

using google::protobuf::Descriptor;

std::string MessageGenerator::ForwardDeclarations() const {
  return Substitute(variables_, R"(
      class $Class$;
      class $Class$DefaultTypeInternal;
      extern $Class$DefaultTypeInternal $default_instance$;
  )");
}

std::string MessageGenerator::CreationDeclaration() const {
  return Substitute(variables_, R"(
      template <>
      $QualifiedClass$* Arena::CreateMaybeMessage(Arena* arena);
  )");
}

// One enum for all: constants of different enums are not compared without a
// warning, and those that are objects cannot be bound to references before
// C++17.
std::string MessageGenerator::FieldNumbers() const {
  if (fields_.empty()) return "";
  std::string numbers;
  for (const auto& field : fields_) {
    numbers += FieldNumberName(field->descriptor()) + " = " +
               std::to_string(field->descriptor()->number()) + ",\n";
  }
  return Substitute({{"numbers", numbers}}, R"(

      enum : int {
        $numbers$
      };
  )");
}

std::string MessageGenerator::NestedTypes() const {
  std::string result;
  for (int i = 0; i < message_->nested_type_count(); ++i) {
    const Descriptor* nested = message_->nested_type(i);
    result += "using " + NestedName(nested) + " = " + TypeName(nested) + ";\n";
  }
  if (!result.empty()) result = "\n" + result;
  for (int i = 0; i < message_->enum_type_count(); ++i) {
    result += EnumGenerator(message_->enum_type(i)).MembersOfClass();
  }
  return result;
}

// Without arenas the inherited GetArena holds, which reports none.
std::string MessageGenerator::ArenaOperations() const {
  return Substitute(variables_, has_arenas_ ? R"(
      ::google::protobuf::Arena* GetArena() const;
      void* GetMaybeArenaPointer() const;
      void UnsafeArenaSwap($Class$* other) {
        if (other != this) InternalSwap(other);
      }
  )"
                                            : R"(
      void* GetMaybeArenaPointer() const { return nullptr; }
  )");
}

std::string MessageGenerator::ArenaMembers() const {
  if (!has_arenas_) return "";
  return Substitute(variables_, R"(
      template <typename T>
      friend class ::google::protobuf::Arena::InternalHelper;
      typedef void InternalArenaConstructable_;
      typedef void DestructorSkippable_;

      explicit $Class$(::google::protobuf::Arena* arena);
      static void ArenaDtor(void* object);
  )");
}

// Members are ordered so that little padding is needed: repeated fields,
// strings and sub-messages first, then the scalars by falling width. Scalars of
// one kind are side by side, so that operations can take several at once.
// Cached sizes come last: taking the sizes of scalars also reads what is before
// them, which another thread may write if it is a cached size
// (Threads.UseRecordsOfTheirOwn*).
std::string MessageGenerator::Members() const {
  std::string members;
  for (const auto& field : fields_) {
    if (field->scalar_width() == 0) members += field->Member();
  }
  return members + Scalars() + ForFields(&FieldGenerator::CachedSizeMember);
}

std::string MessageGenerator::Scalars() const {
  if (!HasScalars()) return "";
  std::string members;
  for (const auto& group : ScalarGroups()) {
    for (const FieldGenerator* field : group) members += field->Member();
  }
  return Substitute(Combine(variables_, {{"members", members}}), R"(
      // Cleared, copied and swapped as one.
      struct $Scalars$ {
        $members$
      };
      $Scalars$ $scalars${};
  )");
}

std::string MessageGenerator::ClassDefinition() const {
  return Substitute(
      Combine(variables_,
              {{"comment", DocComment(message_)},
               {"arena_operations", ArenaOperations()},
               {"arena_members", ArenaMembers()},
               {"nested_types", NestedTypes()},
               {"field_numbers", FieldNumbers()},
               {"fields", ForFields(&FieldGenerator::PublicMembers)},
               {"members", Members()}}),
      R"(
      $comment$
      class $Class$ final : public ::google::protobuf::MessageLite {
       public:
        $Class$();
        $Class$(const $Class$& from);
        $Class$($Class$&& from) noexcept : $SafeClass$() { *this = ::std::move(from); }
        ~$Class$() override;

        $Class$& operator=(const $Class$& from) {
          CopyFrom(from);
          return *this;
        }
        $Class$& operator=($Class$&& from) noexcept {
          ::vantiro::internal::MessageAccess::Move(&from, this);
          return *this;
        }

        // What an absent message of this type reads as. Must not be changed.
        static const $Class$& default_instance();
        // The same, perhaps not constructed yet: only its address may be used.
        static const $Class$* internal_default_instance() { return reinterpret_cast<const $Class$*>(&$safe_default_instance$); }
        static void InitAsDefaultInstance();

        $Class$* New() const;
        $Class$* New(::google::protobuf::Arena* arena) const final;
        ::std::string GetTypeName() const final;
        bool IsInitialized() const final;
        void Clear() final;
        void CopyFrom(const $Class$& from);
        void MergeFrom(const $Class$& from);
        // `from` must be of this class: there is no check.
        void CheckTypeAndMergeFrom(const ::google::protobuf::MessageLite& from) final;
        void Swap($Class$* other) { ::vantiro::internal::MessageAccess::Swap(this, other); }
        friend void swap($SafeClass$& a, $SafeClass$& b) { a.Swap(&b); }
        $arena_operations$

        bool MergePartialFromCodedStream(::google::protobuf::io::CodedInputStream* input);
        ::size_t ByteSizeLong() const final;
        int GetCachedSize() const final;
        void SerializeWithCachedSizes(::google::protobuf::io::CodedOutputStream* output) const;
        $nested_types$
        $field_numbers$
        $fields$

       private:
        friend class ::vantiro::internal::MessageAccess;
        class _Internal;
        $arena_members$

        void SetCachedSize(int size) const;
        void CopyFields(const $Class$& from, ::vantiro::internal::CopyTarget target);
        void InternalSwap($Class$* other);
        const char* _InternalParse(const char* p, ::google::protobuf::internal::ParseContext* context) final;
        static const ::uint8_t* _InternalParseFlat(::google::protobuf::MessageLite* message, const ::uint8_t* p, const ::uint8_t* end, ::vantiro::internal::ParseState* state);
        ::uint8_t* _InternalSerialize(::uint8_t* target, ::google::protobuf::io::EpsCopyOutputStream* stream) const final;
        ::uint8_t* _InternalSerializeFlat(::uint8_t* p, ::vantiro::internal::Writer* writer) const;

        $members$
        mutable ::google::protobuf::internal::CachedSize _cached_size_;
      };

  )");
}

std::string MessageGenerator::InlineAccessorDefinitions() const {
  const std::string definitions =
      ForFields(&FieldGenerator::InlineAccessorDefinitions);
  if (definitions.empty()) return "";
  return "// " + ClassName(message_) + "\n\n" + definitions + "\n";
}

}  // namespace compiler
}  // namespace vantiro
