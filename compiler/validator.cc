#include "compiler/validator.h"

#include <google/protobuf/descriptor.pb.h>

#include <string>

#include "compiler/name_validator.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;
using google::protobuf::FileOptions;

class FeatureValidator {
 public:
  explicit FeatureValidator(ValidationErrors* errors) : errors_(errors) {}

  void Validate(const FileDescriptor* file) {
    if (file->syntax() != FileDescriptor::SYNTAX_PROTO3) {
      Add(file, "syntax must be proto3");
    }
    if (file->options().optimize_for() != FileOptions::LITE_RUNTIME) {
      Add(file, "optimize_for must be LITE_RUNTIME");
    }
    for (int i = 0; i < file->service_count(); ++i) {
      Add(file->service(i), "services are not supported");
    }
    for (int i = 0; i < file->extension_count(); ++i) {
      Add(file->extension(i), "extensions are not supported");
    }
    for (int i = 0; i < file->message_type_count(); ++i) {
      Validate(file->message_type(i));
    }
  }

 private:
  void Validate(const Descriptor* message) {
    for (int i = 0; i < message->extension_count(); ++i) {
      Add(message->extension(i), "extensions are not supported");
    }
    if (message->extension_range_count() > 0) {
      Add(message, "extension ranges are not supported");
    }
    for (int i = 0; i < message->real_oneof_decl_count(); ++i) {
      Add(message->oneof_decl(i), "oneof is not supported");
    }
    for (int i = 0; i < message->field_count(); ++i) {
      Validate(message->field(i));
    }
    for (int i = 0; i < message->nested_type_count(); ++i) {
      // The entries of a map are refused with the map.
      if (!message->nested_type(i)->options().map_entry()) {
        Validate(message->nested_type(i));
      }
    }
  }

  void Validate(const FieldDescriptor* field) {
    if (field->is_map()) {
      Add(field, "maps are not supported");
      return;
    }
    if (field->has_optional_keyword()) {
      Add(field, "optional is not supported");
    }
    if (field->is_required()) Add(field, "required is not supported");
    if (field->has_default_value()) {
      Add(field, "default values are not supported");
    }
    ValidateType(field);
  }

  void ValidateType(const FieldDescriptor* field) {
    if (field->type() == FieldDescriptor::TYPE_GROUP) {
      Add(field, "group is not supported");
    }
  }

  template <typename T>
  void Add(const T* descriptor, const std::string& reason) {
    errors_->Add(ElementOf(descriptor), reason);
  }

  ValidationErrors* const errors_;
};

}  // namespace

void ValidateFeatures(const FileDescriptor* file, ValidationErrors* errors) {
  FeatureValidator(errors).Validate(file);
}

void Validate(const FileDescriptor* file, ValidationErrors* errors) {
  const size_t count = errors->lines().size();
  ValidateFeatures(file, errors);
  if (errors->lines().size() == count) ValidateNames(file, errors);
}

}  // namespace compiler
}  // namespace vantiro
