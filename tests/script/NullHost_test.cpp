#include "script/NullHost.h"

#include <gtest/gtest.h>

#include <map>

#include "support/EveryOperation.h"

namespace cordboard {
namespace {

// What is not simply done: everything that asks for something.
const std::map<std::string, std::string> answers = {
    {"scGetParamValue(\"DIR\")", "Empty"},
    {"scIsValueEqual(\"CP\")", "False"},
    {"scGetValueArray(\"NUM\", out)", "True, Empty"},
    {"scGetPreviousValue(out)", "Empty"},
    {"scGetValidValues(\"LIM\", out)", "True, Empty"},
    {"scGetNumberOfValidValues(\"KEY\", 4, out)", "True, 0"},
    {"scRunQuery(\"SELECT A FROM T{NL} WHERE B{LF}\", out)", "True, Empty"},
    {"scRunQuery(\"SELECT A, B\", out, \"static\")", "True, Empty"},
    {"scSQLSelect(\"EXTEI\", [\"DIR\"], [\"EQU\"], [\"1-0\"])", "rows Empty"},
    {"scBuildCmdID()", "1"},
    {"scNANSIinitiate(\"100&&199\", \"EX\", out)", "True, Empty"},
    {"scGetAutoEquOptionValue(out)", "False, Empty"},
};

TEST(NullHost, DoesEveryStepAndGivesNothing) {
  NullHost host;
  for (const OperationCall& operation : EveryOperation()) {
    const auto found = answers.find(operation.call);
    const std::string done = operation.answer.empty() ? "" : "True";
    EXPECT_EQ(operation.perform(host), found == answers.end() ? done : found->second) << operation.call;
  }
}

TEST(NullHost, GivesEveryRecordIdentifierOnce) {
  NullHost host;
  EXPECT_NE(host.scBuildCmdID(), host.scBuildCmdID());
}

}  // namespace
}  // namespace cordboard
