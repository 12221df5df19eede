// cordboard: prepare a telephone exchange offline, and get its command lines.

#include <algorithm>
#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "cli/CommandLine.h"
#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/database/Connection.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/history/History.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/SavedPlan.h"
#include "workbench/system/SystemMessage.h"

namespace {

using namespace cordboard;
using namespace cordboard::cli;

int RunAndReport(int argc, char** argv) {
  try {
    return RunCommandLine(argc, argv);
  } catch (const Exit& exit) {
    Error(exit.message);
    return exit.code;
  } catch (const workbench::NoSuchState& error) {
    Error(error.what());
    return NotFound;
  } catch (const workbench::HistoryError& error) {
    Error(error.what());
    return Refused;
  } catch (const workbench::StalePlan& error) {
    Error(error.what());
    return Refused;
  } catch (const workbench::ExchangeError& error) {
    Error(error.what());
  } catch (const workbench::PlantError& error) {
    Report(error);
  } catch (const workbench::PlanError& error) {
    Error(error.what());
  } catch (const workbench::StorageError& error) {
    Error(error.what());
  } catch (const workbench::DatabaseError& error) {
    Error(std::string("the database refuses: ") + error.what());
  } catch (const std::filesystem::filesystem_error& error) {
    Error(error.path1().string() + ": " + workbench::SystemMessage(error.code().value()));
  } catch (const std::exception& error) {
    Error(std::string("this is a fault of the program: ") + error.what());
    return Internal;
  }
  return Trouble;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  // A file that may not grow any further is a full disk, and told as one.
  std::signal(SIGXFSZ, SIG_IGN);
  // Also what the command line itself has wrong belongs to the document.
  if (std::find(argv, argv + argc, std::string_view("--json")) != argv + argc) GatherMessages();
  const int exitCode = RunAndReport(argc, argv);
  if (exitCode != Done) PrintProblemsLeft();
  const int error = FlushOutput();
  if (error == 0) return exitCode;
  TellOnStandardError();
  Error("standard output could not be written: " + workbench::SystemMessage(error));
  return Trouble;
}
