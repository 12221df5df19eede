#include "shared/TemplateID.h"

#include "script/HostOperations.h"
#include "script/Statement.h"

namespace cordboard {

Value NextTemplateID(const std::string& table) {
  RowSet rows;
  const bool read = scRunQuery(Sql("SELECT MAX(CMDID) FROM ", table), rows, "site");
  if (!read || rows[0][0].IsNull()) return "1";
  return Text(ToNumber(rows[0][0]) + 1);
}

}  // namespace cordboard
