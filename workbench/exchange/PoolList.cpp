#include "workbench/exchange/PoolList.h"

#include <algorithm>
#include <span>
#include <unordered_map>
#include <utility>

#include "script/Conversions.h"
#include "workbench/database/Connection.h"
#include "workbench/database/Schema.h"
#include "workbench/text/Names.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// So many rows that a list does not give are passed in front of those that it gives.
constexpr std::size_t alongTheWay = 3;

std::string InBrackets(const std::string& name) { return "[" + name + "]"; }

// --- The shape of a statement. Mapped, it has its names in brackets and its literals as parameters.

// The names in a piece of a statement: "Boards", "Boards.BoardID".
std::vector<std::string> NamesIn(std::string_view text) {
  std::vector<std::string> names;
  std::size_t end = 0;
  for (std::size_t at = 0; (at = text.find('[', at)) != text.npos; at = end) {
    end = text.find(']', at);
    const std::string name(text.substr(at + 1, end - at - 1));
    const bool goesOn = at >= 2 && text.substr(at - 2, 2) == "].";
    goesOn ? names.back() += "." + name : names.emplace_back(name);
  }
  return names;
}

bool IsOneOf(const std::vector<std::string>& names, std::string_view name) {
  return std::ranges::any_of(names, [&](const std::string& each) { return SameName(each, name); });
}

std::string TableOf(const std::string& name) { return name.substr(0, name.find('.')); }

// The conditions, without those on how the name of a row ends: "[Equipment].[EQU] LIKE ?" with "%-00" for the
// parameter.
std::string WithoutEndings(const Table& pool, std::string conditions, std::span<const Value> parameters) {
  const std::string like = "[" + pool.name + "].[" + pool.kinds->of + "] LIKE ?";
  const std::string ending = "%" + pool.kinds->ending;
  for (std::size_t at = 0; (at = conditions.find(like, at)) != conditions.npos; at += like.size()) {
    const auto before = std::ranges::count(conditions.substr(0, at), '?');
    if (std::cmp_less(before, parameters.size()) &&
        Joined(parameters[static_cast<std::size_t>(before)]).starts_with(ending))
      conditions.replace(at, like.size() - 1, like.size() - 1, ' ');
  }
  return conditions;
}

bool DrawsFrom(const Table& pool, const ListStatement& list) {
  const Kinds& kinds = *pool.kinds;
  const std::string_view sql = list.sql;
  const std::string select = "SELECT [" + pool.name + "].[" + kinds.of + "] FROM ";
  const std::string order =
      Separated(kinds.order, ", ", [&](auto& each) { return "[" + pool.name + "].[" + each + "]"; });
  const std::size_t where = sql.find(" WHERE ");
  const std::size_t orderBy = sql.find(" ORDER BY ");
  if (!sql.starts_with(select) || where == sql.npos || orderBy == sql.npos || where > orderBy) return false;
  if (sql.find("SELECT", 1) != sql.npos) return false;

  std::vector<std::string> known = kinds.by;
  known.push_back(pool.name + "." + kinds.mark);
  std::vector<std::string> tables;
  tables.reserve(known.size());
  for (const std::string& name : known) tables.push_back(TableOf(name));
  const std::string_view joined = sql.substr(select.size(), where - select.size());
  const auto areJoined = NamesIn(joined);
  const auto areAsked = NamesIn(WithoutEndings(pool, std::string(sql.substr(where, orderBy - where)), list.parameters));
  const std::string_view ordered = sql.substr(orderBy + std::string_view(" ORDER BY ").size());
  return joined.find('?') == joined.npos &&
         std::ranges::all_of(areJoined, [&](const auto& name) { return IsOneOf(tables, TableOf(name)); }) &&
         std::ranges::all_of(areAsked, [&](const auto& name) { return IsOneOf(known, name); }) &&
         SameName(ordered.substr(0, order.size()), order) && ordered.substr(order.size()).starts_with(", ");
}

const Table* FindPoolOf(const ListStatement& list) {
  for (const Table& table : ShippedSchema().Database("dynamic").tables) {
    if (table.kinds && DrawsFrom(table, list)) return &table;
  }
  return nullptr;
}

// Where the text asks for no pattern, its parameters say nothing of the pool: what was found for it is kept.
const Table* PoolOf(const ListStatement& list) {
  constexpr std::size_t most = 500;
  static std::unordered_map<std::string, const Table*> known;
  if (list.sql.find(" LIKE ") != list.sql.npos) return FindPoolOf(list);
  if (const auto found = known.find(list.sql); found != known.end()) return found->second;
  if (known.size() >= most) known.clear();
  return known[list.sql] = FindPoolOf(list);
}

