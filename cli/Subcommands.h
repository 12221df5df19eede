// The program's subcommands: one file each, named after the subcommand.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace cordboard::cli {

enum ExitCode {
  Done = 0,
  Internal = 1,  // a fault of the program
  Usage = 2,     // the command line is wrong
  Refused = 3,   // the exchange refuses: a line of a plan, an action, a generation
  NotFound = 4,  // a file, a command or a parameter that there is not
  Trouble = 5,   // a file or a database that cannot be read or written
};

// Ends a subcommand with an exit code and one line on standard error.
struct Exit {
  ExitCode code;
  std::string message;
};

// Each adds its subcommand; when it is chosen it runs and leaves its exit code.
void AddNew(CLI::App& app, int& exitCode);
void AddApply(CLI::App& app, int& exitCode);
void AddValues(CLI::App& app, int& exitCode);
void AddShow(CLI::App& app, int& exitCode);
void AddGenerate(CLI::App& app, int& exitCode);
void AddExplain(CLI::App& app, int& exitCode);
void AddCommands(CLI::App& app, int& exitCode);
void AddHelp(CLI::App& app, int& exitCode);
void AddServe(CLI::App& app, int& exitCode);

}  // namespace cordboard::cli
