#include "shared/Routes.h"

#include <gtest/gtest.h>

#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

TEST(Routes, FreeOnesAreThoseThatNoRecordHasTaken) {
  ScriptedHost host;
  const Action action{.FunctionName = "GetValidValForParam", .CmdName = "ROCAI", .ParamList = {"ROU"}};
  EXPECT_TRUE(host.With([&] { return GetFreeRoutes(action); }));
  host.Refuse("scCollectSingleValues");
  EXPECT_FALSE(host.With([&] { return GetFreeRoutes(action); }));
  const std::string collect = Call("scCollectSingleValues", "Select ROU from ROUTE Where Used=False");
  EXPECT_EQ(host.Calls(), Lines({collect, collect, MessageLine("GetValidValForParam", "61020, \"ROU\"")}));
}

TEST(Routes, SignallingValuesAreLookedUpByProtocolMarketAndRelease) {
  ScriptedHost host;
  const std::string query = "SELECT SEL, SIG FROM ROUTEDATA\r\nWHERE PROTOCOL='P' AND Market='M'\r\nAND RELEASE='R8'";
  host.Rows(query, {{"1"}, {"2"}});
  RowSet data;
  EXPECT_TRUE(host.With([&] { return LookUpRouteData({.oaRelease = "R8"}, "SEL, SIG", "P", "M", data); }));
  EXPECT_EQ(data, RowSet({{"1"}, {"2"}}));
  EXPECT_EQ(host.Calls(), Lines({"scRunQuery(\"SELECT SEL, SIG FROM ROUTEDATA{NL}WHERE PROTOCOL='P' AND "
                                 "Market='M'{NL}AND RELEASE='R8'\", out, \"static\")"}));
}

}  // namespace
}  // namespace cordboard
