#include "workbench/actions/Generation.h"

#include <optional>

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

// The lines of one command. They go by way of a table of the exchange, from which the caller rolls them back.
struct Built {
  std::optional<std::string> failure;
  std::vector<Problem> messages;
  std::vector<std::string> lines;
};

Built Build(Session& session, const FormDefinition& definition, int number) {
  session.host().OpenForm(definition);
  const RunResult result = session.Run("GenerateCmd", 0, {std::to_string(number)});
  Built built{.failure = result.failure, .messages = TakeMessages(session), .lines = {}};
  const RowSet rows = session.exchange().Dynamic().Run(
      "SELECT [Line] FROM " + definition.Database().Stored("BuiltCmd") + " WHERE [OrderNo] = ? ORDER BY rowid",
      {number});
  for (std::size_t row = 0; row < rows.RowCount(); ++row) built.lines.push_back(Joined(rows[0][row]));
  return built;
}

}  // namespace

const std::vector<std::string>& GenerationOrder() {
  static const std::vector<std::string> order = ReadResource("generation-order.json").As<std::vector<std::string>>();
  return order;
}

Generated Generate(Session& session, const std::string& database) {
  Generated generated;
  Transaction transaction(session.exchange());
  int number = 0;
  for (const std::string& command : GenerationOrder()) {
    const FormDefinition* definition = FindForm(command);
    if (definition == nullptr || !definition->generates || definition->database != database) continue;
    Built built = Build(session, *definition, ++number);
    for (Problem& problem : built.messages) generated.problems.emplace_back(command, std::move(problem));
    if (built.failure) {
      const std::string message =
          "lines are missing: the generation ended " + After(built.lines.size()) + " (" + *built.failure + ")";
      generated.problems.emplace_back(command, Problem{.message = message});
    }
    for (std::string& line : built.lines) generated.lines.push_back({command, std::move(line)});
  }
  transaction.RollBack();
  return generated;
}

std::vector<std::string> LinesOf(Session& session, const FormDefinition& definition) {
  Transaction transaction(session.exchange());
  std::vector<std::string> lines = Build(session, definition, 1).lines;
  transaction.RollBack();
  return lines;
}

}  // namespace cordboard::workbench
