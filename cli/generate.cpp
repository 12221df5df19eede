// cordboard generate: the exchange's command lines.

#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/Generation.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli {

namespace {

// The database of the commands whose lines are asked for.
std::string DatabaseOf(const GenerateOptions& options) {
  std::string database = options.templates ? "site" : "dynamic";
  for (const std::string& command : options.commands) {
    if (FormOf(command).database == database) continue;
    throw Exit{Usage, command + (options.templates ? " has no templates: leave out --templates"
                                                   : " has templates: give --templates")};
  }
  return database;
}

// No alarm: by the rules of the exchange many commands have no lines.
void NoteThoseWithout(const workbench::Generated& generated) {
  if (generated.without.empty()) return;
  Note("note", "the records of " + workbench::Counted(generated.without.size(), "command") +
                   " give no lines, by the rules of the exchange: " + workbench::Separated(generated.without, ", "));
}

std::string Lines(const workbench::Generated& generated) {
  std::string lines;
  for (const workbench::GeneratedLine& line : generated.lines) lines += line.text + '\n';
  return lines;
}

}  // namespace

int Generate(const GenerateOptions& options) { return Generate(*OpenToRead(options.file), options); }

int Generate(workbench::Exchange& exchange, const GenerateOptions& options) {
  CheckOutput(options.file, options.output);
  const std::string database = DatabaseOf(options);
  workbench::Session session(exchange);
  const workbench::Generated generated = workbench::Generate(session, database, options.commands);
  for (const auto& [command, problem] : generated.problems) Error({.command = command}, problem);
  NoteThoseWithout(generated);
  if (options.json) {
    nlohmann::json data = nlohmann::json::array();
    for (const auto& line : generated.lines) data.push_back({{"command", line.command}, {"text", line.text}});
    PrintJson({{"lines", data}, {"without", generated.without}});
  } else if (options.output.empty()) {
    for (const auto& line : generated.lines) std::cout << Printed(line.text) << '\n';
  } else {
    WriteOutput(options.output, Lines(generated));
    WarnOfReaders(exchange, options.output);
    Note("lines", std::to_string(generated.lines.size()) + " written to " + options.output);
  }
  return generated.problems.empty() ? Done : Refused;
}

}  // namespace cordboard::cli
