// Writing results and messages: data to standard output, messages to standard error.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <utility>
#include <vector>

#include "script/Value.h"
#include "workbench/actions/UserAction.h"

namespace cordboard::cli {

// A line on standard error; its first word in colour where that is a terminal and NO_COLOR is not set to anything.
void Note(const std::string& label, const std::string& text);
void Error(const std::string& text);
void Warning(const std::string& text);

// A problem as one line: "KSEXI, DIR=100: this value is not possible here. Possible: 101, 102".
std::string Written(const std::string& command, const workbench::Problem& problem);

void PrintJson(const nlohmann::json& data);
nlohmann::json ToJson(const workbench::Problem& problem);
nlohmann::json ToJson(const Value& value);

// Columns under headings, each as wide as its widest cell.
void PrintTable(const std::vector<std::string>& headings, const std::vector<std::vector<std::string>>& rows);

}  // namespace cordboard::cli
