// The one place that knows the command-line library: it costs more time to compile than all subcommands together.

#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <iostream>
#include <memory>

#include "cli/Subcommands.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Nearest.h"

namespace cordboard::cli {

namespace {

const char* const exitCodes =
    "Exit codes: 0 done, 1 a fault of the program, 2 usage, 3 refused, 4 not found, 5 file or database trouble.";

// The program with its subcommands. The exit code is that of the one that was chosen.
class CommandLine {
 public:
  CommandLine() : app_("Prepare a private telephone exchange offline, and get its command lines.", "cordboard") {
    app_.set_version_flag("--version", CORDBOARD_VERSION);
    app_.footer(exitCodes);
    app_.require_subcommand(1);
    AddNew();
    AddApply();
    AddValues();
    AddShow();
    AddGenerate();
    AddExplain();
    AddServe();
    AddCommands();
    AddHelp();
  }

  int Run(int argc, char** argv) {
    try {
      CheckSubcommand(argc, argv);
      app_.parse(argc, argv);
      return exitCode_;
    } catch (const CLI::ParseError& error) {
      // Help and version end well; every other complaint is about usage.
      if (error.get_exit_code() == 0) return app_.exit(error);
      throw Exit{Usage, WithHelp(Small(error.what()))};
    } catch (const Exit& exit) {
      if (exit.code != Usage) throw;
      throw Exit{Usage, WithHelp(exit.message)};
    }
  }

 private:
  // What stands in the place of a subcommand and is none: a better complaint than that one is missing.
  void CheckSubcommand(int argc, char** argv) const {
    if (argc < 2 || argv[1][0] == '-') return;
    std::vector<std::string> names;
    for (const CLI::App* sub : app_.get_subcommands({})) names.push_back(sub->get_name());
    if (std::ranges::find(names, argv[1]) == names.end())
      throw Exit{Usage, "there is no subcommand " + std::string(argv[1]) + "." + workbench::DidYouMean(argv[1], names)};
  }

  // What is wrong with the command line, and what to type for help.
  std::string WithHelp(const std::string& complaint) const {
    const auto chosen = app_.get_subcommands();
    const std::string program = "cordboard" + (chosen.empty() ? "" : " " + chosen.front()->get_name());
    const bool isSentence = complaint.ends_with('.') || complaint.ends_with('?');
    return complaint + (isSentence ? " See " : "; see ") + program + " --help";
  }

  // As our messages begin; names stay as they are.
  static std::string Small(std::string text) {
    const bool isWord = text.size() > 1 && (text[1] == ' ' || std::islower(static_cast<unsigned char>(text[1])) != 0);
    if (isWord) text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
    return text;
  }

  // A subcommand and the options that its own description fills in.
  template <typename Options>
  std::pair<CLI::App*, Options&> Add(const char* name, const char* description, int (*run)(const Options&)) {
    const auto options = std::make_shared<Options>();
    CLI::App* sub = app_.add_subcommand(name, description);
    sub->callback([this, options, run] { exitCode_ = run(*options); });
    return {sub, *options};
  }

  static void AddSecrets(CLI::App* sub, bool& secrets) {
    sub->add_flag("--secrets", secrets, "show passwords, in the place of ***");
  }

  // Gives what is wrong with the text, or nothing.
  static std::string IsCount(const std::string& text) {
    const bool digits = text.find_first_not_of("0123456789") == text.npos && text.size() <= 9;
    return digits ? "" : text + " is not a whole number from 0 to 999999999";
  }

  void AddNew() {
    auto [sub, options] = Add("new", "Make an exchange file from a plant description", New);
    sub->add_option("FILE", options.file, "the exchange file to make, such as office.cbx")->required();
    sub->add_option("--release", options.release, "the release of the exchange")
        ->required()
        ->check(CLI::IsMember(workbench::Releases()));
    sub->add_option("--plant", options.plant,
                    "a built-in plant or a plant file: places, LIMs, boards, lines, customers")
        ->capture_default_str();
    sub->add_flag("--json", options.json, "report as JSON on standard output");
  }

