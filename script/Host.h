// The host: everything that the library does to the world goes through these 37 operations and no others.
//
// An operation answers False where the form or the database refuses; nothing has changed then, and the worker that
// called it reports. One that cannot answer at all throws RunTimeFailure with the cause HostFailure, which ends the Run
// in progress. All are called on the thread that called Run, one at a time; they may call Run again (a nested Run).
//
// An out-argument arrives empty and stays so where there is nothing to give.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "script/List.h"
#include "script/Value.h"

namespace cordboard {

// A database selector: "dynamic" (the exchange that is being configured), "static" (the fixed values of a release) or
// "site" (the store of templates). Nothing where the worker passes none; one rule passes an empty value.
using Selector = std::optional<Value>;

class Host {
 public:
  virtual ~Host() = default;

  // --- Parameters of the form, by name.

  // The present value, empty if none was given. A range or several values stand as typed, "100&&199", "1&2".
  virtual Value scGetParamValue(const std::string& name) = 0;
  // Puts a value on the form without running a check. False where the form does not take it.
  virtual bool scSetParamValue(const std::string& name, const Value& value) = 0;
  // Clears the parameter. A list asked for after it must reflect the form as it then is.
  virtual bool scResetParam(const std::string& name) = 0;
  // True makes the parameter optional, False mandatory.
  virtual bool scSetParamOptional(const std::string& name, bool optional) = 0;
  // Whether the form lets the user give a range, and several values.
  virtual void scSetCanHaveParamRange(const std::string& name, bool allowed) = 0;
  virtual void scSetCanHaveParamMultiple(const std::string& name, bool allowed) = 0;
  // Whether the value of the parameter that StatCheck runs for equals `value`: a truth value, or null.
  virtual Value scIsValueEqual(const Value& value) = 0;
  // The parameter's values, one element for each value given, ranges resolved. False where they cannot be delivered.
  virtual bool scGetValueArray(const std::string& name, List& values) = 0;
  // The value that the current parameter had before the present edit; left empty if it had none.
  virtual void scGetPreviousValue(Value& previous) = 0;
  // Sets the active definition of the parameter: the DefinitionNo of its rows in ParamValueDesc.
  virtual bool scActiveDefinition(const std::string& name, const Value& definition) = 0;
  // What follows works on a template command. Only ever called with True.
  virtual void SetTemplate(bool on) = 0;

  // --- Lists of valid values. Without a name, the list of the parameter that GetValidValForParam runs for. Statements
  // give the value in their first column and, where there is one, the description in the second.

  // Replaces the list with the rows of the statement. False where the statement fails.
  virtual bool scCollectSingleValues(const std::string& sql, const Selector& database) = 0;
  // Adds the rows of the statement after what is there.
  virtual bool scAddSingleValues(const std::string& sql) = 0;
  // Removes the values that the statement gives; those that are not in the list are ignored.
  virtual bool scSubtractSingleValues(const std::string& sql) = 0;
  // Replaces the list with pairs of value and description. Without a selector the database is "static".
  virtual bool scCollectValuesAndDesc(const std::string& sql, const Selector& database) = 0;
  // Fills the list from ParamValueDesc for the current command and parameter, in the active or the given definition.
  virtual bool scSQLSelectValuesAndDesc() = 0;
  virtual bool scSQLSelectValuesAndDescByDefinition(const Value& definition) = 0;
  // Adds one value, or each of a list, to the list of the current parameter or of the named one.
  virtual bool scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) = 0;
  // Adds, or removes, every whole number from `from` to `to` inclusive.
  virtual bool scPushValidRangeValues(const Value& from, const Value& to) = 0;
  virtual bool scRemoveFromValidValues(const std::string& name, const Value& value) = 0;
  virtual bool scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) = 0;
  // The present list of the named parameter, values without descriptions, and its length.
  virtual bool scGetValidValues(const std::string& name, List& values) = 0;
  virtual bool scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) = 0;

  // --- The database.

  // Runs one statement, in the dialect described in docs/dialect.md. With `rows` it fills the row set and leaves it
  // empty where nothing is found, which is a success; without (nullptr) it runs an action statement. False where the
  // statement fails.
  virtual bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) = 0;
  // Inserts one row; columns and values have the same length; an empty value becomes a null. Needs no quoting.
  virtual bool scSQLInsert(const std::string& table, const List& columns, const List& values) = 0;
  // Updates the rows that match the keys. A key without a name counts for nothing.
  virtual bool scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                           const List& keyValues) = 0;
  // The rows that match the keys, empty where there are none.
  virtual RowSet scSQLSelect(const std::string& table, const List& columns, const List& keys,
                             const List& keyValues) = 0;
  // A new record identifier: a number, given once.
  virtual Value scBuildCmdID() = 0;
  // Transactions. False where the database refuses.
  virtual bool scStartTransaction() = 0;
  virtual bool scCommitTransaction() = 0;
  virtual bool scRollBackTransaction() = 0;

  // --- Operations of the exchange that live in the host.

  // Creates the number series: expands `numse` as typed into rows of NANSI and enters the range in NANSIBlockedRange.
  // On False `code` holds the message code that the library reports.
  virtual bool scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) = 0;
  // Takes the number out of NANSIBlockedRange.
  virtual bool scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) = 0;
  // The user's order for the automatic choice of equipment: True with the ordering clause, or False for the default.
  virtual bool scGetAutoEquOptionValue(Value& clause) = 0;
  // Applies the host's filter on the list of equipment. Always called with 2 and "2".
  virtual void scFilterEQU(const Value& first, const Value& second) = 0;

  // --- Reports.

  // Shows the message `code`, its place-holders filled with the arguments (up to four). The first three numbers are
  // 0, 2, 2 in all reports but for three.
  virtual void scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                              const std::vector<Value>& arguments) = 0;
  // A line for the developer's debug window.
  virtual void scPrintToDebugWindow(const std::string& line) = 0;
};

}  // namespace cordboard
