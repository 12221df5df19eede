#include "workbench/database/Schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "workbench/data/DataFile.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestDatabase.h"

namespace cordboard::workbench {
namespace {

using std::string;
using testing::ElementsAre;
using testing::HasSubstr;

Schema Read(const string& json) { return ReadSchema(ReadData(json, "schema.json")); }

string Refused(const string& json) {
  return Refusal<DataError>([&] { Read(json); });
}

string RefusedTable(const string& rest) { return Refused(R"({"dynamic": [{"name": "t", )" + rest + "}]}"); }

// --- Reading.

TEST(Schema, ReadsTablesWithTheirColumnsInOrder) {
  const Schema schema = Read(R"({"dynamic": [
      {"name": "NANSI", "columns": ["CmdId", "NUMSE", "USED"], "further": ["MARK"], "note": "numbers",
       "types": {"cmdid": "whole", "USED": "truth"}, "unique": [["cmdid"]], "indexes": [["numse"], ["USED", "NUMSE"]]}], "site": []})");
  ASSERT_EQ(schema.databases.size(), 2u);
  EXPECT_EQ(schema.Database("SITE").tables.size(), 0u);
  const Table* table = schema.Database("dynamic").Find("nansi");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->name, "NANSI");
  EXPECT_EQ(table->note, "numbers");
  ASSERT_EQ(table->columns.size(), 4u);
  EXPECT_EQ(table->columns[0].type, Column::Type::Whole);
  EXPECT_EQ(table->columns[1].type, Column::Type::Text);
  EXPECT_EQ(table->columns[2].type, Column::Type::Truth);
  EXPECT_FALSE(table->columns[2].further);
  EXPECT_TRUE(table->columns[3].further);
  EXPECT_THAT(table->unique, ElementsAre(ElementsAre("CmdId")));
  EXPECT_THAT(table->indexes, ElementsAre(ElementsAre("NUMSE"), ElementsAre("USED", "NUMSE")));
  EXPECT_EQ(table->Find("used"), &table->columns[2]);
  EXPECT_EQ(table->Find("unknown"), nullptr);
  EXPECT_EQ(schema.Database("dynamic").Find("unknown"), nullptr);
  EXPECT_THROW(schema.Database("unknown"), DataError);
}

TEST(Schema, RefusesWhatIsNoSchemaAndNamesThePlace) {
  EXPECT_THAT(Refused("{"), HasSubstr("schema.json: parse error at line 1, column 2: "));
  EXPECT_EQ(Refused("[1]"), "schema.json: an object is wanted, not a list");
  EXPECT_EQ(Refused(R"({"dynamic": [{"columns": ["a"]}]})"), "schema.json: dynamic[0]: the key \"name\" is missing");
  EXPECT_EQ(Refused(R"({"dynamic": [{"name": 1}]})"), "schema.json: dynamic[0].name: a text is wanted, not a number");
  EXPECT_EQ(Refused(R"({"dynamic": [{"name": "t", "columns": ["a"]}, {"name": "T", "columns": ["a"]}]})"),
            "schema.json: dynamic[1] (T): the table T stands there twice");
  const string table = "schema.json: dynamic[0] (t)";
  EXPECT_EQ(RefusedTable(R"("note": "n")"), table + ": the key \"columns\" is missing");
  EXPECT_EQ(RefusedTable(R"("columns": [])"), table + ".columns: the table has no columns");
  EXPECT_EQ(RefusedTable(R"("columns": ["a", "A"])"), table + ".columns[1]: the column A stands there twice");
  EXPECT_EQ(RefusedTable(R"("columns": ["a"], "further": ["a"])"),
            table + ".further[0]: the column a stands there twice");
  EXPECT_EQ(RefusedTable(R"("columns": ["a]"])"), table + ".columns[0]: the name is not valid");
  EXPECT_EQ(RefusedTable(R"("columns": [""])"), table + ".columns[0]: the name is not valid");
  EXPECT_EQ(RefusedTable(R"("columns": ["RowId"])"), table + ".columns[0]: no column is named RowId");
  EXPECT_EQ(RefusedTable(R"("columns": ["a"], "types": {"b": "whole"})"), table + ".types.b: there is no column b");
  EXPECT_EQ(RefusedTable(R"("columns": ["a"], "types": {"a": "text"})"),
            table + ".types.a: a type is \"whole\" or \"truth\", and every other column is text");
  EXPECT_EQ(RefusedTable(R"("columns": ["a"], "indexes": [["b"]])"), table + ".indexes[0][0]: there is no column b");
  EXPECT_EQ(RefusedTable(R"("columns": ["a"], "indexes": [[]])"), table + ".indexes[0]: an index has no columns");
  EXPECT_EQ(RefusedTable(R"("columns": ["a"], "patterns": ["b"])"), table + ".patterns[0]: there is no column b");
  EXPECT_EQ(RefusedTable(R"("columns": ["a"], "index": [])"), table + ": unknown key \"index\". Did you mean indexes?");
  EXPECT_EQ(RefusedTable(R"("columns": [1])"), table + ".columns[0]: a text is wanted, not a number");
}

