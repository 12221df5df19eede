// Lines as an exchange has them. A few differ from what the form of their command takes (LineForm): they hold values
// that follow from the record, leave out others, or come from the records of another command.
#pragma once

#include <optional>
#include <string_view>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// An add as it is meant: lines of templates begin with the name of the command whose records are made from them.
UserAction OfTemplate(const FormDefinition& form, UserAction line);

// Performs an action, or what a line of an exchange stands for. Derived values of a line are compared with those that
// the exchange gives now: each that is different is a warning. A line that comes from the records of another command
// writes nothing. Values that the line does not tell are found, where those of one record alone give it.
Outcome PerformLine(Session& session, const UserAction& line);

// The add that the line makes together with the one behind it, where both are lines of one record: the first takes the
// function off the key that the second uses, or the second goes on where the first is full.
std::optional<UserAction> Together(const UserAction& line, std::string_view behind);

}  // namespace cordboard::workbench
