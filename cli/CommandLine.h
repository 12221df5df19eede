// The command line: which subcommand is meant, and what it is given.
#pragma once

namespace cordboard::cli {

// Reads the command line, runs the subcommand, and gives the exit code. A subcommand may end with an Exit.
int RunCommandLine(int argc, char** argv);

}  // namespace cordboard::cli
