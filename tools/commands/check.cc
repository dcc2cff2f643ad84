#include <atomic>
#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "tools/commands/session.h"
#include "tools/form.h"
#include "tools/formats.h"
#include "tools/progress.h"

namespace vantiro {
namespace inspection {
namespace {

struct Options {
  std::vector<std::string> files;
  std::string type;
  bool json = false;
};

struct Result {
  const Descriptor* type = nullptr;
  Form form;
  // Why the file was not checked.
  std::string error;
};

constexpr const char* kVerdicts[] = {"canonical", "not canonical", "damaged",
                                     "not checked"};

const char* Verdict(const Result& result) {
  if (!result.error.empty()) return kVerdicts[3];
  if (!result.form.parses) return kVerdicts[2];
  return kVerdicts[result.form.is_canonical ? 0 : 1];
}

Result Check(const std::string& file, const Options& options,
             const Session& session) {
  Result result;
  try {
    const std::string bytes = session.ReadBytes(file);
    result.type = &session.TypeOf(options.type, bytes);
    result.form = FormOf(*result.type, bytes);
  } catch (const std::exception& error) {
    result.error = error.what();
  }
  return result;
}

// Gives the results in the order of the files, each as soon as those before it
// are there, while all cores work.
class Checker {
 public:
  Checker(const Options& options, Session* session)
      : options_(options), session_(*session), style_(session->style()) {}

  void Run() {
    // Reads the schema before there are threads, and refuses a wrong name once.
    if (!options_.type.empty()) session_.TypeOf(options_.type, "");
    Progress progress(options_.files.size(), session_.quiet());
    std::vector<std::thread> threads;
    const size_t count =
        std::min<size_t>(std::max(1U, std::thread::hardware_concurrency()),
                         options_.files.size());
    for (size_t i = 0; i < count; ++i) {
      threads.emplace_back([this, &progress] { Work(&progress); });
    }
    for (std::thread& thread : threads) thread.join();
    progress.Hide();
    if (!session_.quiet() && !options_.json) WriteSummary();
  }

 private:
  void Work(Progress* progress) {
    while (true) {
      const size_t i = next_++;
      if (i >= options_.files.size()) return;
      Result result = Check(options_.files[i], options_, session_);
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
      session_.Raise(result.error.empty() ? kFound : kWrongUse);
    }
    if (options_.json) {
      WriteJson(file, result);
      return;
    }
    if (session_.quiet() && verdict == kVerdicts[0]) return;
    std::cout << file << ": " << style_.Name(verdict);
    if (result.type != nullptr) {
      std::cout << style_.Note(" (" + result.type->full_name() + ")");
    }
    std::cout << '\n';
    WriteLine(result.error);
    WriteLine(result.form.fault);
    WriteList(result.form.differences);
    if (!session_.quiet()) WriteList(result.form.remarks);
  }

  static void WriteLine(const std::string& text) {
    if (!text.empty()) std::cout << "  " << text << '\n';
  }

  static void WriteList(const std::vector<Peculiarity>& differences) {
    for (const Peculiarity& difference : differences) {
      WriteLine(std::to_string(difference.count) + " x " + difference.what +
                ", first at offset " + std::to_string(difference.offset));
    }
  }

  static Json ToJsonList(const std::vector<Peculiarity>& differences) {
    Json list = Json::array();
    for (const Peculiarity& difference : differences) {
      list.push_back({{"what", difference.what},
                      {"count", difference.count},
                      {"offset", difference.offset}});
    }
    return list;
  }

  // A line for each file.
  static void WriteJson(const std::string& file, const Result& result) {
    Json json = {{"file", file}, {"verdict", Verdict(result)}};
    if (result.type != nullptr) json["type"] = result.type->full_name();
    if (!result.error.empty()) json["error"] = result.error;
    if (!result.form.fault.empty()) json["fault"] = result.form.fault;
    json["differences"] = ToJsonList(result.form.differences);
    json["remarks"] = ToJsonList(result.form.remarks);
    std::cout << json.dump() << '\n';
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
  Session& session_;
  const Style style_;
  std::atomic<size_t> next_{0};
  // What follows is changed under the mutex.
  std::mutex mutex_;
  std::map<size_t, Result> waiting_;
  size_t done_ = 0;
  std::map<std::string, size_t> counts_;
};

}  // namespace

void AddCheck(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "check", "Tell whether records stand as the library writes them");
  const auto options = std::make_shared<Options>();
  Session::AddFiles(command, &options->files);
  Session::AddType(command,
                   "The records' type; without it each one's likeliest root",
                   &options->type);
  command->add_flag("--json", options->json, "A line of JSON for each record");
  session->AddInputOptions(command);
  command->footer(
      "Each record is parsed by the library's own class and written again. It\n"
      "is canonical if the bytes are the same. If not, what differs is told;\n"
      "remarks tell of unknown fields, undeclared enum numbers, NaN and -0.0,\n"
      "which are canonical. The exit status is 1 if any record is not.\n\n"
      "Example:\n"
      "  echo '10 07 08 05' |\n"
      "    vantiro-records check --hex --type ZAfRoiDimLite - || echo not so");
  command->callback([=] { Checker(*options, session).Run(); });
}

}  // namespace inspection
}  // namespace vantiro
