// What the rules of single commands ask for against the general order: workers that answer False and say nothing,
// workers that commit whatever happened, and workers that open a transaction within another.
#pragma once

#include <span>
#include <string_view>

namespace cordboard {

// A False without a message. `refused` is a piece of the call whose refusal goes without; with "" the worker answers
// False although the host has refused nothing.
struct Silence {
  std::string_view command;
  std::string_view action;
  std::string_view refused;
  std::string_view reason;
};
std::span<const Silence> Silences();

struct Irregularity {
  std::string_view command;
  std::string_view action;
  std::string_view reason;
};
// Workers that leave a part of their work behind when they answer False.
std::span<const Irregularity> CommitWhateverHappened();
// Workers that run a worker of another command inside their own transaction.
std::span<const Irregularity> Nest();

}  // namespace cordboard
