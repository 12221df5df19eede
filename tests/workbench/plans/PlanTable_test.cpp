// Tables of records: what is written is read again as it was, and what cannot be read is told with its place.

#include "workbench/plans/PlanTable.h"

#include <gmock/gmock.h>

#include "support/Road.h"
#include "workbench/plans/Export.h"
#include "workbench/support/ExamplePlans.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using Texts = std::vector<std::string>;
using testing::ElementsAre;
using testing::HasSubstr;

const FormDefinition& GESPI() { return *FindForm("GESPI"); }

// What the reader makes of the lines: plan lines, or why one cannot be read.
Texts Read(const FormDefinition& form, const Texts& lines) {
  TableReader reader(form);
  Texts read;
  for (const std::string& line : lines) {
    try {
      const auto action = reader.Read(line);
      read.push_back(action ? WrittenLine(*action) : "-");
    } catch (const PlanLineError& error) {
      read.emplace_back(error.what());
    }
  }
  return read;
}

TEST(PlanTable, ARowIsAnAddOfWhatItsCellsHold) {
  EXPECT_THAT(Read(*FindForm("KSEXI"), {"DIR,ITYPE,EQU,CAT\r", "100,3,001-0-10-00,1\r", "101&&102,3,next,", ",,,", ""}),
              ElementsAre("-", "KSEXI:DIR=100,ITYPE=3,EQU=001-0-10-00,CAT=1;", "KSEXI:DIR=101&&102,ITYPE=3,EQU=next;",
                          "-", "-"));
}

TEST(PlanTable, WhatCannotBeReadIsToldWithItsPlace) {
  EXPECT_THAT(
      Read(GESPI(), {"CSP,DESCRIPTION", "0,\"Hall", "0,Ha\"ll", "0,\"Hall\"s", "0,Hall,1", "0", "0,\xFF"}),
      ElementsAre("-", "a double quote is opened and not closed in its line at column 3",
                  "a double quote stands within a cell that does not begin with one at column 5",
                  "a comma is missing behind the double quote at column 9", "the row has 3 cells under 2 headings",
                  "the row has 1 cell under 2 headings", "the line is not UTF-8 text"));
}

TEST(PlanTable, WithoutHeadingsNoRowIsRead) {
  EXPECT_THAT(Read(GESPI(), {"CSP;DESCRIPTION", "0;Hall"}),
              ElementsAre(HasSubstr("commas between them, not semicolons"), "-"));
  EXPECT_THAT(Read(GESPI(), {"CSP,DESCRIPTIO", "0,Hall"}),
              ElementsAre("no row is read: there is no parameter DESCRIPTIO in GESPI. Did you mean DESCRIPTION?", "-"));
  EXPECT_THAT(Read(GESPI(), {"CSP,CSP", "0,1"}), ElementsAre("two columns have the heading CSP; no row is read", "-"));
  EXPECT_THAT(Read(GESPI(), {"CSP,", "0,1"}), ElementsAre("a column has no heading; no row is read", "-"));
}

TEST(PlanTable, WhatIsWrittenIsReadAsItWas) {
  std::vector<UserAction> adds;
  for (const char* value :
       {"Mill, gate 2", "\"", "a\"\"b", ",", ";;", " both ends ", "Ö#1", "\xEF\xBB\xBF", "=1+1", "'", "-"}) {
    adds.push_back({.command = "GESPI", .selection = {}, .values = {{"CSP", "0"}, {"DESCRIPTION", value}}});
    adds.push_back({.command = "GESPI", .selection = {}, .values = {{"DESCRIPTION", value}, {"TRAF", "1&2"}}});
  }
  const std::string table = WrittenTable(GESPI(), adds);
  EXPECT_TRUE(table.starts_with("CSP,DESCRIPTION,TRAF\n0,\"Mill, gate 2\",\n,\"Mill, gate 2\",1&2\n")) << table;
  TableReader reader(GESPI());
  std::istringstream in(table);
  std::string line;
  std::getline(in, line);
  EXPECT_EQ(reader.Read(line), std::nullopt);
  for (const UserAction& add : adds) {
    std::getline(in, line);
    const auto read = reader.Read(line);
    ASSERT_TRUE(read) << line;
    EXPECT_EQ(WrittenLine(*read), WrittenLine(add));
  }
}

// Each command's records as a table, on an exchange that has all but them.
TEST(PlanTable, TheTableOfACommandMakesItsRecordsAgain) {
  const auto exchange = ExampleExchange("R7");
  {
    Session session(*exchange);
    for (const char* plan : {"example.plan", "extensions.plan"}) ASSERT_TRUE(ApplyExamplePlan(session, plan).kept);
  }
  for (const char* command : {"KSEXI", "KSFKC"}) {
    const FormDefinition& form = *FindForm(command);
    std::vector<TriedLine> before;
    std::vector<UserAction> adds;
    for (const TriedLine& line : ExportPlan(*exchange, command).plan.lines) {
      if (line.command == command) adds.push_back(*ParsePlanLine(line.text));
      if (adds.empty()) before.push_back(line);
    }
    const auto again = ExampleExchange("R7");
    Session session(*again);
    EXPECT_EQ(ApplyText(session, "before", Written(before)).refused, 0);
    std::istringstream in("\xEF\xBB\xBF" + WrittenTable(form, adds));
    const auto read = [reader = TableReader(form)](std::string_view line) mutable { return reader.Read(line); };
    const PlanResult result = ApplyPlan(session, {{"table", in, read}}, {});
    EXPECT_EQ(result.done, adds.size());
    EXPECT_EQ(result.refused, 0);
    EXPECT_EQ(RecordTable(form).Read(*again), RecordTable(form).Read(*exchange)) << command;
  }
}

TEST(PlanTable, WhatIsRefusedIsToldWithItsLineAndParameter) {
  Road road;
  std::istringstream in("NUMTYP,NUMSE\nEX,100&&199\nXX,300\n\nEX,\"3\n");
  const auto read = [reader = TableReader(*FindForm("NANSI"))](std::string_view line) mutable {
    return reader.Read(line);
  };
  const PlanResult result = ApplyPlan(road.session(), {{"numbers.csv", in, read}}, {});
  ASSERT_EQ(result.reports.size(), 2);
  EXPECT_FALSE(result.kept);
  EXPECT_EQ(result.reports[0].line, 3);
  EXPECT_EQ(result.reports[0].problems.front().parameter, "NUMTYP");
  EXPECT_EQ(result.reports[1].line, 5);
  EXPECT_EQ(result.reports[1].problems.front().message,
            "a double quote is opened and not closed in its line at column 4");
}

}  // namespace
}  // namespace cordboard::workbench
