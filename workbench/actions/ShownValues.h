// What a form shows before the user's values are set: a stored record, or a template.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"

namespace cordboard::workbench {

// Puts a stored record on the form that is open. The checks of its values run, since they set up the rest of the form
// (the values that belong to an instrument, what has to be given); but whatever they think of the values, those are the
// stored ones.
void ShowRecord(Session& session, const FormDefinition& definition, std::int32_t CmdId);

// The form of a stored record, with these new values.
Filling FillFormOf(Session& session, const StoredRecord& record, std::vector<Assignment> given);

class ShownValues {
 public:
  explicit ShownValues(const Form& form);

  // The columns that a check has changed since, though the user did not give them. Each is told as a warning.
  std::vector<std::string> ChangedByChecks(Filling& filling) const;

 private:
  std::vector<std::string> values_;  // by the columns of the form
};

// The names of the columns that a parameter has to do with: a sub-digit parameter stands for the column that it folds
// into, a part of a list for the list as well, and a list for all its parts. None for what is not stored.
std::vector<std::string> ColumnsOf(const FormDefinition& definition, const std::string& parameter);
// Those of all that is given, each once.
std::vector<std::string> GivenColumns(const Filling& filling);

}  // namespace cordboard::workbench
