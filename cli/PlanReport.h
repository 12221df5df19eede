// What is told of a plan: what is wrong with its lines, and what they did.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "workbench/plans/Plan.h"

namespace cordboard::cli {

// All problems, each for itself.
void TellProblems(const workbench::PlanResult& result);
// For a reader: of those with the same cause the first few, and how many there are besides. Two have the same cause
// where they differ in values and other numbers alone.
void TellByCause(const workbench::PlanResult& result);

// What a line did, on standard output: a line for each record and for each "next". Where it stands is told of a file.
void PrintChanges(const workbench::LineReport& report);
std::string ChangesInWords(const workbench::LineReport& report);
// The same in the document: under "changes" and "taken".
void AddChanges(nlohmann::json& document, const workbench::LineReport& report);

// The same of records that were changed by no line of their own.
void PrintChanges(const std::vector<workbench::RecordChange>& changes);
nlohmann::json ToJson(const std::vector<workbench::RecordChange>& changes);

// How many records of each command were added, changed and removed.
void TellCommands(const workbench::PlanResult& result);
nlohmann::json CommandsOf(const workbench::PlanResult& result);

}  // namespace cordboard::cli
