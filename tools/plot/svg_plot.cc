#include "tools/plot/svg_plot.h"

#include <algorithm>
#include <cstdio>

#include "tools/page/html.h"

namespace vantiro {
namespace tools {
namespace {

constexpr double kWidth = 900;
constexpr double kHeight = 420;
constexpr double kTop = 44;
constexpr double kBottom = kHeight - 36;
constexpr double kRight = kWidth - 20;
constexpr int kTicks = 5;

std::string Coordinate(double value) {
  char text[32];
  static_cast<void>(std::snprintf(text, sizeof(text), "%.1f", value));
  return text;
}

// From a range of numbers to coordinates.
class Scale {
 public:
  Scale(double minimum, double maximum, double from, double to)
      : minimum_(minimum), maximum_(maximum), from_(from), to_(to) {}

  double operator()(double value) const {
    const double range = maximum_ / 2 - minimum_ / 2;
    const double part = range > 0 ? (value / 2 - minimum_ / 2) / range : 0.5;
    return from_ + part * (to_ - from_);
  }
  // The number at one of the ticks.
  double Tick(int tick) const {
    const double part = static_cast<double>(tick) / (kTicks - 1);
    return minimum_ * (1 - part) + maximum_ * part;
  }

 private:
  const double minimum_;
  const double maximum_;
  const double from_;
  const double to_;
};

class SvgWriter {
 public:
  explicit SvgWriter(std::ostream* out) : out_(*out) {}

  void Begin(const std::string& title) {
    out_ << R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 )" << kWidth
         << ' ' << kHeight << R"(" role="img" aria-label=")" << Escape(title)
         << R"(">
<style>
.plot { font: 13px system-ui, sans-serif; fill: #5f6570; }
.plot-title { font-weight: 650; fill: #22252b; }
.plot-grid { stroke: #e4e1db; }
.plot-line { fill: none; stroke: #1c5d8c; stroke-width: 1.5; stroke-linejoin: round; }
.plot-bar, .plot-dot { fill: #1c5d8c; }
.plot-range { stroke: #1c5d8c; stroke-opacity: 0.3; }
@media (prefers-color-scheme: dark) {
.plot { fill: #989fab; }
.plot-title { fill: #dfe2e7; }
.plot-grid { stroke: #31353c; }
.plot-line, .plot-range { stroke: #82bbe8; }
.plot-bar, .plot-dot { fill: #82bbe8; }
}
</style>
<g class="plot">
)";
    Text(title, kLeft, 24, "start", "plot-title");
  }

  void End() { out_ << "</g>\n</svg>\n"; }

  void Text(const std::string& text, double x, double y, const char* anchor,
            const char* style = nullptr) {
    out_ << "<text x=\"" << Coordinate(x) << "\" y=\"" << Coordinate(y)
         << "\" text-anchor=\"" << anchor << '"';
    if (style != nullptr) out_ << " class=\"" << style << '"';
    out_ << '>' << Escape(text) << "</text>\n";
  }

  void Line(double x1, double y1, double x2, double y2, const char* style) {
    out_ << "<line x1=\"" << Coordinate(x1) << "\" y1=\"" << Coordinate(y1)
         << "\" x2=\"" << Coordinate(x2) << "\" y2=\"" << Coordinate(y2)
         << "\" class=\"" << style << "\"/>\n";
  }

  // Lines across the plot, with their numbers.
  void Grid(const Scale& to_y) {
    for (int tick = 0; tick < kTicks; ++tick) {
      const double number = to_y.Tick(tick);
      const double y = to_y(number);
      Line(kLeft, y, kRight, y, "plot-grid");
      Text(ShortNumber(number), kLeft - 8, y + 4, "end");
    }
  }

  static constexpr double kLeft = 100;

 private:
  std::ostream& out_;
};

// So that the labels under the bars do not overlap.
size_t LabelStep(const std::vector<Bin>& bins) {
  constexpr size_t kMaxLabels = 10;
  return (bins.size() + kMaxLabels - 1) / kMaxLabels;
}

}  // namespace

void WriteSvgSeries(const std::string& title, const Series& series,
                    std::ostream* out) {
  const std::vector<Series::Point>& points = series.points();
  const Scale to_x(0, static_cast<double>(points.size() - 1), SvgWriter::kLeft,
                   kRight);
  const Scale to_y(series.Minimum(), series.Maximum(), kBottom, kTop);
  SvgWriter svg(out);
  svg.Begin(title);
  svg.Grid(to_y);
  svg.Text("0", SvgWriter::kLeft, kHeight - 12, "start");
  svg.Text(std::to_string(series.count() - 1), kRight, kHeight - 12, "end");
  for (size_t i = 0; i < points.size(); ++i) {
    if (points[i].count == 1) continue;
    const double x = to_x(static_cast<double>(i));
    svg.Line(x, to_y(points[i].minimum), x, to_y(points[i].maximum),
             "plot-range");
  }
  *out << "<polyline class=\"plot-line\" points=\"";
  for (size_t i = 0; i < points.size(); ++i) {
    *out << (i == 0 ? "" : " ") << Coordinate(to_x(static_cast<double>(i)))
         << ',' << Coordinate(to_y(points[i].Mean()));
  }
  *out << "\"/>\n";
  constexpr size_t kMaxDots = 60;
  for (size_t i = 0; i < points.size() && points.size() <= kMaxDots; ++i) {
    *out << "<circle class=\"plot-dot\" r=\"3\" cx=\""
         << Coordinate(to_x(static_cast<double>(i))) << "\" cy=\""
         << Coordinate(to_y(points[i].Mean())) << "\"><title>"
         << Escape(ShortNumber(points[i].Mean())) << "</title></circle>\n";
  }
  svg.End();
}

void WriteSvgHistogram(const std::string& title, const std::vector<Bin>& bins,
                       std::ostream* out) {
  size_t largest = 1;
  for (const Bin& bin : bins) largest = std::max(largest, bin.count);
  const Scale to_y(0, static_cast<double>(largest), kBottom, kTop);
  SvgWriter svg(out);
  svg.Begin(title);
  svg.Grid(to_y);
  const double width =
      (kRight - SvgWriter::kLeft) / static_cast<double>(bins.size());
  for (size_t i = 0; i < bins.size(); ++i) {
    const double x = SvgWriter::kLeft + width * static_cast<double>(i);
    const double y = to_y(static_cast<double>(bins[i].count));
    *out << "<rect class=\"plot-bar\" x=\"" << Coordinate(x + 1) << "\" y=\""
         << Coordinate(y) << "\" width=\"" << Coordinate(width - 2)
         << "\" height=\"" << Coordinate(kBottom - y) << "\"><title>"
         << Escape(bins[i].label) << ": " << bins[i].count
         << "</title></rect>\n";
    if (i % LabelStep(bins) != 0) continue;
    const bool is_range = bins[i].is_range;
    svg.Text(is_range ? ShortNumber(bins[i].begin) : bins[i].label,
             is_range ? x : x + width / 2, kHeight - 12,
             is_range ? "start" : "middle");
  }
  svg.End();
}

}  // namespace tools
}  // namespace vantiro
