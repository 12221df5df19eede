// cordboard apply: performs the actions of plan files, all or nothing.

#include <unistd.h>

#include <fstream>
#include <iostream>
#include <list>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
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
    Debug(report.debugLines);
  }
}

std::string Summary(const PlanResult& result, bool dryRun) {
  std::string counts = std::to_string(result.done) + " done, " + std::to_string(result.refused) + " refused";
  if (result.kept) return counts;
  return counts + (dryRun ? "; nothing was kept, since this is a dry run" : "; nothing was kept");
}

}  // namespace

int Apply(const ApplyOptions& options) {
  const auto exchange = OpenToWrite(options.file);
  std::list<std::ifstream> open;
  std::vector<workbench::PlanFile> files;
  for (const std::string& plan : options.plans) {
    if (plan == "-") {
      files.push_back({"standard input", std::cin});
      continue;
    }
    if (!std::filesystem::exists(plan)) throw Exit{NotFound, "there is no plan file " + plan};
    std::ifstream& in = open.emplace_back(plan, std::ios::binary);
    if (!in || std::filesystem::is_directory(plan)) throw Exit{Trouble, "the plan file " + plan + " cannot be read"};
    files.push_back({plan, in});
  }

  const bool warned = WarnOfReaders(*exchange, options.file);
  workbench::Session session(*exchange);
  const PlanResult result = ApplyPlan(session, files,
                                      {.dryRun = options.dryRun,
                                       .keepGoing = options.keepGoing,
                                       .strict = options.strict,
                                       .progress = options.json ? nullptr : Progress()});
  if (!warned) WarnOfReaders(*exchange, options.file);
  Report(result);
  if (options.json) {
    PrintJson({{"done", result.done}, {"refused", result.refused}, {"kept", result.kept}});
  } else {
    Note("plan", Summary(result, options.dryRun));
  }
  return result.refused == 0 ? Done : Refused;
}

}  // namespace cordboard::cli
