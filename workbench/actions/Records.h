// The records of a command as the host handles them: finding one, loading it into the form, and what is left to do
// after an action.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// A record: its identifier, and the form of the table in which it stands.
struct StoredRecord {
  const FormDefinition* definition;
  std::int32_t CmdId;
};

// The tables of the form that have all parameters of the selection, or what is wrong with one of these.
std::variant<std::vector<const FormDefinition*>, Problem> TablesWith(const FormDefinition& definition,
                                                                     const std::vector<Assignment>& selection);

// The values that one of a selection stands for: several where the parameter is one of lists, unless a record has the
// text as it stands. Fails with ElementsError, but not for what TablesWith has let pass.
std::vector<std::string> SelectedValues(Exchange& exchange, const FormDefinition& definition, const Assignment& given);

// What a SELECT gives of the records of one table that have these values, of several one; `end` stands behind the
// condition.
RowSet SelectRecords(Exchange& exchange, const FormDefinition& table, const std::string& what,
                     const std::vector<Assignment>& selection, const std::string& end);

// The one record that has these values, in whichever table of the form, or why there is not one.
std::variant<StoredRecord, Problem> FindRecord(Exchange& exchange, const FormDefinition& definition,
                                               const std::vector<Assignment>& selection);

// That no record has these values.
std::string NoRecord(const FormDefinition& definition, const std::vector<Assignment>& selection);

// What is true, in a statement, of a row that was prepared for a record and that nobody has filled in.
std::string IsBlankRow(const FormDefinition& table);

struct RecordCount {
  std::size_t records = 0;
  std::size_t blank = 0;  // rows that were prepared for a record, and that nobody has filled in
};
// Of a command, in all its tables.
RecordCount CountRecords(Exchange& exchange, const FormDefinition& definition);

// Whether there is a record with a secret, of any command.
bool HoldsSecrets(Exchange& exchange);
// Whether a record has this value in the column.
bool IsHeld(Exchange& exchange, const FormDefinition& definition, const std::string& column, const std::string& value);
// The one record of a command that holds one for the whole exchange, where it stands.
std::optional<std::int32_t> StandingRecord(Exchange& exchange, const FormDefinition& definition);

// What is stored of a record, by the columns that its form shows; empty where there is no such record.
using StoredValues = std::vector<std::pair<std::string, Value>>;
StoredValues ReadRecord(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId);
void PutOnForm(const StoredValues& values, Form& form);
// Both.
void LoadRecord(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId, Form& form);

// What the rules of some commands leave to the host: a changed value is written into its row, a deleted record's row
// goes.
void WriteKeysAfterEdit(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId,
                        const std::vector<std::string>& changed, const Form& form);
void RemoveRow(Exchange& exchange, const FormDefinition& definition, std::int32_t CmdId);

}  // namespace cordboard::workbench
