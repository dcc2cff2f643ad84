#include <sys/ioctl.h>
#include <unistd.h>

#include <atomic>
#include <cmath>
#include <cstring>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/io/batch.h"
#include "tools/plot/histogram.h"
#include "tools/plot/plot_page.h"
#include "tools/plot/series.h"
#include "tools/plot/svg_plot.h"
#include "tools/plot/terminal_plot.h"
#include "tools/record/path.h"
#include "tools/record/record.h"
#include "tools/record/value_text.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::string path;
  std::string type;
  bool histogram = false;
  bool ascii = false;
  std::string svg;
  std::string page;
  bool json = false;
};

// Of the terminal; 80 if the output goes elsewhere.
size_t OutputWidth() {
  winsize size = {};
  const bool is_known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
  return is_known && size.ws_col > 0 ? size.ws_col : 80;
}

double ToDouble(const FieldDescriptor& field, uint64_t bits) {
  switch (field.cpp_type()) {
    case FieldDescriptor::CPPTYPE_BOOL:
      return static_cast<double>(bits);
    case FieldDescriptor::CPPTYPE_ENUM:
      return static_cast<int32_t>(bits);
    default:
      return IsNan(bits) && IsFloat(field) ? std::nan("")
                                           : Number::Of(field, bits).ToDouble();
  }
}

// "1 value", "2 values".
std::string CountOf(size_t count, const char* what) {
  return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

void WriteOutput(const std::string& file, const std::string& content) {
  if (file == "-") {
    std::cout << content;
  } else {
    CommandIo::WriteFile(file, content);
  }
}

// The values of one path. In the report of a record its output are the bytes of
// its values as doubles, which Collect takes in the order of the records.
class Plotter : public RecordHandler {
 public:
  Plotter(const Options& options, const CommandIo& io)
      : options_(options), io_(io), paths_({options.path}, Types(options)) {
    for (const Descriptor* const type : Types(options)) {
      const std::optional<Path>& path = paths_.For(*type).front();
      if (!path.has_value()) continue;
      field_ = path->steps.back().field;
      if (IsScalar(*field_)) continue;
      throw NameError(field_->full_name() + " has no numbers");
    }
  }

  void Handle(const std::string& name, const std::string& bytes,
              Report* report) const override {
    const Descriptor& type = io_.TypeOf(options_.type, bytes);
    const DecodedRecord decoded = DecodeRecord(type, bytes);
    ++record_count_;
    const std::optional<Path>& path = paths_.For(type).front();
    if (path.has_value()) AddValues(*path, decoded.record, &report->output);
    CommandIo::ReportFault(name, decoded.fault, report);
  }

  std::string Collect(const std::string& output) const override {
    for (size_t i = 0; i < output.size(); i += sizeof(double)) {
      double number;
      std::memcpy(&number, output.data() + i, sizeof(number));
      if (!std::isfinite(number)) {
        ++undrawn_count_;
        continue;
      }
      series_.Add(number);
      numbers_.Add(Number::Of(number));
    }
    return "";
  }

  std::string Footer() const override {
    if (!options_.svg.empty() || !options_.page.empty()) return "";
    if (options_.json) return JsonText(ToJson(), 2) + '\n';
    const Style style = io_.style();
    std::string text = style.Heading(options_.path) + ": " + Summary() + '\n';
    if (series_.count() == 0) return text;
    const TerminalOptions terminal = {OutputWidth(), options_.ascii};
    return text + '\n' +
           (options_.histogram ? TerminalHistogram(Bins(), terminal)
                               : TerminalSeries(series_, terminal));
  }

  // After all records: writes the image and the page, if there is a value.
  void WriteFiles() const {
    if (options_.svg.empty() && options_.page.empty()) return;
    if (series_.count() == 0) {
      throw UsageError("no values of " + options_.path + " to draw");
    }
    std::ostringstream svg;
    if (options_.histogram) {
      WriteSvgHistogram(options_.path, Bins(), &svg);
    } else {
      WriteSvgSeries(options_.path, series_, &svg);
    }
    if (!options_.svg.empty()) WriteOutput(options_.svg, svg.str());
    if (options_.page.empty()) return;
    std::ostringstream page;
    WritePlotPage(options_.path, Summary(), svg.str(), &page);
    WriteOutput(options_.page, page.str());
  }

 private:
  static Messages Types(const Options& options) {
    const Schema& schema = Schema::BuiltIn();
    if (options.type.empty()) return schema.roots();
    return {&schema.FindMessage(options.type)};
  }

  static void AddValues(const Path& path, const Record& record,
                        std::string* output) {
    for (const Selected& selected : Select(path, record)) {
      const auto scalars = selected.value->scalars();
      for (size_t i = 0; i < scalars.size(); ++i) {
        if (selected.index.value_or(i) != i) continue;
        const double number = ToDouble(selected.value->field(), scalars[i]);
        char bytes[sizeof(number)];
        std::memcpy(bytes, &number, sizeof(number));
        output->append(bytes, sizeof(number));
      }
    }
  }

  std::string Summary() const {
    std::string text = CountOf(series_.count(), "value") + " in " +
                       CountOf(record_count_, "record");
    if (series_.count() > 0) {
      text += ", " + ShortNumber(series_.Minimum()) + " to " +
              ShortNumber(series_.Maximum()) + ", median " +
              (numbers_.IsExact() ? "" : "about ") +
              ShortNumber(numbers_.Median().ToDouble());
    }
    if (undrawn_count_ > 0) {
      text += "; " + std::to_string(undrawn_count_) +
              " NaN or infinite ones not drawn";
    }
    return text;
  }

  Json ToJson() const {
    Json json = {{"path", options_.path},
                 {"records", record_count_.load()},
                 {"values", series_.count()},
                 {"not_drawn", undrawn_count_}};
    if (series_.count() > 0) {
      json["minimum"] = series_.Minimum();
      json["median"] = numbers_.Median().ToDouble();
      json["maximum"] = series_.Maximum();
      json["median_is"] = numbers_.IsExact() ? "exact" : "estimate";
    }
    json[options_.histogram ? "bins" : "points"] =
        options_.histogram ? BinsJson() : PointsJson();
    return json;
  }

  Json PointsJson() const {
    Json points = Json::array();
    for (const Series::Point& point : series_.points()) {
      points.push_back({{"values", point.count},
                        {"minimum", point.minimum},
                        {"mean", point.Mean()},
                        {"maximum", point.maximum}});
    }
    return points;
  }

  Json BinsJson() const {
    Json bins = Json::array();
    for (const Bin& bin : Bins()) {
      bins.push_back({{"label", bin.label},
                      {"begin", bin.begin},
                      {"end", bin.end},
                      {"values", bin.count}});
    }
    return bins;
  }

  // The values of an enum or a bool have their names.
  std::vector<Bin> Bins() const {
    std::vector<Bin> bins = MakeBins(numbers_, !IsFloat(*field_));
    const bool has_names =
        field_->cpp_type() == FieldDescriptor::CPPTYPE_ENUM ||
        field_->cpp_type() == FieldDescriptor::CPPTYPE_BOOL;
    for (Bin& bin : bins) {
      if (!has_names || bin.is_range) continue;
      const auto number = static_cast<int32_t>(bin.begin);
      bin.label = ScalarText(*field_, static_cast<uint32_t>(number));
    }
    return bins;
  }

  const Options& options_;
  const CommandIo& io_;
  const Paths paths_;
  // The last one of the path, in one of the types that have it.
  const FieldDescriptor* field_ = nullptr;
  mutable std::atomic<size_t> record_count_ = 0;
  mutable size_t undrawn_count_ = 0;
  mutable Series series_;
  mutable Distribution numbers_{Number::kFloating};
};

void Plot(const Options& options, Batch* batch, const CommandIo& io) {
  const Plotter plotter(options, io);
  batch->FindInputs();
  if (batch->WritesFolder()) {
    throw UsageError("--output is a file: the plot is of all inputs");
  }
  batch->Run(plotter);
  plotter.WriteFiles();
}

}  // namespace

