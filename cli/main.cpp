// cordboard: prepare a telephone exchange offline, and get its command lines.

#include <algorithm>
#include <csignal>
#include <iostream>
#include <string_view>

#include "cli/CommandLine.h"
#include "cli/Failures.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/system/SystemMessage.h"

using namespace cordboard;
using namespace cordboard::cli;

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  // A file that may not grow any further is a full disk, and told as one.
  std::signal(SIGXFSZ, SIG_IGN);
  // Also what the command line itself has wrong belongs to the document.
  if (std::find(argv, argv + argc, std::string_view("--json")) != argv + argc) GatherMessages();
  const int exitCode = TellFailure([&] { return RunCommandLine(argc, argv); });
  if (exitCode != Done) PrintProblemsLeft();
  const int error = FlushOutput();
  if (error == 0) return exitCode;
  TellOnStandardError();
  Error("standard output could not be written: " + workbench::SystemMessage(error));
  return Trouble;
}
