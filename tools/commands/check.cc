#include <atomic>
#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "tools/check/canonical_form.h"
#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/io/progress.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  std::vector<std::string> files;
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

const char* Verdict(const Result& result) {
  if (!result.error.empty()) return kVerdicts[3];
  if (!result.report.parses) return kVerdicts[2];
  return kVerdicts[result.report.is_canonical ? 0 : 1];
}

Result Check(const std::string& file, const Options& options,
             const CommandIo& io) {
  Result result;
  try {
    const std::string bytes = io.ReadBytes(file);
    result.type = &io.TypeOf(options.type, bytes);
    result.report = CheckCanonicalForm(*result.type, bytes);
  } catch (const std::exception& error) {
    result.error = error.what();
  }
  return result;
}

// Checks files in parallel. Writes the results in the order of the files, each
// as soon as those before it are written.
class Checker {
 public:
  Checker(const Options& options, CommandIo* io)
      : options_(options), io_(*io), style_(io->style()) {}

  void Run() {
    // A wrong name is one error, not one for each file.
    if (!options_.type.empty()) io_.TypeOf(options_.type, "");
    Progress progress(options_.files.size(), io_.quiet());
    std::vector<std::thread> threads;
    const size_t count =
        std::min<size_t>(std::max(1U, std::thread::hardware_concurrency()),
                         options_.files.size());
    for (size_t i = 0; i < count; ++i) {
      threads.emplace_back([this, &progress] { Work(&progress); });
    }
    for (std::thread& thread : threads) thread.join();
    progress.Hide();
    if (!io_.quiet() && !options_.json) WriteSummary();
  }

 private:
  void Work(Progress* progress) {
    while (true) {
      const size_t i = next_++;
      if (i >= options_.files.size()) return;
      Result result = Check(options_.files[i], options_, io_);
      const std::lock_guard<std::mutex> lock(mutex_);
      waiting_.emplace(i, std::move(result));
      while (!waiting_.empty() && waiting_.begin()->first == done_) {
        progress->Hide();
        Write(options_.files[done_], waiting_.begin()->second);
        waiting_.erase(waiting_.begin());
        progress->Show(++done_);
      }
    }
  }

  void Write(const std::string& file, const Result& result) {
    const char* const verdict = Verdict(result);
    ++counts_[verdict];
    if (verdict != kVerdicts[0]) {
      io_.RaiseStatus(result.error.empty() ? kFound : kWrongUse);
    }
    if (options_.json) {
      WriteJson(file, result);
      return;
    }
    if (io_.quiet() && verdict == kVerdicts[0]) return;
    std::cout << EscapeControls(file) << ": " << style_.Name(verdict);
    if (result.type != nullptr) {
      std::cout << style_.Note(" (" + result.type->full_name() + ")");
    }
    std::cout << '\n';
    WriteLine(result.error);
    WriteLine(result.report.fault);
    WriteCounts(result.report.differences);
    if (!io_.quiet()) WriteCounts(result.report.remarks);
  }

  static void WriteLine(const std::string& text) {
    if (!text.empty()) std::cout << "  " << text << '\n';
  }

  static void WriteCounts(const std::vector<FlagCount>& counts) {
    for (const FlagCount& count : counts) {
      WriteLine(std::to_string(count.count) + " x " + count.name +
                ", first at offset " + std::to_string(count.offset));
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

  // JSON Lines: one object in a line for each file.
  static void WriteJson(const std::string& file, const Result& result) {
    Json json = {{"file", file}, {"verdict", Verdict(result)}};
    if (result.type != nullptr) json["type"] = result.type->full_name();
    if (!result.error.empty()) json["error"] = result.error;
    if (!result.report.fault.empty()) json["fault"] = result.report.fault;
    json["differences"] = CountsToJson(result.report.differences);
    json["remarks"] = CountsToJson(result.report.remarks);
    std::cout << JsonText(json, -1) << '\n';
  }

  void WriteSummary() {
    std::string text;
    for (const char* const verdict : kVerdicts) {
      if (counts_[verdict] == 0) continue;
      if (!text.empty()) text += ", ";
      text += std::to_string(counts_[verdict]) + " " + verdict;
    }
    std::cout << text << '\n';
  }

  const Options& options_;
  CommandIo& io_;
  const Style style_;
  std::atomic<size_t> next_{0};
  // The mutex guards the members below.
  std::mutex mutex_;
  std::map<size_t, Result> waiting_;
  size_t done_ = 0;
  std::map<std::string, size_t> counts_;
};

}  // namespace

void AddCheck(CLI::App* program, CommandIo* io) {
  CLI::App* const command = program->add_subcommand(
      "check",
      "Check whether the library would write records in the same bytes");
  const auto options = std::make_shared<Options>();
  CommandIo::AddFiles(command, &options->files);
  CommandIo::AddType(
      command, "The records' type; by default the most likely root for each",
      &options->type);
  command->add_flag("--json", options->json,
                    "Write a line of JSON for each record");
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
  command->callback([=] { Checker(*options, io).Run(); });
}

}  // namespace tools
}  // namespace vantiro
