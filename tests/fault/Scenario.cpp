#include "fault/Scenario.h"

#include <algorithm>
#include <map>

#include "script/Conversions.h"
#include "workbench/actions/Records.h"

namespace cordboard {

namespace {

using workbench::FormDefinition;
using workbench::Session;
using workbench::Table;

std::map<std::string, FormDefinition>& SubstituteForms() {
  static std::map<std::string, FormDefinition> forms;
  return forms;
}

// Every list and every check is tried: what the command does not serve, it does not serve.
void AddParameter(FormDefinition& form, const std::string& name) {
  if (form.Find(name) != nullptr) return;
  form.parameters.push_back(
      {.name = name, .title = name, .multiple = true, .range = true, .list = true, .check = true});
}

FormDefinition SubstituteForm(const std::string& command) {
  FormDefinition form{.command = command, .title = command, .help = "", .table = command, .columns = {"CMDID"}};
  if (!World::TablesOf(command).empty()) form.table = World::TablesOf(command).front()->name;
  for (const Table* table : World::TablesOf(command)) {
    for (const workbench::Column& column : table->columns) {
      if (&column == &table->columns.front()) continue;
      AddParameter(form, column.name);
      if (!column.further && table == World::TablesOf(command).front()) form.columns.push_back(column.name);
    }
  }
  return form;
}

// The values of a list are had from the command itself, as the form is at that moment.
std::vector<Value> ListOf(Session& session, const std::string& parameter) {
  const workbench::ValueList* list = session.host().FreshList(parameter);
  std::vector<Value> values;
  if (list == nullptr) return values;
  for (workbench::ValidValue& entry : list->All()) values.emplace_back(std::move(entry.value));
  return values;
}

Value OneOrSeveral(const std::vector<Value>& values, bool several, Random& random) {
  const Value one = random.Of(values);
  return several && random.Chance(30) ? Value(Joined(one) + "&" + Joined(random.Of(values))) : one;
}

// The identifiers of the command's records, and at times one that no record has.
std::int32_t Record(World& world, const std::string& command, Random& random) {
  std::vector<Value> identifiers;
  for (const Table* table : World::TablesOf(command)) {
    if (table->Find("CmdId") == nullptr) continue;
    const RowSet rows = world.exchange().Dynamic().Run("SELECT [CmdId] FROM [" + table->name + "]");
    for (std::size_t row = 0; row < rows.RowCount(); ++row) identifiers.push_back(rows[0][row]);
  }
  return identifiers.empty() || random.Chance(10) ? 999999 : ToInt32(random.Of(identifiers));
}

void KeepOneRow(World& world, const std::string& table, std::size_t row) {
  const std::string name = "[" + table + "]";
  world.exchange().Dynamic().Run(
      "DELETE FROM " + name + " WHERE rowid <> (SELECT rowid FROM " + name + " ORDER BY rowid LIMIT 1 OFFSET ?)",
      {row});
}

// The command meets tables of its own with many records, with none and with one, and at times one record everywhere.
void ThinOut(World& world, const std::string& command, Random& random) {
  const std::size_t kind = random.Below(6);
  const std::size_t row = random.Below(4);
  for (const Table* table : World::TablesOf(command)) {
    if (kind == 0) world.exchange().Dynamic().Run("DELETE FROM [" + table->name + "]");
    if (kind == 1) KeepOneRow(world, table->name, row);
  }
  if (kind != 2) return;
  for (const std::string& table : World::TablesOfRecords()) KeepOneRow(world, table, row);
}

}  // namespace

const FormDefinition& FormOf(const std::string& command) {
  if (const FormDefinition* form = workbench::FindForm(command)) return *form;
  const auto found = SubstituteForms().find(command);
  if (found != SubstituteForms().end()) return found->second;
  return SubstituteForms().emplace(command, SubstituteForm(command)).first->second;
}

void AddToForm(const std::string& command, const std::string& parameter) {
  const auto found = SubstituteForms().find(command);
  if (found != SubstituteForms().end()) AddParameter(found->second, parameter);
}

void Scenario::Fill(Session& session) const {
  workbench::Form& open = session.host().OpenForm(*form);
  if (loaded && !World::TablesOf(form->command).empty()) workbench::LoadRecord(session.exchange(), *form, CmdId, open);
  for (const auto& [name, value] : values) open.Set(name, value);
  for (const workbench::ParameterDefinition& parameter : form->parameters)
    open.SetActiveDefinition(parameter.name, definition);
}

Scenario MakeScenario(World& world, const std::string& command, Random& random) {
  Scenario scenario;
  scenario.form = &FormOf(command);
  ThinOut(world, command, random);
  scenario.CmdId = Record(world, command, random);
  scenario.loaded = random.Chance(40);
  scenario.definition = 1 + static_cast<int>(random.Below(2));
  for (const std::string& column : scenario.form->columns) {
    scenario.columns.Append(column);
    if (column != "CMDID" && random.Chance(40)) scenario.changed.Append(column);
  }
  if (scenario.changed.IsEmpty()) scenario.changed = List(std::vector<Value>());

  Session session(world.exchange());
  scenario.Fill(session);
  const unsigned filled = random.Of(std::vector<unsigned>{90, 90, 40, 10});
  const std::size_t row = random.Below(4);
  for (const workbench::ParameterDefinition& parameter : scenario.form->parameters) {
    if (!random.Chance(filled)) continue;
    const std::vector<Value> list = random.Chance(75) ? ListOf(session, parameter.name) : std::vector<Value>();
    const auto draw = [&] {
      return list.empty() ? world.ValueFor(command, parameter.name, row, random)
                          : OneOrSeveral(list, parameter.multiple, random);
    };
    // The first of two becomes the previous value.
    for (int i = random.Chance(30) ? 0 : 1; i < 2; ++i) {
      scenario.values.emplace_back(parameter.name, draw());
      session.form().Set(parameter.name, scenario.values.back().second);
    }
  }
  return scenario;
}

}  // namespace cordboard
