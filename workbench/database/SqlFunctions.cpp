#include "workbench/database/SqlFunctions.h"

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "script/Conversions.h"
#include "workbench/database/RowBlock.h"
#include "workbench/dialect/Like.h"

namespace cordboard::workbench {

namespace {

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr ? std::string_view()
                         : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

bool AnyNull(int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) return true;
  }
  return false;
}

// VAL(x): the numeric value of the leading digits; null gives null.
void Val(sqlite3_context* context, int count, sqlite3_value** values) {
  if (!AnyNull(count, values)) sqlite3_result_double(context, NumericValue(Value(TextOf(values[0]))));
}

// dialect_like(pattern, text): LIKE with character classes; null gives null.
void Like(sqlite3_context* context, int count, sqlite3_value** values) {
  if (!AnyNull(count, values)) sqlite3_result_int(context, LikeMatches(TextOf(values[0]), TextOf(values[1])) ? 1 : 0);
}

// row_bytes(values...): the values of a row as blocks of rows have them.
void RowBytes(sqlite3_context* context, int count, sqlite3_value** values) {
  std::string row;
  for (int i = 0; i < count; ++i) AppendValue(row, values[i]);
  sqlite3_result_blob64(context, row.data(), row.size(), SQLITE_TRANSIENT);
}

}  // namespace

void RegisterSqlFunctions(sqlite3* database) {
  const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
  sqlite3_create_function(database, "VAL", 1, flags, nullptr, Val, nullptr, nullptr);
  sqlite3_create_function(database, "dialect_like", 2, flags, nullptr, Like, nullptr, nullptr);
  sqlite3_create_function(database, "row_bytes", -1, flags, nullptr, RowBytes, nullptr, nullptr);
}

}  // namespace cordboard::workbench
