// cordboard serve: the library on standard input and output, with the peer process as its host.

#include "remote/Serve.h"

#include <csignal>
#include <iostream>

#include "cli/Subcommands.h"

namespace cordboard::cli {

int Serve() {
  // A peer that goes away must not end the process before it can say so.
  std::signal(SIGPIPE, SIG_IGN);
  return remote::Serve(std::cin, std::cout, std::cerr) == 0 ? Done : Trouble;
}

}  // namespace cordboard::cli
