// Bytes as base64.

#ifndef VANTIRO_TOOLS_FORMATS_BASE64_H_
#define VANTIRO_TOOLS_FORMATS_BASE64_H_

#include <string>

namespace vantiro {
namespace tools {

// With padding.
std::string Base64(const std::string& bytes);

// The inverse: of the usual alphabet or the one for URLs, with white space,
// with or without padding. False if `text` is something else.
bool ParseBase64(const std::string& text, std::string* bytes);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_BASE64_H_
