// The program's subcommands: one file each, named after the subcommand. What each is given on the command line stands
// in its options (cli/CommandLine.cpp reads them); each gives its exit code, or ends with an Exit. Some can be given an
// exchange that is open: they look at that, and the file is a name.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace cordboard::workbench {
class Exchange;
}  // namespace cordboard::workbench

namespace cordboard::cli {

struct Definition;

enum ExitCode {
  Done = 0,
  Internal = 1,       // a fault of the program
  Usage = 2,          // the command line is wrong
  Refused = 3,        // the exchange refuses: a line of a plan, an action, a generation
  Different = 3,      // two exchanges are not the same, or an exchange is not as it should be
  NotFound = 4,       // a file, a command or a parameter that there is not
  Trouble = 5,        // a file or a database that cannot be read or written
  AfterSignal = 128,  // and the number of the signal that ended the subcommand: 130 after Ctrl-C
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

struct PlantsOptions {
  std::string name;  // empty: the list
  bool json = false;
};
int Plants(const PlantsOptions& options);

struct PlantOptions {
  std::string file;
  bool add = false;  // adds to the plant, and shows it otherwise
  std::vector<std::string> pieces;
  std::vector<std::string> boards;
  std::string message;  // for the history
  bool json = false;
};
int Plant(const PlantOptions& options);

// The seconds for which a file is waited for that another process holds.
inline constexpr unsigned usualWait = 5;

struct ApplyOptions {
  std::string file;
  std::vector<std::string> plans;
  std::string command;  // whose adds the files hold as tables; empty: they are plans
  bool dryRun = false;
  std::string save;  // the file for what a dry run has shown; empty: none
  bool keepGoing = false;
  bool verbose = false;  // tells each record
  bool strict = false;
  bool ensure = false;  // does what is not so yet
  std::string message;  // for the history
  unsigned wait = usualWait;
  bool json = false;
};
int Apply(const ApplyOptions& options);

struct HistoryOptions {
  std::string file;
  std::optional<int> state;  // that is shown; nothing: the list of all
  bool plans = false;        // prints the text of its plans
  std::optional<std::size_t> keep;
  bool json = false;
};
int History(const HistoryOptions& options);
int ShowHistory(workbench::Exchange& exchange, const HistoryOptions& options);

struct UndoOptions {
  std::string file;
  std::optional<int> state;  // nothing: the last that holds
  bool withLater = false;
  std::string message;
  unsigned wait = usualWait;
  bool json = false;
};
int Undo(const UndoOptions& options);

struct RedoOptions {
  std::string file;
  std::string message;
  unsigned wait = usualWait;
  bool json = false;
};
int Redo(const RedoOptions& options);

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
int Values(workbench::Exchange& exchange, const ValuesOptions& options);

struct ShowOptions {
  std::string file;
  std::string command;  // empty: the tables
  std::vector<std::string> selection;
  bool secrets = false;  // shows them as they are
  bool json = false;
};
int Show(const ShowOptions& options);
int Show(workbench::Exchange& exchange, const ShowOptions& options);

struct GenerateOptions {
  std::string file;
  std::vector<std::string> commands;  // nothing: all of them
  std::string output;                 // empty: standard output
  bool templates = false;
  bool json = false;
};
int Generate(const GenerateOptions& options);
int Generate(workbench::Exchange& exchange, const GenerateOptions& options);

struct ExportOptions {
  std::string file;
  std::vector<std::string> commands;  // nothing: all of them
  std::string table;                  // the command whose records are printed as a table; empty: the plan
  std::string output;                 // empty: standard output
  bool json = false;
};
int Export(const ExportOptions& options);

struct CompareOptions {
  std::string first;
  std::string second;
  std::vector<std::string> commands;  // nothing: all of them
  bool lines = false;                 // compares the lines of the exchange
  bool plan = false;                  // prints the plan that turns the first into the second
  bool json = false;
};
int Compare(const CompareOptions& options);

struct ExplainOptions {
  std::string file;
  std::string line;
  bool secrets = false;  // shows them as they are
  bool json = false;
};
int Explain(const ExplainOptions& options);

struct CheckOptions {
  std::string file;
  bool json = false;
};
int Check(const CheckOptions& options);

struct UsedOptions {
  std::string file;
  std::string value;
  std::string thing;  // empty: whatever is called so
  bool json = false;
};
int Used(const UsedOptions& options);
int Used(workbench::Exchange& exchange, const UsedOptions& options);

struct CommandsOptions {
  bool json = false;
};
int Commands(const CommandsOptions& options);

struct HelpOptions {
  std::string name;       // of a command, a subcommand or a guide; empty: the program
  std::string parameter;  // empty: the command as a whole
  std::string pages;      // a folder for the pages of all commands
  bool json = false;
  bool page = false;
};
int Help(const HelpOptions& options, const Definition& program);

struct ManOptions {
  std::string name;   // of a subcommand or a command; empty: the program
  std::string pages;  // a folder for all pages
};
int Man(const ManOptions& options, const Definition& program);

// Prints what the last of the words behind "cordboard" may be completed to, one a line, with a description behind a
// tabulator where there is one; or the line ":files" where that is a file's name.
int Complete(const std::vector<std::string>& words, const Definition& program);

struct ShellOptions {
  std::string file;
  bool readOnly = false;
  bool stop = false;  // ends at the first line that is refused
  unsigned wait = usualWait;
};
int Shell(const ShellOptions& options, const Definition& program);

int Serve();

struct WebOptions {
  std::string file;
  std::string address = "127.0.0.1";  // on which the page is served
  unsigned port = 0;                  // 0: any free one
  bool readOnly = false;
  unsigned wait = usualWait;
};
int Web(const WebOptions& options);

}  // namespace cordboard::cli
