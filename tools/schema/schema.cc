#include "tools/schema/schema.h"

#include <google/protobuf/descriptor.pb.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>

// From schema_bytes.S.
extern "C" {
extern const char vantiro_schema_begin[];
extern const char vantiro_schema_end[];
}

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kMaxCandidates = 12;

std::string WithDots(std::string name) {
  for (size_t at; (at = name.find("::")) != std::string::npos;) {
    name.replace(at, 2, ".");
  }
  if (!name.empty() && name[0] == '.') name.erase(0, 1);
  return name;
}

// Whether `name` is the end of `full_name`, from a dot on.
bool IsEndOf(const std::string& full_name, const std::string& name) {
  if (full_name.size() <= name.size()) return full_name == name;
  const size_t start = full_name.size() - name.size();
  return full_name[start - 1] == '.' &&
         full_name.compare(start, name.size(), name) == 0;
}

std::string LowerCase(std::string text) {
  for (char& c : text) {
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return text;
}

std::string Listed(const std::vector<std::string>& names) {
  std::string text;
  for (size_t i = 0; i < std::min(names.size(), kMaxCandidates); ++i) {
    text += "\n  " + names[i];
  }
  if (names.size() > kMaxCandidates) text += "\n  ...";
  return text;
}

// The type of the full name `name`, or those whose full name ends with it.
template <typename T>
std::vector<const T*> Matches(const std::vector<const T*>& types,
                              const std::string& name) {
  std::vector<const T*> found;
  for (const T* const type : types) {
    if (type->full_name() == name) return {type};
    if (IsEndOf(type->full_name(), name)) found.push_back(type);
  }
  return found;
}

template <typename T>
void AppendNames(const std::vector<const T*>& types, const std::string& part,
                 std::vector<std::string>* names) {
  for (const T* const type : types) {
    if (LowerCase(type->full_name()).find(part) != std::string::npos) {
      names->push_back(type->full_name());
    }
  }
}

[[noreturn]] void ThrowUnknown(const std::string& name,
                               const std::vector<std::string>& similar) {
  throw NameError("the schema has no type " + name +
                  (similar.empty() ? "; 'list' shows all types"
                                   : "; similar names:" + Listed(similar)));
}

[[noreturn]] void ThrowAmbiguous(const std::string& name,
                                 const std::vector<std::string>& names) {
  throw NameError("several types are named " + name +
                  ", give one of:" + Listed(names));
}

template <typename T>
const Fields& FieldsWithType(const std::map<const T*, Fields>& fields,
                             const T& type) {
  static const auto* const none = new Fields();
  const auto found = fields.find(&type);
  return found == fields.end() ? *none : found->second;
}

}  // namespace

const Schema& Schema::BuiltIn() {
  static const auto* const schema = new Schema(
      vantiro_schema_begin,
      static_cast<size_t>(vantiro_schema_end - vantiro_schema_begin));
  return *schema;
}

Schema::Schema(const void* bytes, size_t size) {
  google::protobuf::FileDescriptorSet set;
  if (!set.ParseFromArray(bytes, static_cast<int>(size))) {
    throw std::logic_error("the built-in schema is damaged");
  }
  for (const auto& file : set.file()) pool_.BuildFile(file);
  std::set<std::string> names;
  for (const auto& file : set.file()) names.insert(file.name());
  for (const std::string& name : names) {
    const FileDescriptor* const unit = pool_.FindFileByName(name);
    units_.push_back(unit);
    for (const Descriptor* const message : MessagesOf(unit)) {
      messages_.push_back(message);
    }
    for (const EnumDescriptor* const type : EnumsOf(unit)) {
      enums_.push_back(type);
    }
  }
  for (const Descriptor* const message : messages_) IndexFields(*message);
  for (const Descriptor* const message : messages_) {
    if (CarriersOf(*message).empty()) roots_.push_back(message);
  }
}

void Schema::IndexFields(const Descriptor& message) {
  for (int i = 0; i < message.field_count(); ++i) {
    const FieldDescriptor* const field = message.field(i);
    if (field->message_type() != nullptr) {
      carriers_[field->message_type()].push_back(field);
    } else if (field->enum_type() != nullptr) {
      users_[field->enum_type()].push_back(field);
    }
  }
}

const Fields& Schema::CarriersOf(const Descriptor& message) const {
  return FieldsWithType(carriers_, message);
}

const Fields& Schema::UsersOf(const EnumDescriptor& enumeration) const {
  return FieldsWithType(users_, enumeration);
}

NamedType Schema::Find(const std::string& name) const {
  const std::string dotted = WithDots(name);
  const auto messages = Matches(messages_, dotted);
  const auto enums = Matches(enums_, dotted);
  std::vector<std::string> names;
  if (messages.size() + enums.size() == 1) {
    return {messages.empty() ? nullptr : messages[0],
            enums.empty() ? nullptr : enums[0]};
  }
  if (messages.empty() && enums.empty()) {
    AppendNames(messages_, LowerCase(dotted), &names);
    AppendNames(enums_, LowerCase(dotted), &names);
    ThrowUnknown(name, names);
  }
  AppendNames(messages, "", &names);
  AppendNames(enums, "", &names);
  ThrowAmbiguous(name, names);
}

const Descriptor& Schema::FindMessage(const std::string& name) const {
  const std::string dotted = WithDots(name);
  const auto messages = Matches(messages_, dotted);
  if (messages.size() == 1) return *messages[0];
  std::vector<std::string> names;
  if (messages.empty()) {
    if (!Matches(enums_, dotted).empty()) {
      throw NameError(name + " is an enum, not a message");
    }
    AppendNames(messages_, LowerCase(dotted), &names);
    ThrowUnknown(name, names);
  }
  AppendNames(messages, "", &names);
  ThrowAmbiguous(name, names);
}

std::string Schema::OneLine(const std::string& comment) {
  std::istringstream words(comment);
  std::string text;
  for (std::string word; words >> word;) {
    if (!text.empty()) text += ' ';
    text += word;
  }
  return text;
}

}  // namespace tools
}  // namespace vantiro
