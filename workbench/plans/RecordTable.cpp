#include "workbench/plans/RecordTable.h"

#include <algorithm>
#include <deque>
#include <unordered_map>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// The texts as one, which no others give.
std::string Marked(const Record& texts) {
  return Separated(texts, "", [](const std::string& text) { return std::to_string(text.size()) + ":" + text; });
}

using Counts = std::unordered_map<std::string, std::size_t>;

bool TakeOne(Counts& counts, const Record& record) {
  const auto found = counts.find(Marked(record));
  if (found == counts.end() || found->second == 0) return false;
  --found->second;
  return true;
}

void DropShared(std::vector<Record>& first, std::vector<Record>& second) {
  Counts inSecond;
  Counts shared;
  for (const Record& record : second) ++inSecond[Marked(record)];
  std::erase_if(first, [&](const Record& record) {
    const bool isShared = TakeOne(inSecond, record);
    if (isShared) ++shared[Marked(record)];
    return isShared;
  });
  std::erase_if(second, [&](const Record& record) { return TakeOne(shared, record); });
}

}  // namespace

RecordTable::RecordTable(const FormDefinition& form) : form_(&form), columns_(form.shown) {
  std::ranges::stable_sort(columns_, {}, [&](const std::string& column) { return form.Place(column); });
  for (const std::string& column : columns_) isKey_.push_back(std::ranges::find(form.key, column) != form.key.end());
}

std::vector<Record> RecordTable::Read(Exchange& exchange) const {
  // Nothing but a table has a rowid: the rows of a view stand in the order of its tables.
  const std::string order = form_->Database().IsView(form_->table) ? "" : " ORDER BY rowid";
  const RowSet rows = exchange.Dynamic().Run("SELECT " + ColumnList(columns_) + " FROM " + form_->Rows() + order);
  std::vector<Record> records;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    Record record;
    for (std::size_t i = 0; i < columns_.size(); ++i) record.push_back(Joined(rows[i][row]));
    if (form_->prepared.empty() || !IsBlank(record)) records.push_back(std::move(record));
  }
  return records;
}

bool RecordTable::IsBlank(const Record& record) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i] != form_->prepared && !record[i].empty()) return false;
  }
  return true;
}

std::vector<Assignment> RecordTable::ValuesOf(const Record& record) const {
  std::vector<Assignment> values;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!record[i].empty()) values.push_back({columns_[i], record[i]});
  }
  return values;
}

std::vector<Assignment> RecordTable::KeyOf(const Record& record) const {
  std::vector<Assignment> key;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (isKey_[i] && !record[i].empty()) key.push_back({columns_[i], record[i]});
  }
  return key;
}

std::string RecordTable::MarkedKey(const Record& record, std::size_t without) const {
  Record key;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (isKey_[i] && i != without) key.push_back(record[i]);
  }
  return Marked(key);
}

RecordDifferences RecordTable::Compare(std::vector<Record> first, std::vector<Record> second) const {
  DropShared(first, second);
  std::unordered_map<std::string, std::deque<Record>> byKey;
  for (const Record& record : first) byKey[MarkedKey(record)].push_back(record);
  RecordDifferences differences;
  for (Record& record : second) {
    std::deque<Record>& same = byKey[MarkedKey(record)];
    if (same.empty()) {
      differences.missing.push_back(std::move(record));
    } else {
      differences.changed.emplace_back(std::move(same.front()), std::move(record));
      same.pop_front();
    }
  }
  // What is left of each key are the last of its records.
  for (auto record = first.rbegin(); record != first.rend(); ++record) {
    std::deque<Record>& same = byKey[MarkedKey(*record)];
    if (same.empty()) continue;
    differences.surplus.push_back(std::move(*record));
    same.pop_back();
  }
  std::ranges::reverse(differences.surplus);
  return differences;
}

}  // namespace cordboard::workbench
