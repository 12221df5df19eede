// cordboard apply: performs the actions of plan files, all or nothing.

#include <fcntl.h>
#include <unistd.h>

#include <iostream>
#include <list>
#include <nlohmann/json.hpp>

#include "cli/AllOrNothing.h"
#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/PlanStream.h"
#include "cli/Subcommands.h"
#include "workbench/plans/Plan.h"

namespace cordboard::cli {

namespace {

using workbench::PlanResult;

constexpr std::size_t linesBetweenNotes = 500;

// A count that is written over itself; what is written after it begins on its line.
std::function<void(std::size_t)> Progress() {
  if (isatty(STDERR_FILENO) != 1) return {};
  return [](std::size_t lines) {
    if (lines % linesBetweenNotes == 0) std::cerr << lines << " lines\r" << std::flush;
  };
}

void Report(const PlanResult& result) {
  for (const workbench::LineReport& report : result.reports) {
    const Place place{.command = report.command, .file = report.file, .line = report.line};
    for (const workbench::Problem& problem : report.problems)
      report.refused ? Error(place, problem) : Warning(place, problem);
  }
}

std::string Summary(const PlanResult& result, bool dryRun) {
  std::string counts = std::to_string(result.done) + " done, " + std::to_string(result.refused) + " refused";
  if (result.kept) return counts;
  return counts + (dryRun ? "; nothing was kept, since this is a dry run" : "; nothing was kept");
}

int OpenPlan(const std::string& plan) {
  if (plan == "-") return STDIN_FILENO;
  if (!std::filesystem::exists(plan)) throw Exit{NotFound, "there is no plan file " + plan};
  const int file = std::filesystem::is_directory(plan) ? -1 : open(plan.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) throw Exit{Trouble, "the plan file " + plan + " cannot be read"};
  return file;
}

}  // namespace

int Apply(const ApplyOptions& options) {
  // A dry run is performed on a copy: it needs no right to write, and keeps nobody out.
  const auto exchange = options.dryRun ? OpenToRead(options.file) : OpenToWrite(options.file, options.wait);
  std::list<PlanStream> open;
  std::vector<workbench::PlanFile> files;
  for (const std::string& plan : options.plans)
    files.push_back({plan == "-" ? "standard input" : plan, open.emplace_back(OpenPlan(plan))});

  const bool warned = WarnOfReaders(*exchange, options.file);
  workbench::Session session(*exchange);
  const workbench::PlanOptions how{
      .dryRun = options.dryRun, .keepGoing = options.keepGoing, .progress = options.json ? nullptr : Progress()};
  const PlanResult result = AllOrNothing([&] { return ApplyPlan(session, files, how); });
  if (!warned) WarnOfReaders(*exchange, options.file);
  Report(result);
  if (options.json) {
    PrintJson({{"done", result.done}, {"refused", result.refused}, {"kept", result.kept}});
    if (FlushOutput() == 0) return result.refused == 0 ? Done : Refused;
    // What was kept is told all the same.
    TellOnStandardError();
  }
  Note("plan", Summary(result, options.dryRun));
  return result.refused == 0 ? Done : Refused;
}

}  // namespace cordboard::cli
