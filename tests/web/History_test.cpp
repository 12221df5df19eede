#include "workbench/history/History.h"

#include "web/OfficeTest.h"
#include "web/Visit.h"

namespace cordboard::web {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class HistoryPage : public OfficeTest {
 protected:
  int Newest() {
    const auto exchange = workbench::Exchange::OpenForReading(file());
    return workbench::History(exchange->Dynamic()).states().back().number;
  }
  bool HasNumber(const std::string& number) {
    const auto exchange = workbench::Exchange::OpenForReading(file());
    return !exchange->Dynamic().Single("SELECT 1 FROM NANSI WHERE NUMSE = ?", {number}).IsEmpty();
  }
};

TEST_F(HistoryPage, ShowsTheStatesWithTheNewestFirst) {
  ApplyAs("<b>.plan", "NANSI:NUMTYP=EX,NUMSE=970;");
  const Answer answer = Ask("/history");
  EXPECT_EQ(answer.status, Ok);
  EXPECT_THAT(answer.body, HasSubstr("apply &lt;b&gt;.plan"));
  EXPECT_LT(answer.body.find("/state?number=2"), answer.body.find("/state?number=1"));
  EXPECT_THAT(answer.body, AllOf(HasSubstr("aria-label=\"Undo: state 2\""),
                                 HasSubstr("aria-label=\"Undo with later ones: state 1\""),
                                 Not(HasSubstr("/undo?number=0")), Not(HasSubstr("/redo"))));
}

TEST_F(HistoryPage, ShowsWhatAStateHasChangedAndItsPlanWithoutSecrets) {
  ApplyAs("other.plan", "# A comment & more\nedit IPEXI DIR=350:PASSW=geheim77;\n");
  const std::string body = Ask("/state?number=2").body;
  EXPECT_THAT(body, AllOf(HasSubstr("# A comment &amp; more<br>"), HasSubstr("edit IPEXI DIR=350:PASSW=***;"),
                          HasSubstr("class=\"changed\""), Not(HasSubstr("geheim77"))));
}

TEST_F(HistoryPage, TellsOfAStateThatThereIsNot) {
  EXPECT_EQ(Ask("/state?number=17").status, NotFound);
  EXPECT_EQ(Ask("/state?number=-1").status, BadRequest);
  EXPECT_EQ(Ask("/state?number=1x").status, BadRequest);
  EXPECT_EQ(Ask("/state").status, BadRequest);
  EXPECT_EQ(Ask("/undo?number=17").status, NotFound);
  EXPECT_EQ(Ask("/undo?number=0").status, Conflict);
  EXPECT_EQ(Ask("/redo").status, Conflict);
}

TEST_F(HistoryPage, ShowsWhatAnUndoWouldDoAndDoesIt) {
  ApplyAs("other.plan", "NANSI:NUMTYP=EX,NUMSE=970;");
  const std::string asked = Ask("/undo?number=2").body;
  EXPECT_THAT(asked,
              AllOf(HasSubstr("class=\"removed\""), HasSubstr("NUMSE=970"), HasSubstr("name=\"newest\" value=\"2\"")));
  EXPECT_TRUE(HasNumber("970"));
  const Answer done = Post("/undo", {{"number", "2"}, {"newest", "2"}, {"message", "a mistake"}});
  EXPECT_EQ(done.status, SeeOther);
  EXPECT_EQ(done.headers["Location"], "/state?number=3");
  EXPECT_FALSE(HasNumber("970"));
  EXPECT_THAT(TextOf(Ask("/history")), AllOf(HasSubstr("a mistake"), HasSubstr("taken back by 3"), HasSubstr("Redo")));

  EXPECT_THAT(Ask("/redo").body, AllOf(HasSubstr("class=\"added\""), HasSubstr("NUMSE=970")));
  EXPECT_EQ(Post("/redo", {{"newest", "3"}}).status, SeeOther);
  EXPECT_TRUE(HasNumber("970"));
}

TEST_F(HistoryPage, TakesAStateBackWithThoseThatCameLater) {
  ApplyAs("other.plan", "NANSI:NUMTYP=EX,NUMSE=970;");
  ApplyAs("other.plan", "NANSI:NUMTYP=EX,NUMSE=971;");
  EXPECT_THAT(TextOf(Ask("/undo?number=2")), AllOf(HasSubstr("state 2 :"), HasSubstr("state 3 :")));
  EXPECT_EQ(Post("/undo", {{"number", "2"}, {"newest", "3"}}).status, SeeOther);
  EXPECT_FALSE(HasNumber("970"));
  EXPECT_FALSE(HasNumber("971"));
}

TEST_F(HistoryPage, DoesNothingWhereAnotherStateHasComeSince) {
  ApplyAs("other.plan", "NANSI:NUMTYP=EX,NUMSE=970;");
  ApplyAs("other.plan", "NANSI:NUMTYP=EX,NUMSE=971;");
  const Answer refused = Post("/undo", {{"number", "2"}, {"newest", "2"}});
  EXPECT_EQ(refused.status, Conflict);
  EXPECT_THAT(TextOf(refused), HasSubstr("There came state 3, apply by "));
  EXPECT_EQ(Post("/undo", {{"number", "2"}}).status, BadRequest);
  EXPECT_EQ(Post("/undo", {{"number", "3"}, {"newest", "3"}, {"message", "two\nlines"}}).status, BadRequest);
  EXPECT_EQ(Newest(), 3);
  EXPECT_EQ(Post("/undo", {{"number", "3"}, {"newest", "3"}}).status, SeeOther);
  EXPECT_EQ(Post("/redo", {{"newest", "3"}}).status, Conflict);
  EXPECT_EQ(Newest(), 4);
}

TEST_F(HistoryPage, NeedNotBeThere) {
  for (const char* table : {"States", "Changes", "Plans"}) Change("DROP TABLE [Cordboard." + std::string(table) + "]");
  OpenAnew();
  EXPECT_THAT(TextOf(Ask("/history")), HasSubstr("There is no history yet"));
  for (const char* page : {"/plan", "/lines", "/compare", "/records?command=KSEXI"}) EXPECT_EQ(Ask(page).status, Ok);
  EXPECT_EQ(Ask("/undo").status, Conflict);
  EXPECT_EQ(Post("/undo", {{"newest", "1"}}).status, Conflict);
  ApplyAs(planOfPage, "NANSI:NUMTYP=EX,NUMSE=970;");
  EXPECT_THAT(TextOf(Ask("/plan")), HasSubstr("NUMSE=970"));
}

TEST_F(HistoryPage, OfAReadOnlyVisitChangesNothing) {
  ApplyAs("other.plan", "NANSI:NUMTYP=EX,NUMSE=970;");
  OpenAnew(true);
  EXPECT_THAT(Ask("/history").body, Not(HasSubstr("/undo")));
  EXPECT_THAT(Ask("/undo?number=2").body, Not(HasSubstr("<form")));
  EXPECT_EQ(Post("/undo", {{"number", "2"}, {"newest", "2"}}).status, Forbidden);
  EXPECT_EQ(Post("/redo", {{"newest", "2"}}).status, Forbidden);
  EXPECT_EQ(Newest(), 2);
}

}  // namespace
}  // namespace cordboard::web
