// cordboard serve: the library on standard input and output, with the peer process as its host.

#include "remote/Serve.h"

#include <csignal>
#include <iostream>

#include "cli/Subcommands.h"

namespace cordboard::cli {

void AddServe(CLI::App& app, int& exitCode) {
  CLI::App* sub =
      app.add_subcommand("serve", "Serve the library to a host in another process, on standard input and output");
  sub->footer("One JSON-RPC message a line; see docs/remote-host.md.");
  sub->callback([&exitCode] {
    // A peer that goes away must not end the process before it can say so.
    std::signal(SIGPIPE, SIG_IGN);
    exitCode = remote::Serve(std::cin, std::cout, std::cerr) == 0 ? Done : Trouble;
  });
}

}  // namespace cordboard::cli
