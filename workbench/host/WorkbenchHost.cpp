#include "workbench/host/WorkbenchHost.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "script/Conversions.h"
#include "script/RunTimeFailure.h"
#include "workbench/exchange/NumberSeries.h"
#include "workbench/exchange/RuleStatements.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

Form& WorkbenchHost::OpenForm(const FormDefinition& definition) {
  lists_.clear();
  changes_.clear();
  building_.clear();
  checking_.clear();
  template_ = false;
  seriesRefusal_.clear();
  messages_.clear();
  debugLines_.clear();
  return form_.emplace(definition);
}

Form& WorkbenchHost::form() {
  if (!form_) throw std::logic_error("no form is open");
  return *form_;
}

std::vector<ReportedMessage> WorkbenchHost::TakeMessages() { return std::exchange(messages_, {}); }
std::vector<std::string> WorkbenchHost::TakeDebugLines() { return std::exchange(debugLines_, {}); }

// --- Parameters of the form.

Value WorkbenchHost::scGetParamValue(const std::string& name) { return form().Get(name); }

bool WorkbenchHost::scSetParamValue(const std::string& name, const Value& value) {
  if (form().definition().Find(name) == nullptr) return false;
  // The form holds texts, whatever kind of value a check puts back.
  form().Set(name, value.IsNumber() || value.IsTruth() ? Value(Joined(value)) : value);
  return true;
}

bool WorkbenchHost::scResetParam(const std::string& name) {
  if (form().definition().Find(name) == nullptr) return false;
  form().Reset(name);
  changes_.erase(name);
  return true;
}

bool WorkbenchHost::scSetParamOptional(const std::string& name, bool optional) {
  if (form().definition().Find(name) == nullptr) return false;
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
  const Value present = form().Get(checking_);
  return present.IsEmpty() ? Value::Null() : Value(Equals(present, value));
}

bool WorkbenchHost::scGetValueArray(const std::string& name, List& values) {
  const ParameterDefinition* parameter = form().definition().Find(name);
  if (parameter == nullptr) return false;
  const Value typed = form().Get(name);
  // Without a value the list stays as it came, without bounds.
  if (typed.IsBlank()) return true;
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

void WorkbenchHost::scGetPreviousValue(Value& previous) { previous = form().Previous(checking_); }

bool WorkbenchHost::scActiveDefinition(const std::string& name, const Value& definition) {
  if (form().definition().Find(name) == nullptr) return false;
  form().SetActiveDefinition(name, ToInt32(definition));
  changes_.erase(name);
  return true;
}

void WorkbenchHost::SetTemplate(bool on) { template_ = on; }

// --- Lists of valid values.

ValueList& WorkbenchHost::Named(const std::string& parameter) {
  const bool built = std::ranges::find(building_, parameter) != building_.end();
  return built ? lists_[parameter] : changes_[parameter];
}

const ValueList* WorkbenchHost::FreshList(const std::string& parameter) {
  const ParameterDefinition* definition = form().definition().Find(parameter);
  if (definition == nullptr || !(definition->list || definition->fixed)) return nullptr;
  if (std::ranges::find(building_, parameter) != building_.end()) return &lists_[parameter];
  lists_.erase(parameter);
  if (definition->list) {
    struct Building {
      std::vector<std::string>& stack;
      Building(std::vector<std::string>& names, const std::string& name) : stack(names) { stack.push_back(name); }
      ~Building() { stack.pop_back(); }
    };
    const Building building(building_, parameter);
    if (!buildList_ || !buildList_(parameter)) return nullptr;
  } else {
    lists_[parameter].Collect(
        FixedList(exchange_, form().definition().command, parameter, form().ActiveDefinition(parameter)));
  }
  lists_[parameter].Append(changes_[parameter]);
  Narrow(*definition);
  return &lists_[parameter];
}

void WorkbenchHost::Narrow(const ParameterDefinition& parameter) {
  if (!parameter.narrowing) return;
  const Value by = form().Get(parameter.narrowing->by);
  if (!by.IsBlank())
    lists_[parameter.name].Subtract({exchange_.Database("dynamic"), parameter.narrowing->without, {by}});
}

template <typename Change>
bool WorkbenchHost::ChangeList(ValueList& list, const std::string& sql, const std::string& selector, Change change) {
  const auto statement = PrepareList(exchange_, sql, selector, debugLines_);
  if (!statement) return false;
  (list.*change)(*statement);
  return true;
}

bool WorkbenchHost::scCollectSingleValues(const std::string& sql, const Selector& database) {
  return ChangeList(Current(), sql, SelectorName(database, "dynamic"), &ValueList::Collect);
}

bool WorkbenchHost::scAddSingleValues(const std::string& sql) {
  return ChangeList(Current(), sql, "dynamic", &ValueList::Add);
}

bool WorkbenchHost::scSubtractSingleValues(const std::string& sql) {
  return ChangeList(Current(), sql, "dynamic", &ValueList::Subtract);
}

bool WorkbenchHost::scCollectValuesAndDesc(const std::string& sql, const Selector& database) {
  return ChangeList(Current(), sql, SelectorName(database, "static"), &ValueList::Collect);
}

bool WorkbenchHost::scSQLSelectValuesAndDesc() {
  return scSQLSelectValuesAndDescByDefinition(form().ActiveDefinition(CurrentParameter()));
}

bool WorkbenchHost::scSQLSelectValuesAndDescByDefinition(const Value& definition) {
  Current().Collect(FixedList(exchange_, form().definition().command, CurrentParameter(), ToInt32(definition)));
  return true;
}

bool WorkbenchHost::scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) {
  ValueList& list = Named(name ? *name : CurrentParameter());
  // A check may put back the previous value of a parameter that had none: nothing to choose.
  const auto push = [&list](const Value& value) {
    if (!value.IsBlank()) list.Push(Joined(value));
  };
  if (const auto* one = std::get_if<Value>(&values)) {
    push(*one);
  } else {
    for (const Value& value : std::get<List>(values)) push(value);
  }
  return true;
}

bool WorkbenchHost::scPushValidRangeValues(const Value& from, const Value& to) {
  Current().PushRange(ToInt32(from), ToInt32(to));
  return true;
}

bool WorkbenchHost::scRemoveFromValidValues(const std::string& name, const Value& value) {
  Named(name).Remove(Joined(value));
  return true;
}

bool WorkbenchHost::scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) {
  Named(name).RemoveRange(ToInt32(from), ToInt32(to));
  return true;
}

bool WorkbenchHost::scGetValidValues(const std::string& name, List& values) {
  const ValueList* list = FreshList(name);
  return list != nullptr && Succeeds([&] {
           std::vector<Value> all;
           for (ValidValue& entry : list->All()) all.emplace_back(std::move(entry.value));
           values = List(std::move(all));
         });
}

bool WorkbenchHost::scGetNumberOfValidValues(const std::string& name, const Value&, Value& count) {
  const ValueList* list = FreshList(name);
  return list != nullptr && Succeeds([&] { count = list->All().size(); });
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
  std::string text = MessageText(code, arguments);
  // A code of the host's own creation of number series comes without arguments; its reason names the number.
  if (arguments.empty() && !seriesRefusal_.empty()) text += " (" + std::exchange(seriesRefusal_, "") + ")";
  messages_.push_back({third, context, Joined(code), arguments, text});
}

void WorkbenchHost::ShowBox(const std::string& text) { messages_.push_back({2, "", "", {}, text}); }

void WorkbenchHost::scPrintToDebugWindow(const std::string& line) { debugLines_.push_back(line); }

}  // namespace cordboard::workbench
