#include "compiler/message.h"

#include <algorithm>
#include <map>

#include "compiler/names.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;

// As much as the frame's writer gives at once.
constexpr int kMaxRoom = 128;

std::vector<std::unique_ptr<Field>> MakeFields(const Descriptor* message) {
  std::map<int, std::unique_ptr<Field>> by_number;
  for (int i = 0; i < message->field_count(); ++i) {
    by_number[message->field(i)->number()] = MakeField(message->field(i));
  }
  std::vector<std::unique_ptr<Field>> fields;
  for (auto& entry : by_number) fields.push_back(std::move(entry.second));
  return fields;
}

}  // namespace

Message::Message(const Descriptor* message)
    : message_(message),
      has_arenas_(HasArenas(message->file())),
      fields_(MakeFields(message)),
      holes_({{"Class", ClassName(message)},
              {"QualifiedClass", QualifiedName(message)},
              {"default_instance", DefaultInstanceName(message)},
              {"set_up_record", SetUpRecordName(message)},
              {"full_name", message->full_name()},
              {"Namespace", Namespace(message->file())},
              {"Stem", Stem(message->file())}}) {}

std::string Message::ForFields(Verb verb) const {
  std::string result;
  for (const auto& field : fields_) result += ((*field).*verb)();
  return result;
}

std::string Message::Initializers(const std::string& base, Verb verb) const {
  std::string result = ": " + base;
  for (const auto& field : fields_) {
    std::string entry = ((*field).*verb)();
    if (entry.empty()) continue;
    entry.pop_back();
    result += ",\n  " + entry;
  }
  return result + " {\n";
}

std::vector<const Descriptor*> Message::Dependencies() const {
  std::map<std::string, const Descriptor*> by_name;
  for (const auto& field : fields_) {
    const Descriptor* type = field->descriptor()->message_type();
    if (type != nullptr) by_name[type->full_name()] = type;
  }
  std::vector<const Descriptor*> result;
  for (const auto& entry : by_name) result.push_back(entry.second);
  return result;
}

bool Message::NeedsSetUpCheck() const {
  return std::any_of(fields_.begin(), fields_.end(), [](const auto& field) {
    const auto type = field->descriptor()->cpp_type();
    return type == FieldDescriptor::CPPTYPE_STRING ||
           type == FieldDescriptor::CPPTYPE_MESSAGE;
  });
}

bool Message::HasScalars() const {
  return std::any_of(fields_.begin(), fields_.end(), [](const auto& field) {
    return field->scalar_width() > 0;
  });
}

std::string Message::NestedTypes() const {
  std::string result;
  for (int i = 0; i < message_->nested_type_count(); ++i) {
    const Descriptor* nested = message_->nested_type(i);
    result += "typedef " + ClassName(nested) + " " + nested->name() + ";\n";
  }
  return result.empty() ? "" : result + "\n";
}

std::string Message::FieldNumbers() const {
  if (fields_.empty()) return "";
  std::string numbers;
  for (const auto& field : fields_) {
    numbers += FieldNumberName(field->descriptor()) + " = " +
               std::to_string(field->descriptor()->number()) + ",\n";
  }
  return Fill({{"numbers", numbers}}, R"(
      enum : int {
        $numbers$
      };
  )");
}

std::string Message::ArenaDeclarations() const {
  // Without arenas the inherited GetArena holds, which reports none.
  if (!has_arenas_) {
    return Fill(holes_, R"(
        void* GetMaybeArenaPointer() const { return nullptr; }
    )");
  }
  return Fill(holes_, R"(
      ::google::protobuf::Arena* GetArena() const;
      void* GetMaybeArenaPointer() const;
      static void ArenaDtor(void* object);
      void UnsafeArenaSwap($Class$* other) {
        if (other != this) InternalSwap(other);
      }
  )");
}

// Members are ordered so that little is lost to alignment: lists, strings and
// children first, then the block of scalars by falling width, floats before
// integers.
std::string Message::Members() const {
  const auto is_scalar = [](const auto& field) {
    return field->scalar_width() > 0;
  };
  std::string members;
  for (const auto& field : fields_) {
    if (!is_scalar(field)) members += field->Member();
  }
  return members + Scalars();
}

