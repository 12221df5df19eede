// The command line of the process that the library runs in, which stands in the messages of one command.
#pragma once

#include <functional>
#include <string>

namespace cordboard {

using CommandLineHook = std::function<std::string()>;

// Replaces how the whole process knows its command line, and gives back what was there. An empty hook restores the
// default: the program and its arguments by blanks, as the system lists them, and nothing where it does not.
CommandLineHook SetCommandLine(CommandLineHook hook);

std::string CommandLine();

}  // namespace cordboard
