#include "workbench/actions/ToldRecords.h"

#include <algorithm>
#include <iterator>

#include "script/Conversions.h"
#include "workbench/actions/NextValues.h"
#include "workbench/forms/Form.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

using Names = std::vector<std::string>;
using Values = std::vector<Assignment>;

// The parameters of the key that the table has.
Names KeyOf(const FormDefinition& table) {
  Names key;
  std::ranges::copy_if(table.key, std::back_inserter(key), [&](const std::string& name) {
    return std::ranges::find(table.columns, name) != table.columns.end();
  });
  return key;
}

const Assignment* Find(const Values& values, const std::string& name) {
  const auto found = std::ranges::find(values, name, &Assignment::name);
  return found == values.end() || found->value.empty() ? nullptr : &*found;
}

// The value of a parameter of the key: as it is told, as its digits make it, or as the rules put it.
std::string KeyValue(const FormDefinition& table, const Values& values, const std::string& name) {
  if (const Assignment* told = Find(values, name)) return told->value;
  if (table.FoldingOf(name) == nullptr) return table.Find(name)->otherwise;
  Form form(table);
  for (const Assignment& each : values) form.Set(each.name, each.value);
  return Joined(form.Get(name));
}

// The parameters that tell a record in the place of its key; null where the key does. It is not found by them.
const Names* ToldInstead(const FormDefinition& table, const Names& key, const Values& values) {
  const auto isKey = [&key](const std::string& name) { return std::ranges::find(key, name) != key.end(); };
  const auto isTold = [&values](const std::string& name) { return Find(values, name) != nullptr; };
  const Names* instead = nullptr;
  bool needsSet = false;
  for (const Names& set : table.oneOf) {
    const bool whole = std::ranges::all_of(set, isTold);
    if (std::ranges::all_of(set, isKey)) {
      if (whole) return nullptr;
      needsSet = true;
    } else if (whole && std::ranges::none_of(set, isKey)) {
      instead = &set;
    }
  }
  return needsSet ? instead : nullptr;
}

// Why the values do not tell which records they are about; nothing where they do.
std::string Untold(const FormDefinition& table, const Names& key, const Values& values) {
  if (key.empty() && !table.single)
    return "nothing tells one record of " + table.command + " from another, so that none can be found again";
  for (const std::string& name : key) {
    const Assignment* told = Find(values, name);
    if (told != nullptr && IsNext(table, *told)) return "next finds no record again; give the value of " + name;
  }
  const Names* instead = ToldInstead(table, key, values);
  if (instead == nullptr) return "";
  return "records are found by " + Separated(key, ", ") + "; give them in the place of " + Separated(*instead, ", ");
}

// Of some parameters each of several values is a record of its own.
bool MakesRecords(const FormDefinition& table, const std::string& name) {
  const ParameterDefinition& parameter = *table.Find(name);
  return parameter.TakesElements() && (parameter.oneInEdit || !table.edits);
}

// The parameters that go in step with this one, and have values of their own.
Values InStepWith(const FormDefinition& table, const std::string& name, const Values& values) {
  Values others;
  for (const Names& together : table.inStep) {
    if (std::ranges::find(together, name) == together.end()) continue;
    for (const std::string& other : together) {
      const Assignment* told = other == name ? nullptr : Find(values, other);
      if (told != nullptr && told->value != "next") others.push_back(*told);
    }
  }
  return others;
}

void Put(Values& values, const std::string& name, const std::string& value) {
  std::ranges::find(values, name, &Assignment::name)->value = value;
}

// Takes the records apart by one parameter, where it has several values.
void Split(const FormDefinition& table, const std::string& name, ToldRecords& all) {
  std::vector<ToldRecord>& records = all.records;
  const Assignment* told = Find(records.front().values, name);
  if (told == nullptr || told->value.find('&') == told->value.npos || !MakesRecords(table, name)) return;
  const Names own = Elements(told->value);
  std::vector<std::pair<std::string, Names>> columns = {{name, own}};
  for (const auto& [other, value] : InStepWith(table, name, records.front().values)) {
    columns.emplace_back(other, Elements(value));
    if (columns.back().second.size() != own.size()) throw ElementsError("there are not as many values of each");
  }
  std::vector<ToldRecord> split;
  split.reserve(records.size() * own.size());
  for (const ToldRecord& record : records) {
    for (std::size_t i = 0; i < own.size(); ++i) {
      ToldRecord& one = split.emplace_back(record);
      for (const auto& [column, values] : columns) Put(one.values, column, values[i]);
    }
  }
  records = std::move(split);
  all.several = true;
  all.last.clear();
  for (const auto& [column, values] : columns) all.last.push_back(column);
}

