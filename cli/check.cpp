// cordboard check: whether an exchange file is whole, and what in it does not fit together; it prints the plan that
// mends that.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/Called.h"
#include "workbench/database/Connection.h"
#include "workbench/exchange/Damage.h"
#include "workbench/plans/LeftOut.h"
#include "workbench/plans/Mending.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli {

namespace {

using workbench::Counted;
using workbench::LeftBehind;
using workbench::LeftOut;

using workbench::Mended;

std::string Where(const LeftBehind& found) {
  return found.record ? Called(*found.record) + ", " + found.reference->column + ": " : "";
}

std::string InWords(const LeftOut& leftOut, const std::string& release) {
  const std::string records = Counted(leftOut.records, "record");
  const std::string what = leftOut.parameter.empty() ? "all of " + records : leftOut.parameter + " of " + records;
  return "the lines of " + release + " leave out " + what + ", which those of " +
         workbench::Separated(leftOut.toldBy, ", ") + " tell";
}

std::vector<std::string> Lines(const Mended& mended) {
  std::vector<std::string> lines;
  for (const workbench::UserAction& action : mended.by) lines.push_back(WrittenLine(action));
  return lines;
}

// A plan: what is wrong in comments, and under each the lines that mend it.
void Print(const std::vector<Mended>& findings) {
  for (const Mended& mended : findings) {
    const char* const hopeless = mended.by.empty() ? "; no line of a plan mends that" : "";
    std::cout << "# " << Printed(Where(mended.found) + InWords(mended.found)) << hopeless << '\n';
    for (const std::string& line : Lines(mended)) std::cout << line << '\n';
  }
}

nlohmann::json ToJson(const Mended& mended) {
  nlohmann::json finding = {
      {"thing", mended.found.thing->name}, {"message", InWords(mended.found)}, {"mend", Lines(mended)}};
  if (mended.found.record) {
    finding["command"] = mended.found.record->record->command;
    finding["record"] = Called(*mended.found.record);
    finding["parameter"] = mended.found.reference->column;
  }
  return finding;
}

nlohmann::json ToJson(const LeftOut& leftOut) {
  return {{"command", leftOut.command},
          {"parameter", leftOut.parameter},
          {"count", leftOut.records},
          {"releases", leftOut.toldBy}};
}

template <typename Things>
nlohmann::json AllToJson(const Things& things) {
  nlohmann::json all = nlohmann::json::array();
  for (const auto& thing : things) all.push_back(ToJson(thing));
  return all;
}

std::string Counts(const std::vector<Mended>& findings) {
  if (findings.empty()) return "everything fits together";
  const auto hopeless = std::ranges::count_if(findings, [](const Mended& mended) { return mended.by.empty(); });
  return Counted(findings.size(), "finding") +
         (hopeless == 0 ? "; the lines mend all of them"
                        : ", " + std::to_string(hopeless) + " of them without a line that mends it");
}

}  // namespace

int Check(const CheckOptions& options) {
  const auto exchange = OpenToRead(options.file);
  const std::string release = exchange->release();
  const std::vector<std::string> damaged = workbench::FindDamage(*exchange);
  for (const std::string& damage : damaged) Error(options.file + ": " + damage);
  if (!damaged.empty()) Note("advice", std::string(workbench::adviceOnDamage));

  std::vector<LeftOut> leftOut;
  std::vector<Mended> findings;
  if (damaged.empty()) {
    leftOut = workbench::FindLeftOut(*exchange);
    workbench::Session session(*exchange);
    findings = MendAll(session);
  }
  if (options.json) {
    PrintJson({{"file", options.file},
               {"release", release},
               {"findings", AllToJson(findings)},
               {"leftOut", AllToJson(leftOut)}});
  } else if (damaged.empty()) {
    Print(findings);
    for (const LeftOut& each : leftOut) Note(each.command, InWords(each, release));
    Note("checked", options.file + ": release " + release + ", nothing is damaged, " + Counts(findings));
  }
  if (!damaged.empty()) return Trouble;
  return findings.empty() ? Done : Different;
}

}  // namespace cordboard::cli
