#include "shared/Count.h"

#include "script/HostOperations.h"

namespace cordboard {

Value UncheckedCount(const std::string& sql) {
  RowSet rows;
  scRunQuery(sql, rows);
  return rows[0][0];
}

bool CheckedCount(const Reporter& fail, const std::string& sql, Value& count) {
  RowSet rows;
  if (!scRunQuery(sql, rows)) return fail(StatementFailed);
  count = rows[0][0];
  return true;
}

}  // namespace cordboard
