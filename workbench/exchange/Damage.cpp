#include "workbench/exchange/Damage.h"

#include "workbench/database/Schema.h"
#include "workbench/exchange/Exchange.h"

namespace cordboard::workbench {

std::vector<std::string> FindDamage(Exchange& exchange) {
  Connection& database = exchange.Dynamic();
  std::vector<std::string> found = database.FindDamage();
  for (const char* selector : {"dynamic", "site"}) {
    for (const std::string& statement : CreateStatements(ShippedSchema().Database(selector))) {
      if (database.Single("SELECT 1 FROM [main].sqlite_master WHERE [sql] = ?", {statement}).IsEmpty())
        found.push_back("this is missing: " + statement);
    }
  }
  return found;
}

}  // namespace cordboard::workbench
