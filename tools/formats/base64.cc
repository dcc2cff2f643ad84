#include "tools/formats/base64.h"

#include <google/protobuf/stubs/strutil.h>

namespace vantiro {
namespace tools {

std::string Base64(const std::string& bytes) {
  std::string text;
  google::protobuf::Base64Escape(bytes, &text);
  return text;
}

bool ParseBase64(const std::string& text, std::string* bytes) {
  const bool is_for_urls = text.find_first_of("-_") != std::string::npos;
  return is_for_urls ? google::protobuf::WebSafeBase64Unescape(text, bytes)
                     : google::protobuf::Base64Unescape(text, bytes);
}

}  // namespace tools
}  // namespace vantiro
