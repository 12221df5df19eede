#include "workbench/system/Signals.h"

#include <poll.h>
#include <sys/signalfd.h>

#include <cerrno>

namespace cordboard::workbench {

namespace {

constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};

sigset_t AllOfThem() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : signals) sigaddset(&set, signal);
  return set;
}

}  // namespace

SignalsHeldBack::SignalsHeldBack() : before_() {
  const sigset_t all = AllOfThem();
  sigprocmask(SIG_BLOCK, &all, &before_);
}

SignalsHeldBack::~SignalsHeldBack() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

void IgnoreSignals() {
  for (const int signal : signals) std::signal(signal, SIG_IGN);
}

int WaitingSignal() {
  sigset_t waiting;
  sigpending(&waiting);
  for (const int signal : signals) {
    if (sigismember(&waiting, signal) == 1) return signal;
  }
  return 0;
}

int TakeSignal() {
  const int waiting = WaitingSignal();
  if (waiting == 0) return 0;
  sigset_t one;
  sigemptyset(&one);
  sigaddset(&one, waiting);
  constexpr timespec now{};
  return sigtimedwait(&one, nullptr, &now) == waiting ? waiting : 0;
}

void EndOnSignal() {
  if (const int signal = WaitingSignal()) throw Interrupted(signal);
}

bool WaitForInput(int file) {
  static const sigset_t all = AllOfThem();
  static const int arrivals = signalfd(-1, &all, SFD_CLOEXEC | SFD_NONBLOCK);
  pollfd ready[] = {{.fd = file, .events = POLLIN, .revents = 0}, {.fd = arrivals, .events = POLLIN, .revents = 0}};
  // A signal that does something else, such as telling another size of the terminal, is no end of it.
  while (poll(ready, 2, -1) < 0 && errno == EINTR) {
  }
  return WaitingSignal() == 0;
}

}  // namespace cordboard::workbench
