#include "tools/plot/plot_page.h"

#include "tools/page/html.h"
#include "tools/page/page_head.h"

extern "C" const char vantiro_plot_style_begin[];
extern "C" const char vantiro_plot_style_end[];

namespace vantiro {
namespace tools {

void WritePlotPage(const std::string& title, const std::string& summary,
                   const std::string& svg, std::ostream* out) {
  WritePageHead(title,
                Between(vantiro_plot_style_begin, vantiro_plot_style_end), out);
  *out << "<main>\n<h1>" << Escape(title) << "</h1>\n<p>" << Escape(summary)
       << "</p>\n"
       << svg << "</main>\n</body>\n</html>\n";
}

}  // namespace tools
}  // namespace vantiro
