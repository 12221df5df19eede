// One call of the host as data, what came of it, and the table of the 37 operations: for all that stands between the
// library and its host and treats every operation alike. script/Host.h says what the operations do.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "script/Host.h"

namespace cordboard {

// The place of an out-argument.
struct OutPlace {
  friend bool operator==(OutPlace, OutPlace) = default;
};
using Argument = std::variant<Value, List, OutPlace>;

// The arguments stand in their order and flat, those of a message too. One that is not passed is left off the end; null
// holds the place of a row set that is not asked for and that a selector follows.
struct HostCall {
  std::string_view operation;
  std::vector<Argument> arguments = {};

  bool AsksOut() const;
};

// What an operation gives: nothing where it has no result, or no out-argument was asked for.
using Answered = std::variant<std::monostate, Value, List, RowSet>;

struct HostAnswer {
  Answered result = {};
  Answered out = {};
};

enum class AnswerKind { Nothing, Truth, Value, List, Rows };

struct Operation {
  std::string_view name;
  AnswerKind result;
  AnswerKind out;
  std::size_t arity;  // with all arguments that may be left off
  HostAnswer (*perform)(Host& host, const HostCall& call);

  // What answers with a truth value can refuse. The False of scIsValueEqual is no refusal: the values differ.
  bool CanRefuse() const { return result == AnswerKind::Truth; }
};

// In the order of script/Host.h.
std::span<const Operation> Operations();
// Fails with InvalidCall for a name that is none of them.
const Operation& FindOperation(std::string_view name);

// Calls the host. Fails with InvalidCall where an argument is missing or of another kind than the operation takes.
HostAnswer Perform(Host& host, const HostCall& call);

}  // namespace cordboard
