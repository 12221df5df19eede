#include "fault/Scenario.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/actions/Records.h"

namespace cordboard {

namespace {

using workbench::FormDefinition;
using workbench::Session;
using workbench::Table;

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

Scenario MakeScenario(World& world, const std::string& command, Random& random) {
  const FormDefinition& definition = *workbench::FindForm(command);
  ThinOut(world, command, random);
  Session session(world.exchange());
  workbench::Form& form = session.host().OpenForm(definition);
  Scenario scenario{.form = form, .values = {}, .CmdId = Record(world, command, random), .columns = {}, .changed = {}};
  if (random.Chance(40)) workbench::LoadRecord(world.exchange(), definition, scenario.CmdId, form);
  const int activeDefinition = 1 + static_cast<int>(random.Below(2));
  for (const std::string& column : definition.columns) {
    scenario.columns.Append(column);
    if (column != "CMDID" && random.Chance(40)) scenario.changed.Append(column);
  }
  if (scenario.changed.IsEmpty()) scenario.changed = List(std::vector<Value>());

  const unsigned filled = random.Of(std::vector<unsigned>{90, 90, 40, 10});
  const std::size_t row = random.Below(4);
  for (const workbench::ParameterDefinition& parameter : definition.parameters)
    form.SetActiveDefinition(parameter.name, activeDefinition);
  for (const workbench::ParameterDefinition& parameter : definition.parameters) {
    if (!random.Chance(filled)) continue;
    const std::vector<Value> list = random.Chance(75) ? ListOf(session, parameter.name) : std::vector<Value>();
    const auto draw = [&] {
      return list.empty() ? world.ValueFor(command, parameter.name, row, random)
                          : OneOrSeveral(list, parameter.multiple, random);
    };
    // The first of two becomes the previous value.
    for (int i = random.Chance(30) ? 0 : 1; i < 2; ++i) {
      scenario.values.emplace_back(parameter.name, draw());
      form.Set(parameter.name, scenario.values.back().second);
    }
  }
  scenario.form = form;
  return scenario;
}

}  // namespace cordboard
