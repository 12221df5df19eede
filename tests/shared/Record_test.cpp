#include "shared/Record.h"

#include <gtest/gtest.h>

#include "script/HostOperations.h"
#include "support/CallLines.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

TEST(Record, TakesTheFormsValueForEachColumnInOrder) {
  ScriptedHost host;
  host.Param("ROU", "3");
  const List record = host.With([] { return Record({"CMDID", "NUMTYP", "ROU"}); });
  EXPECT_EQ(record, (List{1001, Value(), "3"}));
  EXPECT_EQ(host.Calls(), Lines({Call("scBuildCmdID"), Read("NUMTYP"), Read("ROU")}));
}

TEST(Record, DoesNotAskForWhatIsGiven) {
  ScriptedHost host;
  const List record = host.With([] { return Record({"CMDID", "NUMTYP", "DIR"}, {{"CMDID", 5}, {"NUMTYP", ""}}); });
  EXPECT_EQ(record, (List{5, "", Value()}));
  EXPECT_EQ(host.Calls(), Lines({Read("DIR")}));
}

TEST(Record, ReadsTheElementOfAListWhenTheColumnsTurnComes) {
  const List numbers{"100", "101"};
  ScriptedHost host;
  EXPECT_EQ(host.With([&] { return Record({"DIR", "CMDID"}, {{"DIR", numbers, 1}}); }), (List{"101", 1001}));
  ExpectFailure(RunTimeFailure::Cause::SubscriptOutOfRange, [&] {
    host.With([&] { return Record({"CMDID", "DIR"}, {{"DIR", numbers, 2}}); });
  });
  EXPECT_EQ(host.Calls(), Lines({Call("scBuildCmdID"), Call("scBuildCmdID")}));
}

TEST(Record, MakesAValueWhenTheColumnsTurnComesAndOnlyThen) {
  ScriptedHost host;
  host.Param("LIM", "7");
  const GivenValue LIM("LIM", [] { return scGetParamValue("LIM"); });
  EXPECT_EQ(host.With([&] { return Record({"CMDID", "LIM"}, {LIM}); }), (List{1001, "7"}));
  EXPECT_EQ(host.With([&] { return Record({"CMDID"}, {LIM}); }), List{1002});
  EXPECT_EQ(host.Calls(), Lines({Call("scBuildCmdID"), Read("LIM"), Call("scBuildCmdID")}));
}

TEST(Record, ComparesNamesExactly) {
  ScriptedHost host;
  host.With([] { return Record({"CmdId", "numtyp"}, {{"NUMTYP", "EX"}}); });
  EXPECT_EQ(host.Calls(), Lines({Read("CmdId"), Read("numtyp")}));
}

TEST(Record, HasBoundsAlsoWithoutColumns) { EXPECT_EQ(Record(List(std::vector<Value>{})).size(), 0U); }

TEST(ValueOf, IsThatOfTheColumnOfThisExactName) {
  const List columns = {"CMDID", "rou", "ROU"};
  const List record = {1, "3", "4"};
  EXPECT_EQ(ValueOf("ROU", columns, record), Value("4"));
  EXPECT_EQ(ValueOf("CUST", columns, record), Value());
}

}  // namespace
}  // namespace cordboard
