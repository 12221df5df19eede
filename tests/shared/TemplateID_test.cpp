#include "shared/TemplateID.h"

#include <gtest/gtest.h>

#include "support/Outcome.h"
#include "support/ScriptedHost.h"
#include "support/Transcript.h"

namespace cordboard {
namespace {

const std::string query = "SELECT MAX(CMDID) FROM KSEXITEMPLATE";

Value Next(ScriptedHost& host) {
  return host.With([] { return NextTemplateID("KSEXITEMPLATE"); });
}

TEST(TemplateID, IsOneMoreThanTheGreatestAsText) {
  for (const auto& [greatest, next] : {std::pair<Value, Value>{7, "8"}, {"7", "8"}, {" 41 ", "42"}, {Value(), "1"}}) {
    ScriptedHost host;
    host.Rows(query, {{greatest}});
    EXPECT_EQ(Next(host), next);
    EXPECT_EQ(host.Calls(), Lines({"scRunQuery(\"" + query + "\", out, \"site\")"}));
  }
}

TEST(TemplateID, IsOneWhereThereIsNoneYet) {
  ScriptedHost host;
  host.Rows(query, {{Value::Null()}});
  EXPECT_EQ(Next(host), Value("1"));
}

TEST(TemplateID, FailsWhereTheMaximumHasNoRow) {
  ScriptedHost host;
  host.Rows(query, {});
  ExpectFailure(RunTimeFailure::Cause::SubscriptOutOfRange, [&] { Next(host); });
}

TEST(TemplateID, IsOneWhereTheTableCannotBeReadEvenIfItAnswersWithRows) {
  ScriptedHost host;
  host.Refuse("scRunQuery");
  EXPECT_EQ(Next(host), Value("1"));
  host.Rows(query, {{7}});
  EXPECT_EQ(Next(host), Value("1"));
}

TEST(TemplateID, FailsForAGreatestThatIsNoNumber) {
  for (const char* greatest : {"", "7A"}) {
    ScriptedHost host;
    host.Rows(query, {{greatest}});
    ExpectFailure(RunTimeFailure::Cause::TypeMismatch, [&] { Next(host); });
  }
}

}  // namespace
}  // namespace cordboard
