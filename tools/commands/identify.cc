#include "tools/identify/identify.h"

#include <cmath>
#include <memory>
#include <sstream>

#include "tools/commands/commands.h"
#include "tools/formats/json.h"
#include "tools/io/batch.h"
#include "tools/io/table.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

struct Options {
  bool json = false;
  bool all = false;
  size_t most = 5;
};

std::string BitsText(double bits) {
  return std::to_string(std::lround(std::floor(bits)));
}

void WriteDoubts(const std::vector<Candidate>& candidates, std::ostream* out) {
  const Candidate& best = candidates.front();
  if (!IsConvincing(best)) {
    *out << "No type is likely.\n";
    return;
  }
  std::string names = best.type->full_name();
  size_t count = 1;
  while (count < candidates.size() && IsTie(best, candidates[count])) {
    names += ", " + candidates[count++].type->full_name();
  }
  if (count > 1) *out << "Equally likely: " << names << ".\n";
}

class Identifier : public RecordHandler {
 public:
  Identifier(const Options& options, bool has_several, const CommandIo& io)
      : options_(options),
        has_several_(has_several),
        is_quiet_(io.quiet()),
        style_(io.style()) {}

  void Handle(const std::string& name, const std::string& bytes,
              Report* report) const override {
    const Schema& schema = Schema::BuiltIn();
    const std::vector<Candidate> candidates =
        Identify(options_.all ? schema.messages() : schema.roots(), bytes);
    if (!IsConvincing(candidates.front())) report->status = kFound;
    if (options_.json) {
      report->output = JsonText(ToJson(name, candidates), -1) + '\n';
      return;
    }
    std::vector<Row> rows = {{"score", "known", "type", "reason"}};
    for (const Candidate& candidate : candidates) {
      if (rows.size() > options_.most) break;
      rows.push_back({BitsText(candidate.score.bits),
                      std::to_string(candidate.known_percent) + "%",
                      candidate.type->full_name(), candidate.reason});
    }
    std::ostringstream out;
    if (has_several_) {
      out << style_.Note("# " + EscapeControls(name)) << '\n';
    }
    WriteTable(rows, style_, &out);
    if (!is_quiet_) WriteDoubts(candidates, &out);
    report->output = out.str();
  }

  std::string Extension() const override {
    return options_.json ? ".jsonl" : ".txt";
  }

  bool HandleError(const std::string& name, const std::string& error,
                   Report* report) const override {
    if (options_.json && has_several_) {
      report->output = JsonText({{"file", name}, {"error", error}}, -1) + '\n';
    }
    return false;
  }

 private:
  Json ToJson(const std::string& name,
              const std::vector<Candidate>& candidates) const {
    Json array = Json::array();
    for (const Candidate& candidate : candidates) {
      if (array.size() == options_.most) break;
      array.push_back({{"type", candidate.type->full_name()},
                       {"score", static_cast<int64_t>(candidate.score.bits)},
                       {"known_percent", candidate.known_percent},
                       {"reason", candidate.reason}});
    }
    return {{"file", name},
            {"is_likely", IsConvincing(candidates.front())},
            {"candidates", array}};
  }

  const Options& options_;
  const bool has_several_;
  const bool is_quiet_;
  const Style style_;
};

void IdentifyInputs(const Options& options, Batch* batch, const CommandIo& io) {
  batch->FindInputs();
  if (options.most == 0) throw UsageError("--most is at least 1");
  batch->Run(Identifier(options, batch->HasSeveral(), io));
}

}  // namespace

void AddIdentify(CLI::App* program, CommandIo* io) {
  CLI::App* const command =
      program->add_subcommand("identify", "List the likely types of records");
  const auto options = std::make_shared<Options>();
  const auto batch = std::make_shared<Batch>(io);
  batch->AddInputs(command);
  command->add_flag("--all", options->all,
                    "Consider all types, not only the sixteen roots");
  command->add_option("-n,--most", options->most, "How many types to show (5)")
      ->type_name("COUNT");
  command->add_flag("--json", options->json,
                    "Write a line of JSON for each record");
  batch->AddStreamOptions(command);
  io->AddInputOptions(command);
  command->footer(
      "The score is the number of bits by which knowing the type shortens an\n"
      "encoding of the bytes. Random bytes score below zero, and reach B in "
      "one\n"
      "case of 2^B. The exit status is 1 if no type is likely for a record.\n\n"
      "Example:\n"
      "  echo '0d 00 00 80 3f 15 00 00 00 40 18 03' |\n"
      "    vantiro-records identify --hex -");
  command->callback([=] { IdentifyInputs(*options, batch.get(), *io); });
}

}  // namespace tools
}  // namespace vantiro