// --- Creating.

TEST(Schema, CreatesTablesAndIndexes) {
  const Schema schema = Read(R"({"dynamic": [
      {"name": "NANSI", "columns": ["CmdId", "NUMSE"], "further": ["USED"],
       "types": {"CmdId": "whole", "USED": "truth"}, "indexes": [["NUMSE"], ["USED", "NUMSE"]]},
      {"name": "t", "columns": ["End"], "unique": [["End"]], "patterns": ["end"]}]})");
  EXPECT_THAT(CreateStatements(schema.Database("dynamic")),
              ElementsAre("CREATE TABLE [NANSI] ([CmdId] INTEGER, [NUMSE] TEXT, [USED] BOOLEAN)",
                          "CREATE INDEX [NANSI by NUMSE] ON [NANSI] ([NUMSE])",
                          "CREATE INDEX [NANSI by USED NUMSE] ON [NANSI] ([USED], [NUMSE])",
                          "CREATE TABLE [t] ([End] TEXT)", "CREATE UNIQUE INDEX [t by End] ON [t] ([End])",
                          "CREATE INDEX [t by pattern of End] ON [t] ([End] COLLATE NOCASE)"));
  EXPECT_THAT(IndexNames(schema.Database("dynamic")),
              ElementsAre("NANSI by NUMSE", "NANSI by USED NUMSE", "t by End", "t by pattern of End"));
}

TEST(Schema, StoresTheTablesOfTemplatesUnderNamesOfTheirOwn) {
  const Schema schema = Read(R"({"site": [{"name": "t", "columns": ["End"], "indexes": [["End"]]}]})");
  const DatabaseSchema& site = schema.Database("site");
  EXPECT_EQ(site.RowsOf("t"), "[site.t]");
  EXPECT_THAT(CreateStatements(site),
              ElementsAre("CREATE TABLE [site.t] ([End] TEXT)", "CREATE INDEX [site.t by End] ON [site.t] ([End])"));
  EXPECT_THAT(IndexNames(site), ElementsAre("site.t by End"));
}

TEST(Schema, ColumnsAreNamedInBrackets) {
  EXPECT_EQ(ColumnList({"DIR"}), "[DIR]");
  EXPECT_EQ(ColumnList({"DIR", "End"}), "[DIR], [End]");
}

// --- Views.

