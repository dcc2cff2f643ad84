// The code of a message that goes into the header.

#include <google/protobuf/descriptor.h>

#include "compiler/message_generator.h"
#include "compiler/names.h"

namespace vantiro {
namespace compiler {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;

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
      $QualifiedClass$*
      Arena::CreateMaybeMessage<$QualifiedClass$>(Arena* arena);
  )");
}

std::string MessageGenerator::NestedTypes() const {
  std::string result;
  for (int i = 0; i < message_->nested_type_count(); ++i) {
    const Descriptor* nested = message_->nested_type(i);
    result += "typedef " + ClassName(nested) + " " + nested->name() + ";\n";
  }
  return result.empty() ? "" : result + "\n";
}

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

std::string MessageGenerator::ArenaDeclarations() const {
  // Without arenas the inherited GetArena holds, which reports none.
  if (!has_arenas_) {
    return Substitute(variables_, R"(
        void* GetMaybeArenaPointer() const { return nullptr; }
    )");
  }
  return Substitute(variables_, R"(
      ::google::protobuf::Arena* GetArena() const;
      void* GetMaybeArenaPointer() const;
      static void ArenaDtor(void* object);
      void UnsafeArenaSwap($Class$* other) {
        if (other != this) InternalSwap(other);
      }
  )");
}

// Members are ordered so that little padding is needed: repeated fields,
// strings and sub-messages first, then the scalars by falling width. Scalars of
// one kind are side by side, so that operations can take several at once.
std::string MessageGenerator::Members() const {
  const auto is_scalar = [](const auto& field) {
    return field->scalar_width() > 0;
  };
  std::string members;
  for (const auto& field : fields_) {
    if (!is_scalar(field)) members += field->Member();
  }
  return members + Scalars();
}

std::string MessageGenerator::Scalars() const {
  if (!HasScalars()) return "";
  std::string scalars;
  for (const auto& group : ScalarGroups()) {
    for (const FieldGenerator* field : group) scalars += field->Member();
  }
  return Substitute({{"scalars", scalars}}, R"(
      // Cleared, copied and swapped as one.
      struct Scalars {
        $scalars$
      };
      Scalars scalars_{};
  )");
}

std::string MessageGenerator::ClassDefinition() const {
  const std::string arena_constructor =
      !has_arenas_ ? "" : "\n" + Substitute(variables_, R"(
       protected:
        explicit $Class$(::google::protobuf::Arena* arena);
  )");
  const std::string arena_traits =
      !has_arenas_ ? "" : Substitute(variables_, R"(
      template <typename T>
      friend class ::google::protobuf::Arena::InternalHelper;
      typedef void InternalArenaConstructable_;
      typedef void DestructorSkippable_;
  )");
  return Substitute(
      Combine(variables_,
              {{"arena_constructor", arena_constructor},
               {"arena_traits", arena_traits},
               {"arena_declarations", ArenaDeclarations()},
               {"nested_types", NestedTypes()},
               {"field_numbers", FieldNumbers()},
               {"accessors", ForFields(&FieldGenerator::AccessorDeclarations)},
               {"members", Members()}}),
      R"(
      // $full_name$
      class $Class$ final : public ::google::protobuf::MessageLite {
       public:
        $Class$();
        $Class$(const $Class$& from);
        $Class$($Class$&& from) noexcept : $Class$() {
          *this = ::std::move(from);
        }
        ~$Class$() override;

        $Class$& operator=(const $Class$& from) {
          CopyFrom(from);
          return *this;
        }
        $Class$& operator=($Class$&& from) noexcept {
          if (GetOwningArena() != from.GetOwningArena()) {
            CopyFrom(from);
          } else if (this != &from) {
            InternalSwap(&from);
          }
          return *this;
        }

        // The instance that stands for an absent message of this type. Shared;
        // never to be written.
        static const $Class$& default_instance();
        static void InitAsDefaultInstance();
        // The same before its set-up: fit for comparing addresses only.
        static const $Class$* internal_default_instance() {
          return reinterpret_cast<const $Class$*>(&$default_instance$);
        }

        void Swap($Class$* other) {
          if (other == this) return;
          if (GetOwningArena() == other->GetOwningArena()) {
            InternalSwap(other);
          } else {
            ::google::protobuf::internal::GenericSwap(this, other);
          }
        }
        friend void swap($Class$& a, $Class$& b) { a.Swap(&b); }

        $Class$* New() const;
        $Class$* New(::google::protobuf::Arena* arena) const final;
        $arena_declarations$

        ::std::string GetTypeName() const final;
        bool IsInitialized() const final;
        void Clear() final;
        void CopyFrom(const $Class$& from);
        void MergeFrom(const $Class$& from);
        // `from` has to be a $Class$: there is no test.
        void CheckTypeAndMergeFrom(const ::google::protobuf::MessageLite& from) final;

        bool MergePartialFromCodedStream(::google::protobuf::io::CodedInputStream* input);
        size_t ByteSizeLong() const final;
        int GetCachedSize() const final;
        void SerializeWithCachedSizes(
            ::google::protobuf::io::CodedOutputStream* output) const;

        // For the runtime and the other classes of the library.
        const char* _InternalParse(
            const char* p, ::google::protobuf::internal::ParseContext* context) final;
        ::uint8_t* _InternalSerialize(
            ::uint8_t* target,
            ::google::protobuf::io::EpsCopyOutputStream* stream) const final;
        static const ::uint8_t* _InternalParseFlat(
            ::google::protobuf::MessageLite* message, const ::uint8_t* p,
            const ::uint8_t* end, ::vantiro::internal::ParseState* state);
        ::uint8_t* _InternalSerializeFlat(::uint8_t* p,
                                          ::vantiro::internal::Writer* writer) const;
        int _InternalCachedSize() const { return _cached_size_.Get(); }

        $nested_types$
        $field_numbers$
        $accessors$
       $arena_constructor$

       private:
        class _Internal;
        $arena_traits$

        void SetCachedSize(int size) const;
        void InternalSwap($Class$* other);

        $members$
        mutable ::google::protobuf::internal::CachedSize _cached_size_;
      };

  )");
}

std::string MessageGenerator::InlineAccessorDefinitions() const {
  return "// " + ClassName(message_) + "\n\n" +
         ForFields(&FieldGenerator::InlineAccessorDefinitions) + "\n";
}

}  // namespace compiler
}  // namespace vantiro
