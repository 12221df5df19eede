// cordboard generate: the exchange's command lines.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
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

void Write(const workbench::Generated& generated, std::ostream& out) {
  for (const workbench::GeneratedLine& line : generated.lines) out << line.text << '\n';
}

// A file of lines is for its owner alone, also one that there was before. A device keeps its rights.
void MakePrivate(const std::string& file) {
  const int made = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made < 0) return;
  close(made);
  std::error_code ignored;
  if (std::filesystem::is_regular_file(file, ignored))
    std::filesystem::permissions(file, std::filesystem::perms(S_IRUSR | S_IWUSR), ignored);
}

}  // namespace

int Generate(const GenerateOptions& options) {
  const auto exchange = OpenExchange(options.file);
  std::error_code ignored;
  if (std::filesystem::equivalent(options.file, options.output, ignored))
    throw Exit{Usage, "the lines cannot be written over the exchange itself"};
  const std::string database = DatabaseOf(options);
  workbench::Session session(*exchange);
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
    MakePrivate(options.output);
    std::ofstream out(options.output, std::ios::binary);
    Write(generated, out);
    out.close();
    if (!out) throw Exit{Trouble, "the lines cannot be written to " + options.output};
    WarnOfReaders(*exchange, options.output);
    Note("lines", std::to_string(generated.lines.size()) + " written to " + options.output);
  }
  return generated.problems.empty() ? Done : Refused;
}

}  // namespace cordboard::cli
