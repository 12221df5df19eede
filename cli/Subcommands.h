// The program's subcommands: one file each, named after the subcommand. What each is given on the command line stands
// in its options (cli/CommandLine.cpp reads them); each gives its exit code, or ends with an Exit.
#pragma once

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

struct NewOptions {
  std::string file;
  std::string release;
  std::string plant = "example";
  bool json = false;
};
int New(const NewOptions& options);

struct ApplyOptions {
  std::string file;
  std::vector<std::string> plans;
  bool dryRun = false;
  bool keepGoing = false;
  bool json = false;
};
int Apply(const ApplyOptions& options);

struct ValuesOptions {
  std::string file;
  std::string command;
  std::string parameter;
  std::vector<std::string> given;
  std::vector<std::string> of;  // which record is edited; nothing for one that is added
  std::size_t limit = 0;        // 0: all of them
  bool json = false;
};
int Values(const ValuesOptions& options);

struct ShowOptions {
  std::string file;
  std::string command;  // empty: the tables
  std::vector<std::string> selection;
  bool secrets = false;  // shows them as they are
  bool json = false;
};
int Show(const ShowOptions& options);

struct GenerateOptions {
  std::string file;
  std::vector<std::string> commands;  // nothing: all of them
  std::string output;                 // empty: standard output
  bool templates = false;
  bool json = false;
};
int Generate(const GenerateOptions& options);

struct ExplainOptions {
  std::string file;
  std::string line;
  bool secrets = false;  // shows them as they are
  bool json = false;
};
int Explain(const ExplainOptions& options);

struct CommandsOptions {
  bool json = false;
};
int Commands(const CommandsOptions& options);

struct HelpOptions {
  std::string command;
  bool json = false;
  bool page = false;
};
int Help(const HelpOptions& options);

int Serve();

}  // namespace cordboard::cli
