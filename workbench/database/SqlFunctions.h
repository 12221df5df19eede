// The functions of the statement dialect that SQLite does not have, VAL and dialect_like; and row_bytes, which writes a
// row as blocks of rows have it.
#pragma once

struct sqlite3;

namespace cordboard::workbench {

void RegisterSqlFunctions(sqlite3* database);

}  // namespace cordboard::workbench
