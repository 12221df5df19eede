#include <algorithm>
#include <regex>

#include "web/OfficeTest.h"
#include "workbench/actions/Records.h"

namespace cordboard::web {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class RecordsPage : public OfficeTest {
 protected:
  // The cells of one column, row by row.
  std::vector<std::string> Cells(const std::string& address, std::size_t column) {
    const std::string body = Ask(address).body;
    std::vector<std::string> cells;
    static const std::regex cell("<td>(.*?)</td>");
    for (std::size_t row = body.find("<tr><td>"); row != body.npos; row = body.find("<tr><td>", row + 1)) {
      const std::string text = body.substr(row, body.find("</tr>", row) - row);
      auto each = std::sregex_iterator(text.begin(), text.end(), cell);
      std::advance(each, column);
      cells.push_back((*each)[1]);
    }
    return cells;
  }

  void AddNumbers(const std::vector<std::string>& numbers) {
    const auto exchange = workbench::Exchange::OpenForWriting(file());
    workbench::Transaction transaction(*exchange);
    exchange->Dynamic().Run("DELETE FROM NANSI");
    for (const std::string& number : numbers)
      exchange->Dynamic().Run("INSERT INTO NANSI (CmdId, NUMSE, NUMTYP, USED) VALUES (?, ?, 'EX', 0)",
                              {exchange->NewCmdId(), number});
    transaction.Commit();
  }
};

TEST_F(RecordsPage, HasEveryRecordOfEveryCommand) {
  const auto exchange = workbench::Exchange::OpenForReading(file());
  std::size_t commandsWithRecords = 0;
  for (const workbench::FormDefinition* form : workbench::Forms()) {
    const std::size_t records = CountRecords(*exchange, *form).records;
    std::size_t shown = 0;
    for (std::size_t page = 1; page <= (records + 99) / 100; ++page) {
      const Answer answer = Ask("/records?command=" + form->command + "&page=" + std::to_string(page));
      EXPECT_EQ(answer.status, Ok) << form->command;
      shown += CountIn(answer.body, "<tr><td>");
    }
    EXPECT_EQ(shown, records) << form->command;
    if (records > 0) ++commandsWithRecords;
    if (records > 0) continue;
    EXPECT_THAT(TextOf(Ask("/records?command=" + form->command)), HasSubstr("no record yet")) << form->command;
  }
  EXPECT_GT(commandsWithRecords, 60u);
}

TEST_F(RecordsPage, LeadsFromEachRecordToItsFormAndItsDeletion) {
  const std::string body = Ask("/records?command=KSEXI&find=DIR=100").body;
  EXPECT_THAT(body, HasSubstr("<a href=\"/form?command=KSEXI&amp;of=DIR%3D100\" aria-label=\"Edit DIR=100\">"));
  EXPECT_THAT(body, HasSubstr("<a href=\"/delete?command=KSEXI&amp;of=DIR%3D100\" aria-label=\"Delete DIR=100\">"));
}

TEST_F(RecordsPage, LeadsToEachRecordAloneAlsoWhereSeveralHaveOneKey) {
  Change("UPDATE KSEXI SET DIR = '200' WHERE DIR = '201'");
  const std::string body = Ask("/records?command=KSEXI&find=DIR=200").body;
  EXPECT_EQ(CountIn(body, "<a href=\"/form?command=KSEXI&amp;of=DIR%3D200&amp;of="), 2u);
  EXPECT_EQ(CountIn(body, "<a href=\"/form?command=KSEXI&amp;of=DIR%3D200\""), 0u);
}

TEST_F(RecordsPage, OfAReadOnlyVisitHasNoWayToDelete) {
  OpenAnew(true);
  const std::string body = Ask("/records?command=KSEXI").body;
  EXPECT_THAT(body, AllOf(HasSubstr("of=DIR%3D100"), Not(HasSubstr("/delete"))));
}

TEST_F(RecordsPage, SortsNumbersByHowGreatTheyAre) {
  AddNumbers({"100", "99", "", "7", "A1", "0012"});
  EXPECT_THAT(Cells("/records?command=NANSI&sort=NUMSE", 2), ElementsAre("7", "0012", "99", "100", "A1", ""));
  EXPECT_THAT(Cells("/records?command=NANSI&sort=NUMSE&down=1", 2), ElementsAre("A1", "100", "99", "0012", "7", ""));
  EXPECT_THAT(Cells("/records?command=NANSI", 2), ElementsAre("100", "99", "", "7", "A1", "0012"));
}

TEST_F(RecordsPage, SaysByWhichColumnItIsSorted) {
  EXPECT_THAT(Ask("/records?command=KSEXI").body, Not(HasSubstr("aria-sort")));
  const std::string up = Ask("/records?command=KSEXI&sort=DIR").body;
  EXPECT_THAT(up, HasSubstr("<th scope=\"col\" aria-sort=\"ascending\"><a href=\"/records?command=KSEXI&amp;sort=DIR"
                            "&amp;down=1\""));
  EXPECT_THAT(Ask("/records?command=KSEXI&sort=DIR&down=1").body, HasSubstr("aria-sort=\"descending\""));
}

TEST_F(RecordsPage, ShowsTheRecordsByTheHundred) {
  std::vector<std::string> numbers;
  for (int i = 0; i < 250; ++i) numbers.push_back(std::to_string(1000 + i));
  AddNumbers(numbers);
  EXPECT_THAT(Cells("/records?command=NANSI&page=2", 2), AllOf(SizeIs(100), testing::Contains("1100")));
  EXPECT_THAT(Cells("/records?command=NANSI&page=3", 2), SizeIs(50));
  for (const char* page : {"99", "0", "-1", "x", "99999999999999999999999"})
    EXPECT_EQ(Ask(std::string("/records?command=NANSI&page=") + page).status, Ok) << page;
  EXPECT_THAT(TextOf(Ask("/records?command=NANSI&page=99")), HasSubstr("Page 3 of 3"));
  EXPECT_THAT(Ask("/records?command=NANSI&find=1&sort=NUMSE&down=1").body,
              HasSubstr("find=1&amp;sort=NUMSE&amp;down=1&amp;page=2"));
}

TEST_F(RecordsPage, FindsATextAsItStands) {
  AddNumbers({"1", "2", "3", "4", "5"});
  const std::vector<std::string> names = {"100% wool", "a_b", "O'Brien \"the\" \\", "[x]*?", "plain"};
  for (std::size_t i = 0; i < names.size(); ++i)
    Change("UPDATE NANSI SET NUMTYP = ? WHERE NUMSE = ?", {names[i], std::to_string(i + 1)});
  const auto found = [this](const std::string& text) {
    return Cells("/records?" + Fields{{"command", "NANSI"}, {"find", text}}.Encoded(), 2);
  };
  EXPECT_THAT(found("%"), ElementsAre("1"));
  EXPECT_THAT(found("_"), ElementsAre("2"));
  EXPECT_THAT(found("'"), ElementsAre("3"));
  EXPECT_THAT(found("\\"), ElementsAre("3"));
  EXPECT_THAT(found("[x]*?"), ElementsAre("4"));
  EXPECT_THAT(found("PLAIN"), ElementsAre("5"));
  EXPECT_THAT(found("NUMSE=3"), ElementsAre("3"));
  EXPECT_THAT(found("NUMTYP=3"), IsEmpty());
  EXPECT_THAT(found("' OR 1=1 --"), IsEmpty());
  EXPECT_THAT(TextOf(Ask("/records?command=NANSI&find=nobody")), HasSubstr("0 of 5 records"));
}

TEST_F(RecordsPage, EscapesWhatTheExchangeHolds) {
  const std::string hostile = "<script>alert(1)</script>&\"'";
  AddNumbers({hostile, "\x1b[31m", "\xff"});
  Change("UPDATE NIINI_DIR SET NAME1 = ? WHERE DIR = '216'", {hostile});
  EXPECT_THAT(Ask("/records?command=NIINI").body,
              AllOf(HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;&amp;&quot;&#39;"), Not(HasSubstr("<script>"))));
  const std::string numbers = Ask("/records?command=NANSI").body;
  EXPECT_THAT(numbers, AllOf(HasSubstr("/delete?command=NANSI&amp;of=NUMSE%3D%3Cscript%3Ealert"),
                             HasSubstr("aria-label=\"Delete NUMSE=&lt;script&gt;"), Not(HasSubstr("<script>")),
                             HasSubstr("\\u001b[31m"), Not(HasSubstr("\xff"))));
  const auto search = Fields{{"command", "NANSI"}, {"find", hostile}}.Encoded();
  EXPECT_THAT(Ask("/records?" + search).body, AllOf(HasSubstr("value=\"&lt;script&gt;"), Not(HasSubstr("<script>"))));
}

TEST_F(RecordsPage, HidesSecretsAndFindsNothingByThem) {
  const std::string all = Ask("/records?command=IPEXI").body;
  EXPECT_THAT(all, AllOf(HasSubstr("<td>***</td>"), Not(HasSubstr("sort=PASSW"))));
  const auto exchange = workbench::Exchange::OpenForReading(file());
  const std::string secret = exchange->Dynamic().Single("SELECT PASSW FROM IPEXI WHERE PASSW <> '' LIMIT 1").text();
  EXPECT_THAT(TextOf(Ask("/records?" + Fields{{"command", "IPEXI"}, {"find", secret}}.Encoded())), HasSubstr(" 0 of "));
  EXPECT_EQ(Ask("/records?command=IPEXI&find=PASSW=a").status, BadRequest);
  EXPECT_EQ(Ask("/records?command=IPEXI&sort=PASSW").status, BadRequest);
}

TEST_F(RecordsPage, LeavesOutBlankRowsAndSaysSo) {
  const std::string text = TextOf(Ask("/records?command=EXCCS"));
  EXPECT_THAT(text, AllOf(HasSubstr(" 4 records "), HasSubstr("28 rows prepared")));
}

TEST_F(RecordsPage, ShowsARecordWithoutAnyValue) {
  Change("DELETE FROM SYTDS");
  Change("INSERT INTO SYTDS (CMDID) VALUES (999999)");
  const Answer answer = Ask("/records?command=SYTDS&find=");
  EXPECT_EQ(CountIn(answer.body, "of=CMDID%3D999999"), 2u);
  EXPECT_EQ(Ask("/records?command=SYTDS&find=1&sort=PGIV").status, Ok);
}

TEST_F(RecordsPage, RefusesAnUnknownCommand) {
  const Answer answer = Ask("/records?command=KSEXY");
  EXPECT_EQ(answer.status, NotFound);
  EXPECT_THAT(answer.body, HasSubstr("KSEXI"));
  EXPECT_EQ(Ask("/records?command=KSEXI&sort=NOTHING").status, Ok);
}

}  // namespace
}  // namespace cordboard::web
