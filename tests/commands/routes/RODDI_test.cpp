// The new-destination mark of RODDI beyond a transcript: where it begins, and what it outlives.
#include <gtest/gtest.h>

#include <cstdlib>

#include "entry/CScript.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

const std::string allCustomers = "scCollectSingleValues(\"SELECT CUST FROM CUSTOMERS\", Empty)\n";
const std::string noCustomers = "scSubtractSingleValues(\"SELECT CUST FROM CUSTOMERS\")\n";
const std::string choices = "scPushValidRangeValues(0, 7)\n";

std::string CallsOfList(const std::string& parameter) {
  ScriptedHost host;
  host.Run({.FunctionName = "GetValidValForParam", .CmdName = "RODDI", .ParamList = {parameter}});
  return host.Calls();
}

// A process of its own runs this test, so that nothing has set the mark before.
TEST(RODDIDeathTest, BeforeAnyCheckTheListsAreThoseOfAKnownDestination) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(std::_Exit(CallsOfList("CUST") == allCustomers && CallsOfList("CHO") == choices ? 0 : 1),
              testing::ExitedWithCode(0), "");
}

TEST(RODDIMark, OutlivesTheHost) {
  {
    ScriptedHost host;
    host.Param("ROU", "3");
    host.Param("DEST", "500");
    host.Rows("SELECT * FROM RODDI WHERE ROU = '3'\r\nAND DEST ='500'\r\n", {});
    host.Run({.FunctionName = "StatCheck", .CmdName = "RODDI", .ParamList = {"DEST"}});
  }
  CScript script;
  script.AddObject(nullptr);
  script.Destroy();
  EXPECT_EQ(CallsOfList("CUST"), noCustomers);
  EXPECT_EQ(CallsOfList("CUST"), noCustomers);
}

}  // namespace
}  // namespace cordboard
