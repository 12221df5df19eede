// The signals by which a user ends a process: SIGINT (Ctrl-C), SIGTERM and SIGHUP.
#pragma once

#include <csignal>
#include <stdexcept>

namespace cordboard::workbench {

// A signal has come while signals were held back, and the work ends.
class Interrupted : public std::runtime_error {
 public:
  explicit Interrupted(int signal) : std::runtime_error("interrupted"), signal_(signal) {}
  int signal() const { return signal_; }

 private:
  int signal_;
};

// While it lives a signal does not kill the process: it waits until the work looks for it, or until the end of this.
class SignalsHeldBack {
 public:
  SignalsHeldBack();
  ~SignalsHeldBack();
  SignalsHeldBack(const SignalsHeldBack&) = delete;
  SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;

 private:
  sigset_t before_;
};

// From now on signals do nothing, and none waits: the work is done, and its end is told.
void IgnoreSignals();

// The signal that waits; 0 where none does, and always where they are not held back.
int WaitingSignal();
// Takes the signal that waits, so that it does so no longer, and gives it; 0 where none does.
int TakeSignal();
// Fails with Interrupted where a signal waits.
void EndOnSignal();
// Waits until there is something to read, or the end. Gives false where a signal comes first.
bool WaitForInput(int file);

}  // namespace cordboard::workbench
