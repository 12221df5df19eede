// cordboard apply: performs the actions of plan files, all or nothing.

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <list>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/PlanReport.h"
#include "cli/Progress.h"
#include "cli/Subcommands.h"
#include "workbench/plans/Plan.h"

namespace cordboard::cli {

namespace {

using workbench::PlanResult;

bool IsTyped(const std::vector<std::string>& plans) {
  return std::ranges::find(plans, "-") != plans.end() && isatty(STDIN_FILENO) == 1;
}

// Applies the plan and tells meanwhile, where somebody looks on: how far it is, or that lines are awaited.
PlanResult ApplyAndTell(workbench::Session& session, const std::vector<workbench::PlanFile>& files,
                        const ApplyOptions& options, nlohmann::json& document) {
  workbench::PlanOptions how{.dryRun = options.dryRun, .keepGoing = options.keepGoing, .strict = options.strict};
  std::optional<Progress> progress;
  if (!options.json && IsTyped(options.plans)) {
    Note("standard input", "type the lines of the plan; Ctrl-D on a line of its own ends it");
  } else if (!options.json) {
    progress.emplace(options.plans);
    how.progress = [&progress](std::size_t lines) { progress->Reached(lines); };
  }
  if (options.verbose) {
    how.done = [&](const workbench::LineReport& report) {
      if (options.json) return AddChanges(document, report);
      if (progress) progress->Clear();
      PrintChanges(report);
      std::cout.flush();
    };
  }
  return ApplyPlan(session, files, how);
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
  nlohmann::json document;
  if (options.verbose) document = {{"changes", nlohmann::json::array()}, {"taken", nlohmann::json::array()}};
  const PlanResult result = ApplyAndTell(session, files, options, document);
  if (!warned) WarnOfReaders(*exchange, options.file);
  if (options.json) {
    TellProblems(result);
    document.update({{"done", result.done}, {"refused", result.refused}, {"kept", result.kept}});
    document["commands"] = CommandsOf(result);
    PrintJson(std::move(document));
  } else {
    TellByCause(result);
    Note("plan", Summary(result, options.dryRun));
    if (result.kept || options.dryRun) TellCommands(result);
  }
  return result.refused == 0 ? Done : Refused;
}

}  // namespace cordboard::cli
