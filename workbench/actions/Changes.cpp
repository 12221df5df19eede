#include "workbench/actions/Changes.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/text/Names.h"

namespace cordboard::workbench {

namespace {

// Whether records of the form stand in the table: some forms show several tables as one.
bool Holds(const DatabaseSchema& database, const Table& table, const FormDefinition& form) {
  const auto shows = [&](const View& view) {
    return SameName(view.table.name, form.table) && std::ranges::find(view.of, table.name) != view.of.end();
  };
  return form.database == database.name &&
         (SameName(form.table, table.name) || std::ranges::any_of(database.views, shows));
}

// The form of the records of a table; null where it holds no records of a command.
const FormDefinition* FormOf(const DatabaseSchema& database, const Table& table) {
  const FormDefinition* command = FindForm(table.command);
  if (command == nullptr) return nullptr;
  const auto forms = command->OfEachTable();
  const auto found =
      std::ranges::find_if(forms, [&](const FormDefinition* form) { return Holds(database, table, *form); });
  return found == forms.end() ? nullptr : *found;
}

// A row that was prepared, and that nobody has filled in, is no record yet.
void DropBlank(const FormDefinition& form, const WatchedTable& watched, std::optional<RowImage>& row) {
  if (!row) return;
  for (std::size_t i = 1; i < row->size(); ++i) {
    if (watched.table->columns[watched.columns[i]].name != form.prepared && !(*row)[i].IsBlank()) return;
  }
  row.reset();
}

}  // namespace

Changes::Changes(Exchange& exchange)
    : watch_(exchange.Dynamic(), [this](const std::string& stored) { return Find(stored); }) {}

std::optional<WatchedTable> Changes::Find(const std::string& stored) {
  const auto& databases = ShippedSchema().databases;
  const auto database = std::ranges::find_if(databases, [&](const DatabaseSchema& each) {
    return stored.starts_with(each.prefix) && each.Find(stored.substr(each.prefix.size())) != nullptr;
  });
  if (database == databases.end()) return std::nullopt;
  const Table* table = database->Find(stored.substr(database->prefix.size()));
  const FormDefinition* form = FormOf(*database, *table);
  if (form == nullptr) return std::nullopt;
  forms_[table] = form;
  WatchedTable watched{.table = table, .columns = {}};
  for (std::size_t i = 0; i < table->columns.size(); ++i) {
    const std::string& column = table->columns[i].name;
    if (SameName(column, "CmdId")) watched.columns.insert(watched.columns.begin(), i);
    if (form->Shows(column)) watched.columns.push_back(i);
  }
  return watched;
}

std::vector<RecordChange> Changes::Take() {
  std::vector<RecordChange> changes;
  for (RowDifference& row : watch_.Take()) {
    const FormDefinition& form = *forms_.at(row.table->table);
    if (!form.prepared.empty()) {
      DropBlank(form, *row.table, row.before);
      DropBlank(form, *row.table, row.now);
    }
    if (row.before || row.now) changes.emplace_back(form, std::move(row));
  }
  return changes;
}

const std::string& RecordChange::NameOf(std::size_t column) const {
  return row_.table->table->columns[row_.table->columns[column]].name;
}

std::string RecordChange::Told(const std::optional<RowImage>& row, std::size_t column) const {
  return row ? form_->Told({NameOf(column), Joined((*row)[column])}) : "";
}

std::vector<Assignment> RecordChange::Now() const {
  std::vector<Assignment> values;
  for (std::size_t i = 1; row_.now && i < row_.table->columns.size(); ++i) {
    if (!(*row_.now)[i].IsBlank()) values.push_back({NameOf(i), Joined((*row_.now)[i])});
  }
  return values;
}

std::vector<Assignment> RecordChange::Key() const {
  std::vector<Assignment> key;
  for (const std::string& name : form_->key) {
    for (std::size_t i = 1; i < row_.table->columns.size(); ++i) {
      std::string value = NameOf(i) == name ? Told(row_.before ? row_.before : row_.now, i) : "";
      if (!value.empty()) key.push_back({name, std::move(value)});
    }
  }
  return key;
}

std::vector<ColumnChange> RecordChange::Columns() const {
  std::vector<ColumnChange> columns;
  for (std::size_t i = 1; i < row_.table->columns.size(); ++i) {
    const std::string& name = NameOf(i);
    const bool isKey = std::ranges::find(form_->key, name) != form_->key.end();
    const bool differs = kind() == Kind::Changed ? (*row_.before)[i] != (*row_.now)[i]
                                                 : !isKey && !(row_.now ? *row_.now : *row_.before)[i].IsBlank();
    if (differs) columns.push_back({name, Told(row_.before, i), Told(row_.now, i)});
  }
  return columns;
}

}  // namespace cordboard::workbench
