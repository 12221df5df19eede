// One action of a user: open the form, set the values with the checks that a form runs, act, keep the record in order.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "workbench/actions/Possible.h"
#include "workbench/host/Session.h"

namespace cordboard::workbench {

struct Selection;
struct StoredRecord;

struct UserAction {
  enum class Kind { Add, Edit, Delete };

  Kind kind = Kind::Add;
  std::string command;
  std::vector<Assignment> selection;  // which record, for an edit and a delete
  std::vector<Assignment> values;     // for an add and an edit, in the order typed
  std::string from = {};              // for an add: the name of a template, if any
};

// One thing that stands in the way of an action, or that the user should know of.
struct Problem {
  std::string parameter = {};  // empty where it concerns the action as a whole
  std::string value = {};
  std::string message;                    // the same for all values of which the same is wrong
  std::string reason = {};                // what the exchange tells of the value: who has it, or that it is not there
  std::optional<Possible> possible = {};  // in the place of the value, where that can be said
  std::string cause = {};                 // of a failure within the rules: where it struck, for their developer
};

// "this value is not possible here: 300 is used by the key extension DIR=300 (KSEXI)". The parameter and its value are
// told in front of it, or stand beside it.
std::string WithReason(const Problem& problem);
// The same with what would be possible: "... Possible: 301, 302".
std::string InWords(const Problem& problem);

struct Outcome {
  bool done = false;
  std::vector<Problem> problems = {};  // why it was refused
  std::vector<Problem> warnings = {};  // messages of an action that was done
  std::vector<Assignment> taken = {};  // the values that "next" stood for
  std::vector<std::string> debugLines = {};
  std::size_t standing = 0;  // records that were as told already, where that was asked
};

// Performs the action. A refused one leaves what the rules of its command leave: some write
// without a transaction, so a caller that wants all or nothing puts one around it.
Outcome Perform(Session& session, const UserAction& action);
// The same on a form of one's own.
Outcome Perform(Session& session, const FormDefinition& definition, const UserAction& action);

// Changes one record.
Outcome Edit(Session& session, const StoredRecord& record, const std::vector<Assignment>& values);
// Removes it.
Outcome Delete(Session& session, const StoredRecord& record);
// Does the same to each record that is selected, where there are several each for itself, so that all that is wrong
// with any is told. They are done together, or refused.
Outcome PerformOnEach(Session& session, const Selection& selection,
                      const std::function<Outcome(const StoredRecord& record)>& perform);

}  // namespace cordboard::workbench
