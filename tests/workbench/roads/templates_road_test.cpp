// Templates as a user meets them, on a real exchange. How extensions are made from them stands in Templates_test.cpp.

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "support/Road.h"
#include "workbench/data/Resources.h"
#include "workbench/plans/Plan.h"
#include "workbench/support/RoadTest.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char* const categories[] = {"EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;",
                                  "EXCCS:CAT=2,TRAF=22,SERV_D6=2,CDIV_D1=1,ROC_D2=1;"};

void Apply(Road& road, const std::string& name) {
  std::istringstream plan{std::string(Resource("plans/" + name))};
  EXPECT_TRUE(ApplyPlan(road.session(), {{name, plan}}, {}).kept) << name;
}

// --- KSEXITEMPLATE.

struct KSEXITEMPLATERoad : testing::Test {
  KSEXITEMPLATERoad() {
    for (const char* line : categories) EXPECT_EQ(road.Do(line), "done");
  }

  std::string Templates() {
    return road.Rows("SELECT CMDID, NUMTYP, TEMPLATENAME, CAT, SERV, LANG FROM [site.KSEXITemplate]");
  }

  Road road;
};

TEST_F(KSEXITEMPLATERoad, ATemplateIsAddedChangedAndDeleted) {
  EXPECT_EQ(road.Values("KSEXITEMPLATE", "CAT"), "1 2");
  EXPECT_EQ(road.Do("KSEXITEMPLATE:TEMPLATENAME=Office,CAT=1,LANG=2;"), "done");
  EXPECT_EQ(road.Do("KSEXITEMPLATE:TEMPLATENAME=\"Room, small\",SERV_D6=1;"), "done");
  EXPECT_EQ(Templates(), "1|EX|Office|1|-|2 2|EX|Room, small|-|000001000|-");
  EXPECT_EQ(road.Do("edit KSEXITEMPLATE TEMPLATENAME=Office:CAT=2,LANG=;"), "done");
  EXPECT_EQ(road.Do("edit KSEXITEMPLATE TEMPLATENAME=Office:TEMPLATENAME=Sales;"), "done");
  EXPECT_EQ(road.Do("delete KSEXITEMPLATE TEMPLATENAME=\"Room, small\";"), "done");
  EXPECT_EQ(Templates(), "1|EX|Sales|2|-|");
  EXPECT_EQ(road.Do("KSEXITEMPLATE:TEMPLATENAME=Shop,CAT=1;"), "done");
  EXPECT_EQ(road.Rows("SELECT MAX(CMDID) FROM [site.KSEXITemplate]"), "2") << "the greatest and one";
}

TEST_F(KSEXITEMPLATERoad, ATemplateNeedsANameAndValuesThatArePossible) {
  EXPECT_EQ(road.Do("KSEXITEMPLATE:CAT=1;"), "TEMPLATENAME=: this parameter has to be given (Name of the template)");
  EXPECT_EQ(road.Do("KSEXITEMPLATE:TEMPLATENAME=Office,CAT=7;"), "CAT=7: this value is not possible here [1, 2]");
  EXPECT_EQ(road.Do("KSEXITEMPLATE:TEMPLATENAME=Office,DIR=100;").substr(0, 53),
            "DIR=: there is no parameter DIR in KSEXITEMPLATE.");
  EXPECT_EQ(Templates(), "");
}

// The lines of templates are not among those of the exchange.
TEST_F(KSEXITEMPLATERoad, ATemplateHasALineOfItsOwn) {
  ASSERT_EQ(road.Do("KSEXITEMPLATE:TEMPLATENAME=Office,CAT=1,LANG=2,ADC_D1=1;"), "done");
  ASSERT_EQ(road.Do("KSEXITEMPLATE:TEMPLATENAME=Own,TRAF=11,SERV_D6=1,CUST=1;"), "done");
  EXPECT_THAT(road.Lines("site"), ElementsAre("KSEXI:TEMPLATENAME=Office,CAT=1,ADC=10000000000,LANG=2;",
                                              "KSEXI:TEMPLATENAME=Own,TRAF=11,SERV=000001000,CDIV=,ROC=,CUST=1;"));
  EXPECT_THAT(road.Lines(), testing::Each(testing::Not(testing::StartsWith("KSEXI"))));
}

TEST(KSEXITEMPLATEOfR6, ATemplateKeepsTheExchangeFromNothing) {
  Road road("R6");
  for (const char* line : categories) ASSERT_EQ(road.Do(line), "done");
  ASSERT_EQ(road.Do("KSEXITEMPLATE:TEMPLATENAME=Office,CAT=1;"), "done");
  EXPECT_THAT(Generate(road.session()).problems, IsEmpty());
  const Generated templates = Generate(road.session(), "site");
  EXPECT_THAT(templates.lines, IsEmpty());
  ASSERT_EQ(templates.problems.size(), 1u);
  EXPECT_EQ(templates.problems[0].first, "KSEXITEMPLATE");
}

// --- The example exchange.

// What the example's templates add to the lines of the exchange, and their own lines after a blank one. R6 has none of
// these.
TEST(TemplatesOfTheExample, GiveTheirLines) {
  for (const char* release : {"R6", "R8"}) {
    Road road(release);
    for (const char* plan : {"example.plan", "extensions.plan", "terminals.plan"}) Apply(road, plan);
    const std::vector<std::string> before = road.Lines();
    Apply(road, "templates.plan");
    std::string lines;
    for (const std::string& line : road.Lines()) {
      if (std::ranges::find(before, line) == before.end()) lines += line + "\n";
    }
    lines += "\n";
    for (const GeneratedLine& line : Generate(road.session(), "site").lines) lines += line.text + "\n";
    EXPECT_EQ(lines, Golden(std::string("templates-") + release + ".txt")) << release;
  }
}

}  // namespace
}  // namespace cordboard::workbench
