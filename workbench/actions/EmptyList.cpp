#include "workbench/actions/EmptyList.h"

#include <algorithm>
#include <utility>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"
#include "workbench/dialect/Tokenizer.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

void AddOnce(std::vector<std::string>& names, const std::string& name) {
  if (std::ranges::find(names, name) == names.end()) names.push_back(name);
}

const DatabaseSchema& Dynamic() { return ShippedSchema().Database("dynamic"); }

// The tables of the exchange that the statement names.
void AddTables(const std::string& sql, std::vector<std::string>& tables) {
  for (Tokenizer tokens(sql); tokens.current().symbol != Symbol::End; tokens.Advance()) {
    const Table* table = tokens.current().symbol == Symbol::Name ? Dynamic().Find(tokens.current().text) : nullptr;
    if (table != nullptr) AddOnce(tables, table->name);
  }
}

std::size_t CountRows(Exchange& exchange, const std::string& rows) {
  return static_cast<std::size_t>(exchange.Dynamic().Single("SELECT COUNT(*) FROM " + rows).number());
}

// "Equipment (368, 0 of them free)", "KSEXI (20)".
std::string Counted(Exchange& exchange, const std::string& table, std::size_t rows) {
  const std::string counted = table + " (" + std::to_string(rows);
  if (Dynamic().Find(table)->Find("USED") == nullptr) return counted + ")";
  return counted + ", " + std::to_string(CountRows(exchange, Dynamic().RowsOf(table) + " WHERE NOT [USED]")) +
         " of them free)";
}

// The tables that have something to choose from, or that none of them has.
std::string NothingIn(Exchange& exchange, const std::vector<std::string>& tables) {
  std::vector<std::string> filled;
  for (const std::string& table : tables) {
    const std::size_t rows = CountRows(exchange, Dynamic().RowsOf(table));
    if (rows > 0) filled.push_back(Counted(exchange, table, rows));
  }
  if (tables.empty()) return "";
  if (filled.empty()) return ": there is nothing in " + Separated(tables, ", ");
  return ": nothing fits of what is in " + Separated(filled, ", ");
}

// "DIR=100", or that the parameter has no value.
std::string Stands(const Filling& filling, const std::string& parameter) {
  const Value value = filling.form().Get(parameter);
  if (value.IsBlank()) return parameter + " (not given)";
  return parameter + "=" + filling.definition().Told({parameter, Joined(value)});
}

}  // namespace

void ListSources::Forget() {
  parameters_.clear();
  tables_.clear();
}

HostAnswer ListSources::Answer(const HostCall& call) {
  const auto text = [&call] { return Joined(std::get<Value>(call.arguments.front())); };
  HostAnswer answer = ForwardingHost::Answer(call);
  if (call.operation == "scGetParamValue" || call.operation == "scGetValueArray") AddOnce(parameters_, text());
  // What a statement takes away is not where values come from.
  const bool gives = call.operation == "scCollectSingleValues" || call.operation == "scCollectValuesAndDesc" ||
                     call.operation == "scAddSingleValues" || call.operation == "scRunQuery";
  if (gives && ToTruth(std::get<Value>(answer.result))) AddTables(text(), tables_);
  return answer;
}

std::string WhyEmpty(Filling& filling, const std::string& parameter, const ListSources& sources) {
  std::string text = "no value is possible at present" + NothingIn(filling.session().exchange(), sources.tables());
  std::vector<std::string> narrowing;
  for (const std::string& name : sources.parameters()) {
    if (name != parameter && filling.definition().Find(name) != nullptr) narrowing.push_back(Stands(filling, name));
  }
  const auto& by = filling.definition().Find(parameter)->narrowing;
  if (by && !filling.form().Get(by->by).IsBlank()) narrowing.push_back(Stands(filling, by->by));
  const char* joint = "; it depends on ";
  for (const std::string& each : narrowing) text += std::exchange(joint, ", ") + each;
  return text;
}

}  // namespace cordboard::workbench
