#include "web/ChangedRecords.h"

#include "web/Frame.h"
#include "web/Selecting.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Separated.h"

namespace cordboard::web {

namespace {

using workbench::ColumnChange;
using workbench::RecordChange;

Html KindOf(const RecordChange& change) {
  switch (change.kind()) {
    case RecordChange::Kind::Added: return Element("span", {{"class", "added"}}, "added");
    case RecordChange::Kind::Changed: return Element("span", {{"class", "changed"}}, "changed");
    case RecordChange::Kind::Removed: return Element("span", {{"class", "removed"}}, "removed");
  }
  return {};
}

Html Columns(const RecordChange& change) {
  const bool both = change.kind() == RecordChange::Kind::Changed;
  const auto shown = [](const std::string& value) { return value.empty() ? std::string("nothing") : value; };
  Html columns;
  for (const ColumnChange& column : change.Columns()) {
    if (!columns.IsEmpty()) columns += ", ";
    columns += Element("span", {{"class", "name"}}, column.name) + "=";
    if (both) columns += Element("del", shown(column.before)) + " \u2192 " + Element("ins", shown(column.now));
    if (!both) columns += change.kind() == RecordChange::Kind::Added ? column.now : column.before;
  }
  return columns;
}

}  // namespace

Html ChangedRecords(const std::vector<RecordChange>& changes, std::size_t most) {
  if (changes.empty()) return Element("p", "No record changes.");
  std::vector<std::vector<Html>> rows;
  for (const RecordChange& change : changes) {
    if (rows.size() == most) break;
    rows.push_back({KindOf(change), change.command(), Named(change.form(), change.Key()), Columns(change)});
  }
  Html table = Table("Records", {"", "Command", "Record", "Values"}, rows);
  if (changes.size() > most)
    table += Element("p", "and " + workbench::Counted(changes.size() - most, "record") + " more");
  return table;
}

}  // namespace cordboard::web
