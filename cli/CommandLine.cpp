// The one place that knows the command-line library: it costs more time to compile than all subcommands together.

#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <iostream>
#include <memory>
#include <span>
#include <string_view>

#include "cli/Definition.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "cli/Version.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Escaped.h"
#include "workbench/text/Nearest.h"
#include "workbench/text/Utf8.h"

namespace cordboard::cli {

namespace {

const char* const exitCodes =
    "Exit codes: 0 done, 1 a fault of the program, 2 usage, 3 refused or different, 4 not found, 5 file or database\n"
    "trouble. An apply that a signal ends has kept nothing: 129 where its terminal is gone, 130 after Ctrl-C, 143 "
    "after\n"
    "SIGTERM.";

ArgumentDefinition Define(const CLI::Option& option) {
  ArgumentDefinition argument{.names = {},
                              .description = option.get_description(),
                              .otherwise = option.get_default_str(),
                              .isOption = option.nonpositional(),
                              .isRequired = option.get_required(),
                              .takesSeveral = option.get_items_expected_max() > 1};
  if (!argument.isOption) {
    argument.names.push_back(option.get_name());
    return argument;
  }
  for (const std::string& name : option.get_snames()) argument.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) argument.names.push_back("--" + name);
  // Its value is called as the option is.
  const std::string& name = option.get_single_name();
  if (option.get_items_expected_max() > 0)
    std::ranges::transform(name, std::back_inserter(argument.value), [](unsigned char c) { return std::toupper(c); });
  return argument;
}

// What has no group is hidden.
Definition Define(const CLI::App& app, const std::string& calledAs) {
  Definition definition{
      .name = app.get_name(), .calledAs = calledAs, .description = app.get_description(), .footer = app.get_footer()};
  for (const CLI::Option* option : app.get_options())
    if (!option->get_group().empty()) definition.arguments.push_back(Define(*option));
  for (const CLI::App* sub : app.get_subcommands({}))
    if (!sub->get_group().empty()) definition.subcommands.push_back(Define(*sub, calledAs + " " + sub->get_name()));
  return definition;
}

// Writes the help of --help.
class HelpFormatter : public CLI::FormatterBase {
 public:
  std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode) const override {
    return HelpText(Define(*app, name));
  }
};

// The program with the subcommand that is named, or with all of them where none has that name: to define those that
// nobody asks for takes a tenth of a short run. The exit code is that of the one that was chosen.
class CommandLine {
 public:
  explicit CommandLine(std::string_view named)
      : app_("Prepare a private telephone exchange offline, and get its command lines", "cordboard") {
    app_.formatter(std::make_shared<HelpFormatter>());
    app_.set_help_flag("-h,--help", "show this help");
    app_.set_version_flag("--version", VersionAndBuild(), "tell the version and how it was built");
    app_.footer(exitCodes);
    app_.require_subcommand(1);
    const bool isKnown = IsSubcommand(named);
    for (const auto& [name, add] : Subcommands())
      if (!isKnown || name == named) (this->*add)();
  }

