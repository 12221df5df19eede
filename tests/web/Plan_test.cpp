#include "web/OfficeTest.h"
#include "web/Visit.h"
#include "workbench/history/StateStore.h"
#include "workbench/plans/SavedPlan.h"

namespace cordboard::web {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class PlanPage : public OfficeTest {};

TEST_F(PlanPage, HasWhatPagesChangedInThisVisitAndHolds) {
  ApplyAs(planOfPage, "NANSI:NUMTYP=EX,NUMSE=970;");
  OpenAnew();
  EXPECT_THAT(TextOf(Ask("/plan")), HasSubstr("Nothing has been changed"));
  ApplyAs(planOfPage, "edit IPEXI DIR=350:PASSW=geheim77;");
  ApplyAs("other.plan", "NANSI:NUMTYP=EX,NUMSE=971;");
  ApplyAs(planOfPage, "NANSI:NUMTYP=EX,NUMSE=972;");
  ApplyAs(planOfPage, "NANSI:NUMTYP=EX,NUMSE=973;");
  Post("/undo", {{"number", "6"}, {"newest", "6"}});
  const std::string text = TextOf(Ask("/plan"));
  EXPECT_THAT(text,
              AllOf(HasSubstr("edit IPEXI DIR=350:PASSW=***;"), HasSubstr("NUMSE=972"), Not(HasSubstr("NUMSE=970")),
                    Not(HasSubstr("NUMSE=971")), Not(HasSubstr("NUMSE=973")), Not(HasSubstr("geheim77"))));
  const Answer plan = Ask("/plan.txt");
  EXPECT_EQ(plan.body,
            "# What was changed on the pages of office.cbx\n"
            "edit IPEXI DIR=350:PASSW=geheim77;\nNANSI:NUMTYP=EX,NUMSE=972;\n");
  EXPECT_EQ(plan.headers["Content-Disposition"], "attachment; filename=\"visit.plan\"");
}

TEST_F(PlanPage, LeavesOutTheFirstLineOfASavedPlan) {
  std::string key;
  {
    const auto exchange = workbench::Exchange::OpenForReading(file());
    key = workbench::StateStore(exchange->Dynamic()).Mark();
  }
  workbench::SavedPlan saved;
  saved.Add("NANSI:NUMTYP=EX,NUMSE=970;");
  ApplyAs(planOfPage, saved.Written("tried on state 1 of office.cbx", key));
  EXPECT_EQ(Ask("/plan.txt").body, "# What was changed on the pages of office.cbx\nNANSI:NUMTYP=EX,NUMSE=970;\n");
}

}  // namespace
}  // namespace cordboard::web
