#include "cli/ShownLists.h"

#include <algorithm>
#include <iostream>

#include "cli/Output.h"
#include "script/Conversions.h"
#include "workbench/actions/Records.h"
#include "workbench/host/Session.h"

namespace cordboard::cli {

namespace {

// The value, with its description where the list of the parameter has one.
std::string InWords(workbench::Session& session, const std::string& parameter) {
  std::string value = Joined(session.form().Get(parameter));
  const workbench::ValueList* list = value.empty() ? nullptr : session.host().FreshList(parameter);
  if (list == nullptr) return value;
  std::string described = value;
  list->Each([&](auto offered, auto description) {
    if (offered != value) return true;
    if (!description.empty()) described += " (" + std::string(description) + ")";
    return false;
  });
  return described;
}

// The parts of a list by the first thing that each tells, such as their positions.
void PrintList(workbench::Session& session, const workbench::Folding& list) {
  const workbench::FormDefinition& form = session.form().definition();
  std::vector<std::string> headings = {"ITEM"};
  std::vector<std::vector<std::string>> rows;
  for (const workbench::DigitPlace& place : list.places) {
    const std::string& part = place.parameters.front();
    if (session.form().Get(part).IsBlank()) continue;
    rows.push_back({part});
    const workbench::Folding* own = form.FoldingOf(part);
    for (const workbench::DigitPlace& digits : own->places) {
      const std::string& parameter = digits.parameters.front();
      if (rows.size() == 1) headings.push_back(form.Find(parameter)->title);
      rows.back().push_back(InWords(session, parameter));
    }
  }
  std::ranges::stable_sort(rows, {}, [](const auto& row) { return NumericValue(row[1]); });
  PrintTable(headings, rows);
  double sum = 0;
  for (const std::string& parameter : list.sum) sum += NumericValue(session.form().Get(parameter));
  if (!list.sum.empty()) std::cout << form.Find(list.sum.front())->title << " in all: " << Joined(Value(sum)) << '\n';
}

}  // namespace

const workbench::Folding* ListOf(const workbench::FormDefinition& form) {
  const auto found = std::ranges::find_if(form.foldings, &workbench::Folding::isList);
  return found == form.foldings.end() ? nullptr : &*found;
}

void ShowLists(workbench::Exchange& exchange, const workbench::FormDefinition& form, const workbench::Folding& list,
               const std::vector<workbench::Assignment>& selection) {
  const RowSet records = SelectRecords(exchange, form, "[CmdId]", selection, " ORDER BY rowid");
  workbench::Session session(exchange);
  for (std::size_t row = 0; row < records.RowCount(); ++row) {
    const workbench::Form& open = session.host().OpenForm(form);
    LoadRecord(exchange, form, ToInt32(records[0][row]), session.form());
    if (row > 0) std::cout << '\n';
    for (const std::string& column : form.columns) {
      const Value value = open.Get(column);
      if (column == list.parameter || list.Has(column) || value.IsBlank()) continue;
      std::cout << column << ' ' << Printed(Joined(value)) << '\n';
    }
    PrintList(session, list);
  }
}

}  // namespace cordboard::cli
