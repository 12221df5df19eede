// Runs every statement of the rules through the mapper, on tables of the shipped schema.
//
// statements.jsonl holds a statement a line, with place-holders in braces. "expansion" lists what goes into a
// place-holder, or into several at once; "@COL" stands for each column of the statement's table. All other
// place-holders take a value.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "script/Conversions.h"
#include "workbench/dialect/Mapper.h"
#include "workbench/support/TestDatabase.h"

namespace cordboard::workbench {
namespace {

using nlohmann::json;
using std::string;
using testing::ElementsAre;
using testing::IsEmpty;

using Strings = std::vector<string>;

// --- The bench.

const std::vector<json>& Bench() {
  static const std::vector<json> rows = [] {
    std::vector<json> all;
    std::istringstream lines(FileText("tests/workbench/dialect/statements.jsonl"));
    for (string line; std::getline(lines, line);) all.push_back(json::parse(line));
    return all;
  }();
  return rows;
}

// Lists of values with descriptions are read from the fixed values where they name no database.
string DatabaseOf(const json& row) {
  const string selector = row.at("selector");
  if (!selector.empty()) return selector;
  return row.at("operation") == "scCollectValuesAndDesc" ? "static" : "dynamic";
}

string Replaced(string text, const string& place_holder, const string& value) {
  for (auto at = text.find(place_holder); at != text.npos; at = text.find(place_holder, at + value.size())) {
    text.replace(at, place_holder.size(), value);
  }
  return text;
}

// The columns of the table of "UPDATE {CmdName} SET".
Strings ColumnsOf(const string& statement) {
  std::istringstream words(statement);
  string table;
  words >> table >> table;
  Strings names;
  for (const Column& column : ShippedSchema().Database("dynamic").Find(table)->columns) names.push_back(column.name);
  return names;
}

Strings Expanded(const json& row) {
  Strings statements = {row.at("statement")};
  const json expansion = row.value("expansion", json::object());
  for (const auto& [place_holders, values] : expansion.items()) {
    Strings expanded;
    for (const string& statement : statements) {
      for (const json& value : values) {
        if (value == "@COL") {
          for (const string& name : ColumnsOf(statement)) expanded.push_back(Replaced(statement, place_holders, name));
        } else if (value.is_array()) {
          string next = statement;
          std::istringstream names(place_holders);
          string name;
          for (const json& one : value) next = names >> name ? Replaced(next, name, one) : next;
          expanded.push_back(next);
        } else {
          expanded.push_back(Replaced(statement, place_holders, value));
        }
      }
    }
    statements = expanded;
  }
  return statements;
}

// Every place-holder that is left takes the text if it stands in quotes, and the number elsewhere.
string Filled(string statement, const string& text, const string& number) {
  bool quoted = false;
  for (std::size_t at = 0; at < statement.size(); ++at) {
    if (statement[at] == '\'') quoted = !quoted;
    if (statement[at] != '{') continue;
    const string& value = quoted ? text : number;
    statement.replace(at, statement.find('}', at) + 1 - at, value);
    at += value.size() - 1;
  }
  return statement;
}

class Statements : public testing::Test {
 protected:
  TestDatabase& Of(const json& row) { return databases_.at(DatabaseOf(row)); }

