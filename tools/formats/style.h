// The colours of output on a terminal.

#ifndef VANTIRO_TOOLS_FORMATS_STYLE_H_
#define VANTIRO_TOOLS_FORMATS_STYLE_H_

#include <string>

namespace vantiro {
namespace tools {

class Style {
 public:
  // Without colour, text is left as it is.
  explicit Style(bool is_coloured) : is_coloured_(is_coloured) {}

  std::string Name(const std::string& text) const { return In("36", text); }
  std::string Note(const std::string& text) const { return In("2", text); }
  std::string Heading(const std::string& text) const { return In("1", text); }
  std::string Warning(const std::string& text) const { return In("33", text); }
  std::string Added(const std::string& text) const { return In("32", text); }
  std::string Removed(const std::string& text) const { return In("31", text); }

 private:
  std::string In(const char* code, const std::string& text) const {
    if (!is_coloured_) return text;
    return "\033[" + std::string(code) + "m" + text + "\033[0m";
  }

  bool is_coloured_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_STYLE_H_
