// Generating the exchange's command lines.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "workbench/actions/UserAction.h"
#include "workbench/host/Session.h"

namespace cordboard::workbench {

struct GeneratedLine {
  std::string command;
  std::string text;  // one line, without its end
};

struct Generated {
  std::vector<GeneratedLine> lines;
  std::vector<std::pair<std::string, Problem>> problems;  // by command
  std::vector<std::string> without;  // the commands that have records, of which their rules make no line
};

// The commands whose records stand in the database, "dynamic" or "site", and that generate lines, in the order of their
// lines: what others build on comes first (data/generation-order.json).
const std::vector<std::string>& GenerationOrder(const std::string& database = "dynamic");

// The command lines of the exchange, or, for the database "site", those of its templates, which no exchange takes: all,
// or those of the commands that are named. The exchange is left as it is; a form that is open is closed.
Generated Generate(Session& session, const std::string& database = "dynamic",
                   const std::vector<std::string>& commands = {});
// The lines of one command, as far as they come: what its generation reports is left out. Closes the form, too.
std::vector<std::string> LinesOf(Session& session, const FormDefinition& definition);

}  // namespace cordboard::workbench
