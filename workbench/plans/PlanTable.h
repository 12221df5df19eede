// A table (CSV, RFC 4180) of records of one command: under the names of its parameters one add a row. A cell that is
// empty gives nothing; any other holds what a line of a plan holds behind the equals sign, also several values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/actions/UserAction.h"

namespace cordboard::workbench {

// Reads a table line by line. A row is one line, since no value holds a line end.
class TableReader {
 public:
  explicit TableReader(const FormDefinition& form) : form_(&form) {}

  // Gives the add of a row; nothing for the line of the headings, and for one without values. Fails with PlanLineError,
  // which tells no text of the row. Where the headings cannot be read no row is.
  std::optional<UserAction> Read(std::string_view line);

 private:
  void ReadHeadings(std::string_view line);

  const FormDefinition* form_;
  bool hasHeadings_ = false;
  std::vector<std::string> parameters_;
};

// The adds, which are all of the form's command, as such a table: a column for each parameter that one of them gives,
// in the order of the form.
std::string WrittenTable(const FormDefinition& form, const std::vector<UserAction>& adds);

}  // namespace cordboard::workbench
