#include "web/OfficeTest.h"
#include "workbench/exchange/Plant.h"

namespace cordboard::web {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

class ComparePage : public OfficeTest {};

TEST_F(ComparePage, ShowsInWhatTwoStatesDiffer) {
  ApplyAs("other.plan", "edit KSEXI DIR=100:CUST=2;");
  const Answer answer = Ask("/compare?first=@1&second=");
  EXPECT_THAT(TextOf(answer), AllOf(HasSubstr("From office.cbx at state 1 to office.cbx as it is now"),
                                    HasSubstr(" 1 record differs."), HasSubstr("CUST"), HasSubstr("DIR=100")));
  EXPECT_THAT(answer.body, HasSubstr("href=\"/between?first=%401&amp;second=\""));
  EXPECT_THAT(TextOf(Ask("/compare?first=@2&second=")), HasSubstr("The records are the same in both."));
  EXPECT_THAT(Ask("/compare").body, Not(HasSubstr("<h2>")));
}

TEST_F(ComparePage, GivesThePlanThatTurnsTheOneIntoTheOther) {
  ApplyAs("other.plan", "edit IPEXI DIR=350:PASSW=geheim77;");
  EXPECT_THAT(Ask("/between?first=@1&second=").body,
              AllOf(HasSubstr("edit IPEXI DIR=350:PASSW=***;"), Not(HasSubstr("geheim77"))));
  const Answer plan = Ask("/between.txt?first=@1&second=");
  EXPECT_THAT(plan.body, HasSubstr("edit IPEXI DIR=350:PASSW=geheim77;"));
  EXPECT_EQ(plan.headers["Content-Disposition"], "attachment; filename=\"between.plan\"");
  const std::string expected = TextOf(Ask("/compare?first=@1&second="));
  ApplyAs("other.plan", "edit IPEXI DIR=350:PASSW=other;");
  ApplyAs("between.plan", plan.body);
  EXPECT_EQ(TextOf(Ask("/between?first=@2&second=")).find("edit"), std::string::npos);
}

TEST_F(ComparePage, ComparesWithExchangesOfTheFolderAlone) {
  fs::copy_file(ExampleFile(), folder() / "copy.cbx");
  fs::copy_file(ExampleFile(), folder() / "copy.txt");
  fs::create_directory(folder() / "sub.cbx");
  fs::copy_file(ExampleFile(), folder() / "sub.cbx" / "inner.cbx");
  EXPECT_THAT(Ask("/compare").body,
              AllOf(HasSubstr("<option value=\"copy.cbx\">"), Not(HasSubstr("copy.txt")), Not(HasSubstr("sub.cbx"))));
  EXPECT_THAT(TextOf(Ask("/compare?first=copy.cbx&second=")), HasSubstr("The records are the same in both."));
  for (const std::string name :
       {"copy.txt", "sub.cbx", "sub.cbx/inner.cbx", "./copy.cbx", "../office.cbx", "/etc/passwd", ".", "..",
        "nothing.cbx", "copy.cbx/", "COPY.cbx", "office.cbx/../copy.cbx"}) {
    for (const char* page : {"/compare", "/between", "/between.txt"})
      EXPECT_EQ(Ask(Address(page, {{"first", name}, {"second", ""}})).status, NotFound) << page << " " << name;
  }
  EXPECT_EQ(Ask(Address("/compare", {{"first", (folder() / "copy.cbx").string()}})).status, NotFound);
  EXPECT_EQ(Ask("/compare?first=@99&second=").status, NotFound);
  EXPECT_EQ(Ask("/compare?first=@x&second=").status, BadRequest);
}

TEST_F(ComparePage, SaysThatNoPlanMakesAnotherReleaseOfIt) {
  workbench::Exchange::Create(folder() / "old.cbx", "R6", workbench::ReadPlant("example"));
  const Answer answer = Ask("/compare?first=old.cbx&second=");
  EXPECT_THAT(answer.body, AllOf(HasSubstr("the releases differ: R6 and R7"), Not(HasSubstr("/between"))));
  EXPECT_EQ(Ask("/between?first=old.cbx&second=").status, Conflict);
}

}  // namespace
}  // namespace cordboard::web
