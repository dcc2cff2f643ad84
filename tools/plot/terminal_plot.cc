#include "tools/plot/terminal_plot.h"

#include <algorithm>
#include <cmath>

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kRows = 15;

// UTF-8 of a character from U+0800 to U+FFFF.
std::string Utf8(unsigned code) {
  return {static_cast<char>(0xe0 | (code >> 12)),
          static_cast<char>(0x80 | ((code >> 6) & 0x3f)),
          static_cast<char>(0x80 | (code & 0x3f))};
}

// Dots in characters: of Braille two by four in each, of ASCII one.
class Canvas {
 public:
  Canvas(size_t columns, size_t rows, bool is_ascii)
      : columns_(columns),
        rows_(rows),
        is_ascii_(is_ascii),
        dots_(width() * height()) {}

  size_t width() const { return columns_ * (is_ascii_ ? 1 : 2); }
  size_t height() const { return rows_ * (is_ascii_ ? 1 : 4); }

  // Counted from the left and from the bottom.
  void Set(size_t x, size_t y) {
    dots_[(height() - 1 - y) * width() + x] = true;
  }

  std::string Row(size_t row) const {
    std::string text;
    for (size_t column = 0; column < columns_; ++column) {
      if (is_ascii_) {
        text += dots_[row * columns_ + column] ? '*' : ' ';
      } else {
        text += Braille(row, column);
      }
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  }

 private:
  std::string Braille(size_t row, size_t column) const {
    // By row and column of the dot.
    static constexpr unsigned kDots[4][2] = {
        {0x01, 0x08}, {0x02, 0x10}, {0x04, 0x20}, {0x40, 0x80}};
    unsigned bits = 0;
    for (size_t y = 0; y < 4; ++y) {
      for (size_t x = 0; x < 2; ++x) {
        if (dots_[(4 * row + y) * width() + 2 * column + x]) {
          bits |= kDots[y][x];
        }
      }
    }
    return bits == 0 ? " " : Utf8(0x2800 + bits);
  }

  const size_t columns_;
  const size_t rows_;
  const bool is_ascii_;
  std::vector<bool> dots_;
};

// Where a value is between two others, as one of `count` places.
class Scale {
 public:
  Scale(double minimum, double maximum, size_t count)
      : minimum_(minimum), maximum_(maximum), last_(count - 1) {}

  size_t operator()(double value) const {
    // Halves, since the difference can be too large for a double.
    const double range = maximum_ / 2 - minimum_ / 2;
    if (range <= 0) return last_ / 2;
    const double part = (value / 2 - minimum_ / 2) / range;
    return static_cast<size_t>(
        std::lround(std::clamp(part, 0.0, 1.0) * static_cast<double>(last_)));
  }

 private:
  const double minimum_;
  const double maximum_;
  const size_t last_;
};

// Points, and lines between their means.
void Draw(const Series& series, Canvas* canvas) {
  const std::vector<Series::Point>& points = series.points();
  const Scale to_x(0, static_cast<double>(points.size() - 1), canvas->width());
  const Scale to_y(series.Minimum(), series.Maximum(), canvas->height());
  const auto draw = [&](size_t x, double from, double to) {
    const size_t end = to_y(std::max(from, to));
    for (size_t y = to_y(std::min(from, to)); y <= end; ++y) canvas->Set(x, y);
  };
  for (size_t i = 0; i < points.size(); ++i) {
    const size_t x = to_x(static_cast<double>(i));
    draw(x, points[i].minimum, points[i].maximum);
    if (i + 1 == points.size()) break;
    const size_t next_x = to_x(static_cast<double>(i + 1));
    const double mean = points[i].Mean();
    const double next = points[i + 1].Mean();
    const auto width = static_cast<double>(std::max<size_t>(next_x - x, 1));
    for (size_t step = x; step < next_x; ++step) {
      const double begin = static_cast<double>(step - x) / width;
      const double end = static_cast<double>(step + 1 - x) / width;
      draw(step, mean * (1 - begin) + next * begin,
           mean * (1 - end) + next * end);
    }
  }
}

std::string Repeated(const std::string& text, size_t count) {
  std::string result;
  for (size_t i = 0; i < count; ++i) result += text;
  return result;
}

std::string PaddedLeft(const std::string& text, size_t width) {
  return std::string(width - std::min(width, text.size()), ' ') + text;
}

// A bar of a length in eighths of a character.
std::string Bar(size_t eighths, bool is_ascii) {
  if (is_ascii) return Repeated("#", (eighths + 4) / 8);
  std::string bar = Repeated(Utf8(0x2588), eighths / 8);
  if (eighths % 8 != 0) {
    bar += Utf8(0x2590 - static_cast<unsigned>(eighths % 8));
  }
  return bar;
}

}  // namespace

std::string TerminalSeries(const Series& series,
                           const TerminalOptions& options) {
  const double minimum = series.Minimum();
  const double maximum = series.Maximum();
  const bool is_flat = minimum == maximum;
  const std::string labels[] = {is_flat ? "" : ShortNumber(maximum),
                                ShortNumber(minimum / 2 + maximum / 2),
                                is_flat ? "" : ShortNumber(minimum)};
  size_t label_width = 0;
  for (const std::string& label : labels) {
    label_width = std::max(label_width, label.size());
  }
  const size_t taken = label_width + 2;
  const size_t columns =
      options.width > taken + 10 ? options.width - taken : 10;
  Canvas canvas(columns, kRows, options.is_ascii);
  Draw(series, &canvas);
  std::string text;
  for (size_t row = 0; row < kRows; ++row) {
    const std::string label = row == 0           ? labels[0]
                              : row == kRows / 2 ? labels[1]
                              : row + 1 == kRows ? labels[2]
                                                 : "";
    const char* const axis = options.is_ascii ? (label.empty() ? "|" : "+")
                             : label.empty()  ? "│"
                                              : "┤";
    std::string line =
        PaddedLeft(label, label_width) + ' ' + axis + canvas.Row(row);
    text += line + '\n';
  }
  text += std::string(label_width + 1, ' ') + (options.is_ascii ? "+" : "└") +
          Repeated(options.is_ascii ? "-" : "─", columns) + '\n';
  const std::string last = std::to_string(series.count() - 1);
  text += std::string(taken, ' ') + '0' + PaddedLeft(last, columns - 1) + '\n';
  return text;
}

std::string TerminalHistogram(const std::vector<Bin>& bins,
                              const TerminalOptions& options) {
  size_t label_width = 0;
  size_t largest = 1;
  for (const Bin& bin : bins) {
    label_width = std::max(label_width, bin.label.size());
    largest = std::max(largest, bin.count);
  }
  const size_t count_width = std::to_string(largest).size();
  const size_t taken = label_width + count_width + 4;
  const size_t columns =
      options.width > taken + 10 ? options.width - taken : 10;
  const Scale scale(0, static_cast<double>(largest), 8 * columns + 1);
  std::string text;
  for (const Bin& bin : bins) {
    // What is there has a bar that can be seen.
    const size_t length =
        bin.count == 0 ? 0
                       : std::max<size_t>(scale(static_cast<double>(bin.count)),
                                          options.is_ascii ? 4 : 1);
    std::string line = PaddedLeft(bin.label, label_width) + "  " +
                       PaddedLeft(std::to_string(bin.count), count_width) +
                       "  " + Bar(length, options.is_ascii);
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + '\n';
  }
  return text;
}

}  // namespace tools
}  // namespace vantiro
