#include "workbench/exchange/References.h"

#include <algorithm>
#include <iterator>

#include "script/Conversions.h"
#include "workbench/data/DataFile.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

using Texts = std::vector<std::string>;

RecordKind ReadRecord(const DataItem& item) {
  RecordKind record = item.Object([](Fields& fields) {
    const auto table = fields.Get<std::string>("table");
    return RecordKind{.table = table,
                      .database = fields.Get("database", std::string("dynamic")),
                      .command = fields.Get("command", table),
                      .is = fields.Get<std::string>("is"),
                      .key = fields.Get<Texts>("key")};
  });
  const Table* table = ShippedSchema().Database(record.database).Find(record.table);
  if (table == nullptr) item.Fail("there is no table " + record.table + " in " + record.database);
  for (const std::string& column : record.key) {
    if (table->Find(column) == nullptr) item.Fail(record.table + " has no column " + column);
  }
  return record;
}

Home ReadHome(const DataItem& item) {
  return item.Object([](Fields& fields) {
    return Home{.table = fields.Get<std::string>("table"),
                .value = fields.Get<std::string>("value"),
                .used = fields.Get("used", std::string()),
                .where = fields.Get("where", std::string()),
                .trait = fields.Get("trait", std::string())};
  });
}

const Table& SchemaOf(const RecordKind& record) {
  return *ShippedSchema().Database(record.database).Find(record.table);
}

bool Has(const Texts& texts, const std::string& text) { return std::ranges::find(texts, text) != texts.end(); }

bool IsAlso(const Thing* thing, const Thing& wider) {
  while (thing != nullptr && thing != &wider) thing = thing->of;
  return thing != nullptr;
}

}  // namespace

std::string RecordKind::Rows() const { return ShippedSchema().Database(database).RowsOf(table); }

References::References(const DataItem& file) {
  std::vector<Entry> entries;
  file.Object([&](Fields& fields) {
    for (const DataItem& item : fields.At("records").List()) records_.push_back(ReadRecord(item));
    const DataItems items = fields.At("things").List();
    things_.reserve(items.size());
    for (const DataItem& item : items) ReadThing(item, entries);
    nothing_ = fields.Get<Texts>("nothing");
  });
  // First the columns that are listed with their tables, since the names alone stand for all others.
  std::stable_partition(entries.begin(), entries.end(),
                        [](const Entry& entry) { return entry.text.find('.') != entry.text.npos; });
  for (const Entry& entry : entries) Enter(entry);
}

void References::ReadThing(const DataItem& item, std::vector<Entry>& entries) {
  item.Object([&](Fields& fields) {
    Thing thing{.name = fields.Get<std::string>("name"), .missing = {}};
    thing.missing = fields.Get("missing", "there is no " + thing.name + " {}");
    if (const auto home = fields.Find("at")) {
      thing.home = ReadHome(*home);
      thing.definedBy = RecordsIn(thing.home->table);
    }
    if (const auto wider = fields.Find("of")) {
      const auto found = std::ranges::find(things_, wider->Text(), &Thing::name);
      if (found == things_.end()) wider->Fail("there is no such thing before it");
      thing.of = &*found;
    }
    thing.alsoTaken = fields.Get("alsoTaken", std::string());
    things_.push_back(std::move(thing));
    const auto taking = fields.Get("takenBy", Texts());
    const auto shared = fields.Get("shared", Texts());
    const auto unmarked = fields.Get("unmarked", Texts());
    for (const Texts& exceptions : {shared, unmarked}) {
      for (const std::string& entry : exceptions)
        if (!Has(taking, entry)) item.Fail(entry + " is not listed under takenBy");
    }
    for (const std::string& entry : taking)
      entries.push_back({entry, item, &things_.back(), true, Has(shared, entry), !Has(unmarked, entry)});
    for (const std::string& entry : fields.Get("namedBy", Texts()))
      entries.push_back({entry, item, &things_.back(), false, false, false});
  });
}

void References::Enter(const Entry& entry) {
  const std::size_t dot = entry.text.find('.');
  const bool hasTable = dot != entry.text.npos;
  const std::string column = hasTable ? entry.text.substr(dot + 1) : entry.text;
  bool found = false;
  for (const RecordKind& record : records_) {
    if (hasTable && record.table != entry.text.substr(0, dot)) continue;
    if (SchemaOf(record).Find(column) == nullptr) continue;
    found = true;
    const bool isListed = references_.contains({record.table, column}) || DefinedIn(record.table, column) != nullptr;
    if (!hasTable && isListed) continue;
    Reference& reference =
        references_[{record.table, column}] = {&record, column, entry.thing, entry.takes, entry.shares, entry.marks};
    entry.thing->references.push_back(&reference);
  }
  if (!found) entry.item.Fail("there is no column " + entry.text);
}

