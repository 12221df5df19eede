#include "workbench/host/WorkbenchHost.h"

#include <stdexcept>
#include <utility>

#include "script/Conversions.h"
#include "script/RunTimeFailure.h"
#include "workbench/exchange/NumberSeries.h"
#include "workbench/exchange/RuleStatements.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

Form& WorkbenchHost::OpenForm(const FormDefinition& definition) {
  CloseForm();
  return open_.emplace(exchange_, definition, buildList_).form;
}

void WorkbenchHost::CloseForm() {
  open_.reset();
  template_ = false;
  seriesRefusal_.clear();
  messages_.clear();
  debugLines_.clear();
}

WorkbenchHost::OpenedForm& WorkbenchHost::open() {
  if (!open_) throw std::logic_error("no form is open");
  return *open_;
}

std::vector<ReportedMessage> WorkbenchHost::TakeMessages() { return std::exchange(messages_, {}); }
std::vector<std::string> WorkbenchHost::TakeDebugLines() { return std::exchange(debugLines_, {}); }

// --- Parameters of the form.

Value WorkbenchHost::scGetParamValue(const std::string& name) {
  Value value = form().Get(name);
  const ParameterDefinition* parameter = form().definition().Find(name);
  if (!value.IsText() || parameter == nullptr || !parameter->firstToRules) return value;
  return value.text().substr(0, value.text().find('&'));
}

bool WorkbenchHost::scSetParamValue(const std::string& name, const Value& value) {
  if (!Has(name)) return false;
  // The form holds texts, whatever kind of value a check puts back.
  form().Set(name, value.IsNumber() || value.IsTruth() ? Value(Joined(value)) : value);
  return true;
}

bool WorkbenchHost::scResetParam(const std::string& name) {
  if (!Has(name)) return false;
  form().Reset(name);
  lists().ForgetChanges(name);
  return true;
}

bool WorkbenchHost::scSetParamOptional(const std::string& name, bool optional) {
  if (!Has(name)) return false;
  form().SetMandatory(name, !optional);
  return true;
}

void WorkbenchHost::scSetCanHaveParamRange(const std::string& name, bool allowed) {
  form().SetTakesRange(name, allowed);
}

void WorkbenchHost::scSetCanHaveParamMultiple(const std::string& name, bool allowed) {
  form().SetTakesSeveral(name, allowed);
}

Value WorkbenchHost::scIsValueEqual(const Value& value) {
  const Value present = form().Get(lists().Checked());
  return present.IsEmpty() ? Value::Null() : Value(Equals(present, value));
}

bool WorkbenchHost::scGetValueArray(const std::string& name, List& values) {
  const ParameterDefinition* parameter = form().definition().Find(name);
  // Some commands tell from this answer in which of their tables a record goes.
  if (parameter == nullptr || form().definition().IsElsewhere(name)) return false;
  const Value typed = form().Get(name);
  // Without a value the list stays as it came, without bounds.
  if (typed.IsBlank()) return !parameter->onlyGiven;
  if (!parameter->TakesElements()) {
    values = {typed};
    return true;
  }
  try {
    std::vector<Value> elements;
    for (std::string& element : Elements(ToText(typed))) elements.emplace_back(std::move(element));
    values = List(std::move(elements));
    return true;
  } catch (const ElementsError&) {
    return false;
  }
}

void WorkbenchHost::scGetPreviousValue(Value& previous) { previous = form().Previous(lists().Checked()); }

bool WorkbenchHost::scActiveDefinition(const std::string& name, const Value& definition) {
  if (!Has(name)) return false;
  form().SetActiveDefinition(name, ToInt32(definition));
  lists().ForgetChanges(name);
  return true;
}

void WorkbenchHost::SetTemplate(bool on) { template_ = on; }

// --- Lists of valid values.

bool WorkbenchHost::ChangeList(void (ValueList::*change)(ListStatement), const std::string& sql,
                               const std::string& selector) {
  auto statement = PrepareList(exchange_, sql, selector, debugLines_);
  if (statement) (lists().Current().*change)(std::move(*statement));
  return statement.has_value();
}

bool WorkbenchHost::scCollectSingleValues(const std::string& sql, const Selector& database) {
  return ChangeList(&ValueList::Collect, sql, SelectorName(database, "dynamic"));
}

bool WorkbenchHost::scAddSingleValues(const std::string& sql) { return ChangeList(&ValueList::Add, sql, "dynamic"); }

bool WorkbenchHost::scSubtractSingleValues(const std::string& sql) {
  return ChangeList(&ValueList::Subtract, sql, "dynamic");
}

bool WorkbenchHost::scCollectValuesAndDesc(const std::string& sql, const Selector& database) {
  return ChangeList(&ValueList::Collect, sql, SelectorName(database, "static"));
}

bool WorkbenchHost::scSQLSelectValuesAndDesc() {
  return scSQLSelectValuesAndDescByDefinition(form().ActiveDefinition(lists().Meant()));
}

