#include "workbench/exchange/Damage.h"

#include "workbench/database/Schema.h"
#include "workbench/exchange/Exchange.h"

namespace cordboard::workbench {

namespace {

// An exchange of an earlier version has none of its tables.
bool IsHistoryWhole(Connection& database) {
  const RowSet rows =
      database.Run("SELECT 1 FROM [main].sqlite_master WHERE [type] = 'table' AND [name] LIKE 'Cordboard.%'");
  return rows.RowCount() == 0 || rows.RowCount() == 3;
}

}  // namespace

std::vector<std::string> FindDamage(Exchange& exchange) {
  Connection& database = exchange.Dynamic();
  std::vector<std::string> found = database.FindDamage();
  for (const char* selector : {"dynamic", "site"}) {
    for (const std::string& statement : CreateStatements(ShippedSchema().Database(selector))) {
      if (database.Single("SELECT 1 FROM [main].sqlite_master WHERE [sql] = ?", {statement}).IsEmpty())
        found.push_back("this is missing: " + statement);
    }
  }
  if (!IsHistoryWhole(database)) found.push_back("a table of the history is missing");
  return found;
}

}  // namespace cordboard::workbench
