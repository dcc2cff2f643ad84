#include "tools/identify.h"

#include <cmath>
#include <iostream>
#include <memory>

#include "tools/commands/session.h"
#include "tools/table.h"

namespace vantiro {
namespace inspection {
namespace {

struct Options {
  std::string file;
  bool all = false;
  size_t most = 5;
};

std::string BitsText(double bits) {
  return std::to_string(std::lround(std::floor(bits)));
}

void NoteDoubt(const std::vector<Candidate>& candidates) {
  const Candidate& best = candidates.front();
  if (!IsConvincing(best)) {
    std::cout << "No type is convincing: the first is the least unlikely.\n";
    return;
  }
  std::string others;
  for (size_t i = 1; i < candidates.size(); ++i) {
    if (!IsTie(best, candidates[i])) break;
    others += " " + candidates[i].type->full_name();
  }
  if (!others.empty()) {
    std::cout << "Nothing in the bytes tells " << best.type->full_name()
              << " from" << others << ".\n";
  }
}

void IdentifyFile(const Options& options, Session* session) {
  const std::string bytes = session->ReadBytes(options.file);
  const Schema& schema = Schema::BuiltIn();
  const std::vector<Candidate> candidates =
      Identify(options.all ? schema.messages() : schema.roots(), bytes);
  std::vector<Row> rows = {{"score", "known", "type", "reason"}};
  for (const Candidate& candidate : candidates) {
    if (rows.size() > options.most) break;
    rows.push_back({BitsText(candidate.evidence.bits),
                    std::to_string(candidate.known_percent) + "%",
                    candidate.type->full_name(), candidate.reason});
  }
  WriteTable(rows, session->style(), &std::cout);
  if (!session->quiet()) NoteDoubt(candidates);
  if (!IsConvincing(candidates.front())) session->Raise(kFound);
}

}  // namespace

void AddIdentify(CLI::App* program, Session* session) {
  CLI::App* const command = program->add_subcommand(
      "identify", "Rank the types by how well a record's bytes fit them");
  const auto options = std::make_shared<Options>();
  Session::AddFile(command, "The record", &options->file);
  command->add_flag("--all", options->all,
                    "Try all types, not only the sixteen roots");
  command->add_option("-n,--most", options->most, "Show so many types (5)")
      ->check(CLI::PositiveNumber)
      ->type_name("COUNT");
  session->AddInputOptions(command);
  command->footer(
      "The score is in bits: how much shorter the bytes can be described with\n"
      "the type than without. Noise scores below zero; by chance it reaches B\n"
      "once in 2^B files. The exit status is 1 if no type is convincing.\n\n"
      "Example:\n"
      "  echo '0d 00 00 80 3f 15 00 00 00 40 18 03' |\n"
      "    vantiro-records identify --hex -");
  command->callback([=] { IdentifyFile(*options, session); });
}

}  // namespace inspection
}  // namespace vantiro
