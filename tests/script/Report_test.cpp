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

TEST(Reporter, GivesTheUsualThreeNumbersTheContextTheCodeAndNoArguments) {
  EXPECT_EQ(Transcript([] { Reporter("Add: NANSI")(StatementFailed); }),
            Lines({"scErrorMessage(0, 2, 2, \"Add: NANSI\", 62000)"}));
}

TEST(Reporter, PassesUpToFourArgumentsInOrderAsTheValuesThatTheyAre) {
  EXPECT_EQ(Transcript([] { Reporter("")(GroupMembersBeyondLimit, Value(), Value::Null(), "12", 3); }),
            Lines({"scErrorMessage(0, 2, 2, \"\", 61029, Empty, Null, \"12\", 3)"}));
}

TEST(Reporter, GivesFalseSoThatAWorkerCanReturnTheReport) {
  const Reporter fail("Add: NANSI");
  EXPECT_EQ(fail.context(), "Add: NANSI");
  EXPECT_EQ(Transcript([&] { EXPECT_FALSE(fail(InsertFailed, "NANSI")); }),
            Lines({"scErrorMessage(0, 2, 2, \"Add: NANSI\", 61024, \"NANSI\")"}));
}

TEST(Debug, JoinsItsPiecesIntoOneLine) {
  EXPECT_EQ(Transcript([] { Debug("  DIR ", 100, Value::Null(), " free: ", true); }),
            Lines({"scPrintToDebugWindow(\"  DIR 100 free: True\")"}));
}

}  // namespace
}  // namespace cordboard
