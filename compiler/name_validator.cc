#include "compiler/name_validator.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "compiler/declarations.h"
#include "compiler/enum_generator.h"
#include "compiler/message_generator.h"
#include "compiler/names.h"
#include "compiler/reserved_names.h"
#include "compiler/validator.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FileDescriptor;

// A name that the emitted code declares for an element of the schema.
struct Declared {
  Declaration declaration;
  SchemaElement element;
};

// Reports a name that no code can declare.
void ValidateAlone(const Declared& declared, ValidationErrors* errors) {
  const std::string& name = declared.declaration.name;
  if (IsKeyword(name) || IsLaterKeyword(name)) {
    errors->AddFirst(declared.element, name + " is a keyword of C++");
  }
  const bool is_called = declared.declaration.kind != Declaration::kOther;
  if (IsMacro(name) || (is_called && IsFunctionLikeMacro(name))) {
    errors->AddFirst(declared.element,
                     name + " is a macro of the included headers");
  }
}

void AddDeclaredTwice(const Declared& declared, const Declared& other,
                      ValidationErrors* errors) {
  errors->AddFirst(declared.element, declared.declaration.name +
                                         " is already declared for " +
                                         other.element.full_name);
}

// Reports a name of the schema, as C++ spells it, that belongs to the compiler.
void ValidateSpelling(const std::string& name, const SchemaElement& element,
                      ValidationErrors* errors) {
  if (IsOfTheCompiler(name)) {
    errors->AddFirst(element, "C++ leaves names that begin like " + name +
                                  " to the compiler");
  }
}

// The members of one message's class.
class ClassValidator {
 public:
  ClassValidator(const Descriptor* message, ValidationErrors* errors)
      : message_(message), generator_(message), errors_(errors) {}

  void Validate() {
    CollectMembers();
    CollectOwnMembers();
    if (own_members_.count(ClassName(message_)) > 0) {
      AddOwnMember(ClassName(message_), ElementOf(message_));
    }
    for (const Declared& member : members_) ValidateMember(member);
  }

 private:
  void CollectMembers() {
    for (int i = 0; i < message_->nested_type_count(); ++i) {
      const Descriptor* const nested = message_->nested_type(i);
      members_.push_back(
          {{NestedName(nested), Declaration::kOther, ""}, ElementOf(nested)});
    }
    for (int i = 0; i < message_->enum_type_count(); ++i) {
      CollectMembersFor(message_->enum_type(i));
    }
    for (const auto& field : generator_.fields()) {
      const SchemaElement element = ElementOf(field->descriptor());
      ValidateSpelling(FieldName(field->descriptor()), element, errors_);
      members_.push_back(
          {{FieldNumberName(field->descriptor()), Declaration::kOther, ""},
           element});
      // The member of a scalar is one of a struct.
      const std::string code =
          field->AccessorDeclarations() + field->CachedSizeMember() +
          (field->scalar_width() > 0 ? "" : field->Member());
      for (const Declaration& declaration : DeclarationsIn(code)) {
        members_.push_back({declaration, element});
      }
    }
  }

  void CollectMembersFor(const EnumDescriptor* enum_type) {
    std::map<std::string, SchemaElement> values;
    for (int i = 0; i < enum_type->value_count(); ++i) {
      const auto* const value = enum_type->value(i);
      ValidateSpelling(NestedName(value), ElementOf(value), errors_);
      values.emplace(NestedName(value), ElementOf(value));
    }
    ValidateSpelling(NestedName(enum_type), ElementOf(enum_type), errors_);
    for (const Declaration& declaration :
         DeclarationsIn(EnumGenerator(enum_type).MembersOfClass())) {
      const auto value = values.extract(declaration.name);
      members_.push_back(
          {declaration, value.empty() ? ElementOf(enum_type) : value.mapped()});
    }
  }

  // What the class declares besides `members_`, and what the emitted code and
  // the runtime's templates look up in classes that do not declare it.
  void CollectOwnMembers() {
    own_members_ = {"CreateMaybeMessage", "DestructorSkippable_",
                    "GetArena",           "GetArenaForAllocation",
                    "GetOwningArena",     "InternalArenaConstructable_",
                    "_internal_metadata_"};
    std::map<std::pair<std::string, std::string>, int> surplus;
    for (const Declared& member : members_) {
      --surplus[{member.declaration.name, member.declaration.signature}];
    }
    for (const Declaration& member :
         MembersOfClassIn(generator_.ClassDefinition())) {
      if (++surplus[{member.name, member.signature}] > 0) {
        own_members_.insert(member.name);
      }
    }
  }

  void ValidateMember(const Declared& member) {
    const std::string& name = member.declaration.name;
    ValidateAlone(member, errors_);
    if (own_members_.count(name) > 0) AddOwnMember(name, member.element);
    if (name == ClassName(message_)) {
      errors_->AddFirst(member.element,
                        name + " is the name of the class itself");
    }
    std::vector<Declared>* const others = &members_by_name_[name];
    for (const Declared& other : *others) {
      if (!AreOverloads(member.declaration, other.declaration)) {
        AddDeclaredTwice(member, other, errors_);
      }
    }
    others->push_back(member);
  }

  static bool AreOverloads(const Declaration& a, const Declaration& b) {
    return a.kind == Declaration::kFunction &&
           b.kind == Declaration::kFunction && a.signature != b.signature;
  }

  void AddOwnMember(const std::string& name, const SchemaElement& element) {
    errors_->AddFirst(element, name + " is a member of message classes");
  }

