#include "tools/plot/plot_page.h"

#include <string_view>

#include "tools/page/html.h"

extern "C" const char vantiro_plot_style_begin[];
extern "C" const char vantiro_plot_style_end[];

namespace vantiro {
namespace tools {

void WritePlotPage(const std::string& title, const std::string& summary,
                   const std::string& svg, std::ostream* out) {
  const std::string_view style(
      vantiro_plot_style_begin,
      static_cast<size_t>(vantiro_plot_style_end - vantiro_plot_style_begin));
  *out << R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>)"
       << Escape(title) << "</title>\n<style>\n"
       << style << "</style>\n</head>\n<body>\n<main>\n<h1>" << Escape(title)
       << "</h1>\n<p>" << Escape(summary) << "</p>\n"
       << svg << "</main>\n</body>\n</html>\n";
}

}  // namespace tools
}  // namespace vantiro
