// From the library's statement dialect to SQLite. docs/dialect.md tells the dialect.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "script/Value.h"
#include "workbench/dialect/DialectError.h"

namespace cordboard::workbench {

struct MappedStatement {
  enum class Kind { Read, Write };

  // SQLite's text, with a ? for each literal. Statements that differ in their literals alone have the same text.
  std::string sql;
  std::vector<Value> parameters;  // texts, numbers and truth values, one for each ?
  Kind kind = Kind::Read;
  // Of a SELECT, where in the text begins what makes its rows no others: their order, and before it the grouping that a
  // DISTINCT is. No literal stands after it.
  std::size_t order = std::string::npos;
};

inline constexpr std::size_t longestStatement = 1 << 20;  // bytes
inline constexpr int deepestNesting = 100;                // brackets within brackets, sub-selects included

// Maps one statement; fails with a DialectError for what the dialect does not take. What it gives may still fail in
// SQLite, for an unknown name above all. The result may call the functions VAL(value) and dialect_like(pattern, value),
// which the database has to supply: NumericValue of script/Conversions.h and LikeMatches of Like.h, null for a null.
// Tables may stand in the database under longer names than the statement's: `tablePrefix` goes before each.
MappedStatement Map(std::string_view statement, std::string_view tablePrefix = "");
// The same for statements that come again and again: those that differ in their literals alone are mapped once.
MappedStatement MapAgain(std::string_view statement, const std::string& tablePrefix);

}  // namespace cordboard::workbench