  const Descriptor* const message_;
  const MessageGenerator generator_;
  ValidationErrors* const errors_;
  // What the class declares for fields and nested messages.
  std::vector<Declared> members_;
  std::map<std::string, std::vector<Declared>> members_by_name_;
  // All its other members.
  std::set<std::string> own_members_;
};

// The namespaces that the code of a file and of its imports adds to.
class NamespaceValidator {
 public:
  // Imported files come before.
  void Validate(const FileDescriptor* file, ValidationErrors* errors) {
    errors_ = errors;
    ValidatePackage(file);
    for (int i = 0; i < file->enum_type_count(); ++i) {
      ValidateEnum(file->enum_type(i));
    }
    for (int i = 0; i < file->message_type_count(); ++i) {
      ValidateMessage(file->message_type(i));
    }
  }

 private:
  void ValidatePackage(const FileDescriptor* file) {
    const SchemaElement package = PackageOf(file);
    scope_.clear();
    for (const std::string& part : PackageParts(file)) {
      ValidateSpelling(part, package, errors_);
      const Declared declared = {{part, Declaration::kOther, ""}, package};
      ValidateAlone(declared, errors_);
      ValidateInScope(declared);
      scope_ += "::" + part;
      if (scope_ == "::std" || scope_ == "::google::protobuf" ||
          scope_ == "::vantiro::internal") {
        errors_->AddFirst(package,
                          scope_ + " is a namespace of the included headers");
      }
      namespaces_.insert(scope_);
    }
  }

  void ValidateEnum(const EnumDescriptor* enum_type) {
    const EnumGenerator generator(enum_type);
    ValidateSpelling(ClassName(enum_type), ElementOf(enum_type), errors_);
    std::map<std::string, SchemaElement> values;
    for (int i = 0; i < enum_type->value_count(); ++i) {
      const auto* const value = enum_type->value(i);
      ValidateSpelling(ValueName(value), ElementOf(value), errors_);
      values.emplace(ValueName(value), ElementOf(value));
    }
    for (const Declaration& declaration :
         DeclarationsIn(generator.Declaration() + generator.Definition())) {
      // A second declaration of a value's name is that of a function or
      // constant.
      const auto value = values.extract(declaration.name);
      Declare(
          {declaration, value.empty() ? ElementOf(enum_type) : value.mapped()});
    }
  }

  void ValidateMessage(const Descriptor* message) {
    const SchemaElement element = ElementOf(message);
    ValidateSpelling(message->name(), element, errors_);
    for (const Declaration& declaration :
         DeclarationsIn(MessageGenerator(message).ForwardDeclarations())) {
      Declare({declaration, element});
    }
    for (int i = 0; i < message->enum_type_count(); ++i) {
      ValidateEnum(message->enum_type(i));
    }
    for (int i = 0; i < message->nested_type_count(); ++i) {
      ValidateMessage(message->nested_type(i));
    }
  }

  void Declare(const Declared& declared) {
    ValidateAlone(declared, errors_);
    ValidateInScope(declared);
    const std::string name = scope_ + "::" + declared.declaration.name;
    if (namespaces_.count(name) > 0) {
      errors_->AddFirst(declared.element, name + " is a namespace");
    }
    declared_.emplace(name, declared);
  }

  // Reports a name that something else than a namespace has taken.
  void ValidateInScope(const Declared& declared) {
    const std::string& name = declared.declaration.name;
    if (scope_.empty() && IsGlobalName(name)) {
      errors_->AddFirst(declared.element,
                        name + " is declared by the C library");
    }
    const auto other = declared_.find(scope_ + "::" + name);
    if (other != declared_.end() &&
        other->second.element.place != declared.element.place) {
      AddDeclaredTwice(declared, other->second, errors_);
    }
  }

  ValidationErrors* errors_ = nullptr;
  // The namespace of the file, as all names here from "::" on.
  std::string scope_;
  std::set<std::string> namespaces_ = {"::google", "::google::protobuf",
                                       "::std", "::vantiro",
                                       "::vantiro::internal"};
  std::map<std::string, Declared> declared_;
};

void AddImports(const FileDescriptor* file,
                std::vector<const FileDescriptor*>* imports) {
  for (int i = 0; i < file->dependency_count(); ++i) {
    const FileDescriptor* const import = file->dependency(i);
    if (std::find(imports->begin(), imports->end(), import) == imports->end()) {
      AddImports(import, imports);
      imports->push_back(import);
    }
  }
}

void ValidateClasses(const Descriptor* message, ValidationErrors* errors) {
  ClassValidator(message, errors).Validate();
  for (int i = 0; i < message->nested_type_count(); ++i) {
    ValidateClasses(message->nested_type(i), errors);
  }
}

}  // namespace

void ValidateNames(const FileDescriptor* file, ValidationErrors* errors) {
  NamespaceValidator namespaces;
  std::vector<const FileDescriptor*> imports;
  AddImports(file, &imports);
  for (const FileDescriptor* import : imports) {
    ValidationErrors errors_elsewhere;
    ValidateFeatures(import, &errors_elsewhere);
    if (errors_elsewhere.lines().empty()) {
      namespaces.Validate(import, &errors_elsewhere);
    }
  }
  namespaces.Validate(file, errors);
  for (int i = 0; i < file->message_type_count(); ++i) {
    ValidateClasses(file->message_type(i), errors);
  }
}

}  // namespace compiler
}  // namespace vantiro
