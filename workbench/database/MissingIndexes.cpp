#include "workbench/database/MissingIndexes.h"

#include <unordered_set>

#include "script/Conversions.h"
#include "workbench/database/Schema.h"

namespace cordboard::workbench {

void AddMissingIndexes(Connection& exchange) {
  const RowSet rows = exchange.Run("SELECT [sql] FROM [main].sqlite_master WHERE [sql] <> ''");
  std::unordered_set<std::string> present;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) present.insert(Joined(rows[0][row]));
  for (const char* selector : {"dynamic", "site"}) {
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