const RecordKind* References::RecordsIn(std::string_view table) const {
  const auto found = std::ranges::find(records_, table, &RecordKind::table);
  return found == records_.end() ? nullptr : &*found;
}

const Reference* References::Find(std::string_view table, std::string_view column) const {
  for (const View& view : ShippedSchema().Database("dynamic").views) {
    if (view.table.name != table) continue;
    for (const std::string& of : view.of) {
      if (const Reference* found = Find(of, column)) return found;
    }
  }
  const auto found = references_.find({std::string(table), std::string(column)});
  return found == references_.end() ? nullptr : &found->second;
}

bool References::NamesNothing(std::string_view table, std::string_view column) const {
  const std::string any = std::string(column.substr(0, column.find_last_not_of("0123456789") + 1)) + "%";
  return std::ranges::any_of(nothing_, [&](const std::string& entry) {
    return entry == column || entry == any || entry == std::string(table) + "." + std::string(column);
  });
}

const Thing* References::DefinedIn(std::string_view table, std::string_view column) const {
  const auto found = std::ranges::find_if(things_, [&](const Thing& thing) {
    return thing.home && thing.home->table == table && thing.home->value == column;
  });
  return found == things_.end() ? nullptr : &*found;
}

const References& ShippedReferences() {
  static const References references(ReadResource("references.json"));
  return references;
}

Standing StandingOf(Exchange& exchange, const Thing& thing, const std::string& value) {
  if (!thing.home) return {.isThere = !WhoTakes(exchange, thing, value, 1).empty()};
  const Home& home = *thing.home;
  const auto orElse = [](const std::string& sql, const std::string& otherwise) {
    return sql.empty() ? otherwise : sql;
  };
  const RowSet rows = exchange.Dynamic().Run("SELECT (" + orElse(home.used, "FALSE") + ") IS TRUE, " +
                                                 orElse(home.trait, "''") + " FROM [" + home.table + "] WHERE " +
                                                 home.value + " = ? AND " + orElse(home.where, "TRUE") + " LIMIT 1",
                                             {value});
  if (rows.IsEmpty()) return {};
  return {.isThere = true, .isUsed = Joined(rows[0][0]) == "1", .trait = Joined(rows[1][0])};
}

std::string HolderColumns(const RecordKind& record) {
  return "[CmdId]" + Separated(record.key, "", [](const std::string& name) { return ", [" + name + "]"; });
}

Holder HolderAt(const RowSet& rows, std::size_t row, const RecordKind& record) {
  Holder holder{&record, ToInt32(rows[0][row]), {}};
  for (std::size_t i = 0; i < record.key.size(); ++i) {
    if (!rows[i + 1][row].IsBlank()) holder.key.emplace_back(record.key[i], Joined(rows[i + 1][row]));
  }
  return holder;
}

std::vector<Holder> RecordsWith(Exchange& exchange, const RecordKind& record, const KeyValues& values,
                                std::size_t most) {
  std::vector<Value> parameters;
  const std::string condition = Separated(values, " AND ", [&](const auto& column) {
    const auto& [name, value] = column;
    if (value.empty()) return "([" + name + "] IS NULL OR [" + name + "] = '')";
    parameters.emplace_back(value);
    return "[" + name + "] = ?";
  });
  const RowSet rows = exchange.Dynamic().Run("SELECT " + HolderColumns(record) + " FROM " + record.Rows() + " WHERE " +
                                                 condition + " LIMIT " + std::to_string(most),
                                             parameters);
  std::vector<Holder> holders;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) holders.push_back(HolderAt(rows, row, record));
  return holders;
}

std::vector<Holder> WhoTakes(Exchange& exchange, const Thing& thing, const std::string& value, std::size_t most) {
  std::vector<Holder> holders;
  for (const Reference* reference : thing.references) {
    if (reference->takes)
      std::ranges::move(RecordsWith(exchange, *reference->record, {{reference->column, value}}, most),
                        std::back_inserter(holders));
  }
  return holders;
}

std::vector<Holder> WhoHolds(Exchange& exchange, const Thing& thing, const std::string& value, std::size_t most) {
  std::vector<Holder> holders;
  for (const Thing& each : ShippedReferences().things()) {
    if (!IsAlso(&each, thing)) continue;
    for (const Reference* reference : each.references)
      std::ranges::move(RecordsWith(exchange, *reference->record, {{reference->column, value}}, most),
                        std::back_inserter(holders));
  }
  return holders;
}

}  // namespace cordboard::workbench