  void AddApply() {
    auto [sub, options] = Add("apply", "Perform the actions of plan files: all of them, or none", Apply);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("PLAN", options.plans, "plan files with one action a line; - reads standard input")->required();
    sub->add_flag("--dry-run", options.dryRun, "try everything and keep nothing");
    sub->add_flag("--keep-going", options.keepGoing, "keep the good lines where others are refused");
    sub->add_flag("--json", options.json, "report as JSON on standard output");
    sub->footer(
        "A line adds (NANSI:NUMTYP=EX,NUMSE=100&&199;), changes (edit KSEXI DIR=100:CUST=3;) or removes\n"
        "(delete KSEXI DIR=100;). Lines that begin with # are comments. See docs/plans.md.");
  }

  void AddValues() {
    auto [sub, options] = Add("values", "List the values of a parameter that are valid now", Values);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("COMMAND", options.command, "the command, such as NANSI")->required();
    sub->add_option("PARAM", options.parameter, "its parameter, such as NUMTYP")->required();
    sub->add_option("NAME=VALUE", options.given, "what else the form holds, in the order in which it is filled in");
    sub->add_option("--of", options.of,
                    "the values in an edit of the record that has this NAME=VALUE; may be given several times")
        ->allow_extra_args(false);
    sub->add_option("--limit", options.limit, "the first so many values; 0 for all of them")->check(IsCount);
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddShow() {
    auto [sub, options] = Add("show", "Show what an exchange holds: its tables, or the records of a command", Show);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("COMMAND", options.command, "the command whose records to show");
    sub->add_option("NAME=VALUE", options.selection, "only the records that have these values, such as GRP=300");
    AddSecrets(sub, options.secrets);
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddGenerate() {
    auto [sub, options] = Add("generate", "Print the exchange's command lines", Generate);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("COMMAND", options.commands, "the lines of these commands alone");
    auto* output =
        sub->add_option("-o,--output", options.output,
                        "write the lines, passwords among them, to this file, which its owner alone can read");
    sub->add_flag("--templates", options.templates, "the lines of the templates, which no exchange takes");
    sub->add_flag("--json", options.json, "print as JSON")->excludes(output);
  }

  void AddExplain() {
    auto [sub, options] = Add("explain", "Show what an action does, call by call, and undo it", Explain);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("LINE", options.line, "the action, as a line of a plan")->required();
    AddSecrets(sub, options.secrets);
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddServe() {
    CLI::App* sub =
        app_.add_subcommand("serve", "Serve the library to a host in another process, on standard input and output");
    sub->footer("One JSON-RPC message a line; see docs/remote-host.md.");
    sub->callback([this] { exitCode_ = Serve(); });
  }

  void AddCommands() {
    auto [sub, options] = Add("commands", "List the commands that are built", Commands);
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddHelp() {
    const auto options = std::make_shared<HelpOptions>();
    CLI::App* sub = app_.add_subcommand("help", "Show the parameters of a command");
    sub->add_option("COMMAND", options->command, "the command; none for the help of the program");
    sub->add_flag("--json", options->json, "print as JSON");
    sub->add_flag("--page", options->page, "print as the page of the command, in Markdown")->excludes("--json");
    sub->callback([this, options] {
      if (!options->command.empty()) {
        exitCode_ = Help(*options);
      } else if (options->json) {
        throw Exit{Usage, "--json tells of a command: name one"};
      } else {
        // app_.help() would be the help of the subcommand that was chosen: this one.
        std::cout << app_.get_formatter()->make_help(&app_, app_.get_name(), CLI::AppFormatMode::Normal);
      }
    });
  }

  CLI::App app_;
  int exitCode_ = Done;
};

}  // namespace

int RunCommandLine(int argc, char** argv) { return CommandLine().Run(argc, argv); }

}  // namespace cordboard::cli
