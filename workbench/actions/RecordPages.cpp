#include "workbench/actions/RecordPages.h"

#include "workbench/actions/Records.h"
#include "workbench/database/Schema.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// A page passes over all before it: large enough that this costs nothing, and a few megabytes.
constexpr std::size_t recordsOfPage = 5000;

}  // namespace

RecordPages::RecordPages(Exchange& exchange, const FormDefinition& table, std::vector<Assignment> selection)
    : exchange_(exchange), table_(table), selection_(std::move(selection)) {}

RowSet RecordPages::Next() {
  // Nothing but a table has a rowid: the rows of a view stand in the order of its tables.
  const std::string order = table_.Database().IsView(table_.table) ? "" : " ORDER BY rowid";
  RowSet page = SelectRecords(exchange_, table_, "*", selection_,
                              order + " LIMIT " + std::to_string(recordsOfPage) + " OFFSET " + std::to_string(read_));
  read_ += page.RowCount();
  return page;
}

std::vector<std::size_t> RecordPages::Widths() {
  const std::vector<Column>& columns = table_.Database().Find(table_.table)->columns;
  const std::string lengths =
      Separated(columns, ", ", [](const Column& column) { return "IFNULL(MAX(LENGTH([" + column.name + "])), 0)"; });
  const RowSet found = SelectRecords(exchange_, table_, lengths, selection_, "");
  std::vector<std::size_t> widths(columns.size());
  for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = static_cast<std::size_t>(found[i][0].number());
  return widths;
}

}  // namespace cordboard::workbench