std::string Message::Scalars() const {
  if (!HasScalars()) return "";
  std::string scalars;
  const auto add = [&](int width, bool is_float) {
    for (const auto& field : fields_) {
      if (field->scalar_width() == width &&
          is_float ==
              (field->descriptor()->type() == FieldDescriptor::TYPE_FLOAT)) {
        scalars += field->Member();
      }
    }
  };
  add(8, false);
  add(4, true);
  add(4, false);
  add(1, false);
  return Fill({{"scalars", scalars}}, R"(
      // Cleared, copied and swapped as one block.
      struct Scalars {
        $scalars$
      };
      Scalars scalars_{};
  )");
}

std::string Message::ClassDefinition() const {
  const std::string arena_constructor = !has_arenas_ ? "" : Fill(holes_, R"(

       protected:
        explicit $Class$(::google::protobuf::Arena* arena);
  )");
  const std::string arena_traits = !has_arenas_ ? "" : Fill(holes_, R"(
      template <typename T>
      friend class ::google::protobuf::Arena::InternalHelper;
      typedef void InternalArenaConstructable_;
      typedef void DestructorSkippable_;
  )");
  return Fill(
      With(holes_, {{"arena_constructor", arena_constructor},
                    {"arena_traits", arena_traits},
                    {"arena_declarations", ArenaDeclarations()},
                    {"nested_types", NestedTypes()},
                    {"field_numbers", FieldNumbers()},
                    {"accessors", ForFields(&Field::AccessorDeclarations)},
                    {"members", Members()}}),
      R"(
      // $full_name$
      class $Class$ final : public ::google::protobuf::MessageLite {
       public:
        $Class$();
        $Class$(const $Class$& from);
        $Class$($Class$&& from) noexcept : $Class$() { *this = ::std::move(from); }
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
            const ::uint8_t* end, ::vantiro::frame::ParseState* state);
        ::uint8_t* _InternalSerializeFlat(::uint8_t* p,
                                          ::vantiro::frame::Writer* writer) const;
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

std::string Message::AccessorDefinitions() const {
  return ForFields(&Field::AccessorDefinitions);
}

std::string Message::DefaultInstance() const {
  return Fill(
      With(holes_, {{"accessors", ForFields(&Field::InternalDeclaration)}}),
      R"(
      // Zeroed storage until its set-up.
      class $Class$DefaultTypeInternal {
       public:
        ::google::protobuf::internal::ExplicitlyConstructed<$Class$> instance;
      } $default_instance$;

      class $Class$::_Internal {
       public:
        $accessors$
      };
  )");
}

std::string Message::SetUp() const {
  std::string dependencies;
  for (const Descriptor* dependency : Dependencies()) {
    dependencies += "&" + SetUpRecordName(dependency) + ".base,\n";
  }
  const size_t count = Dependencies().size();
  return Fill(
      With(holes_, {{"count", std::to_string(count)},
                    {"dependencies",
                     dependencies.empty() ? "nullptr,\n" : dependencies},
                    {"link", count == 0 ? ""
                                        : QualifiedName(message_) +
                                              "::InitAsDefaultInstance();\n"}}),
      R"(
      static void InitDefaults$set_up_record$() {
        ::google::protobuf::internal::VerifyVersion(
            GOOGLE_PROTOBUF_VERSION, GOOGLE_PROTOBUF_MIN_LIBRARY_VERSION, "$Stem$.pb");
        void* const storage = &$Namespace$::$default_instance$;
        new (storage) $QualifiedClass$();
        ::google::protobuf::internal::OnShutdownDestroyMessage(storage);
        $link$
      }

      ::vantiro::frame::SetUpRecordFor<$count$> $set_up_record$ = {
          {{::vantiro::frame::SetUpRecord::kUninitialized}, $count$,
           InitDefaults$set_up_record$},
          {
              $dependencies$
          }};
  )");
}

std::string Message::Operations() const {
  return "// " + message_->full_name() + "\n\n" +
         ForFields(&Field::ExportedDefinitions) + "\n" + Lifetime() + "\n" +
         Creation() + "\n" + ClearAndMerge() + "\n" + Serialization() + "\n" +
         Parsing() + "\n" + TypeInformation();
}

std::string Message::Lifetime() const {
  const std::string check = !NeedsSetUpCheck() ? "" : Fill(holes_, R"(
      frame::EnsureSetUp(&$set_up_record$.base);
  )");
  const std::string construct = ForFields(&Field::Construct);
  const std::string base = "::google::protobuf::MessageLite";
  const std::string arena_constructor =
      !has_arenas_
          ? ""
          : Fill(With(holes_,
                      {{"initializers", Initializers(base + "(arena)",
                                                     &Field::ArenaInitializer)},
                       {"check", check},
                       {"construct", construct}}),
                 R"(
      $Class$::$Class$(::google::protobuf::Arena* arena)
          $initializers$
        $check$
        $construct$
      }
  )");
  const std::string children = ForFields(&Field::DeleteChild);
  const std::string delete_children =
      children.empty() ? "" : Fill({{"children", children}}, R"(
      // The children of the default instance are default instances too.
      if (this == internal_default_instance()) return;
      $children$
  )");
  return Fill(
      With(holes_,
           {{"check", check},
            {"construct", construct},
            {"arena_constructor", arena_constructor},
            {"copy_initializers",
             Initializers(base + "()", &Field::CopyInitializer)},
            {"copy", ForFields(&Field::CopyConstruct)},
            {"copy_scalars", HasScalars() ? "scalars_ = from.scalars_;\n" : ""},
            {"destroy", ForFields(&Field::Destroy)},
            {"delete_children", delete_children}}),
      R"(
      $Class$::$Class$() : ::google::protobuf::MessageLite() {
        $check$
        $construct$
      }
      $arena_constructor$

      $Class$::$Class$(const $Class$& from)
          $copy_initializers$
        _internal_metadata_.MergeFrom<::std::string>(from._internal_metadata_);
        $copy$
        $copy_scalars$
      }

      $Class$::~$Class$() {
        if (_internal_metadata_.DeleteReturnArena<::std::string>() != nullptr) return;
        $destroy$
        $delete_children$
      }
  )");
}

