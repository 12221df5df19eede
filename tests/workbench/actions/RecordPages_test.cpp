#include "workbench/actions/RecordPages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/actions/Records.h"
#include "workbench/database/Schema.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;

void AddNumbers(Exchange& exchange, int count) {
  Transaction transaction(exchange);
  for (int i = 0; i < count; ++i)
    exchange.Dynamic().Run("INSERT INTO NANSI (CmdId, NUMSE, NUMTYP, USED) VALUES (?, ?, ?, 0)",
                           {exchange.NewCmdId(), std::to_string(100000 + i), i % 2 == 0 ? "EX" : "OI"});
  transaction.Commit();
}

TEST(RecordPages, GiveEveryRecordOnceAndInOrder) {
  const auto exchange = ExampleExchange();
  AddNumbers(*exchange, 12001);
  RecordPages pages(*exchange, *FindForm("NANSI"), {});
  std::vector<std::size_t> sizes;
  int next = 100000;
  for (RowSet page = pages.Next(); !page.IsEmpty(); page = pages.Next()) {
    sizes.push_back(page.RowCount());
    for (std::size_t row = 0; row < page.RowCount(); ++row) EXPECT_EQ(page[1][row], Value(std::to_string(next++)));
  }
  EXPECT_THAT(sizes, ElementsAre(5000, 5000, 2001));
}

TEST(RecordPages, GiveTheRecordsThatAreSelected) {
  const auto exchange = ExampleExchange();
  AddNumbers(*exchange, 12001);
  RecordPages pages(*exchange, *FindForm("NANSI"), {{"NUMTYP", "OI"}});
  EXPECT_EQ(pages.Next().RowCount(), 5000u);
  EXPECT_EQ(pages.Next().RowCount(), 1000u);
  EXPECT_TRUE(pages.Next().IsEmpty());
}

TEST(RecordPages, KnowTheWidestValueOfEachColumn) {
  const auto exchange = ExampleExchange();
  EXPECT_THAT(RecordPages(*exchange, *FindForm("NACDS"), {}).Widths(), testing::Each(0u));
  AddNumbers(*exchange, 2);
  exchange->Dynamic().Run("UPDATE NANSI SET NUMSE = 'Zürich' WHERE NUMSE = '100001'");
  EXPECT_THAT(RecordPages(*exchange, *FindForm("NANSI"), {}).Widths(), ElementsAre(2, 6, 2, 1));
  EXPECT_THAT(RecordPages(*exchange, *FindForm("NANSI"), {{"NUMTYP", "OI"}}).Widths(), ElementsAre(2, 6, 2, 1));
}

TEST(CountRecords, CountsBlankRowsApart) {
  const auto exchange = ExampleExchange();
  const auto [records, blank] = CountRecords(*exchange, *FindForm("EXCCS"));
  EXPECT_EQ(records, 0u);
  EXPECT_EQ(blank, 32u);
  exchange->Dynamic().Run("UPDATE EXCCS SET DESCRIPTION = 'Office' WHERE CAT = '3'");
  exchange->Dynamic().Run("UPDATE EXCCS SET DESCRIPTION = '' WHERE CAT = '4'");
  EXPECT_EQ(CountRecords(*exchange, *FindForm("EXCCS")).records, 1u);
  EXPECT_EQ(CountRecords(*exchange, *FindForm("EXCCS")).blank, 31u);
}

}  // namespace
}  // namespace cordboard::workbench