  // What the refusal says, or nothing.
  static string Refusal(TestDatabase& database, const string& statement) {
    try {
      database.Run(statement);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  }

  TestDatabase& dynamic() { return databases_.at("dynamic"); }

 private:
  std::map<string, TestDatabase> databases_ = [] {
    std::map<string, TestDatabase> all;
    for (const char* name : {"dynamic", "static", "site"}) all.emplace(name, name);
    return all;
  }();
};

TEST_F(Statements, RunOrFailAsTheyShould) {
  std::size_t count = 0;
  for (const json& row : Bench()) {
    for (const string& pattern : Expanded(row)) {
      for (const char* text : {"001-0-10-02", "", "it''s 100%"}) {
        const string statement = Filled(pattern, text, "7");
        const string refusal = Refusal(Of(row), statement);
        EXPECT_EQ(refusal.empty(), row.at("outcome") == "runs") << row.at("command") << ": " << statement << "\n"
                                                                << refusal;
        ++count;
      }
    }
  }
  EXPECT_GT(count, 5000u);
}

TEST_F(Statements, HaveOneTextWhateverTheirValues) {
  for (const json& row : Bench()) {
    if (row.at("outcome") != "runs") continue;
    for (const string& pattern : Expanded(row)) {
      EXPECT_EQ(Map(Filled(pattern, "100", "7")).sql, Map(Filled(pattern, "it''s", "-20")).sql) << pattern;
    }
  }
}

TEST_F(Statements, FailForAValueWithAQuote) {
  for (const json& row : Bench()) {
    for (const string& pattern : Expanded(row)) {
      if (pattern.find("'{") == pattern.npos) continue;
      EXPECT_NE(Refusal(Of(row), Filled(pattern, "O'Brien", "7")), "") << pattern;
    }
  }
}

// One of the statements, with some signs more or less.
string Damaged(std::mt19937& random) {
  const auto below = [&](std::size_t limit) { return random() % limit; };
  const string pieces = "()[]'\",.*=<>;-/ %_\n?:@aZ0\xFF";
  const json& row = Bench()[below(Bench().size())];
  string statement = Filled(row.at("statement"), "100", "7");
  const string& other = Bench()[below(Bench().size())].at("statement").get_ref<const string&>();
  for (std::size_t damage = 0; damage <= below(3); ++damage) {
    const std::size_t at = below(statement.size() + 1);
    switch (below(4)) {
      case 0: statement.insert(at, 1, pieces[below(pieces.size())]); break;
      case 1: statement.erase(at, 1 + below(8)); break;
      case 2: statement.insert(at, other.substr(below(other.size()), below(20))); break;
      default: statement.resize(at); break;
    }
  }
  return statement;
}

TEST_F(Statements, FailCleanlyWhereTheyAreDamaged) {
  std::mt19937 random(1);  // the same damage in every run
  for (int round = 0; round < 20000; ++round) Refusal(dynamic(), Damaged(random));
}

// What is kept of a statement is told of none that is another one but for its literals.
TEST_F(Statements, AreMappedTheSameAgainAlsoWhereTheyAreDamaged) {
  const auto told = [](const string& statement, auto map) {
    try {
      const MappedStatement mapped = map(statement, "");
      string text = mapped.sql + " " + std::to_string(mapped.order);
      for (const Value& parameter : mapped.parameters)
        text += (parameter.IsText() ? " '" : parameter.IsTruth() ? " truth " : " ") + Joined(parameter);
      return text;
    } catch (const DialectError& error) {
      return string(error.what());
    }
  };
  std::mt19937 random(2);
  for (int round = 0; round < 10000; ++round) {
    const json& row = Bench()[random() % Bench().size()];
    for (const string& statement : {Filled(row.at("statement"), std::to_string(random() % 100), "7"), Damaged(random)})
      ASSERT_EQ(told(statement, MapAgain), told(statement, Map)) << statement;
  }
}

TEST_F(Statements, FindRecordsThroughAnIndex) {
  for (const json& row : Bench()) {
    const string statement = row.at("statement");
    if (row.at("outcome") != "runs" || statement.find("{CmdId}") == statement.npos) continue;
    if (statement.find("NOT") != statement.npos) continue;
    const string plan = Of(row).Plan(Filled(Expanded(row).front(), "100", "7"));
    EXPECT_NE(plan.find("USING INDEX"), plan.npos) << statement << "\n" << plan;
  }
}

// --- What only some commands ask, and often.

TEST_F(Statements, FindWhatTheyNameThroughAnIndex) {
  for (
      const char* statement : {
          "UPDATE NANSI SET USED = True\r\nWHERE NUMSE = '100'",
          "SELECT NUMTYP FROM NANSI WHERE NUMSE = '100'",
          "SELECT NUMSE FROM NANSI \r\n WHERE NUMTYP = 'EX' \r\n AND USED = FALSE \r\n ORDER BY NUMSE",
          "UPDATE EQUIPMENT SET USED = False\r\nWHERE EQU = '001-0-10-02'",
          "SELECT LIM FROM Equipment\r\n WHERE EQU = '001-0-10-02'",
          "UPDATE TRKLINE SET USED = True\r\nWHERE TRU = '001-1'",
          "SELECT TRU FROM TRKLINE WHERE USED = FALSE AND LIM = '1'",
          "UPDATE ROUTE SET USED=TRUE WHERE ROU='7'",
          "Select ROU from ROUTE Where Used=False",
          " DELETE * FROM UsedExtOpeGrp \r\n WHERE DIR = '100'",
          "UPDATE UsedExtOpeGrp SET DIR = '101'\r\n WHERE DIR = '100'",
          "DELETE * FROM USEDCALLORIGINGROUPS \r\n WHERE CORG = '1'",
          "UPDATE USEDFILES SET FILE =  'B'\r\nWHERE FILE ='A'\r\n",
          "DELETE * FROM NANSIBlockedRange WHERE Start = '1' ",
          "SELECT FCN FROM KSFKC WHERE DIR = '100' ",
          "DELETE * FROM KSFKC WHERE KEY = '01' AND DIR = '100'",
          "SELECT KEY FROM KSMDI WHERE DIR = '100'",
          "SELECT KEY FROM KSANI WHERE DIR = '100'",
          "SELECT CMDID FROM EXCCS WHERE CAT = '1'",
          "SELECT COUNT(*) FROM KSEXI WHERE CAT = '1'",
          "SELECT COUNT(*) FROM EXTEIDIR WHERE CAT = '1'",
          "SELECT ITYPE FROM KSEXI WHERE DIR = '100'",
          "SELECT EQU FROM EXTEIDIR WHERE DIR = '100'",
          "SELECT AUX FROM EXTEIAUX WHERE DIR_AUX = '100'",
          "UPDATE GEDII SET TYPE = 'IP'\r\n WHERE DIR = '100'",
          "SELECT DIR FROM GEDII WHERE TYPE IS NULL",
          "SELECT DIR FROM ACGMI\r\n WHERE GRP = '100'",
          "SELECT DIR FROM GHGMI\r\n WHERE GRP = '100'",
          "SELECT GRP FROM ACGRI\r\n WHERE LIM = '1'",
          "SELECT COUNT(*) FROM PELPI \r\nWHERE LIST = '1'",
          "SELECT COUNT(*) FROM OPCTS WHERE CORG =  '1'\r\n AND CALT = '1' AND OACC = '9'\r\n",
          "SELECT * FROM RODDI WHERE ROU = '7'\r\nAND DEST ='0'\r\n",
          "SELECT COUNT(*) FROM IPGDI WHERE LIM = '1' AND DOMAIN ='D'",
          "SELECT CmdId FROM VMPOI WHERE IFCIND = '1'",
          "SELECT Location FROM LIMs \r\n WHERE LIM = '001'\r\n",
          "SELECT LIMs.Location FROM Boards \r\n INNER JOIN LIMs ON Boards.LIM = LIMs.LIM\r\n"
          " WHERE Boards.LIM = '001'\r\n AND Boards.Magazine = '0'\r\n AND Boards.Slot = '10'",
          "SELECT Boards.BoardID FROM Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) AND "
          "(Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM) WHERE Equipment.EQU = '001-0-10-02'",
          "SELECT LIMs.Location FROM Locations \r\n INNER JOIN (Boards \r\n INNER JOIN Equipment ON (Boards.Slot = "
          "Equipment.Slot) \r\n AND (Boards.Magazine = Equipment.Magazine) \r\n AND (Boards.LIM = Equipment.LIM)) \r\n "
          "INNER JOIN LIMs ON Boards.LIM = LIMs.LIM) \r\n ON Locations.Location = LIMs.Location \r\n WHERE "
          "Equipment.EQU = '001-0-10-02'\r\n",
      }) {
    const string plan = dynamic().Plan(statement);
    EXPECT_TRUE(plan.find("USING INDEX") != plan.npos || plan.find("USING COVERING INDEX") != plan.npos) << statement;
    EXPECT_EQ(plan.find("SCAN"), plan.npos) << statement << "\n" << plan;
  }
}

TEST_F(Statements, ReadTheFreeNumbersOfATypeWithoutSorting) {
  const string plan = dynamic().Plan("SELECT NUMSE FROM NANSI WHERE NUMTYP = 'EX' AND USED = FALSE ORDER BY NUMSE");
  EXPECT_EQ(plan.find("TEMP B-TREE"), plan.npos) << plan;
}

TEST_F(Statements, FindTheFirstRecordOfABoardByHowItsPositionsBegin) {
  for (const char* values : {"(5, '001-0-11-00')", "(9, '001-0-10-00')", "(7, '001-0-10-01')"})
    dynamic().Run(string("INSERT INTO EXTEIDIR (CmdId, EQU) VALUES ") + values);
  const string statement = "SELECT MIN(CmdId) FROM EXTEIDIR WHERE EQU LIKE '001-0-10%'";
  EXPECT_THAT(dynamic().Run(statement), ElementsAre("7"));
  const string plan = dynamic().Plan(statement);
  EXPECT_NE(plan.find("EQU>? AND EQU<?"), plan.npos) << plan;
}

// --- The order of rows.

TEST_F(Statements, GiveRowsInTheOrderOfInsertion) {
  for (const char* row : {"(9, '300', 'AC', TRUE)", "(2, '100', 'EX', FALSE)", "(5, '200', 'AC', FALSE)",
                          "(2, '050', 'AC', TRUE)", "(1, '250', 'AC', FALSE)"}) {
    dynamic().Run(string("INSERT INTO NANSI VALUES ") + row);
  }
  EXPECT_THAT(dynamic().Run("SELECT NUMSE FROM NANSI"), ElementsAre("300", "100", "200", "050", "250"));
  EXPECT_THAT(dynamic().Run("SELECT NUMSE FROM NANSI WHERE NUMTYP = 'AC'"), ElementsAre("300", "200", "050", "250"));
  EXPECT_THAT(dynamic().Run("SELECT NUMSE FROM NANSI WHERE CmdId = 2"), ElementsAre("100", "050"));
  EXPECT_THAT(dynamic().Run("SELECT NUMSE FROM NANSI WHERE NUMSE IN ('050', '250', '100')"),
              ElementsAre("100", "050", "250"));
  EXPECT_THAT(dynamic().Run("SELECT DISTINCT NUMTYP, USED FROM NANSI"), ElementsAre("AC|1", "EX|0", "AC|0"));
  EXPECT_THAT(dynamic().Run("SELECT NUMSE FROM NANSI ORDER BY NUMTYP"), ElementsAre("300", "200", "050", "250", "100"));
  EXPECT_THAT(dynamic().Run("SELECT NUMSE FROM NANSI ORDER BY USED DESC"),
              ElementsAre("300", "050", "100", "200", "250"));
  EXPECT_THAT(dynamic().Run("SELECT NUMTYP FROM NANSI GROUP BY NUMTYP ORDER BY NUMTYP DESC"), ElementsAre("EX", "AC"));
  dynamic().Run("DELETE * FROM NANSI WHERE NUMSE = '300'");
  dynamic().Run("INSERT INTO NANSI VALUES (0, '300', 'AC', TRUE)");
  EXPECT_THAT(dynamic().Run("SELECT NUMSE FROM NANSI WHERE NUMTYP = 'AC'"), ElementsAre("200", "050", "250", "300"));
}

TEST_F(Statements, GiveJoinedRowsInTheOrderOfTheFirstTableThatTheyName) {
  for (const char* row : {"(2, 0, 5, '27')", "(1, 0, 9, '48')", "(1, 0, 3, '27')"}) {
    dynamic().Run(string("INSERT INTO Boards VALUES ") + row);
  }
  for (const char* row :
       {"('b', 1, 0, 3, '01', FALSE)", "('a', 2, 0, 5, '02', FALSE)", "('c', 2, 0, 5, '00', FALSE)"}) {
    dynamic().Run(string("INSERT INTO Equipment (EQU, LIM, Magazine, Slot, Individual, USED) VALUES ") + row);
  }
  const string join =
      "(Boards.Slot = Equipment.Slot) AND (Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM)";
  EXPECT_THAT(dynamic().Run("SELECT Equipment.EQU FROM Boards INNER JOIN Equipment ON " + join),
              ElementsAre("a", "c", "b"));
  EXPECT_THAT(dynamic().Run("SELECT Equipment.EQU FROM Equipment INNER JOIN Boards ON " + join),
              ElementsAre("b", "a", "c"));
  EXPECT_THAT(dynamic().Run("SELECT Equipment.EQU FROM Boards INNER JOIN Equipment ON " + join +
                            " ORDER BY Equipment.Individual"),
              ElementsAre("c", "b", "a"));
}

// --- Marks.

TEST_F(Statements, SetAMarkWhereverItIsNotSet) {
  for (const char* row : {"('a', TRUE)", "('b', FALSE)", "('c', Null)", "('d', TRUE)"}) {
    dynamic().Run(string("INSERT INTO ROUTE VALUES ") + row);
  }
  dynamic().Run("UPDATE ROUTE SET USED = FALSE WHERE ROU = 'a' OR ROU = 'b' OR ROU = 'c'");
  EXPECT_THAT(dynamic().Run("SELECT ROU, USED FROM ROUTE"), ElementsAre("a|0", "b|0", "c|0", "d|1"));
  dynamic().Run("UPDATE ROUTE SET USED = TRUE");
  EXPECT_THAT(dynamic().Run("SELECT ROU, USED FROM ROUTE"), ElementsAre("a|1", "b|1", "c|1", "d|1"));
}

TEST_F(Statements, PassOverPositionsThatAreFree) {
  const string plan = dynamic().Plan(
      " UPDATE EQUIPMENT SET USED = FALSE\r\n WHERE EQU NOT IN (SELECT EQU FROM KSEXI) AND\r\n EQU NOT IN (SELECT EQU "
      "FROM EXTEIDIR)");
  EXPECT_EQ(plan.find("SCAN"), plan.npos) << plan;
  EXPECT_NE(plan.find("(USED>?)"), plan.npos) << plan;
}

// --- Brackets.

TEST_F(Statements, ReadTheSameWithOneClosingBracketTooMany) {
  dynamic().Run("INSERT INTO Locations VALUES ('NORTH', 'Hall')");
  dynamic().Run("INSERT INTO LIMs VALUES (1, 'SOUTH', Null)");
  dynamic().Run("INSERT INTO LIMs VALUES (2, 'NORTH', Null)");
  dynamic().Run("INSERT INTO Boards VALUES (1, 0, 10, '27')");
  dynamic().Run("INSERT INTO Boards VALUES (2, 0, 10, '27')");
  dynamic().Run(
      "INSERT INTO Equipment (EQU, LIM, Magazine, Slot, Individual, USED) VALUES ('002-0-10-01', 2, 0, 10, '01', "
      "FALSE)");
  const auto location = [&](const string& from) {
    return dynamic().Run("SELECT LIMs.Location FROM Locations INNER JOIN " + from +
                         " ON Locations.Location = LIMs.Location WHERE Equipment.EQU = '002-0-10-01'");
  };
  const string inner =
      "Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) AND (Boards.Magazine = Equipment.Magazine) AND "
      "(Boards.LIM = Equipment.LIM)) INNER JOIN LIMs ON Boards.LIM = LIMs.LIM)";
  EXPECT_THAT(location("((" + inner), ElementsAre("NORTH"));
  EXPECT_THAT(location("(" + inner), ElementsAre("NORTH"));
  EXPECT_THROW(location(inner), std::runtime_error);
  EXPECT_THROW(location("(" + inner + ")"), std::runtime_error);
}

// --- What values are.

TEST_F(Statements, FindAWholeNumberByATextWithZerosInFront) {
  dynamic().Run("INSERT INTO LIMs VALUES ('012', 'CENTRAL', Null)");
  EXPECT_THAT(dynamic().Run("SELECT LIM FROM LIMs WHERE LIM = '0012'"), ElementsAre("12"));
  EXPECT_THAT(dynamic().Run("SELECT LIM FROM LIMs WHERE LIM IN ('7', '12')"), ElementsAre("12"));
  EXPECT_THAT(dynamic().Run("SELECT LIM FROM LIMs WHERE LIM = 'A'"), IsEmpty());
}

TEST_F(Statements, KeepTheZerosOfAText) {
  dynamic().Run("INSERT INTO ROUTE VALUES ('007', FALSE)");
  EXPECT_THAT(dynamic().Run("SELECT ROU FROM ROUTE WHERE ROU = '7'"), IsEmpty());
  EXPECT_THAT(dynamic().Run("SELECT ROU FROM ROUTE WHERE ROU = '007'"), ElementsAre("007"));
}

TEST_F(Statements, OrderByTheNumericValueOfATextThatCannotBeANumber) {
  for (const char* customer : {"'10'", "'9A'", "Null", "'x'", "'2'"}) {
    dynamic().Run(string("INSERT INTO CUSTOMERS (CUST) VALUES (") + customer + ")");
  }
  EXPECT_THAT(dynamic().Run("SELECT CUST FROM CUSTOMERS ORDER BY VAL(CUST)"),
              ElementsAre("NULL", "x", "2", "9A", "10"));
}

TEST_F(Statements, MatchCharacterClasses) {
  for (const char* row : {"('a', '10')", "('b', '3')", "('c', '2')", "('d', Null)"}) {
    dynamic().Run(string("INSERT INTO KSANI (ADN, ADC) VALUES ") + row);
  }
  EXPECT_THAT(dynamic().Run("SELECT ADN FROM KSANI  WHERE ADC Like '[1-2]%' ORDER BY ADN"), ElementsAre("a", "c"));
  EXPECT_THAT(dynamic().Run("SELECT ADN FROM KSANI  WHERE ADC Not Like '[1-2]%'"), ElementsAre("b"));
}

TEST_F(Statements, CompareWithNullToNothing) {
  dynamic().Run("INSERT INTO OPNEI (OWNID) VALUES ('1')");
  EXPECT_THAT(dynamic().Run("SELECT OWNID FROM OPNEI\r\n WHERE NOT (OWNID = Null)"), IsEmpty());
}

TEST_F(Statements, TakeAnUnknownNameForNoText) {
  EXPECT_NE(Refusal(dynamic(), "SELECT [NUMBER] FROM NANSI"), "");
  EXPECT_NE(Refusal(dynamic(), "SELECT NUMSE FROM NANSI WHERE NUMTYP = EX"), "");
  EXPECT_NE(Refusal(dynamic(), "SELECT NUMSE FROM NUMBERS"), "");
}

}  // namespace
}  // namespace cordboard::workbench