std::string Message::Creation() const {
  const std::string link = ForFields(&Field::InitAsDefaultInstance);
  const std::string set_links =
      link.empty() ? "" : Fill(With(holes_, {{"link", link}}), R"(
      auto* const instance = const_cast<$Class$*>(internal_default_instance());
      $link$
  )");
  const std::string arena = !has_arenas_ ? "" : Fill(holes_, R"(
      ::google::protobuf::Arena* $Class$::GetArena() const {
        return _internal_metadata_.user_arena();
      }

      void* $Class$::GetMaybeArenaPointer() const {
        return _internal_metadata_.raw_arena_ptr();
      }

      void $Class$::ArenaDtor(void* /*object*/) {}

  )");
  return Fill(With(holes_, {{"set_links", set_links}, {"arena", arena}}), R"(
      const $Class$& $Class$::default_instance() {
        frame::EnsureSetUp(&$set_up_record$.base);
        return *internal_default_instance();
      }

      void $Class$::InitAsDefaultInstance() {
        $set_links$
      }

      $Class$* $Class$::New() const { return CreateMaybeMessage<$Class$>(nullptr); }

      $Class$* $Class$::New(::google::protobuf::Arena* arena) const {
        return CreateMaybeMessage<$Class$>(arena);
      }

      $arena$
  )");
}

std::string Message::ClearAndMerge() const {
  return Fill(
      With(holes_,
           {{"clear", ForFields(&Field::Clear)},
            {"clear_scalars", HasScalars() ? "scalars_ = Scalars();\n" : ""},
            {"merge", ForFields(&Field::Merge)},
            {"swap", ForFields(&Field::Swap)},
            {"swap_scalars",
             HasScalars() ? "::std::swap(scalars_, other->scalars_);\n" : ""}}),
      R"(
      void $Class$::Clear() {
        $clear$
        $clear_scalars$
        _internal_metadata_.Clear<::std::string>();
      }

      void $Class$::MergeFrom(const $Class$& from) {
        _internal_metadata_.MergeFrom<::std::string>(from._internal_metadata_);
        $merge$
      }

      void $Class$::CopyFrom(const $Class$& from) {
        if (&from == this) return;
        Clear();
        MergeFrom(from);
      }

      void $Class$::CheckTypeAndMergeFrom(const ::google::protobuf::MessageLite& from) {
        MergeFrom(static_cast<const $Class$&>(from));
      }

      void $Class$::InternalSwap($Class$* other) {
        _internal_metadata_.Swap<::std::string>(&other->_internal_metadata_);
        $swap$
        $swap_scalars$
      }
  )");
}

