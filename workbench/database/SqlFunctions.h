// The functions of the statement dialect that SQLite does not have: VAL and dialect_like.
#pragma once

struct sqlite3;

namespace cordboard::workbench {

void RegisterSqlFunctions(sqlite3* database);

}  // namespace cordboard::workbench
