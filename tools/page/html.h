// Text in HTML.

#ifndef VANTIRO_TOOLS_PAGE_HTML_H_
#define VANTIRO_TOOLS_PAGE_HTML_H_

#include <string>
#include <string_view>

namespace vantiro {

// `text` with the characters escaped that are special in HTML.
inline std::string Escape(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PAGE_HTML_H_
