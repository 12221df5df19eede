#include "workbench/dialect/Mapper.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cordboard::workbench {
namespace {

using std::string;
using Kind = MappedStatement::Kind;

string Sql(const string& statement) { return Map(statement).sql; }

std::vector<Value> Parameters(const string& statement) { return Map(statement).parameters; }

string Refusal(const string& statement) {
  try {
    return "taken: " + Map(statement).sql;
  } catch (const DialectError& error) {
    return error.what();
  }
}

// The refusal without the place.
string Why(const string& statement) {
  const string refusal = Refusal(statement);
  return refusal.substr(0, refusal.rfind(", at "));
}

// --- Names and literals.

TEST(Mapper, PutsEveryNameInSquareBrackets) {
  EXPECT_EQ(Sql("SELECT Start, End, Numtyp From NANSIBlockedRange WHERE [KEY] = CHECK"),
            "SELECT [Start], [End], [Numtyp] FROM [NANSIBlockedRange] WHERE [KEY] = [CHECK] "
            "ORDER BY [NANSIBlockedRange].rowid");
  EXPECT_EQ(Sql("UPDATE OPRSC SET [STRING] = Null"), "UPDATE [OPRSC] SET [STRING] = NULL");
  EXPECT_EQ(Sql("SELECT MAX FROM NANLS WHERE MIN = Yesterday"),
            "SELECT [MAX] FROM [NANLS] WHERE [MIN] = [Yesterday] ORDER BY [NANLS].rowid");
  EXPECT_EQ(Sql("SELECT Equipment.EQU FROM Equipment"),
            "SELECT [Equipment].[EQU] FROM [Equipment] ORDER BY [Equipment].rowid");
}

// A table stays known by its own name, so that columns and orders find it.
TEST(Mapper, PutsThePrefixBeforeTheNamesOfTables) {
  const auto stored = [](const string& statement) { return Map(statement, "site.").sql; };
  EXPECT_EQ(stored("SELECT a.x, c FROM a INNER JOIN b AS d ON a.x = d.x WHERE c IN (SELECT c FROM e)"),
            "SELECT [a].[x], [c] FROM [site.a] AS [a] JOIN [site.b] AS [d] ON ([a].[x] = [d].[x]) WHERE [c] IN "
            "(SELECT [c] FROM [site.e] AS [e]) ORDER BY [a].rowid, [d].rowid");
  EXPECT_EQ(stored("INSERT INTO a VALUES ('x')"), "INSERT INTO [site.a] AS [a] VALUES (?)");
  EXPECT_EQ(stored("UPDATE a SET a.x = '1'"), "UPDATE [site.a] AS [a] SET [x] = ?");
  EXPECT_EQ(stored("DELETE * FROM a WHERE a.x = '1'"), "DELETE FROM [site.a] AS [a] WHERE [a].[x] = ?");
}

TEST(Mapper, TurnsLiteralsIntoParameters) {
  EXPECT_EQ(Sql("DELETE * FROM t WHERE a = 'x' AND b = 7 AND c = True"),
            "DELETE FROM [t] WHERE [a] = ? AND [b] = ? AND [c] = ?");
  EXPECT_EQ(Parameters("DELETE * FROM t WHERE a = 'x' AND b = 7 AND c = True"), (std::vector<Value>{"x", 7, true}));
  EXPECT_EQ(Parameters("DELETE * FROM t WHERE a IN (true, FALSE, Yes, '', 'it''s', '''', -5, 1.5, 2E3, '007')"),
            (std::vector<Value>{true, false, true, "", "it's", "'", -5, 1.5, 2000, "007"}));
  EXPECT_EQ(Parameters("UPDATE t SET a = NULL WHERE b IS NOT null"), std::vector<Value>());
}

TEST(Mapper, GivesStatementsThatDifferInLiteralsAloneTheSameText) {
  EXPECT_EQ(Sql("SELECT a FROM t WHERE b = '1' AND c = TRUE"), Sql("select a  from t\r\nwhere b='it''s' and c=YES"));
  EXPECT_EQ(Sql("INSERT INTO BuiltCmd VALUES (1,'x')"), Sql("INSERT INTO BuiltCmd VALUES (-20, 'yy')"));
}

// Each is asked for twice, before and after statements of the same shape: what is kept of one is not told of another.
TEST(Mapper, MapsStatementsThatComeAgainTheSame) {
  const std::vector<string> statements = {
      "SELECT DIR FROM KSEXI WHERE DIR = '100'",
      "SELECT DIR FROM KSEXI WHERE DIR = 'it''s'",
      "SELECT DIR FROM KSEXI WHERE DIR = 100",
      "SELECT a0 FROM t",
      "UPDATE NANSI SET USED = TRUE WHERE NUMSE = '100' AND CmdId = -7",
      "UPDATE NANSI SET USED = TRUE WHERE NUMSE = '101' AND CmdId = 8",
      "UPDATE NANSI SET USED = FALSE WHERE NUMSE = '101' AND CmdId = 8",
      "UPDATE t SET a = '1', b = TRUE, c = '2' WHERE d = 3",
      "UPDATE t SET a = '4', b = TRUE, c = '5' WHERE d = 6",
      "SELECT a FROM t WHERE 'x' LIKE '1%'",
      "SELECT a FROM t WHERE 'x' LIKE '[1-2]%'",
      "SELECT a FROM t WHERE 'y' LIKE '2%'",
      "SELECT DISTINCT a FROM t WHERE b = 1 ORDER BY a",
      "SELECT a FROM t ORDER BY (b = 1)",
      "SELECT a FROM t ORDER BY (b = 2)",
  };
  for (const char* prefix : {"", "site."}) {
    for (int time = 1; time <= 2; ++time) {
      for (const string& statement : statements) {
        const MappedStatement mapped = Map(statement, prefix);
        const MappedStatement again = MapAgain(statement, prefix);
        EXPECT_EQ(again.sql, mapped.sql);
        EXPECT_EQ(again.parameters, mapped.parameters) << statement;
        EXPECT_EQ(again.kind, mapped.kind) << statement;
        EXPECT_EQ(again.order, mapped.order) << statement;
      }
    }
  }
}

TEST(Mapper, RefusesWhatComesAgainAsItDoesAtFirst) {
  MapAgain("SELECT a0 FROM t WHERE b = 1", "");
  MapAgain("SELECT a0 FROM t WHERE b = 'x'", "");
  for (const string& statement :
       {string("SELECT"), string("SELECT a-5 FROM t WHERE b = 1"), string("SELECT a0 FROM t WHERE b = 1e999"),
        string("SELECT a0 FROM t WHERE b = 'x"), string("SELECT a0 FROM t WHERE b = ?"),
        string("SELECT a0 FROM t WHERE b = 'x\0y'", 32),
        string("SELECT a0 FROM t WHERE b = 1") + string(longestStatement, ' ')}) {
    const auto why = [&statement](auto map) {
      try {
        map(statement, "");
      } catch (const DialectError& error) {
        return string(error.what());
      }
      return string("taken");
    };
    EXPECT_NE(why(Map), "taken") << statement.substr(0, 50);
    EXPECT_EQ(why(MapAgain), why(Map)) << statement.substr(0, 50);
  }
}

TEST(Mapper, TellsReadingFromWriting) {
  EXPECT_EQ(Map("SELECT a FROM t").kind, Kind::Read);
  EXPECT_EQ(Map(" delete * from t").kind, Kind::Write);
  EXPECT_EQ(Map("UPDATE t SET a = 1").kind, Kind::Write);
  EXPECT_EQ(Map("INSERT INTO t VALUES (1)").kind, Kind::Write);
}

// --- Expressions.

TEST(Mapper, PassesExpressionsOn) {
  const std::vector<std::pair<const char*, const char*>> conditions = {
      {"NOT (SERV IS Null)", "NOT ([SERV] IS NULL)"},
      {"a = '1' OR b <> '2' and not c >= 3", "[a] = ? OR [b] <> ? AND NOT [c] >= ?"},
      {"NOT(FCN = 'TNS')", "NOT ([FCN] = ?)"},
      {"a NOT IN ('1','2')", "[a] NOT IN (?, ?)"},
      {"a IN ( 'OD')", "[a] IN (?)"},
      {"a between 1 and 2 and b not between 3 and 4", "[a] BETWEEN ? AND ? AND [b] NOT BETWEEN ? AND ?"},
      {"a IS NOT NULL", "[a] IS NOT NULL"},
      {"a like '1%' or not ((t.b like  '%-00') OR (b like  '%-16' ))",
       "[a] LIKE ? OR NOT (([t].[b] LIKE ?) OR ([b] LIKE ?))"},
      {"a NOT LIKE '1%'", "[a] NOT LIKE ?"},
      {"EXISTS (SELECT b FROM u)", "EXISTS (SELECT [b] FROM [u])"},
      {"EQU IN (SELECT EQU FROM KSEXI WHERE a = '1' ORDER BY b DESC, c asc)",
       "[EQU] IN (SELECT [EQU] FROM [KSEXI] WHERE [a] = ? ORDER BY [b] DESC, [c])"},
      {"(SELECT COUNT (*) FROM u WHERE b = t.b) < 32", "(SELECT COUNT(*) FROM [u] WHERE [b] = [t].[b]) < ?"},
      {"val( a) = 5", "VAL([a]) = ?"},
  };
  for (const auto& [condition, mapped] : conditions) {
    EXPECT_EQ(Sql("DELETE * FROM t WHERE " + string(condition)), "DELETE FROM [t] WHERE " + string(mapped));
  }
}

TEST(Mapper, HasSixFunctionsInAnyCapitals) {
  EXPECT_EQ(Sql("SELECT Count(*), min (a), MAX(t.a), sum(a), AVG(a), Val(MAX(a)) FROM t"),
            "SELECT COUNT(*), MIN([a]), MAX([t].[a]), SUM([a]), AVG([a]), VAL(MAX([a])) FROM [t]");
}

TEST(Mapper, CallsAFunctionForAPatternWithACharacterClass) {
  EXPECT_EQ(Sql("DELETE * FROM t WHERE b = 'x' AND ADC Like '[1-2]%' AND c = 'y'"),
            "DELETE FROM [t] WHERE [b] = ? AND dialect_like(?, [ADC]) AND [c] = ?");
  EXPECT_EQ(Parameters("DELETE * FROM t WHERE b = 'x' AND ADC Like '[1-2]%' AND c = 'y'"),
            (std::vector<Value>{"x", "[1-2]%", "y"}));
  EXPECT_EQ(Sql("DELETE * FROM t WHERE t.ADC NOT LIKE '[ab]'"), "DELETE FROM [t] WHERE NOT dialect_like(?, [t].[ADC])");
  EXPECT_EQ(Sql("DELETE * FROM t WHERE a LIKE '[' OR a LIKE b"), "DELETE FROM [t] WHERE [a] LIKE ? OR [a] LIKE [b]");
}

TEST(Mapper, PutsThePatternBeforeTheParametersOfTheValue) {
  const string statement = "DELETE * FROM t WHERE (SELECT a FROM u WHERE b = 'in') LIKE '[1]' AND c = 'out'";
  EXPECT_EQ(Sql(statement), "DELETE FROM [t] WHERE dialect_like(?, (SELECT [a] FROM [u] WHERE [b] = ?)) AND [c] = ?");
  EXPECT_EQ(Parameters(statement), (std::vector<Value>{"[1]", "in", "out"}));
}

// --- The order of rows.

TEST(Mapper, OrdersRowsByInsertionBehindTheOrderOfTheStatement) {
  EXPECT_EQ(Sql("SELECT * FROM t"), "SELECT * FROM [t] ORDER BY [t].rowid");
  EXPECT_EQ(Sql("SELECT a, b AS c FROM t AS x ORDER BY VAL(a) DESC, b"),
            "SELECT [a], [b] AS [c] FROM [t] AS [x] ORDER BY VAL([a]) DESC, [b], [x].rowid");
  EXPECT_EQ(Sql("SELECT a.x FROM a INNER JOIN b ON a.y = b.y ORDER BY b.z"),
            "SELECT [a].[x] FROM [a] JOIN [b] ON ([a].[y] = [b].[y]) ORDER BY [b].[z], [a].rowid, [b].rowid");
}

TEST(Mapper, OrdersGroupsByTheirFirstRow) {
  EXPECT_EQ(Sql("SELECT DISTINCT a, b FROM t WHERE c = 1"),
            "SELECT [a], [b] FROM [t] WHERE [c] = ? GROUP BY 1, 2 ORDER BY MIN([t].rowid)");
  EXPECT_EQ(Sql("SELECT DISTINCT (LIM) FROM BOARDS"),
            "SELECT ([LIM]) FROM [BOARDS] GROUP BY 1 ORDER BY MIN([BOARDS].rowid)");
  EXPECT_EQ(Sql("SELECT DISTINCT a FROM t ORDER BY a"), "SELECT [a] FROM [t] GROUP BY 1 ORDER BY [a], MIN([t].rowid)");
  EXPECT_EQ(Sql("SELECT a, COUNT(*) FROM t GROUP BY a HAVING COUNT(*) > 1"),
            "SELECT [a], COUNT(*) FROM [t] GROUP BY [a] HAVING COUNT(*) > ? ORDER BY MIN([t].rowid)");
  EXPECT_EQ(Sql("SELECT DISTINCT a FROM t GROUP BY a, b"),
            "SELECT DISTINCT [a] FROM [t] GROUP BY [a], [b] ORDER BY MIN([t].rowid)");
}

TEST(Mapper, LeavesTheOneRowOfAnAggregateAsItIs) {
  EXPECT_EQ(Sql("SELECT COUNT(*) FROM t WHERE a = 'x'"), "SELECT COUNT(*) FROM [t] WHERE [a] = ?");
  EXPECT_EQ(Sql("SELECT DISTINCT MAX(a) FROM t"), "SELECT DISTINCT MAX([a]) FROM [t]");
}

TEST(Mapper, TakesNoAggregateOfASubSelectForOneOfTheStatement) {
  EXPECT_EQ(Sql("SELECT a FROM t WHERE (SELECT COUNT(*) FROM u) < 3"),
            "SELECT [a] FROM [t] WHERE (SELECT COUNT(*) FROM [u]) < ? ORDER BY [t].rowid");
}

TEST(Mapper, GivesASubSelectNoOrderOfItsOwn) {
  EXPECT_EQ(Sql("DELETE * FROM t WHERE a IN (SELECT DISTINCT b FROM u)"),
            "DELETE FROM [t] WHERE [a] IN (SELECT DISTINCT [b] FROM [u])");
}

// --- Joins.

TEST(Mapper, FlattensJoinsHoweverBracketed) {
  EXPECT_EQ(Sql("SELECT a.x FROM ((a INNER JOIN b ON (a.i = b.i) AND (a.j = b.j)) INNER JOIN c ON b.k = c.k) "
                "INNER JOIN d ON d.l = 'x'"),
            "SELECT [a].[x] FROM [a] JOIN [b] JOIN [c] JOIN [d] ON (([a].[i] = [b].[i]) AND ([a].[j] = [b].[j])) AND "
            "([b].[k] = [c].[k]) AND ([d].[l] = ?) ORDER BY [a].rowid, [b].rowid, [c].rowid, [d].rowid");
  EXPECT_EQ(Sql("SELECT a.x FROM a INNER JOIN ((b INNER JOIN c ON c.i = 1) INNER JOIN d ON d.i = 2) ON a.i = 3"),
            "SELECT [a].[x] FROM [a] JOIN [b] JOIN [c] JOIN [d] ON ([c].[i] = ?) AND ([d].[i] = ?) AND ([a].[i] = ?) "
            "ORDER BY [a].rowid, [b].rowid, [c].rowid, [d].rowid");
  EXPECT_EQ(Sql("SELECT x FROM (a)"), "SELECT [x] FROM [a] ORDER BY [a].rowid");
  EXPECT_EQ(Sql("SELECT x FROM a AS b INNER JOIN a AS c ON b.i = c.j"),
            "SELECT [x] FROM [a] AS [b] JOIN [a] AS [c] ON ([b].[i] = [c].[j]) ORDER BY [b].rowid, [c].rowid");
}

TEST(Mapper, FlattensJoinsInSubSelects) {
  EXPECT_EQ(Sql("DELETE * FROM t WHERE x IN ( SELECT a.x FROM (a INNER JOIN b ON a.i = b.i) WHERE a.y IN ('1'))"),
            "DELETE FROM [t] WHERE [x] IN (SELECT [a].[x] FROM [a] JOIN [b] ON ([a].[i] = [b].[i]) WHERE [a].[y] IN "
            "(?))");
}

TEST(Mapper, KeepsParametersOfConditionsInOrder) {
  EXPECT_EQ(Parameters("SELECT x FROM a INNER JOIN (b INNER JOIN c ON c.i LIKE '[1]') ON a.i = 2 WHERE x = 3"),
            (std::vector<Value>{"[1]", 2, 3}));
}

TEST(Mapper, DropsOneClosingBracketTooManyBeforeTheConditionOfAJoin) {
  const string well_formed =
      Sql("SELECT l.x FROM l INNER JOIN ((b INNER JOIN e ON b.i = e.i) INNER JOIN m ON b.j = m.j) ON l.k = m.k");
  EXPECT_EQ(Sql("SELECT l.x FROM l INNER JOIN (b INNER JOIN e ON b.i = e.i) INNER JOIN m ON b.j = m.j) ON l.k = m.k"),
            well_formed);
  EXPECT_EQ(Sql("SELECT l.x FROM l INNER JOIN (b INNER JOIN e ON (b.i = e.i)) INNER JOIN m ON b.j = m.j) "
                "ON l.k = m.k WHERE l.x = 1"),
            "SELECT [l].[x] FROM [l] JOIN [b] JOIN [e] JOIN [m] ON (([b].[i] = [e].[i])) AND ([b].[j] = [m].[j]) AND "
            "([l].[k] = [m].[k]) WHERE [l].[x] = ? ORDER BY [l].rowid, [b].rowid, [e].rowid, [m].rowid");
  EXPECT_EQ(Sql("DELETE * FROM t WHERE x IN (SELECT l.x FROM l INNER JOIN b INNER JOIN e ON b.i = e.i) ON l.k = b.k)"),
            "DELETE FROM [t] WHERE [x] IN (SELECT [l].[x] FROM [l] JOIN [b] JOIN [e] ON ([b].[i] = [e].[i]) AND "
            "([l].[k] = [b].[k]))");
}

TEST(Mapper, RepairsNoOtherBracket) {
  EXPECT_EQ(Why("SELECT x FROM l INNER JOIN (b INNER JOIN e ON b.i = e.i)) ) ON l.k = b.k"),
            "expected the ON of a join");
  EXPECT_EQ(Why("SELECT x FROM l INNER JOIN b INNER JOIN c INNER JOIN d ON c.i = d.i) ON b.i = c.i) ON l.i = b.i"),
            "expected the ON of a join");
  EXPECT_EQ(Why("SELECT x FROM l INNER JOIN b ON l.i = b.i) WHERE x = 1"), "expected the end of the statement");
  EXPECT_EQ(Why("SELECT x FROM l) INNER JOIN b ON l.i = b.i"), "expected the end of the statement");
  EXPECT_EQ(Why("SELECT x FROM l INNER JOIN (b INNER JOIN c ON b.i = c.i) INNER JOIN d) ON l.i = d.i"),
            "expected the ON of a join");
  EXPECT_EQ(Why("SELECT x FROM (l INNER JOIN b ON l.i = b.i WHERE x = 1"), "expected a closing bracket");
  EXPECT_EQ(Why("SELECT x FROM l INNER JOIN (b INNER JOIN c) ON b.i = c.i ON l.i = b.i"),
            "expected the ON of a join before this bracket");
  EXPECT_EQ(Why("SELECT x FROM l INNER JOIN (b ON l.i = b.i)"), "there is no join for this ON");
  EXPECT_EQ(Why("SELECT x FROM l INNER JOIN b ON l.i = b.i ON l.j = b.j"), "there is no join for this ON");
  EXPECT_EQ(Why("SELECT x FROM l INNER JOIN b"), "expected the ON of a join");
}

TEST(Mapper, RefusesEveryOtherJoin) {
  for (const char* join : {"LEFT JOIN b ON a.i = b.i", "RIGHT JOIN b ON a.i = b.i", "LEFT OUTER JOIN b ON a.i = b.i",
                           "JOIN b ON a.i = b.i", ", b", "CROSS JOIN b", "b"}) {
    EXPECT_EQ(Why("SELECT x FROM a " + string(join)), "expected the end of the statement") << join;
  }
  EXPECT_EQ(Why("SELECT x FROM (SELECT y FROM t)"), "expected the name of a table");
  EXPECT_EQ(Why("SELECT x FROM a INNER b"), "expected JOIN after INNER");
}

// --- Writing.

TEST(Mapper, MapsInserts) {
  EXPECT_EQ(Sql("INSERT INTO BuiltCmd \r\n VALUES (3,'x')"), "INSERT INTO [BuiltCmd] VALUES (?, ?)");
  EXPECT_EQ(Sql(" INSERT INTO UsedGroups\r\n (DIR, NUMTYP) \r\n VALUES ('1', null)"),
            "INSERT INTO [UsedGroups] ([DIR], [NUMTYP]) VALUES (?, NULL)");
}

TEST(Mapper, MapsUpdates) {
  EXPECT_EQ(Sql("UPDATE ASPAC SET PARNUM = '1', PARVAL = '2' WHERE CmdId = 7"),
            "UPDATE [ASPAC] SET [PARNUM] = ?, [PARVAL] = ? WHERE [CmdId] = ?");
  EXPECT_EQ(Sql("UPDATE t SET a = 'x'\r\n"), "UPDATE [t] SET [a] = ?");
}

TEST(Mapper, PassesOverRowsThatHaveTheMarkAlready) {
  const string others = "([USED] IS NULL OR [USED] < ? OR [USED] > ?)";
  EXPECT_EQ(Sql("UPDATE t SET USED = TRUE WHERE a = 'x' OR b = 1"),
            "UPDATE [t] SET [USED] = ? WHERE ([a] = ? OR [b] = ?) AND " + others);
  EXPECT_EQ(Parameters("UPDATE t SET USED = TRUE WHERE a = 'x'"), (std::vector<Value>{true, "x", true, true}));
  EXPECT_EQ(Sql("UPDATE t SET t.USED = FALSE"), "UPDATE [t] SET [USED] = ? WHERE " + others);
  EXPECT_EQ(Sql("UPDATE t SET USED = FALSE, a = b WHERE c = 1"), "UPDATE [t] SET [USED] = ?, [a] = [b] WHERE [c] = ?");
  EXPECT_EQ(Sql("UPDATE t SET USED = a = FALSE"), "UPDATE [t] SET [USED] = [a] = ?");
}

TEST(Mapper, TellsWhereTheOrderOfASelectBegins) {
  const auto unordered = [](const char* statement) {
    const MappedStatement mapped = Map(statement);
    return mapped.sql.substr(0, mapped.order);
  };
  EXPECT_EQ(unordered("SELECT a FROM t"), "SELECT [a] FROM [t]");
  EXPECT_EQ(unordered("SELECT DISTINCT a FROM t WHERE b = 1 ORDER BY VAL(a)"), "SELECT [a] FROM [t] WHERE [b] = ?");
  EXPECT_EQ(unordered("SELECT COUNT(*) FROM t"), "SELECT COUNT(*) FROM [t]");
  EXPECT_EQ(unordered("SELECT a FROM t ORDER BY (b = 1)"), Sql("SELECT a FROM t ORDER BY (b = 1)"));
}

TEST(Mapper, DropsTheTableBeforeAColumnToSet) {
  EXPECT_EQ(Sql("UPDATE PELPI SET pelpi.TIME = '1', PELPI.[CHO] = PELPI.DIR WHERE PELPI.DIR = '2'"),
            "UPDATE [PELPI] SET [TIME] = ?, [CHO] = [PELPI].[DIR] WHERE [PELPI].[DIR] = ?");
  EXPECT_EQ(Why("UPDATE PELPI SET OTHER.TIME = '1'"), "this is not the table to update");
}

TEST(Mapper, MapsDeletes) {
  EXPECT_EQ(Sql("Delete * FROM t"), "DELETE FROM [t]");
  EXPECT_EQ(Sql("DELETE FROM t WHERE a = 1"), "DELETE FROM [t] WHERE [a] = ?");
}

// --- What the dialect does not take.

TEST(Mapper, RefusesAnythingButOneStatementOnRows) {
  for (const char* statement : {"", "  ", "PRAGMA x", "ATTACH 'a' AS b", "DROP TABLE t", "CREATE TABLE t (a)", "VACUUM",
                                "BEGIN", "WITH a AS (SELECT 1) SELECT a FROM a", "(SELECT a FROM t)", "REPLACE INTO t",
                                "VALUES (1)", "EXPLAIN SELECT a FROM t", "'SELECT'", "[SELECT] a FROM t"}) {
    EXPECT_EQ(Why(statement), "a statement begins with SELECT, INSERT, UPDATE or DELETE") << statement;
  }
  EXPECT_EQ(Refusal("SELECT a FROM t; DELETE * FROM t"),
            "a call takes one statement and no semicolon, at character 16: ; DELETE * FROM t");
  EXPECT_EQ(Why("DELETE * FROM t DELETE * FROM t"), "expected the end of the statement");
  EXPECT_EQ(Why("SELECT a FROM t UNION SELECT b FROM u"), "expected the end of the statement");
  EXPECT_EQ(Why("SELECT a FROM t WHERE b = 1 UNION SELECT b FROM u"), "expected an operator or the end before this");
  EXPECT_EQ(Why("SELECT a FROM t ORDER BY a LIMIT 1"), "expected an operator or the end before this");
  EXPECT_EQ(Why("SELECT a FROM t ORDER BY a DESC LIMIT 1"), "expected the end of the statement");
  EXPECT_EQ(Why("UPDATE t SET a = 1 RETURNING a"), "expected an operator or the end before this");
  EXPECT_EQ(Why("INSERT INTO t VALUES (1), (2)"), "expected the end of the statement");
  EXPECT_EQ(Why(string("SELECT a FROM t\0", 16)), "a statement holds no zero byte");
}

TEST(Mapper, RefusesAValueWithAQuote) {
  EXPECT_EQ(Why("UPDATE t SET a = 'O'Brien' WHERE CmdId = 1"), "the quote of this text is not closed");
  EXPECT_EQ(Why("UPDATE t SET a = 'a'b'c' WHERE CmdId = 1"), "expected an operator or the end before this");
  EXPECT_EQ(Why("UPDATE t SET a = 'a''"), "the quote of this text is not closed");
}

TEST(Mapper, RefusesEveryOtherFunction) {
  for (const char* call : {"ABS(a)", "load_extension('x')", "dialect_like('a', b)", "Len (a)", "a.b(c)"}) {
    EXPECT_NE(Refusal("SELECT " + string(call) + " FROM t").substr(0, 5), "taken") << call;
  }
  EXPECT_EQ(Refusal("SELECT ABS (a) FROM t"),
            "the only functions are COUNT, MIN, MAX, SUM, AVG and VAL, at character 8: ABS (a) FROM t");
  EXPECT_EQ(Why("SELECT MAX(a, b) FROM t"), "expected )");
  EXPECT_EQ(Why("SELECT COUNT() FROM t"), "expected a value");
  EXPECT_EQ(Why("SELECT MAX(*) FROM t"), "expected a value");
}

TEST(Mapper, RefusesTheNamesOfTheRowsPlace) {
  EXPECT_EQ(Refusal("SELECT RowId FROM t"), "there is no such column, at character 8: RowId FROM t");
  EXPECT_EQ(Why("SELECT t.[oid] FROM t"), "there is no such column");
  EXPECT_EQ(Why("UPDATE t SET _rowid_ = 1"), "there is no such column");
}

TEST(Mapper, RefusesMalformedExpressions) {
  const std::vector<std::pair<const char*, const char*>> conditions = {
      {"", "expected a value"},
      {"a = ", "expected a value"},
      {"a AND", "expected a value"},
      {"( a = '1' OR )", "expected a value"},
      {"a NOT IN ", "expected ("},
      {"a IN b", "expected ("},
      {"a IN ()", "expected a value"},
      {"IN ('1')", "expected a value before IN"},
      {"LIKE '1'", "expected a value before LIKE"},
      {"a = ()", "expected a value"},
      {"a = (1, 2)", "expected )"},
      {"a = 1 b = 2", "expected an operator or the end before this"},
      {"a = 'x' 'y'", "expected an operator or the end before this"},
      {"a = 5 -3", "expected an operator or the end before this"},
      {"a (b)", "the only functions are COUNT, MIN, MAX, SUM, AVG and VAL"},
      {"a NOT NULL", "expected IN, LIKE or BETWEEN after NOT"},
      {"a EXISTS (SELECT b FROM u)", "expected an operator or the end before this"},
      {"a = * b", "expected a value"},
      {"a * 2 = 4", "expected the end of the statement"},
      {"t. = 1", "expected a column after its table"},
      {"t.* = 1", "expected a column after its table"},
      {"a = 1)", "expected the end of the statement"},
      {"(a = 1", "expected )"},
      {"a = 1e999", "this number is out of range"},
      {"a = SELECT b FROM u", "expected a value"},
      {"a LIKE 'x' ESCAPE 'y'", "expected an operator or the end before this"},
      {"CASE WHEN a THEN b END", "expected an operator or the end before this"},
  };
  for (const auto& [condition, why] : conditions) {
    EXPECT_EQ(Why("DELETE * FROM t WHERE " + string(condition)), why) << condition;
  }
}

TEST(Mapper, RefusesMalformedStatements) {
  const std::vector<std::pair<const char*, const char*>> statements = {
      {"SELECT", "expected a value"},
      {"SELECT FROM t", "expected a value"},
      {"SELECT a", "expected FROM"},
      {"SELECT a, FROM t", "expected a value"},
      {"SELECT a b FROM t", "expected an operator or the end before this"},
      {"SELECT *, a FROM t", "expected FROM"},
      {"SELECT DISTINCT * FROM t", "expected a value"},
      {"SELECT a FROM", "expected the name of a table"},
      {"SELECT a FROM 't'", "expected the name of a table"},
      {"SELECT a FROM d.t", "expected the end of the statement"},
      {"SELECT a FROM t AS", "expected another name for the table"},
      {"SELECT a AS 'b' FROM t", "expected a name for the column"},
      {"SELECT a FROM t ORDER a", "expected BY after ORDER"},
      {"SELECT a FROM t ORDER BY", "expected a column"},
      {"SELECT a FROM t ORDER BY 1", "expected a column"},
      {"SELECT a FROM t GROUP BY 'a'", "expected a column"},
      {"SELECT a FROM t GROUP a", "expected BY after GROUP"},
      {"SELECT a FROM t ORDER BY a WHERE b = 1", "expected the end of the statement"},
      {"INSERT t VALUES (1)", "expected INTO after INSERT"},
      {"INSERT INTO t", "expected VALUES"},
      {"INSERT INTO t () VALUES ()", "expected a column"},
      {"INSERT INTO t (t.a) VALUES (1)", "expected )"},
      {"INSERT INTO t VALUES ()", "expected a value"},
      {"INSERT INTO t VALUES (1", "expected )"},
      {"INSERT INTO t SELECT a FROM u", "expected VALUES"},
      {"UPDATE t", "expected SET"},
      {"UPDATE t SET", "expected a column"},
      {"UPDATE t SET a", "expected ="},
      {"UPDATE t SET a '=' 1", "expected ="},
      {"UPDATE t SET a <> 1", "expected ="},
      {"UPDATE t SET 'a' = 1", "expected a column"},
      {"UPDATE t SET a = 1,", "expected a column"},
      {"UPDATE t SET t. = 1", "expected a column"},
      {"DELETE a FROM t", "expected FROM"},
      {"DELETE * t", "expected FROM"},
      {"DELETE * FROM t, u", "expected the end of the statement"},
  };
  for (const auto& [statement, why] : statements) EXPECT_EQ(Why(statement), why) << statement;
}

TEST(Mapper, NamesThePlaceOfARefusal) {
  EXPECT_EQ(Refusal("SELECT a FROM t WHERE"), "expected a value, at the end of the statement");
  EXPECT_EQ(Refusal("SELECT a FROM t WHERE b 5"), "expected an operator or the end before this, at character 25: 5");
}

TEST(Mapper, RefusesWhatIsNestedTooDeeply) {
  const auto nested = [](int depth) {
    return "DELETE * FROM t WHERE " + string(depth, '(') + "a = 1" + string(depth, ')');
  };
  EXPECT_EQ(Why(nested(deepestNesting)).substr(0, 5), "taken");
  EXPECT_EQ(Why(nested(deepestNesting + 1)), "brackets are nested too deeply");
  EXPECT_EQ(Why(nested(300000)), "brackets are nested too deeply");
  string subselects;
  string joins;
  string functions;
  for (int i = 0; i < 10000; ++i) {
    subselects += "a IN (SELECT a FROM t WHERE ";
    joins += "a INNER JOIN (";
    functions += "VAL(";
  }
  EXPECT_EQ(Why("SELECT a FROM t WHERE " + subselects), "brackets are nested too deeply");
  EXPECT_EQ(Why("SELECT a FROM " + joins), "brackets are nested too deeply");
  EXPECT_EQ(Why("SELECT " + functions), "brackets are nested too deeply");
}

TEST(Mapper, RefusesWhatIsTooLong) {
  const string begin = "UPDATE t SET a = '";
  EXPECT_EQ(Parameters(begin + string(longestStatement - begin.size() - 1, 'x') + "'").size(), 1u);
  EXPECT_EQ(Why(begin + string(longestStatement - begin.size(), 'x') + "'"), "the statement is too long");
}

}  // namespace
}  // namespace cordboard::workbench
