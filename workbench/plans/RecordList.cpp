#include "workbench/plans/RecordList.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/actions/Selection.h"
#include "workbench/database/Schema.h"
#include "workbench/plans/RecordTable.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

bool Has(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

std::vector<std::string> ColumnsOf(const FormDefinition& command) {
  std::vector<std::string> columns;
  for (const FormDefinition* table : command.OfEachTable()) {
    const RecordTable records(*table);
    for (const std::string& column : records.columns())
      if (!Has(columns, column)) columns.push_back(column);
  }
  std::ranges::stable_sort(columns, {}, [&](const std::string& column) { return command.Place(column); });
  return columns;
}

std::string Bracketed(const std::string& column) { return "[" + column + "]"; }

// No column of a table has a dot in its name: the table by its number, and the place of the row in it.
const char* const table = "[Row.Table]";
const char* const place = "[Row.Place]";
constexpr std::size_t columnsInFront = 2;  // the table and the identifier

}  // namespace

RecordList::RecordList(Exchange& exchange, const FormDefinition& command)
    : exchange_(exchange), command_(command), tables_(command.OfEachTable()), columns_(ColumnsOf(command)) {
  std::string counts = "COUNT(*)";
  for (const std::string& column : columns_) counts += ", MAX([" + column + "] <> '')";
  const RowSet found = exchange_.Dynamic().Run("SELECT " + counts + " FROM " + AllRows());
  count_ = static_cast<std::size_t>(found[0][0].number());
  std::vector<std::string> filled;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Value& any = found[i + 1][0];
    if (!any.IsBlank() && any.number() > 0) filled.push_back(columns_[i]);
  }
  columns_ = std::move(filled);
}

// What stands in a FROM for the rows of all tables. Nothing but a table has places: the rows of a view have none.
std::string RecordList::AllRows() const {
  const auto rows = [&, number = 0](const FormDefinition* form) mutable {
    const std::string where = form->Database().IsView(form->table) ? "NULL" : "rowid";
    std::string select =
        "SELECT " + std::to_string(number++) + " AS " + table + ", " + where + " AS " + place + ", [CmdId]";
    for (const std::string& column : columns_)
      select += Has(form->columns, column) ? ", [" + column + "]" : ", NULL AS [" + column + "]";
    select += " FROM " + form->Rows();
    return form->prepared.empty() ? select : select + " WHERE NOT (" + IsBlankRow(*form) + ")";
  };
  return "(" + Separated(tables_, " UNION ALL ", rows) + ")";
}

void RecordList::Find(const std::string& text, const std::optional<std::string>& column) {
  std::vector<std::string> searched = column ? std::vector{*column} : columns_;
  std::erase_if(searched, [this](const std::string& each) { return !IsOpen(each); });
  condition_ = searched.empty() ? "0" : Separated(searched, " OR ", [](const std::string& each) {
    return "INSTR(LOWER([" + each + "]), LOWER(?1)) > 0";
  });
  sought_.clear();
  if (!searched.empty()) sought_.emplace_back(text);
}

void RecordList::SortBy(const std::string& column, bool downwards) {
  const std::string name = Bracketed(column);
  const std::string direction = downwards ? " DESC, " : ", ";
  const std::string digits = "CASE WHEN " + name + " NOT GLOB '*[^0-9]*' THEN LTRIM(" + name + ", '0') END";
  order_ = "COALESCE(" + name + ", '') = '', " + digits + " IS NULL" + direction + "LENGTH(" + digits + ")" +
           direction + digits + direction + name + " COLLATE NOCASE" + direction;
}

std::size_t RecordList::CountFound() {
  if (condition_ == "1") return count_;
  const std::string count = "SELECT COUNT(*) FROM " + AllRows() + " WHERE " + condition_;
  return static_cast<std::size_t>(exchange_.Dynamic().Single(count, sought_).number());
}

std::vector<ListedRecord> RecordList::Read(std::size_t from, std::size_t count) {
  std::string what = std::string(table) + ", [CmdId]";
  for (const std::string& column : columns_) what += ", " + Bracketed(column);
  const RowSet rows = exchange_.Dynamic().Run("SELECT " + what + " FROM " + AllRows() + " WHERE " + condition_ +
                                                  " ORDER BY " + order_ + table + ", " + place + ", [CmdId] LIMIT " +
                                                  std::to_string(count) + " OFFSET " + std::to_string(from),
                                              sought_);
  std::vector<ListedRecord> records;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const FormDefinition& form = *tables_[static_cast<std::size_t>(ToInt32(rows[0][row]))];
    ListedRecord& record = records.emplace_back();
    for (std::size_t i = 0; i < columns_.size(); ++i)
      record.values.push_back(command_.Told({columns_[i], Joined(rows[i + columnsInFront][row])}));
    record.selection = SelectionOf(form, rows, row);
  }
  return records;
}

std::vector<Assignment> RecordList::SelectionOf(const FormDefinition& form, const RowSet& rows, std::size_t row) const {
  return workbench::SelectionOf(exchange_, command_, {&form, ToInt32(rows[1][row])});
}

}  // namespace cordboard::workbench
