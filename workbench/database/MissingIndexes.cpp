#include "workbench/database/MissingIndexes.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"

namespace cordboard::workbench {

namespace {

constexpr std::array selectors = {"dynamic", "site"};

// What `column` of the file's own list of tables and indexes has.
std::unordered_set<std::string> Present(Connection& exchange, const std::string& column, const std::string& condition) {
  const RowSet rows = exchange.Run("SELECT " + column + " FROM [main].sqlite_master WHERE " + condition);
  std::unordered_set<std::string> present;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) present.insert(Joined(rows[0][row]));
  return present;
}

// An index is named after what it indexes.
bool HasAllIndexes(Connection& exchange) {
  const auto present = Present(exchange, "[name]", "[type] = 'index'");
  return std::ranges::all_of(selectors, [&present](const char* selector) {
    return std::ranges::all_of(IndexNames(ShippedSchema().Database(selector)),
                               [&present](const std::string& name) { return present.contains(name); });
  });
}

}  // namespace

void AddMissingIndexes(Connection& exchange) {
  if (HasAllIndexes(exchange)) return;
  const auto present = Present(exchange, "[sql]", "[sql] <> ''");
  for (const char* selector : selectors) {
    bool hasTable = false;  // the one to which the indexes behind it belong
    for (const std::string& statement : CreateStatements(ShippedSchema().Database(selector))) {
      const bool isPresent = present.contains(statement);
      if (statement.starts_with("CREATE TABLE")) {
        hasTable = isPresent;
      } else if (hasTable && !isPresent) {
        exchange.Execute(statement);
      }
    }
  }
}

}  // namespace cordboard::workbench
