#include "workbench/host/HidingTrace.h"

#include <gmock/gmock.h>

#include "script/NullHost.h"
#include "workbench/support/TestForms.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;

ParameterDefinition Secret(const std::string& name) {
  ParameterDefinition parameter = Parameter(name);
  parameter.secret = true;
  return parameter;
}

FormDefinition SecretForm() { return TestForm("A", {"CMDID", "DIR", "PASSW"}, {Parameter("DIR"), Secret("PASSW")}); }

// A host that answers every operation with the same.
class Answering : public CallHost {
 public:
  explicit Answering(HostAnswer answer) : answer_(std::move(answer)) {}

 protected:
  HostAnswer Answer(const HostCall&) override { return answer_; }

 private:
  HostAnswer answer_;
};

// "call -> answer" of each call that the work makes.
template <typename Work>
std::vector<std::string> Shown(const FormDefinition& form, const HostAnswer& answer, Work work) {
  HidingTrace trace(std::make_shared<Answering>(answer), form);
  work(trace);
  std::vector<std::string> calls;
  for (const TracedCall& call : trace.calls())
    calls.push_back(call.call + (call.answer.empty() ? "" : " -> " + call.answer));
  return calls;
}

TEST(HidingTrace, AnOperationOnTheParameterHasItHidden) {
  EXPECT_THAT(Shown(SecretForm(), {Value("IP")},
                    [](Host& host) {
                      EXPECT_EQ(host.scGetParamValue("PASSW"), Value("IP")) << "the library reads it as it is";
                      host.scGetParamValue("DIR");
                    }),
              ElementsAre("scGetParamValue(\"PASSW\") -> \"***\"", "scGetParamValue(\"DIR\") -> \"IP\""));
  EXPECT_THAT(Shown(SecretForm(), {Value(true), List{"IP", ""}},
                    [](Host& host) {
                      List values;
                      host.scGetValueArray("PASSW", values);
                      host.scGetValueArray("DIR", values);
                      host.scGetValidValues("PASSW", values);
                    }),
              ElementsAre("scGetValueArray(\"PASSW\", out) -> True, [\"***\", \"\"]",
                          "scGetValueArray(\"DIR\", out) -> True, [\"IP\", \"\"]",
                          "scGetValidValues(\"PASSW\", out) -> True, [\"***\", \"\"]"));
  EXPECT_THAT(Shown(SecretForm(), {Value(true)},
                    [](Host& host) {
                      host.scSetParamValue("PASSW", "IP");
                      host.scSetParamValue("DIR", "IP");
                      host.scSetParamOptional("PASSW", true);
                      host.scPushValidValues(List{"IP"}, "PASSW");
                      host.scPushValidValues("IP", {});
                    }),
              ElementsAre("scSetParamValue(\"PASSW\", \"***\") -> True", "scSetParamValue(\"DIR\", \"IP\") -> True",
                          "scSetParamOptional(\"PASSW\", True) -> True",
                          "scPushValidValues([\"***\"], \"PASSW\") -> True", "scPushValidValues(\"IP\") -> True"));
}

TEST(HidingTrace, WhatTellsNothingIsShown) {
  for (const auto& [value, shown] :
       {std::pair<Value, std::string>{Value(), "Empty"}, {Value::Null(), "Null"}, {"", "\"\""}})
    EXPECT_THAT(Shown(SecretForm(), {value}, [](Host& host) { host.scGetParamValue("PASSW"); }),
                ElementsAre("scGetParamValue(\"PASSW\") -> " + shown));
}

TEST(HidingTrace, AColumnIsHiddenWhateverTheOthersHold) {
  EXPECT_THAT(Shown(SecretForm(), {Value(true)},
                    [](Host& host) {
                      host.scSQLInsert("A", {"PASSW", "DIR"}, {"IP", "IP"});
                      host.scSQLUpdate("A", {"DIR", "PASSW"}, {"IP", "IP"}, {"PASSW", "CmdId"}, {"IP", 7});
                      host.scSQLInsert("A", List(), List());
                    }),
              ElementsAre("scSQLInsert(\"A\", [\"PASSW\", \"DIR\"], [\"***\", \"IP\"]) -> True",
                          "scSQLUpdate(\"A\", [\"DIR\", \"PASSW\"], [\"IP\", \"***\"], [\"PASSW\", \"CmdId\"], "
                          "[\"***\", 7]) -> True",
                          "scSQLInsert(\"A\", Empty, Empty) -> True"));
}

