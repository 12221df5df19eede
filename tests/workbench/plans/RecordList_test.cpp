#include "workbench/plans/RecordList.h"

#include <gmock/gmock.h>

#include "workbench/support/Steps.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

void AddNumbers(Exchange& exchange, int count) {
  Transaction transaction(exchange);
  for (int i = 0; i < count; ++i)
    exchange.Dynamic().Run("INSERT INTO NANSI (CmdId, NUMSE, NUMTYP, USED) VALUES (?, ?, 'EX', 0)",
                           {exchange.NewCmdId(), std::to_string(i)});
  transaction.Commit();
}

std::string Named(const std::vector<Assignment>& selection) {
  return selection.front().name + "=" + selection.front().value;
}

TEST(RecordList, HasTheColumnsInWhichARecordHasAValue) {
  const auto exchange = ExampleExchange();
  EXPECT_THAT(RecordList(*exchange, *FindForm("NANSI")).columns(), testing::IsEmpty());
  AddNumbers(*exchange, 1);
  EXPECT_THAT(RecordList(*exchange, *FindForm("NANSI")).columns(), ElementsAre("NUMTYP", "NUMSE"));
}

TEST(RecordList, SelectsEachRecordAlone) {
  const auto exchange = ExampleExchange();
  AddNumbers(*exchange, 3);
  exchange->Dynamic().Run("UPDATE NANSI SET NUMSE = '1' WHERE NUMSE = '2'");
  exchange->Dynamic().Run("INSERT INTO NANSI (CmdId, NUMTYP) VALUES (999, 'EX')");
  std::vector<std::string> selections;
  for (const ListedRecord& record : RecordList(*exchange, *FindForm("NANSI")).Read(0, 10)) {
    selections.push_back(Named(record.selection));
    EXPECT_TRUE(std::holds_alternative<StoredRecord>(FindRecord(*exchange, *FindForm("NANSI"), record.selection)));
  }
  ASSERT_THAT(selections, SizeIs(4));
  EXPECT_EQ(selections[0], "NUMSE=0");
  EXPECT_TRUE(selections[1].starts_with("CMDID=")) << selections[1];
  EXPECT_TRUE(selections[2].starts_with("CMDID=")) << selections[2];
  EXPECT_EQ(selections[3], "CMDID=999");
}

TEST(RecordList, SortsNumbersBeyondAnyRange) {
  const auto exchange = ExampleExchange();
  AddNumbers(*exchange, 3);
  const char* const texts[] = {"99999999999999999999999", "0100000000000000000000", "0"};
  for (int i = 0; i < 3; ++i)
    exchange->Dynamic().Run("UPDATE NANSI SET NUMSE = ? WHERE NUMSE = ?", {texts[i], std::to_string(i)});
  RecordList list(*exchange, *FindForm("NANSI"));
  list.SortBy("NUMSE", false);
  std::vector<std::string> sorted;
  for (const ListedRecord& record : list.Read(0, 10)) sorted.push_back(record.values.back());
  EXPECT_THAT(sorted, ElementsAre("0", "0100000000000000000000", "99999999999999999999999"));
}

// No statement for each record: what is found, sorted and counted does not pass through the program.
TEST(RecordList, IsReadByTheDatabase) {
  const StepCounter counter;
  const auto statements = [](int records) {
    const auto exchange = ExampleExchange();
    AddNumbers(*exchange, records);
    return StepCounter::Statements([&] {
      RecordList list(*exchange, *FindForm("NANSI"));
      list.Find("1", std::nullopt);
      list.SortBy("NUMSE", true);
      list.CountFound();
      EXPECT_THAT(list.Read(10, 20), SizeIs(20));
    });
  };
  EXPECT_EQ(statements(200), statements(4000));
}

}  // namespace
}  // namespace cordboard::workbench