// The records of the table with this key, two of them at the most; the empty text stands for no value.
std::vector<StoredRecord> WithKey(Exchange& exchange, const FormDefinition& table, const Values& key) {
  std::vector<Value> told;
  const auto condition = [&](const Assignment& each) {
    const auto& [name, value] = each;
    if (value.empty()) return "COALESCE([" + name + "], '') = ''";
    const bool several = table.Find(name)->TakesElements() && value.find('&') != value.npos;
    told.emplace_back(value);
    told.emplace_back(several ? Separated(Elements(value), "&") : value);
    return "[" + name + "] IN (?, ?)";
  };
  std::string conditions = key.empty() ? "1" : Separated(key, " AND ", condition);
  if (!table.prepared.empty()) conditions += " AND NOT (" + IsBlankRow(table) + ")";
  const RowSet rows =
      exchange.Dynamic().Run("SELECT [CmdId] FROM " + table.Rows() + " WHERE " + conditions + " LIMIT 2", told);
  std::vector<StoredRecord> records;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) records.push_back({&table, ToInt32(rows[0][row])});
  return records;
}

std::string Named(const FormDefinition& table, const Values& key) {
  Values told;
  std::ranges::copy_if(key, std::back_inserter(told), [](const Assignment& each) { return !each.value.empty(); });
  return Separated(told, ",", [&](const Assignment& each) { return each.name + "=" + table.Told(each); });
}

Values AsOneAdd(const std::vector<const ToldRecord*>& records) {
  Values values = records.front()->values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    Names each;
    std::ranges::transform(records, std::back_inserter(each),
                           [i](const ToldRecord* record) { return record->values[i].value; });
    const bool isOne = std::ranges::all_of(each, [&](const std::string& value) { return value == each.front(); });
    values[i].value = isOne ? each.front() : Separated(AsRanges(each), "&");
  }
  return values;
}

}  // namespace

ToldRecords FindTold(Exchange& exchange, const FormDefinition& definition, const Values& values) try {
  const FormDefinition& table = definition.OfRecordWith(values);
  const Names key = KeyOf(table);
  if (std::string untold = Untold(table, key, values); !untold.empty())
    return {.problem = Problem{.message = std::move(untold)}};
  ToldRecords told{.records = {{.values = values}}};
  for (const std::string& name : key) Split(table, name, told);
  for (ToldRecord& record : told.records) {
    Values ofRecord;
    for (const std::string& name : key) ofRecord.push_back({name, KeyValue(table, record.values, name)});
    record.name = Named(table, ofRecord);
    const std::vector<StoredRecord> found = WithKey(exchange, table, ofRecord);
    if (found.size() > 1)
      return {.problem = Problem{.message = "there are several records of " + table.command + " with " + record.name}};
    if (!found.empty()) record.standing = found.front();
  }
  return told;
} catch (const ElementsError&) {
  return {.records = {{.values = values}}};
}

std::vector<Values> ToldRecords::Missing() const {
  std::vector<std::vector<const ToldRecord*>> alike;
  const auto isLike = [this](const ToldRecord& one, const ToldRecord& other) {
    return std::ranges::equal(one.values, other.values, [this](const Assignment& first, const Assignment& second) {
      return first.value == second.value || std::ranges::find(last, first.name) != last.end();
    });
  };
  for (const ToldRecord& record : records) {
    if (record.standing) continue;
    if (alike.empty() || !isLike(*alike.back().front(), record)) alike.emplace_back();
    alike.back().push_back(&record);
  }
  std::vector<Values> adds;
  std::ranges::transform(alike, std::back_inserter(adds), AsOneAdd);
  return adds;
}

}  // namespace cordboard::workbench