// --- The statement before a part of the pool.

// The statement reads the pool by its name; [main] goes past the part of that name. Rows by a list of their places are
// few to the database, which therefore starts from them and not from all boards of a type.
std::string Before(const Table& pool, const std::string& places, const std::string& sql) {
  return InBrackets(pool.name) + " AS MATERIALIZED (SELECT rowid AS rowid, * FROM [main]." + InBrackets(pool.name) +
         " WHERE rowid IN (SELECT " + places + ")) " + sql + " LIMIT ?";
}

std::string All(const Table& pool) { return "[main]." + InBrackets(pool.name); }

// Of as many rows as lie in front of what is not taken.
std::string Front(const Table& pool, const std::string& column) {
  return "SELECT " + column + " FROM " + All(pool) + " WHERE " + InBrackets(pool.kinds->mark) + " = FALSE ORDER BY " +
         Separated(pool.kinds->order, ", ", InBrackets) + " LIMIT ?";
}

std::string FrontRows(const Table& pool, const std::string& sql) {
  return "WITH " + Before(pool, "rowid FROM (" + Front(pool, "rowid") + ")", sql);
}

std::string FirstRows(const Table& pool, bool unused, const std::string& sql) {
  const Kinds& kinds = *pool.kinds;
  const std::string all = All(pool);
  const std::string kind = InBrackets(kinds.column);
  const std::string mark = InBrackets(kinds.mark);
  const std::string order = Separated(kinds.order, ", ", InBrackets);
  const auto firstOf = [&](const std::string& ofKind, const std::string& ofMark, const char* limit) {
    return "(SELECT rowid FROM " + all + " WHERE " + kind + " = " + ofKind + " AND " + mark + " = " + ofMark +
           " ORDER BY " + order + " LIMIT " + limit + ")";
  };
  const std::string first =
      firstOf("[pool kinds].[each]", "[pool marks].[each]", "1") + " FROM [pool kinds], [pool marks]";
  const std::string ofThoseThatLead =
      "[row].rowid FROM " + all + " AS [first] CROSS JOIN " + all + " AS [row] ON [row].rowid IN " +
      firstOf("[first]." + kind, "[first]." + mark, "?") + " WHERE [first].[" + kinds.of + "] IN [pool leads]";
  return "WITH RECURSIVE [pool kinds]([each]) AS (SELECT MIN(" + kind + ") FROM " + all +
         " UNION ALL SELECT (SELECT MIN(" + kind + ") FROM " + all + " WHERE " + kind +
         " > [pool kinds].[each]) FROM [pool kinds] WHERE [pool kinds].[each] IS NOT NULL), [pool marks]([each]) AS "
         "(VALUES (FALSE)" +
         (unused ? "" : ", (TRUE)") + "), [pool leads]([each]) AS MATERIALIZED (SELECT * FROM (WITH " +
         Before(pool, first, sql) + ")), " + Before(pool, ofThoseThatLead, sql);
}

}  // namespace

bool DrawsFromPool(const ListStatement& list) { return PoolOf(list) != nullptr; }

std::optional<RowSet> FirstOfPool(const ListStatement& list, std::size_t count, std::string_view unusedOf) {
  const Table* pool = PoolOf(list);
  if (pool == nullptr) return std::nullopt;
  const bool unused = SameName(pool->name, unusedOf);
  // The rule's own part was tested when it became a list.
  if (unused) {
    std::vector<Value> parameters = {count + alongTheWay};
    parameters.insert(parameters.end(), list.parameters.begin(), list.parameters.end());
    parameters.emplace_back(count);
    RowSet rows = list.database->Run(FrontRows(*pool, list.sql), parameters);
    if (rows.RowCount() == count) return rows;
  }
  std::vector<Value> parameters = list.parameters;
  parameters.emplace_back(count);
  parameters.emplace_back(count);
  parameters.insert(parameters.end(), list.parameters.begin(), list.parameters.end());
  parameters.emplace_back(count);
  return list.database->Run(FirstRows(*pool, unused, list.sql), parameters);
}

std::string FrontOfPool(const ListStatement& list, std::string_view unusedOf) {
  const Table* pool = unusedOf.empty() ? nullptr : PoolOf(list);
  if (pool == nullptr || !SameName(pool->name, unusedOf)) return "";
  return Joined(list.database->Single(Front(*pool, InBrackets(pool->kinds->of)), {1}));
}

}  // namespace cordboard::workbench
