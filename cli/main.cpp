// cordboard: prepare a telephone exchange offline, and get its command lines.

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/database/Connection.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/plans/Plan.h"
#include "workbench/text/Nearest.h"

namespace {

using namespace cordboard;
using namespace cordboard::cli;

const char* const exitCodes =
    "Exit codes: 0 done, 1 a fault of the program, 2 usage, 3 refused, 4 not found, 5 file or database trouble.";

// What stands in the place of a subcommand and is none: a better complaint than that one is missing.
void CheckSubcommand(const CLI::App& app, int argc, char** argv) {
  if (argc < 2 || argv[1][0] == '-') return;
  std::vector<std::string> names;
  for (const CLI::App* sub : app.get_subcommands({})) names.push_back(sub->get_name());
  if (std::ranges::find(names, argv[1]) == names.end())
    throw Exit{Usage, "there is no subcommand " + std::string(argv[1]) + "." + workbench::DidYouMean(argv[1], names)};
}

int Parse(CLI::App& app, int argc, char** argv) {
  CheckSubcommand(app, argc, argv);
  try {
    app.parse(argc, argv);
    return Done;
  } catch (const CLI::ParseError& error) {
    // Help and version end well; every other complaint is about usage.
    return app.exit(error) == 0 ? Done : Usage;
  }
}

int Run(int argc, char** argv) {
  CLI::App app("Prepare a private telephone exchange offline, and get its command lines.", "cordboard");
  app.set_version_flag("--version", CORDBOARD_VERSION);
  app.footer(exitCodes);
  app.require_subcommand(1);
  int exitCode = Done;
  AddNew(app, exitCode);
  AddApply(app, exitCode);
  AddValues(app, exitCode);
  AddShow(app, exitCode);
  AddGenerate(app, exitCode);
  AddExplain(app, exitCode);
  AddServe(app, exitCode);
  AddCommands(app, exitCode);
  AddHelp(app, exitCode);
  const int parsed = Parse(app, argc, argv);
  return parsed == Done ? exitCode : parsed;
}

int RunAndReport(int argc, char** argv) {
  try {
    const int exitCode = Run(argc, argv);
    if (std::cout.flush()) return exitCode;
    Error("standard output could not be written");
    return Trouble;
  } catch (const Exit& exit) {
    Error(exit.message);
    return exit.code;
  } catch (const workbench::ExchangeError& error) {
    Error(error.what());
  } catch (const workbench::PlantError& error) {
    Error(error.what());
  } catch (const workbench::PlanError& error) {
    Error(error.what());
  } catch (const workbench::DatabaseError& error) {
    Error(std::string("the database refuses: ") + error.what());
  } catch (const std::filesystem::filesystem_error& error) {
    Error(error.path1().string() + ": " + error.code().message());
  } catch (const std::exception& error) {
    Error(std::string("this is a fault of the program: ") + error.what());
    return Internal;
  }
  return Trouble;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  return RunAndReport(argc, argv);
}
