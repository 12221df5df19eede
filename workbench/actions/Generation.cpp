#include "workbench/actions/Generation.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "entry/Registry.h"
#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"
#include "workbench/data/DataFile.h"
#include "workbench/database/Schema.h"

namespace cordboard::workbench {

namespace {

// How far a generation came.
std::string After(std::size_t lines) {
  if (lines == 0) return "before the first line";
  return lines == 1 ? "after 1 line" : "after " + std::to_string(lines) + " lines";
}

// What one command gives. It goes by way of a table of the exchange, from which the caller rolls it back.
struct Built {
  std::optional<Failure> failure;
  std::vector<Problem> messages;
  std::vector<std::string> texts;
};

Built Build(Session& session, const DatabaseSchema& database, const std::string& command, int number) {
  const RunResult result = session.Generate(command, number);
  Built built{.failure = result.failure, .messages = TakeMessages(session), .texts = {}};
  const RowSet rows = session.exchange().Dynamic().Run(
      "SELECT [Line] FROM " + database.Stored("BuiltCmd") + " WHERE [OrderNo] = ? ORDER BY rowid", {number});
  for (std::size_t row = 0; row < rows.RowCount(); ++row) built.texts.push_back(Joined(rows[0][row]));
  return built;
}

// Some records give a text of several lines.
void Append(std::vector<GeneratedLine>& lines, const std::string& command, const std::string& text) {
  for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end + 1) {
    end = std::min(text.find('\n', begin), text.size());
    lines.push_back({command, text.substr(begin, end - begin)});
  }
}

// Gives whether there was anything to say.
bool GenerateCommand(Session& session, const DatabaseSchema& database, const std::string& command, int number,
                     Generated& generated) {
  const std::size_t before = generated.lines.size() + generated.problems.size();
  Built built = Build(session, database, command, number);
  for (Problem& problem : built.messages) generated.problems.emplace_back(command, std::move(problem));
  if (built.failure) {
    const std::string message =
        "lines are missing: the generation ended " + After(built.texts.size()) + "; " + built.failure->inWords;
    generated.problems.emplace_back(command, Problem{.message = message, .cause = built.failure->cause});
  }
  for (const std::string& text : built.texts) Append(generated.lines, command, text);
  return generated.lines.size() + generated.problems.size() > before;
}

// Those commands of which `isMeant` is true whose tables hold rows: their forms alone need be read.
template <typename IsMeant>
std::set<std::string> CommandsWithRows(Exchange& exchange, const DatabaseSchema& database, IsMeant isMeant) {
  std::set<std::string> commands;
  for (const Table& table : database.tables) {
    if (isMeant(table.command) &&
        !exchange.Dynamic().Run("SELECT 1 FROM " + database.Stored(table.name) + " LIMIT 1").IsEmpty())
      commands.insert(table.command);
  }
  return commands;
}

}  // namespace

const std::vector<std::string>& GenerationOrder(const std::string& database) {
  using Orders = std::map<std::string, std::vector<std::string>>;
  static const Orders orders = [] {
    Orders read;
    for (const auto& [name, order] : ReadResource("generation-order.json").Entries())
      read.emplace(name, order.As<std::vector<std::string>>());
    return read;
  }();
  return orders.at(database);
}

Generated Generate(Session& session, const std::string& database, const std::vector<std::string>& commands) {
  const auto isNamed = [&](const std::string& command) {
    return commands.empty() || std::ranges::find(commands, command) != commands.end();
  };
  const DatabaseSchema& schema = ShippedSchema().Database(database);
  Generated generated;
  Transaction transaction(session.exchange());
  int number = 0;
  std::set<std::string> spoken;
  for (const std::string& command : GenerationOrder(database)) {
    if (isNamed(command) && GenerateCommand(session, schema, command, ++number, generated)) spoken.insert(command);
  }
  transaction.RollBack();
  // Some tables are those of the plant, and of no command.
  const auto isSilent = [&](const std::string& command) {
    return isNamed(command) && FindModule(command) != nullptr && !spoken.contains(command);
  };
  for (const std::string& command : CommandsWithRows(session.exchange(), schema, isSilent)) {
    const FormDefinition* form = FindForm(command);
    if (form->database == database && CountRecords(session.exchange(), *form).records > 0)
      generated.without.push_back(command);
  }
  return generated;
}

std::vector<std::string> LinesOf(Session& session, const FormDefinition& definition) {
  Transaction transaction(session.exchange());
  std::vector<std::string> lines = Build(session, definition.Database(), definition.command, 1).texts;
  transaction.RollBack();
  return lines;
}

}  // namespace cordboard::workbench