  int Run(int argc, char** argv) {
    try {
      CheckSubcommand(argc, argv);
      CheckEmpty(argc, argv);
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
  struct Subcommand {
    std::string_view name;
    void (CommandLine::*add)();
  };
  // In the order of the help. The last two are hidden: for the build, and for the scripts that complete in shells.
  static std::span<const Subcommand> Subcommands() {
    static constexpr Subcommand all[] = {
        {"new", &CommandLine::AddNew},           {"plants", &CommandLine::AddPlants},
        {"plant", &CommandLine::AddPlant},       {"apply", &CommandLine::AddApply},
        {"shell", &CommandLine::AddShell},       {"history", &CommandLine::AddHistory},
        {"undo", &CommandLine::AddUndo},         {"redo", &CommandLine::AddRedo},
        {"values", &CommandLine::AddValues},     {"show", &CommandLine::AddShow},
        {"generate", &CommandLine::AddGenerate}, {"export", &CommandLine::AddExport},
        {"compare", &CommandLine::AddCompare},   {"explain", &CommandLine::AddExplain},
        {"check", &CommandLine::AddCheck},       {"used", &CommandLine::AddUsed},
        {"web", &CommandLine::AddWeb},           {"serve", &CommandLine::AddServe},
        {"commands", &CommandLine::AddCommands}, {"help", &CommandLine::AddHelp},
        {"man", &CommandLine::AddMan},           {"complete", &CommandLine::AddComplete},
    };
    return all;
  }
  static bool IsSubcommand(std::string_view name) {
    return std::ranges::find(Subcommands(), name, &Subcommand::name) != Subcommands().end();
  }

  // What stands in the place of a subcommand and is none: a better complaint than that one is missing.
  static void CheckSubcommand(int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-' || IsSubcommand(argv[1])) return;
    std::vector<std::string> names;
    for (const Definition& sub : Program().subcommands) names.push_back(sub.name);
    throw Exit{Usage, "there is no subcommand " + std::string(argv[1]) + "." + workbench::DidYouMean(argv[1], names)};
  }

  // An empty argument is mostly a variable of a script that was not set, and must not be taken for none. A message may
  // be empty, and what is completed.
  static void CheckEmpty(int argc, char** argv) {
    if (argc < 2 || std::string_view(argv[1]) == "complete") return;
    for (int i = 2; i < argc; ++i) {
      const std::string_view before = argv[i - 1];
      if (*argv[i] == '\0' && before != "-m" && before != "--message")
        throw Exit{Usage, "an argument is empty, behind " + std::string(before)};
    }
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

  static void AddDebug(CLI::App* sub) {
    sub->add_flag_callback("--debug", TellCauses, "tell the technical cause of a failure as well");
  }

  static void AddMessage(CLI::App* sub, std::string& message) {
    sub->add_option("-m,--message", message, "what the change is for, as the history tells it")->check(IsLine);
  }

  static void AddWait(CLI::App* sub, unsigned& wait) {
    sub->add_option("--wait", wait, "the seconds for which a file is waited for that another process holds")
        ->capture_default_str();
  }

  // Gives what is wrong with the text, or nothing.
  static std::string IsLine(const std::string& text) {
    return workbench::IsUtf8(text) && workbench::Escaped(text) == text ? "" : "it is not one line of UTF-8 text";
  }

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

  void AddPlants() {
    auto [sub, options] = Add("plants", "List the built-in plants, or print one to start your own from", Plants);
    sub->add_option("NAME", options.name, "the plant to print, as JSON");
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddPlant() {
    auto [sub, options] = Add("plant", "Show the plant of an exchange, or add to it", Plant);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_flag("--json", options.json, "print as JSON, from which new makes the same plant");
    CLI::App* add = sub->add_subcommand("add", "Add boards, LIMs, lines and more: all that is given, or nothing");
    add->fallthrough();  // to --json
    add->add_option("PIECE", options.pieces, "files with what is added, written as a plant");
    add->add_option("--board", options.boards, "a board in a slot, such as 001-0-12=31")->allow_extra_args(false);
    AddMessage(add, options.message);
    add->callback([&adds = options.add] { adds = true; });
    sub->footer("What a plant holds, and its bounds: cordboard help plants --page.");
  }

  void AddApply() {
    auto [sub, options] = Add("apply", "Perform the actions of plan files: all of them, or none", Apply);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("PLAN", options.plans, "plan files with one action a line; - reads standard input")->required();
    auto* command = sub->add_option("--command", options.command,
                                    "the files are tables (CSV) of records of this command, to be added");
    auto* dryRun = sub->add_flag("--check-only,--dry-run", options.dryRun, "try everything and keep nothing");
    sub->add_option("--save", options.save, "write what was tried as a plan that applies to this state alone")
        ->needs(dryRun)
        ->excludes(command);
    sub->add_flag("--keep-going", options.keepGoing, "keep the good lines where others are refused");
    sub->add_flag("--verbose", options.verbose, "print what becomes of each record, and what next takes");
    sub->add_flag("--strict", options.strict, "refuse a line instead of warning of it");
    sub->add_flag("--ensure", options.ensure, "make it so: leave alone what stands as told, and edit what differs");
    AddMessage(sub, options.message);
    AddDebug(sub);
    AddWait(sub, options.wait);
    sub->add_flag("--json", options.json, "report as JSON on standard output");
    sub->footer(
        "A line adds (NANSI:NUMTYP=EX,NUMSE=100&&199;), changes (edit KSEXI DIR=100:CUST=3;) or removes\n"
        "(delete KSEXI DIR=100;). Lines that begin with # are comments. See cordboard help plans.");
  }

  void AddShell() {
    const auto options = std::make_shared<ShellOptions>();
    CLI::App* sub = app_.add_subcommand("shell", "Type lines of a plan one by one, and see what is valid");
    sub->add_option("FILE", options->file, "the exchange file")->required();
    sub->add_flag("--read-only", options->readOnly, "keep nothing: what reads, and lines that are tried");
    sub->add_flag("--stop", options->stop, "end at the first line that is refused");
    AddDebug(sub);
    AddWait(sub, options->wait);
    sub->footer(
        "Each line is kept at once as a state of the history; help lists the other words. Standard input may be a "
        "file\n"
        "or a pipe: then the exit code is 3 where a line was refused. A program takes apply --json, which tells it "
        "what\n"
        "became of a plan as a whole. See cordboard help shell --page.");
    sub->callback([this, options] { exitCode_ = Shell(*options, Program()); });
  }

  void AddHistory() {
    auto [sub, options] = Add("history", "List the states of an exchange, or show what one of them changed", History);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    auto* state = sub->add_option("STATE", options.state, "the number of the state to show")->check(IsCount);
    sub->add_flag("--plans", options.plans, "print the text of its plans, passwords among them")->needs(state);
    sub->add_option("--keep", options.keep, "forget all but the newest so many states")
        ->check(IsCount)
        ->excludes(state);
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddUndo() {
    auto [sub, options] = Add("undo", "Take back the last change of an exchange, or a state of its history", Undo);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("STATE", options.state, "the number of the state to take back; none for the last")->check(IsCount);
    sub->add_flag("--with-later", options.withLater, "and all states that came after it");
    AddMessage(sub, options.message);
    AddWait(sub, options.wait);
    sub->add_flag("--json", options.json, "report as JSON on standard output");
  }

  void AddRedo() {
    auto [sub, options] = Add("redo", "Bring again what the last undo has taken back", Redo);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    AddMessage(sub, options.message);
    AddWait(sub, options.wait);
    sub->add_flag("--json", options.json, "report as JSON on standard output");
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
    AddDebug(sub);
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
    AddDebug(sub);
    sub->add_flag("--json", options.json, "print as JSON")->excludes(output);
  }

  void AddExport() {
    auto [sub, options] = Add("export", "Print the exchange as a plan that makes it again", Export);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    auto* commands = sub->add_option("COMMAND", options.commands, "the records of these commands alone");
    auto* output = sub->add_option("-o,--output", options.output,
                                   "write the plan, passwords in it, to this file, which its owner alone can read");
    auto* table = sub->add_option("--csv", options.table, "the records of this command, as a table (CSV)");
    table->excludes(commands);
    sub->add_flag("--json", options.json, "print as JSON")->excludes(output)->excludes(table);
    sub->footer("Every line is tried before it is printed; see cordboard help export --page.");
  }

  void AddCompare() {
    auto [sub, options] = Add("compare", "Tell in what two exchanges differ", Compare);
    sub->add_option("FILE", options.first, "the exchange file from which the differences lead")->required();
    sub->add_option("OTHER", options.second, "the exchange file to which they lead")->required();
    sub->add_option("COMMAND", options.commands, "the records of these commands alone");
    auto* lines = sub->add_flag("--lines", options.lines, "compare the command lines: - only in FILE, + only in OTHER");
    sub->add_flag("--plan", options.plan, "print the plan that turns FILE into OTHER")->excludes(lines);
    AddDebug(sub);
    sub->add_flag("--json", options.json, "print as JSON");
    sub->footer(
        "The exit code is 0 where they are the same and 3 where they differ; see cordboard help compare --page.");
  }

  void AddExplain() {
    auto [sub, options] = Add("explain", "Show what an action does, call by call, and undo it", Explain);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("LINE", options.line, "the action, as a line of a plan")->required();
    AddSecrets(sub, options.secrets);
    AddDebug(sub);
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddCheck() {
    auto [sub, options] = Add("check", "Look whether an exchange file is whole and fits together", Check);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_flag("--json", options.json, "report as JSON on standard output");
    sub->footer(
        "Prints what it finds as a plan: the findings are comments, and under each stand the lines that mend it.\n"
        "The exit code is 3 where it finds something, and 5 where the file is damaged; see cordboard help check "
        "--page.");
  }

  void AddUsed() {
    auto [sub, options] = Add("used", "Show what refers to a number, a position or another thing", Used);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_option("VALUE", options.value, "what it is called, such as 300 or 001-0-10-02")->required();
    sub->add_option("THING", options.thing, "what it is, such as number, position or category; none: whatever it is");
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddWeb() {
    auto [sub, options] = Add("web", "Show the forms of an exchange in the browser", Web);
    sub->add_option("FILE", options.file, "the exchange file")->required();
    sub->add_flag("--read-only", options.readOnly, "show only, and change nothing");
    sub->add_option("--port", options.port, "the port on which the page is served; 0: any free one")
        ->capture_default_str()
        ->check(CLI::Range(0, 65535));
    sub->add_option("--address", options.address, "the address of this machine on which the page is served")
        ->capture_default_str();
    AddWait(sub, options.wait);
    sub->footer(
        "It prints the address to open, with a token in it: whoever has that address can do what you can. Each action\n"
        "is kept at once, as a state of the history. Ctrl-C ends it.");
  }

  void AddServe() {
    CLI::App* sub =
        app_.add_subcommand("serve", "Serve the library to a host in another process, on standard input and output");
    sub->footer("One JSON-RPC message a line; see cordboard help remote-host.");
    sub->callback([this] { exitCode_ = Serve(); });
  }

  void AddCommands() {
    auto [sub, options] = Add("commands", "List the commands that are built", Commands);
    sub->add_flag("--json", options.json, "print as JSON");
  }

  void AddHelp() {
    const auto options = std::make_shared<HelpOptions>();
    CLI::App* sub = app_.add_subcommand("help", "Show the parameters of a command, or the help of a subcommand");
    sub->add_option("COMMAND", options->name,
                    "a command such as NANSI, a subcommand, or a guide such as plans; none for the program itself");
    sub->add_option("PARAM", options->parameter, "one parameter of the command, such as NUMTYP");
    sub->add_flag("--json", options->json, "print as JSON");
    auto* page = sub->add_flag("--page", options->page, "print the page of the command or the subcommand, in Markdown");
    sub->add_option("--pages", options->pages, "write the page of every command into this folder")->group("");
    page->excludes("--json");
    sub->callback([this, options] { exitCode_ = Help(*options, Program()); });
  }

  void AddMan() {
    const auto manual = std::make_shared<ManOptions>();
    CLI::App* man = app_.add_subcommand("man", "Print a manual page, or write all of them")->group("");
    man->add_option("NAME", manual->name, "a subcommand or a command; none for the program");
    man->add_option("--pages", manual->pages, "write all pages into this folder, under man1 and man7");
    man->callback([this, manual] { exitCode_ = Man(*manual, Program()); });
  }

  void AddComplete() {
    const auto words = std::make_shared<std::vector<std::string>>();
    CLI::App* complete = app_.add_subcommand("complete", "Tell what the last word may be completed to")->group("");
    complete->add_option("WORDS", *words, "what is typed behind the name of the program");
    complete->callback([this, words] { exitCode_ = Complete(*words, Program()); });
  }

  // With all subcommands.
  static Definition Program() {
    const CommandLine whole("");
    return Define(whole.app_, whole.app_.get_name());
  }

  CLI::App app_;
  int exitCode_ = Done;
};

}  // namespace

int RunCommandLine(int argc, char** argv) { return CommandLine(argc > 1 ? argv[1] : "").Run(argc, argv); }

}  // namespace cordboard::cli