void AddPlot(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "plot", "Draw the values of a numeric field over the records");
  const auto options = std::make_shared<Options>();
  const auto batch = std::make_shared<Batch>(io);
  command
      ->add_option("path", options->path,
                   "The field, as in a.b[2].c; all elements if it is repeated")
      ->required()
      ->type_name("PATH");
  batch->AddInputs(command);
  CommandIo::AddType(command,
                     "The records' type; by default the most likely root",
                     &options->type);
  command->add_flag("--histogram", options->histogram,
                    "Draw how often values occur instead");
  CLI::Option* const ascii = command->add_flag(
      "--ascii", options->ascii, "Draw with characters of ASCII only");
  CLI::Option* const json =
      command
          ->add_flag("--json", options->json,
                     "Write the values of the plot as JSON instead")
          ->excludes(ascii);
  command
      ->add_option("--svg", options->svg,
                   "Write an SVG image to this file instead; - is standard "
                   "output")
      ->type_name("OUT")
      ->excludes(ascii)
      ->excludes(json);
  command
      ->add_option("--html", options->page,
                   "Write an HTML page to this file instead; - is standard "
                   "output")
      ->type_name("OUT")
      ->excludes(ascii)
      ->excludes(json);
  batch->AddStreamOptions(command);
  io->AddInputOptions(command);
  command->footer(
      "The values are drawn in the order of the records; of more than 4096, "
      "as\n"
      "many together as are needed. A field that a message does not have is\n"
      "drawn with its default value.\n\n"
      "Example:\n"
      "  for i in 1 4 9 4 1; do printf '02 08 0%d ' $i; done |\n"
      "    vantiro-records plot field_1 --delimited --hex --type ZAfRoiDimLite "
      "-");
  command->callback([=] { Plot(*options, batch.get(), *io); });
}

}  // namespace tools
}  // namespace vantiro
