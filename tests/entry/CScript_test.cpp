#include "entry/CScript.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "script/NullHost.h"
#include "script/TracingHost.h"
#include "support/Outcome.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

bool ListNumberTypes(CScript& script, const std::string& CmdName = "NANSI") {
  return script.Run(1, "R7", "GetValidValForParam", CmdName, 0, {"NUMTYP"});
}

std::string Transcript(const TracingHost& host) {
  std::string transcript;
  for (const TracedCall& call : host.calls()) transcript += call.call + "\n";
  return transcript;
}

TEST(CScript, RunsAnActionOfACommandAndGivesItsAnswer) {
  const auto host = std::make_shared<TracingHost>(std::make_shared<NullHost>());
  CScript script;
  script.AddObject(host);
  EXPECT_TRUE(ListNumberTypes(script));
  EXPECT_EQ(Transcript(*host), Lines({"scSQLSelectValuesAndDesc()"}));
}

TEST(CScript, HandsEveryArgumentOn) {
  ScriptedHost scripted;
  scripted.Rows("SELECT NUMSE, NUMTYP FROM NANSI \r\n WHERE CmdId = -2147483648", {{"100"}, {"EX"}});
  EXPECT_TRUE(
      scripted.Run({.oaRelease = "R7", .FunctionName = "DeleteInfo", .CmdName = "NANSI", .CmdId = -2147483647 - 1}));
}

TEST(CScript, GivesFalseForACommandThatItDoesNotServeAndAsksNothing) {
  const auto host = std::make_shared<TracingHost>(std::make_shared<NullHost>());
  CScript script;
  script.AddObject(host);
  for (const char* name : {"nansi", "Nansi", "NANSI ", " NANSI", "NANS", "NANSII", "KSEXITemplate", "XYZZY", ""})
    EXPECT_FALSE(ListNumberTypes(script, name)) << name;
  EXPECT_EQ(Transcript(*host), "");
}

TEST(CScript, AnUnknownCommandNeedsNoHost) {
  CScript script;
  EXPECT_FALSE(ListNumberTypes(script, "XYZZY"));
}

// --- The host.

TEST(CScript, WithoutAHostFailsAtTheFirstOperation) {
  CScript script;
  EXPECT_EQ(Outcome([&] { return ListNumberTypes(script); }), "NoHost");
  EXPECT_EQ(Outcome([&] { return script.Run(1, "R7", "EditInfo", "NANSI", 0, {}); }), "False");
}

TEST(CScript, AfterDestroyFailsAtTheFirstOperationAndHoldsTheHostNoLonger) {
  const auto host = std::make_shared<NullHost>();
  CScript script;
  script.AddObject(host);
  EXPECT_TRUE(ListNumberTypes(script));
  script.Destroy();
  EXPECT_EQ(Outcome([&] { return ListNumberTypes(script); }), "NoHost");
  EXPECT_EQ(host.use_count(), 1);
  script.Destroy();
}

TEST(CScript, TheHostOfOneObjectIsTheHostOfAll) {
  CScript first;
  CScript second;
  first.AddObject(std::make_shared<NullHost>());
  EXPECT_TRUE(ListNumberTypes(second));
  const auto later = std::make_shared<TracingHost>(std::make_shared<NullHost>());
  second.AddObject(later);
  EXPECT_TRUE(ListNumberTypes(first));
  EXPECT_EQ(Transcript(*later), Lines({"scSQLSelectValuesAndDesc()"}));
}

TEST(CScript, EndingAnyOneObjectDropsTheHostOfAll) {
  CScript first;
  std::optional<CScript> second(std::in_place);
  first.AddObject(std::make_shared<NullHost>());
  second.reset();
  EXPECT_EQ(Outcome([&] { return ListNumberTypes(first); }), "NoHost");
}

// --- Nested runs.

// Runs an action from inside an operation, as a host does that builds a list when it is asked for it.
class NestingHost : public NullHost {
 public:
  CScript* script = nullptr;

  bool scSQLSelectValuesAndDesc() override { return script->Run(1, "R7", "GenerateCmd", "NANSI", 0, {"12"}); }
};

TEST(CScript, RunsAnActionFromInsideAnOperation) {
  const auto nesting = std::make_shared<NestingHost>();
  const auto host = std::make_shared<TracingHost>(nesting);
  CScript script;
  nesting->script = &script;
  script.AddObject(host);
  EXPECT_TRUE(ListNumberTypes(script));
  EXPECT_EQ(Transcript(*host),
            Lines({"scSQLSelectValuesAndDesc()",
                   "scRunQuery(\"SELECT DISTINCT Start, End, Numtyp From NANSIBlockedRange\", out)"}));
}

// Ends another object in the midst of an action.
class EndingHost : public NullHost {
 public:
  bool scSQLSelectValuesAndDesc() override {
    { const CScript another; }
    return false;
  }
};

TEST(CScript, AHostDroppedInTheMidstOfAnActionIsMissingAtTheNextOperation) {
  CScript script;
  script.AddObject(std::make_shared<EndingHost>());
  EXPECT_EQ(Outcome([&] { return ListNumberTypes(script); }), "NoHost");
}

// --- Failures.

TEST(CScript, AFailureLeavesRunAtOnceAndATransactionThatWasOpenStaysOpen) {
  const auto host = std::make_shared<TracingHost>(std::make_shared<NullHost>());
  CScript script;
  script.AddObject(host);
  host->scStartTransaction();
  EXPECT_EQ(Outcome([&] { return script.Run(1, "R7", "DeleteInfo", "NANSI", 7, {}); }), "SubscriptOutOfRange");
  EXPECT_EQ(Transcript(*host), Lines({"scStartTransaction()",
                                      "scRunQuery(\"SELECT NUMSE, NUMTYP FROM NANSI {NL} WHERE CmdId = 7\", out)"}));
  EXPECT_TRUE(ListNumberTypes(script));
}

TEST(CScript, AFailureOfTheHostComesThroughAsItIs) {
  ScriptedHost scripted;
  scripted.Fail("scGetParamValue", "NUMTYP");
  EXPECT_EQ(Outcome([&] { return scripted.Run({.oaRelease = "R7", .FunctionName = "SetInfo", .CmdName = "NANSI"}); }),
            "HostFailure");
}

}  // namespace
}  // namespace cordboard
