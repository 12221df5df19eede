#include "script/Report.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "script/CurrentHost.h"
#include "script/NullHost.h"
#include "script/TracingHost.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

std::string Transcript(const std::function<void()>& run) {
  const auto host = std::make_shared<TracingHost>(std::make_shared<NullHost>());
  SetCurrentHost(host);
  run();
  SetCurrentHost(nullptr);
  std::string transcript;
  for (const TracedCall& call : host->calls()) transcript += call.call + "\n";
  return transcript;
}

TEST(Report, GivesTheUsualThreeNumbersTheContextTheCodeAndNoArguments) {
  EXPECT_EQ(Transcript([] { Report("Add: NANSI", Message::StatementFailed); }),
            Lines({"scErrorMessage(0, 2, 2, \"Add: NANSI\", 62000)"}));
}

TEST(Report, PassesUpToFourArgumentsInOrderAsTheValuesThatTheyAre) {
  EXPECT_EQ(Transcript([] { Report("", Message::GroupMembersBeyondLimit, Value(), Value::Null(), "12", 3); }),
            Lines({"scErrorMessage(0, 2, 2, \"\", 61029, Empty, Null, \"12\", 3)"}));
}

TEST(Report, OrReportGivesTheAnswerOnAndReportsAFalseAlone) {
  EXPECT_EQ(Transcript([] { EXPECT_TRUE(OrReport(true, "Add: NANSI", Message::InsertFailed, "NANSI")); }), "");
  EXPECT_EQ(Transcript([] { EXPECT_FALSE(OrReport(false, "Add: NANSI", Message::InsertFailed, "NANSI")); }),
            Lines({"scErrorMessage(0, 2, 2, \"Add: NANSI\", 61024, \"NANSI\")"}));
}

TEST(Report, DebugJoinsItsPiecesIntoOneLine) {
  EXPECT_EQ(Transcript([] { Debug("  DIR ", 100, Value::Null(), " free: ", true); }),
            Lines({"scPrintToDebugWindow(\"  DIR 100 free: True\")"}));
}

}  // namespace
}  // namespace cordboard
