#include <atomic>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "tools/check/canonical_form.h"
#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/io/batch.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::string type;
  bool json = false;
};

struct Result {
  const Descriptor* type = nullptr;
  CanonicalFormReport report;
  // Why the file was not checked.
  std::string error;
};

constexpr const char* kVerdicts[] = {"canonical", "not canonical", "damaged",
                                     "not checked"};

// An index into kVerdicts.
size_t Verdict(const Result& result) {
  if (!result.error.empty()) return 3;
  if (!result.report.parses) return 2;
  return result.report.is_canonical ? 0 : 1;
}

class Checker : public RecordHandler {
 public:
  Checker(const Options& options, bool has_several, const CommandIo& io)
      : options_(options),
        has_several_(has_several),
        io_(io),
        style_(io.style()) {}

  std::string Extension() const override {
    return options_.json ? ".jsonl" : ".txt";
  }

  void Handle(const std::string& name, const std::string& bytes,
              Report* report) const override {
    Result result;
    result.type = &io_.TypeOf(options_.type, bytes);
    result.report = CheckCanonicalForm(*result.type, bytes);
    report->is_damaged = !result.report.parses;
    if (!result.report.is_canonical) report->status = kFound;
    Write(name, result, report);
  }

  // A result of its own, which says why.
  bool HandleError(const std::string& name, const std::string& error,
                   Report* report) const override {
    Result result;
    result.error = error;
    Write(name, result, report);
    return !options_.json || !has_several_;
  }

  // "2 canonical, 1 damaged"
  std::string Footer() const override {
    std::string text;
    if (io_.quiet() || options_.json) return text;
    for (size_t i = 0; i < std::size(kVerdicts); ++i) {
      if (counts_[i] == 0) continue;
      if (!text.empty()) text += ", ";
      text += std::to_string(counts_[i]) + " " + kVerdicts[i];
    }
    return text + '\n';
  }

 private:
  void Write(const std::string& name, const Result& result,
             Report* report) const {
    const size_t verdict = Verdict(result);
    ++counts_[verdict];
    if (options_.json) {
      WriteJson(name, result, &report->output);
      return;
    }
    if (io_.quiet() && verdict == 0) return;
    std::string* const out = &report->output;
    *out += EscapeControls(name) + ": " + style_.Name(kVerdicts[verdict]);
    if (result.type != nullptr) {
      *out += style_.Note(" (" + result.type->full_name() + ")");
    }
    *out += '\n';
    WriteLine(result.error, out);
    WriteLine(result.report.fault, out);
    WriteCounts(result.report.differences, out);
    if (!io_.quiet()) WriteCounts(result.report.remarks, out);
  }

  static void WriteLine(const std::string& text, std::string* out) {
    if (!text.empty()) *out += "  " + text + '\n';
  }

  static void WriteCounts(const std::vector<FlagCount>& counts,
                          std::string* out) {
    for (const FlagCount& count : counts) {
      WriteLine(std::to_string(count.count) + " x " + count.name +
                    ", first at offset " + std::to_string(count.offset),
                out);
    }
  }

  static Json CountsToJson(const std::vector<FlagCount>& counts) {
    Json array = Json::array();
    for (const FlagCount& count : counts) {
      array.push_back({{"what", count.name},
                       {"count", count.count},
                       {"offset", count.offset}});
    }
    return array;
  }

  // JSON Lines: one object in a line for each record.
  static void WriteJson(const std::string& name, const Result& result,
                        std::string* out) {
    Json json = {{"file", name}, {"verdict", kVerdicts[Verdict(result)]}};
    if (result.type != nullptr) json["type"] = result.type->full_name();
    if (!result.error.empty()) json["error"] = result.error;
    if (!result.report.fault.empty()) json["fault"] = result.report.fault;
    json["differences"] = CountsToJson(result.report.differences);
    json["remarks"] = CountsToJson(result.report.remarks);
    *out += JsonText(json, -1) + '\n';
  }

  const Options& options_;
  const bool has_several_;
  const CommandIo& io_;
  const Style style_;
  // By verdict.
  mutable std::atomic<size_t> counts_[std::size(kVerdicts)] = {};
};

void Check(const Options& options, Batch* batch, const CommandIo& io) {
  batch->FindInputs();
  // A wrong name is one error, not one for each file.
  if (!options.type.empty()) Schema::BuiltIn().FindMessage(options.type);
  batch->Run(Checker(options, batch->HasSeveral(), io));
}

}  // namespace

void AddCheck(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "check",
      "Check whether the library would write records in the same bytes");
  const auto options = std::make_shared<Options>();
  const auto batch = std::make_shared<Batch>(io);
  batch->AddInputs(command);
  CommandIo::AddType(
      command, "The records' type; by default the most likely root for each",
      &options->type);
  command->add_flag("--json", options->json,
                    "Write a line of JSON for each record");
  batch->AddStreamOptions(command);
  io->AddInputOptions(command);
  command->footer(
      "Each record is parsed by the library's own class and written again. It\n"
      "is canonical if the bytes are the same; if not, the differences are\n"
      "shown. Unknown fields, undeclared enum numbers, NaN and -0.0 are\n"
      "canonical and are shown as remarks. The exit status is 1 if a record "
      "is\n"
      "not canonical.\n\n"
      "Example:\n"
      "  echo '10 07 08 05' |\n"
      "    vantiro-records check --hex --type ZAfRoiDimLite - || echo no");
  command->callback([=] { Check(*options, batch.get(), *io); });
}

}  // namespace tools
}  // namespace vantiro
