#include "workbench/actions/Generation.h"

#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/data/DataFile.h"
#include "workbench/database/Schema.h"

namespace cordboard::workbench {

namespace {

// How far a generation came.
std::string After(std::size_t lines) {
  if (lines == 0) return "before the first line";
  return lines == 1 ? "after 1 line" : "after " + std::to_string(lines) + " lines";
}

}  // namespace

const std::vector<std::string>& GenerationOrder() {
  static const std::vector<std::string> order = ReadResource("generation-order.json").As<std::vector<std::string>>();
  return order;
}

Generated Generate(Session& session, const std::string& database) {
  Generated generated;
  Exchange& exchange = session.exchange();
  // The lines go by way of a table of the exchange; they are taken from there and the table is left empty.
  Transaction transaction(exchange);
  int number = 0;
  for (const std::string& command : GenerationOrder()) {
    const FormDefinition* definition = FindForm(command);
    if (definition == nullptr || !definition->generates || definition->database != database) continue;
    session.host().OpenForm(*definition);
    const RunResult result = session.Run("GenerateCmd", 0, {std::to_string(++number)});
    for (Problem& problem : TakeMessages(session)) generated.problems.emplace_back(command, std::move(problem));
    const RowSet rows = exchange.Dynamic().Run(
        "SELECT [Line] FROM " + definition->Database().Stored("BuiltCmd") + " WHERE [OrderNo] = ? ORDER BY rowid",
        {number});
    if (result.failure) {
      const std::string message =
          "lines are missing: the generation ended " + After(rows.RowCount()) + " (" + *result.failure + ")";
      generated.problems.emplace_back(command, Problem{.message = message});
    }
    for (std::size_t row = 0; row < rows.RowCount(); ++row) generated.lines.push_back({command, Joined(rows[0][row])});
  }
  transaction.RollBack();
  return generated;
}

}  // namespace cordboard::workbench
