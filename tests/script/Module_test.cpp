#include "script/Module.h"

#include <gtest/gtest.h>

#include <string>

#include "support/Outcome.h"
#include "support/ScriptedHost.h"

namespace cordboard {
namespace {

std::string called;  // the worker that ran, and the command that it saw

template <char name, bool answer = true>
bool WorkerNamed(const Action& action) {
  called += std::string(1, name) + ":" + action.CmdName + " ";
  return answer;
}

const Module everything{
    .SetInfo = WorkerNamed<'S'>,
    .EditInfo = WorkerNamed<'E'>,
    .DeleteInfo = WorkerNamed<'D', false>,
    .GenerateCmd = WorkerNamed<'G'>,
    .ValidValues = {{"DIR", WorkerNamed<'d'>}, {{"LIM", "EQU"}, WorkerNamed<'l', false>}, {"DIR", WorkerNamed<'x'>}},
    .StatCheck = {{"DIR", WorkerNamed<'c'>}},
};

class ModuleRouting : public testing::Test {
 protected:
  void SetUp() override { called.clear(); }

  static bool Run(const Module& module, const std::string& function, List parameters = {}) {
    return module.Run({.FunctionName = function, .CmdName = "KSEXI", .ParamList = std::move(parameters)});
  }
};

TEST_F(ModuleRouting, CallsTheWorkerOfTheActionOnceAndGivesItsAnswer) {
  EXPECT_TRUE(Run(everything, "SetInfo"));
  EXPECT_TRUE(Run(everything, "EditInfo"));
  EXPECT_FALSE(Run(everything, "DeleteInfo"));
  EXPECT_TRUE(Run(everything, "GenerateCmd"));
  EXPECT_EQ(called, "S:KSEXI E:KSEXI D:KSEXI G:KSEXI ");
}

TEST_F(ModuleRouting, CallsTheWorkerOfTheParameterInIndexZero) {
  EXPECT_TRUE(Run(everything, "GetValidValForParam", {"DIR", "LIM"}));
  EXPECT_TRUE(Run(everything, "StatCheck", {"DIR"}));
  EXPECT_EQ(called, "d:KSEXI c:KSEXI ");
}

TEST_F(ModuleRouting, LetsSeveralParametersShareAWorker) {
  EXPECT_FALSE(Run(everything, "GetValidValForParam", {"LIM"}));
  EXPECT_FALSE(Run(everything, "GetValidValForParam", {"EQU"}));
  EXPECT_EQ(called, "l:KSEXI l:KSEXI ");
}

TEST_F(ModuleRouting, ReadsTheParameterAsAText) {
  const Module module{.StatCheck = {{"5", WorkerNamed<'n'>}}};
  EXPECT_TRUE(Run(module, "StatCheck", {5}));
  EXPECT_EQ(called, "n:KSEXI ");
}

TEST_F(ModuleRouting, GivesFalseForAParameterThatIsNotServed) {
  EXPECT_FALSE(Run(everything, "GetValidValForParam", {"CUST"}));
  EXPECT_FALSE(Run(everything, "StatCheck", {"LIM"}));
  EXPECT_FALSE(Run(everything, "StatCheck", {Value()}));
  EXPECT_EQ(called, "");
}

TEST_F(ModuleRouting, ComparesNamesOfActionsAndParametersExactly) {
  for (const char* function : {"setinfo", "SETINFO", "SetInfo ", " SetInfo", "Set", "SetInfos", ""})
    EXPECT_FALSE(Run(everything, function, {"DIR"})) << function;
  for (const char* parameter : {"dir", "Dir", "DIR ", " DIR", "DI", "DIR1", ""})
    EXPECT_FALSE(Run(everything, "GetValidValForParam", {parameter})) << parameter;
  EXPECT_EQ(called, "");
}

TEST_F(ModuleRouting, GivesFalseForEveryActionWithoutAWorkerAndReadsNoParameters) {
  const Module nothing{};
  for (const char* function : {"SetInfo", "EditInfo", "DeleteInfo", "GenerateCmd", "GetValidValForParam", "StatCheck"})
    EXPECT_FALSE(Run(nothing, function, List())) << function;
}

TEST_F(ModuleRouting, AnswersTrueForWhatIsNotServedWhereTheTableSaysSo) {
  const Module module{
      .DeleteInfo = WorkerNamed<'D', false>, .ValidValues = {{"DIR", WorkerNamed<'d'>}}, .unserved = true};
  EXPECT_TRUE(Run(module, "SetInfo"));
  EXPECT_TRUE(Run(module, "setinfo"));
  EXPECT_TRUE(Run(module, "GetValidValForParam", {"CUST"}));
  EXPECT_TRUE(Run(module, "StatCheck", List()));
  EXPECT_EQ(called, "");
  EXPECT_FALSE(Run(module, "DeleteInfo"));
  EXPECT_EQ(called, "D:KSEXI ");
}

TEST_F(ModuleRouting, TellsTheHostThatATemplateIsWorkedOnBeforeAnythingElse) {
  const Module module{.DeleteInfo = WorkerNamed<'D'>, .StatCheck = {{"DIR", WorkerNamed<'c'>}}, .isTemplate = true};
  EXPECT_EQ(Outcome([&] { return Run(module, "DeleteInfo"); }), "NoHost");
  EXPECT_EQ(called, "");
  for (const char* function :
       {"DeleteInfo", "SetInfo", "deleteinfo", "GenerateCmd", "GetValidValForParam", "StatCheck"}) {
    ScriptedHost scripted;
    scripted.With([&] { return Outcome([&] { return Run(module, function, List()); }); });
    EXPECT_EQ(scripted.Calls(), Lines({"SetTemplate(True)"})) << function;
  }
  EXPECT_EQ(called, "D:KSEXI ");
}

TEST_F(ModuleRouting, TellsNoTemplateOfAPlainCommand) {
  ScriptedHost scripted;
  scripted.With([&] { return Run(everything, "SetInfo"); });
  EXPECT_EQ(scripted.Calls(), "");
}

TEST_F(ModuleRouting, TellsWhichParametersHaveAListAndWhichACheck) {
  EXPECT_EQ(everything.ListOf("EQU"), (WorkerNamed<'l', false>));
  EXPECT_EQ(everything.CheckOf("DIR"), WorkerNamed<'c'>);
  EXPECT_EQ(everything.ListOf("CUST"), nullptr);
  EXPECT_EQ(everything.CheckOf("EQU"), nullptr);
}

TEST_F(ModuleRouting, FailsWhereAParameterIsNeededAndIndexZeroIsMissingOrNull) {
  for (const char* function : {"GetValidValForParam", "StatCheck"}) {
    EXPECT_EQ(Outcome([&] { return Run(everything, function, List()); }), "SubscriptOutOfRange");
    EXPECT_EQ(Outcome([&] { return Run(everything, function, List(std::vector<Value>{})); }), "SubscriptOutOfRange");
    EXPECT_EQ(Outcome([&] { return Run(everything, function, {Value::Null()}); }), "InvalidUseOfNull");
  }
  EXPECT_EQ(called, "");
}

}  // namespace
}  // namespace cordboard
