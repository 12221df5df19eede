// The host's operations by name, as workers call them. Each goes to the current host, and fails with NoHost where there
// is none. What they take and give stands in script/Host.h; arguments that a rule does not pass are left off here too.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "script/Host.h"

namespace cordboard {

Value scGetParamValue(const std::string& name);
bool scSetParamValue(const std::string& name, const Value& value);
bool scResetParam(const std::string& name);
bool scSetParamOptional(const std::string& name, bool optional);
void scSetCanHaveParamRange(const std::string& name, bool allowed);
void scSetCanHaveParamMultiple(const std::string& name, bool allowed);
Value scIsValueEqual(const Value& value);
bool scGetValueArray(const std::string& name, List& values);
void scGetPreviousValue(Value& previous);
bool scActiveDefinition(const std::string& name, const Value& definition);
void SetTemplate(bool on);

bool scCollectSingleValues(const std::string& sql, const Selector& database = std::nullopt);
bool scAddSingleValues(const std::string& sql);
bool scSubtractSingleValues(const std::string& sql);
bool scCollectValuesAndDesc(const std::string& sql, const Selector& database = std::nullopt);
bool scSQLSelectValuesAndDesc();
bool scSQLSelectValuesAndDescByDefinition(const Value& definition);
bool scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name = std::nullopt);
bool scPushValidRangeValues(const Value& from, const Value& to);
bool scRemoveFromValidValues(const std::string& name, const Value& value);
bool scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to);
bool scGetValidValues(const std::string& name, List& values);
bool scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count);

// The forms of a statement: an action, a query, and an action on another database.
bool scRunQuery(const std::string& sql);
bool scRunQuery(const std::string& sql, RowSet& rows, const Selector& database = std::nullopt);
bool scRunQueryOn(const Selector& database, const std::string& sql);
bool scSQLInsert(const std::string& table, const List& columns, const List& values);
bool scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                 const List& keyValues);
RowSet scSQLSelect(const std::string& table, const List& columns, const List& keys, const List& keyValues);
Value scBuildCmdID();
bool scStartTransaction();
bool scCommitTransaction();
bool scRollBackTransaction();

bool scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code);
bool scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp);
bool scGetAutoEquOptionValue(Value& clause);
void scFilterEQU(const Value& first, const Value& second);

void scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                    const std::vector<Value>& arguments = {});
void scPrintToDebugWindow(const std::string& line);

}  // namespace cordboard