TEST(Schema, AViewShowsTheRowsOfItsTablesWithTheColumnsOfAll) {
  const Schema schema = Read(R"({"dynamic": [
      {"name": "a", "columns": ["CmdId", "DIR"]},
      {"name": "b", "columns": ["CmdId", "GRP"], "further": ["DIR", "AUX"]},
      {"name": "v", "of": ["a", "b"]}]})");
  const DatabaseSchema& database = schema.Database("dynamic");
  EXPECT_TRUE(database.IsView("V"));
  EXPECT_FALSE(database.IsView("a"));
  ASSERT_NE(database.Find("v"), nullptr);
  EXPECT_EQ(database.Find("v")->columns.size(), 3u);
  EXPECT_EQ(database.RowsOf("a"), "[a]");
  EXPECT_EQ(database.RowsOf("v"),
            "(SELECT [CmdId], [DIR], NULL AS [GRP] FROM [a] UNION ALL "
            "SELECT [CmdId], NULL AS [DIR], [GRP] FROM [b])");
  EXPECT_THAT(CreateStatements(database), testing::SizeIs(2)) << "no database holds it";
  EXPECT_EQ(RefusedTable(R"("of": ["a"])"), "schema.json: dynamic[0] (t).of[0]: there is no table a before it");
}

// --- The schema that is shipped.

TEST(Schema, ShipsThreeDatabases) {
  const Schema& schema = ShippedSchema();
  ASSERT_EQ(schema.databases.size(), 3u);
  EXPECT_NE(schema.Database("dynamic").Find("NANSI"), nullptr);
  EXPECT_NE(schema.Database("static").Find("ParamValueDesc"), nullptr);
  EXPECT_NE(schema.Database("site").Find("KSEXITEMPLATE"), nullptr);
}

TEST(Schema, ShipsWholeNumbersForIdentifiersAndBoardPositionsAlone) {
  const std::set<string> positions = {"Locations", "LIMs", "Boards", "Equipment", "TRKLINE"};
  for (const DatabaseSchema& database : ShippedSchema().databases) {
    for (const Table& table : database.tables) {
      for (const Column& column : table.columns) {
        const string& name = column.name;
        const bool identifier = name == "CmdId" || name == "CmdID" || name == "CMDID";
        const bool part = positions.contains(table.name) && (name == "LIM" || name == "Magazine" || name == "Slot");
        const bool whole = identifier || part || name == "DefinitionNo" || name == "OrderNo";
        const auto type = whole ? Column::Type::Whole : name == "USED" ? Column::Type::Truth : Column::Type::Text;
        EXPECT_EQ(column.type, type) << table.name << '.' << name;
        if (identifier) {
          EXPECT_EQ(&column, &table.columns.front()) << table.name;
        }
      }
    }
  }
}

TEST(Schema, ShipsAnIndexOnEveryIdentifier) {
  for (const DatabaseSchema& database : ShippedSchema().databases) {
    for (const Table& table : database.tables) {
      if (!table.Find("CmdId")) continue;
      ASSERT_FALSE(table.indexes.empty()) << table.name;
      EXPECT_THAT(table.indexes.front(), ElementsAre(table.columns.front().name)) << table.name;
    }
  }
}

TEST(Schema, ShipsNoFurtherColumnWhereRowsGoInWithoutNames) {
  const DatabaseSchema& dynamic = ShippedSchema().Database("dynamic");
  for (const auto& [name, columns] : {std::pair("BuiltCmd", 2u), {"USEDFILES", 1u}, {"PELPI", 11u}, {"CLODI", 5u}}) {
    const Table* table = dynamic.Find(name);
    ASSERT_NE(table, nullptr) << name;
    EXPECT_EQ(table->columns.size(), columns) << name;
  }
}

TEST(Schema, ShipsTheColumnsThatAreReadByPosition) {
  const DatabaseSchema& dynamic = ShippedSchema().Database("dynamic");
  const auto at = [&](const char* table, std::size_t position) {
    return dynamic.Find(table)->columns.at(position).name;
  };
  EXPECT_EQ(at("EXCCS", 6), "CATTYP");
  EXPECT_EQ(at("CLFOC", 2), "DATA");
  EXPECT_EQ(at("CLFOC", 5), "DATA1");
  EXPECT_EQ(at("CLFOC", 44), "DATA40");
  EXPECT_EQ(at("NASCS", 11), "PGSA");
}

}  // namespace
}  // namespace cordboard::workbench
