// A shell: reads what is typed, and does it.
#pragma once

#include "cli/Definition.h"
#include "cli/Subcommands.h"

namespace cordboard::cli::shell {

// At a terminal, or with what standard input holds. Gives the exit code.
int Run(const ShellOptions& options, const Definition& program);

}  // namespace cordboard::cli::shell