bool WorkbenchHost::scSQLSelectValuesAndDescByDefinition(const Value& definition) {
  lists().CollectFixed(ToInt32(definition));
  return true;
}

bool WorkbenchHost::scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) {
  const auto* one = std::get_if<Value>(&values);
  lists().Push(name.value_or(lists().Meant()), one != nullptr ? List{*one} : std::get<List>(values));
  return true;
}

bool WorkbenchHost::scPushValidRangeValues(const Value& from, const Value& to) {
  lists().Current().PushRange(ToInt32(from), ToInt32(to));
  return true;
}

bool WorkbenchHost::scRemoveFromValidValues(const std::string& name, const Value& value) {
  lists().Named(name).Remove(Joined(value));
  return true;
}

bool WorkbenchHost::scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) {
  lists().Named(name).RemoveRange(ToInt32(from), ToInt32(to));
  return true;
}

bool WorkbenchHost::scGetValidValues(const std::string& name, List& values) {
  const ValueList* list = FreshList(name);
  return list != nullptr && Succeeds([&] {
           std::vector<Value> all;
           list->Each([&all](auto value, auto) { return all.emplace_back(value), true; });
           values = List(std::move(all));
         });
}

bool WorkbenchHost::scGetNumberOfValidValues(const std::string& name, const Value&, Value& count) {
  const ValueList* list = FreshList(name);
  return list != nullptr && Succeeds([&] { count = list->Count(); });
}

// --- The database.

bool WorkbenchHost::scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) {
  auto found = RunRule(exchange_, sql, SelectorName(database, "dynamic"), debugLines_);
  foundNothing_ = found && found->IsEmpty() && rows != nullptr ? sql : "";
  if (found && rows != nullptr) *rows = std::move(*found);
  return found.has_value();
}

bool WorkbenchHost::scSQLInsert(const std::string& table, const List& columns, const List& values) {
  return InsertRow(exchange_, RowDatabase(), table, columns, values, debugLines_);
}

bool WorkbenchHost::scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                                const List& keyValues) {
  return UpdateRows(exchange_, RowDatabase(), table, columns, values, keys, keyValues, debugLines_);
}

RowSet WorkbenchHost::scSQLSelect(const std::string& table, const List& columns, const List& keys,
                                  const List& keyValues) {
  return SelectRows(exchange_, RowDatabase(), table, columns, keys, keyValues, debugLines_);
}

Value WorkbenchHost::scBuildCmdID() {
  try {
    return exchange_.NewCmdId();
  } catch (const DatabaseError& error) {
    throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, error.what());
  }
}

template <typename Step>
bool WorkbenchHost::Succeeds(Step step) {
  try {
    step();
    return true;
  } catch (const DatabaseError& error) {
    debugLines_.push_back(std::string("The database refused: ") + error.what());
    return false;
  }
}

bool WorkbenchHost::scStartTransaction() {
  return Succeeds([this] { exchange_.Start(); });
}

template <typename Step>
bool WorkbenchHost::Closes(Step step) {
  if (exchange_.OpenTransactions() > enclosing_) return Succeeds(step);
  debugLines_.push_back("There is no transaction to close");
  return false;
}

bool WorkbenchHost::scCommitTransaction() {
  return Closes([this] { exchange_.Commit(); });
}

bool WorkbenchHost::scRollBackTransaction() {
  return Closes([this] { exchange_.RollBack(); });
}

// --- Operations of the exchange.

bool WorkbenchHost::scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) {
  std::optional<SeriesRefusal> refusal;
  if (!Succeeds([&] { refusal = InitiateSeries(exchange_, Joined(numse), Joined(numtyp)); }))
    refusal = {Message::StatementFailed, ""};
  if (refusal) code = static_cast<int>(refusal->message);
  seriesRefusal_ = refusal ? refusal->reason : "";
  return !refusal;
}

bool WorkbenchHost::scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) {
  return Succeeds([&] { RemoveFromBlockedRange(exchange_, Joined(numse), Joined(numtyp)); });
}

bool WorkbenchHost::scGetAutoEquOptionValue(Value&) { return false; }

void WorkbenchHost::scFilterEQU(const Value&, const Value&) {}

// --- Reports.

void WorkbenchHost::scErrorMessage(int, int, int third, const std::string& context, const Value& code,
                                   const std::vector<Value>& arguments) {
  // A code of the host's own creation of number series comes without arguments; its reason names the number.
  messages_.push_back({.third = third,
                       .context = context,
                       .code = Joined(code),
                       .arguments = arguments,
                       .text = MessageText(code, arguments),
                       .reason = arguments.empty() ? std::exchange(seriesRefusal_, "") : ""});
}

void WorkbenchHost::ShowBox(const std::string& text) { messages_.push_back({.text = text}); }

void WorkbenchHost::scPrintToDebugWindow(const std::string& line) { debugLines_.push_back(line); }

}  // namespace cordboard::workbench
