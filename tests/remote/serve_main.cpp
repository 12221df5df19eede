// The remote host as a process of its own, for the tests.
#include <csignal>
#include <iostream>

#include "remote/Serve.h"

int main() {
#ifdef SIGPIPE
  std::signal(SIGPIPE, SIG_IGN);
#endif
  std::ios::sync_with_stdio(false);
  return cordboard::remote::Serve(std::cin, std::cout, std::cerr);
}
