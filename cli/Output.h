// Writing results and messages: data to standard output, messages to standard error; or with --json both to standard
// output, as one document.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "script/Value.h"
#include "workbench/actions/UserAction.h"

namespace cordboard::cli {

// From now on messages are gathered for the document, and nothing goes to standard error.
void GatherMessages();
// From now on they go to standard error: the document cannot be written.
void TellOnStandardError();

// A message: a line on standard error, its label in colour where that is a terminal and NO_COLOR is not set to
// anything; or a problem of the document.
void Note(const std::string& label, const std::string& text);
void Error(const std::string& text);
void Warning(const std::string& text);

// Where a problem stands, as far as that is known.
struct Place {
  std::string command = {};
  std::string file = {};
  std::size_t line = 0;
};

// A problem as a message: "error: office.plan:2: KSEXI, DIR=100: this value is not possible here. Possible: 101, 102".
void Error(const Place& place, const workbench::Problem& problem);
void Warning(const Place& place, const workbench::Problem& problem);

// Prints the document of a subcommand, an object: its data, and under "problems" the messages that were gathered.
void PrintJson(nlohmann::json document);
// Prints a document of nothing but its problems, unless there was one: that of a subcommand that ended early.
void PrintProblemsAlone();

nlohmann::json ToJson(const Value& value);

// Columns under headings, each as wide as its widest cell.
void PrintTable(const std::vector<std::string>& headings, const std::vector<std::vector<std::string>>& rows);

}  // namespace cordboard::cli
