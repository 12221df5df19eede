// What actions do to the records of commands: which are added, changed and removed, also those that a rule adds,
// changes or removes besides. Marks of use, and what else no form shows, are no news.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/database/RowWatch.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

// A column from what it was to what it is, as a message may tell it; nothing is the empty text.
struct ColumnChange {
  std::string name;
  std::string before;
  std::string now;
};

class RecordChange {
 public:
  enum class Kind { Added, Changed, Removed };

  RecordChange(const FormDefinition& form, RowDifference row) : form_(&form), row_(std::move(row)) {}

  Kind kind() const {
    if (!row_.before) return Kind::Added;
    return row_.now ? Kind::Changed : Kind::Removed;
  }
  const std::string& command() const { return form_->command; }
  // The form of the table in which it stands.
  const FormDefinition& form() const { return *form_; }
  // What the record has now, secrets among it; nothing of one that has gone.
  std::vector<Assignment> Now() const;
  // The parameters that tell the record, as it was or, where it has come, as it is.
  std::vector<Assignment> Key() const;
  // What has changed; of a record that has come or gone all that it has beside its key.
  std::vector<ColumnChange> Columns() const;

 private:
  const std::string& NameOf(std::size_t column) const;
  std::string Told(const std::optional<RowImage>& row, std::size_t column) const;

  const FormDefinition* form_;
  RowDifference row_;
};

// The changes that it gives refer to it.
class Changes {
 public:
  explicit Changes(Exchange& exchange);

  // Those since the last Take or Forget.
  std::vector<RecordChange> Take();
  void Forget() { watch_.Forget(); }

 private:
  std::optional<WatchedTable> Find(const std::string& stored);

  std::map<const Table*, const FormDefinition*> forms_;  // of the tables that have been touched
  RowWatch watch_;
};

}  // namespace cordboard::workbench
