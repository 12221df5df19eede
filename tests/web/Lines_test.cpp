#include "web/OfficeTest.h"
#include "workbench/actions/Generation.h"

namespace cordboard::web {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class LinesPage : public OfficeTest {};

TEST_F(LinesPage, ShowsTheLinesByCommandWithoutSecrets) {
  const Answer answer = Ask("/lines");
  EXPECT_EQ(answer.status, Ok);
  EXPECT_THAT(answer.body, AllOf(HasSubstr("<summary>KSEXI: Key extensions, 53 lines</summary>"),
                                 HasSubstr("NANSI:NUMTYP=EX,NUMSE=100&amp;&amp;199;<br>"),
                                 HasSubstr("IPEXI:DIR=350,PASSW=***;"), Not(HasSubstr("Tulip"))));
  EXPECT_THAT(TextOf(answer), HasSubstr("give no lines, by the rules of the exchange"));
}

TEST_F(LinesPage, FindsLinesButNoneByASecret) {
  EXPECT_THAT(TextOf(Ask("/lines?command=KSEXI&find=DIR=100")), HasSubstr(" 1 line "));
  EXPECT_THAT(TextOf(Ask("/lines?find=Tulip")), HasSubstr(" 0 lines "));
  EXPECT_EQ(Ask("/lines?command=NOTHING").status, NotFound);
}

TEST_F(LinesPage, ShowsTheFirstThousandOfACommand) {
  ApplyAs("other.plan", "NANSI:NUMTYP=EX,NUMSE=70000&&71199;");
  const auto exchange = workbench::Exchange::OpenForWriting(file());
  workbench::Transaction transaction(*exchange);
  for (int i = 0; i < 1010; ++i)
    exchange->Dynamic().Run("INSERT INTO KSEXI (CmdId, DIR, ITYPE, EQU) VALUES (?, ?, '12', '001-0-11-00')",
                            {exchange->NewCmdId(), std::to_string(70000 + i)});
  transaction.Commit();
  const Answer answer = Ask("/lines?command=KSEXI");
  EXPECT_EQ(CountIn(answer.body, "KSEXI:DIR="), 1000u);
  EXPECT_THAT(TextOf(answer), AllOf(HasSubstr("1063 lines"), HasSubstr("and 63 lines more")));
  EXPECT_EQ(CountIn(Ask("/lines.txt?command=KSEXI").body, "KSEXI:DIR="), 1063u);
}

TEST_F(LinesPage, AreAFileWithEveryLineAsTheExchangeTakesIt) {
  const Answer answer = Ask("/lines.txt");
  EXPECT_EQ(answer.headers["Content-Disposition"], "attachment; filename=\"lines.txt\"");
  EXPECT_EQ(answer.type, "text/plain; charset=utf-8");
  const auto exchange = workbench::Exchange::OpenForReading(file());
  workbench::Session session(*exchange);
  std::string lines;
  for (const auto& line : Generate(session).lines) lines += line.text + "\n";
  EXPECT_EQ(answer.body, lines);
}

TEST_F(LinesPage, TellsWhichLinesAreMissingAndGivesNoFileWithoutThem) {
  Change("INSERT INTO IVMAI (CmdId, VSD, BPOS, NOIND) VALUES (90001, '300', '001-0-10', 'many')");
  const char* const missing = "IVMAI: lines are missing: the generation ended ";
  EXPECT_THAT(TextOf(Ask("/lines")), AllOf(HasSubstr(missing), HasSubstr("KSEXI: Key extensions, 53 lines")));
  const Answer answer = Ask("/lines.txt");
  EXPECT_EQ(answer.status, Conflict);
  EXPECT_EQ(answer.headers["Content-Disposition"], "");
  EXPECT_THAT(TextOf(answer), AllOf(HasSubstr(missing), HasSubstr("Show the other lines")));
  EXPECT_THAT(Ask("/lines.txt?command=IVMAI").body, HasSubstr("href=\"/lines?command=IVMAI\""));
  EXPECT_EQ(Ask("/lines.txt?command=KSEXI").status, Ok);
}

TEST_F(LinesPage, ShowsWhichLinesCameAndWentSinceAState) {
  ApplyAs("other.plan", "edit KSEXI DIR=100:CUST=2;");
  const std::string text = TextOf(Ask("/lines?since=1"));
  EXPECT_THAT(text, AllOf(HasSubstr("2 lines that came or went since state 1"), HasSubstr("- KSEXI:DIR=100,"),
                          HasSubstr("+ KSEXI:DIR=100,"), HasSubstr("state 1: apply test.plan"),
                          HasSubstr("(where this visit began)")));
  EXPECT_THAT(TextOf(Ask("/lines?since=2")), HasSubstr(" 0 lines that came or went"));
  EXPECT_EQ(Ask("/lines?since=9").status, NotFound);
  EXPECT_EQ(Ask("/lines?since=now").status, BadRequest);
}

}  // namespace
}  // namespace cordboard::web
