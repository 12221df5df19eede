// cordboard shell: lines of a plan as they are typed, one by one (cli/shell).

#include "cli/shell/Shell.h"

#include "cli/Subcommands.h"

namespace cordboard::cli {

int Shell(const ShellOptions& options, const Definition& program) { return shell::Run(options, program); }

}  // namespace cordboard::cli