TEST(HidingTrace, RowsHaveTheirSecretColumnsHidden) {
  const RowSet rows({{"IP", "IP"}, {"IP", Value::Null()}});
  EXPECT_THAT(Shown(SecretForm(), {rows},
                    [](Host& host) {
                      host.scSQLSelect("A", {"DIR", "PASSW"}, {"PASSW"}, {"IP"});
                    }),
              ElementsAre("scSQLSelect(\"A\", [\"DIR\", \"PASSW\"], [\"PASSW\"], [\"***\"]) -> rows "
                          "[[\"IP\", \"IP\"], [\"***\", Null]]"));
  EXPECT_THAT(Shown(SecretForm(), {Value(true), rows},
                    [](Host& host) {
                      RowSet found;
                      host.scRunQuery("SELECT A.PASSW, DIR FROM A WHERE PASSW ='IP'", &found, {});
                      host.scRunQuery("SELECT DIR,CmdId FROM PASSW", &found, {});
                    }),
              ElementsAre("scRunQuery(\"SELECT A.PASSW, DIR FROM A WHERE PASSW ='***'\", out) -> True, "
                          "[[\"***\", \"***\"], [\"IP\", Null]]",
                          "scRunQuery(\"SELECT DIR,CmdId FROM PASSW\", out) -> True, "
                          "[[\"IP\", \"IP\"], [\"IP\", Null]]"));
}

TEST(HidingTrace, AStatementIsHiddenBehindTheColumn) {
  const auto statement = [](const std::string& sql) {
    return Shown(SecretForm(), {Value(true)}, [&](Host& host) { host.scRunQuery(sql, nullptr, {}); }).front();
  };
  const auto expected = [](const std::string& sql) { return "scRunQuery(\"" + sql + "\") -> True"; };
  EXPECT_EQ(statement("UPDATE A SET PASSW = 'IP' WHERE TYPE = 'IP'"),
            expected("UPDATE A SET PASSW = '***' WHERE TYPE = 'IP'"));
  EXPECT_EQ(statement("UPDATE A SET [PASSW]='a=b;c', PASSW = 'PASSW = x', DIR='1'"),
            expected("UPDATE A SET [PASSW]='***', PASSW = '***', DIR='1'"));
  for (const char* shown : {"UPDATE A SET PASSW = Null WHERE DIR = '1'", "UPDATE A SET PASSW = ''",
                            "UPDATE A SET PASSWD = 'x', MYPASSW = 'x'"})
    EXPECT_EQ(statement(shown), expected(shown));
}

TEST(HidingTrace, ALineOfTheDebugWindowIsHiddenBehindTheName) {
  EXPECT_THAT(Shown(SecretForm(), {},
                    [](Host& host) {
                      host.scPrintToDebugWindow("NewValue for PASSW = IP and more");
                      host.scPrintToDebugWindow("NewValue for DIR = IP");
                      host.scPrintToDebugWindow("NewValue for PASSW = ");
                    }),
              ElementsAre("scPrintToDebugWindow(\"NewValue for PASSW = ***\")",
                          "scPrintToDebugWindow(\"NewValue for DIR = IP\")",
                          "scPrintToDebugWindow(\"NewValue for PASSW = \")"));
}

TEST(HidingTrace, WhatACheckComparesIsHiddenWhereASecretHasACheck) {
  const auto compare = [](const FormDefinition& form) {
    return Shown(form, {Value(true)}, [](Host& host) { host.scIsValueEqual("IP"); }).front();
  };
  const auto previous = [](const FormDefinition& form) {
    return Shown(form, {{}, Value("IP")},
                 [](Host& host) {
                   Value before;
                   host.scGetPreviousValue(before);
                 })
        .front();
  };
  const FormDefinition checked = TestForm("A", {"CMDID", "PASSW"}, {WithCheck(Secret("PASSW"))});
  EXPECT_EQ(compare(checked), "scIsValueEqual(\"***\") -> \"***\"");
  EXPECT_EQ(previous(checked), "scGetPreviousValue(out) -> \"***\"");
  EXPECT_EQ(compare(SecretForm()), "scIsValueEqual(\"IP\") -> True");
  EXPECT_EQ(previous(SecretForm()), "scGetPreviousValue(out) -> \"IP\"");
}

TEST(HidingTrace, CallsStandInTheOrderInWhichTheyBeganWithTheirDepth) {
  // A host that makes a call of its own within each.
  class Nesting : public NullHost {
   public:
    Host* top = nullptr;
    bool scResetParam(const std::string&) override { return top->scSetParamValue("PASSW", "IP"); }
  };
  const auto nesting = std::make_shared<Nesting>();
  HidingTrace trace(nesting, SecretForm());
  nesting->top = &trace;
  trace.scResetParam("PASSW");
  ASSERT_EQ(trace.calls().size(), 2U);
  EXPECT_EQ(trace.calls()[0].call, "scResetParam(\"PASSW\")");
  EXPECT_EQ(trace.calls()[1].call, "scSetParamValue(\"PASSW\", \"***\")");
  EXPECT_EQ(trace.calls()[1].depth, 1);
}

}  // namespace
}  // namespace cordboard::workbench