// Scalars that stand side by side ask for their room together.
std::string Message::SerializeFields() const {
  std::string result;
  std::string run;
  int room = 0;
  const auto end_run = [&] {
    if (!run.empty()) {
      result += "p = writer->Room(p, " + std::to_string(room) + ");\n" + run;
    }
    run.clear();
    room = 0;
  };
  for (const auto& field : fields_) {
    const int size = field->max_encoded_size();
    if (size == 0 || room + size > kMaxRoom) end_run();
    (size == 0 ? result : run) += field->Serialize();
    room += size;
  }
  end_run();
  return result;
}

std::string Message::Serialization() const {
  return Fill(With(holes_, {{"byte_size", ForFields(&Field::ByteSize)},
                            {"serialize", SerializeFields()}}),
              R"(
      size_t $Class$::ByteSizeLong() const {
        size_t size = frame::UnknownFieldsSize(_internal_metadata_);
        $byte_size$
        SetCachedSize(static_cast<int>(size));
        return size;
      }

      ::uint8_t* $Class$::_InternalSerializeFlat(::uint8_t* p,
                                                 frame::Writer* writer) const {
        $serialize$
        return frame::WriteUnknownFields(p, _internal_metadata_, writer);
      }

      ::uint8_t* $Class$::_InternalSerialize(
          ::uint8_t* target,
          ::google::protobuf::io::EpsCopyOutputStream* stream) const {
        frame::Writer writer(target, stream, GetCachedSize(),
                             frame::Writer::Excess::kDrop);
        return writer.Finish(_InternalSerializeFlat(writer.Begin(), &writer));
      }

      void $Class$::SerializeWithCachedSizes(
          ::google::protobuf::io::CodedOutputStream* output) const {
        frame::Writer writer(output->Cur(), output->EpsCopy(), GetCachedSize(),
                             frame::Writer::Excess::kKeep);
        output->SetCur(
            writer.Finish(_InternalSerializeFlat(writer.Begin(), &writer)));
      }
  )");
}

std::string Message::Parsing() const {
  return Fill(With(holes_, {{"fields", ForFields(&Field::Parse)}}), R"(
      const ::uint8_t* $Class$::_InternalParseFlat(::google::protobuf::MessageLite* message,
                                                   const ::uint8_t* p,
                                                   const ::uint8_t* end,
                                                   frame::ParseState* state) {
        auto* const self = static_cast<$Class$*>(message);
        frame::RawTag tag = frame::PeekTag(p, end);
        // Records are written in the order of field numbers, so each field hands
        // on to the next. Fields in another order take a further turn.
        while (p != end) {
          const ::uint8_t* const start = p;
          $fields$
          if (p != start) continue;
          const frame::NextTag next = frame::ReadUnusualTag(
              p, end, tag, &self->_internal_metadata_, state);
          if (next.p == nullptr || state->ended_at_bad_tag) return next.p;
          p = next.p;
          tag = next.tag;
        }
        return p;
      }

      const char* $Class$::_InternalParse(
          const char* p, ::google::protobuf::internal::ParseContext* context) {
        return frame::ParseFromContext(this, &_InternalParseFlat, p, context);
      }

      bool $Class$::MergePartialFromCodedStream(
          ::google::protobuf::io::CodedInputStream* input) {
        return frame::MergeFromCodedStream(this, &_InternalParseFlat, input);
      }
  )");
}

std::string Message::TypeInformation() const {
  return Fill(holes_, R"(
      ::std::string $Class$::GetTypeName() const { return "$full_name$"; }

      bool $Class$::IsInitialized() const { return true; }

      int $Class$::GetCachedSize() const { return _cached_size_.Get(); }

      void $Class$::SetCachedSize(int size) const { _cached_size_.Set(size); }
  )");
}

}  // namespace compiler
}  // namespace vantiro
