#include "workbench/host/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "script/ForwardingHost.h"
#include "script/RunTimeFailure.h"
#include "workbench/support/TemporaryFolder.h"
#include "workbench/support/TestExchange.h"
#include "workbench/support/TestForms.h"

namespace cordboard::workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// A host in front of the workbench in which chosen operations answer False or fail.
class Faulty : public ForwardingHost {
 public:
  using ForwardingHost::ForwardingHost;
  bool refuseStart = false;
  bool refuseArray = false;
  bool failStatements = false;

  bool scStartTransaction() override { return !refuseStart && ForwardingHost::scStartTransaction(); }
  bool scGetValueArray(const std::string& name, List& values) override {
    return !refuseArray && ForwardingHost::scGetValueArray(name, values);
  }
  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override {
    if (failStatements) throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, "the host is gone");
    return ForwardingHost::scRunQuery(sql, rows, database);
  }
};

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    gespi_ = TestForm("GESPI", {"CMDID", "CSP", "DESCRIPTION"}, {Parameter("CSP"), Parameter("DESCRIPTION")});
    sydas_ = TestForm("SYDAS", {"CMDID", "NTC", "PGJOB", "PGSTA", "DIVPRI", "TBA", "CNFREL"}, {Parameter("NTC")});
    roddi_ = TestForm("RODDI", {"CMDID", "ROU", "DEST"}, {Parameter("ROU"), Parameter("DEST")});
    sytds_ =
        TestForm("SYTDS", {"CMDID", "CDNAL", "CDNAS"}, {WithList(Parameter("CDNAL")), WithList(Parameter("CDNAS"))});
  }

  // The answer of an action, or why the call failed, and the messages after it.
  std::string Run(const FormDefinition& form, const std::string& function, std::int32_t CmdId = 0) {
    session_.host().OpenForm(form);
    return RunOpen(function, CmdId, List(std::vector<Value>(form.columns.begin(), form.columns.end())));
  }
  std::string RunOpen(const std::string& function, std::int32_t CmdId, const List& ParamList) {
    const RunResult result = session_.Run(function, CmdId, ParamList);
    std::string text = result.failure  ? "failed: " + result.failure->inWords + " (" + result.failure->cause + ")"
                       : result.answer ? "True"
                                       : "False";
    for (const ReportedMessage& message : session_.host().TakeMessages()) text += " " + message.code;
    return text;
  }

  FormDefinition gespi_, sydas_, roddi_, sytds_;
  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  std::shared_ptr<Faulty> faulty_;
  Session session_{*exchange_, [this](std::shared_ptr<Host> workbench) {
                     return faulty_ = std::make_shared<Faulty>(std::move(workbench));
                   }};
};

TEST_F(SessionTest, AnActionRunsOnTheCommandOfTheFormThatIsOpen) {
  EXPECT_EQ(Run(gespi_, "SetInfo"), "True");
  EXPECT_EQ(Count(*exchange_, "GESPI"), 1);
  EXPECT_EQ(Run(gespi_, "NoSuchAction"), "False");
}

TEST_F(SessionTest, WithoutAFormThereIsNothingToRun) {
  EXPECT_THROW(session_.Run("SetInfo", 0, List()), std::logic_error);
}

TEST_F(SessionTest, AFailureOfTheCallIsToldWithItsCause) {
  faulty_->failStatements = true;
  EXPECT_THAT(Run(gespi_, "DeleteInfo", 1), AllOf(StartsWith("failed: "), HasSubstr("the host is gone")));
}

// --- What a call leaves open.

TEST_F(SessionTest, ATransactionLeftOpenByAFailureIsRolledBack) {
  EXPECT_EQ(Run(sydas_, "SetInfo"), "True");
  EXPECT_THAT(Run(sydas_, "SetInfo"), StartsWith("failed: "));
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
  EXPECT_EQ(Count(*exchange_, "SYDAS"), 1);
}

TEST_F(SessionTest, ATransactionLeftOpenByARuleIsRolledBack) {
  faulty_->refuseArray = true;
  EXPECT_EQ(Run(roddi_, "SetInfo"), "False 61020");
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(SessionTest, WhatStoodAroundTheCallStaysOpen) {
  Transaction plan(*exchange_);
  EXPECT_EQ(Run(sydas_, "SetInfo"), "True");
  EXPECT_THAT(Run(sydas_, "SetInfo"), StartsWith("failed: "));
  faulty_->refuseArray = true;
  EXPECT_EQ(Run(roddi_, "SetInfo"), "False 61020");
  EXPECT_EQ(exchange_->OpenTransactions(), 1);
  EXPECT_EQ(Count(*exchange_, "SYDAS"), 1);
  plan.Commit();
  EXPECT_EQ(Count(*exchange_, "SYDAS"), 1);
}

// A rule rolls back also where its start was refused.
TEST_F(SessionTest, ARuleCannotCloseATransactionThatItDidNotStart) {
  Transaction plan(*exchange_);
  EXPECT_EQ(Run(gespi_, "SetInfo"), "True");
  faulty_->refuseStart = true;
  EXPECT_EQ(Run(gespi_, "SetInfo"), "False 62010 62012");
  EXPECT_EQ(exchange_->OpenTransactions(), 1);
  EXPECT_EQ(Count(*exchange_, "GESPI"), 1);
  plan.Commit();
  EXPECT_EQ(Count(*exchange_, "GESPI"), 1);
}

TEST_F(SessionTest, WithoutATransactionAroundItTheSameHolds) {
  faulty_->refuseStart = true;
  EXPECT_EQ(Run(gespi_, "SetInfo"), "False 62010 62012");
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
  EXPECT_EQ(Count(*exchange_, "GESPI"), 0);
}

// --- Lists.

TEST_F(SessionTest, AListIsBuiltByTheCommandInANestedCall) {
  Form& form = session_.host().OpenForm(sytds_);
  form.Set("CDNAS", "27");
  const ValueList* list = session_.host().FreshList("CDNAL");
  ASSERT_NE(list, nullptr);
  std::vector<std::string> values;
  for (const ValidValue& entry : list->All()) values.push_back(entry.value);
  EXPECT_THAT(values, ElementsAre("28", "29", "30"));
}

TEST_F(SessionTest, AListThatTheCommandDoesNotBuildIsNone) {
  FormDefinition form = sytds_;
  form.parameters.push_back(WithList(Parameter("OPTL")));
  session_.host().OpenForm(form);
  EXPECT_EQ(session_.host().FreshList("OPTL"), nullptr);
  EXPECT_TRUE(session_.host().TakeMessages().empty());
}

TEST_F(SessionTest, AListWhoseCommandFailsIsReported) {
  session_.host().OpenForm(sytds_).Set("CDNAS", "27x");
  EXPECT_EQ(session_.host().FreshList("CDNAL"), nullptr);
  const auto messages = session_.host().TakeMessages();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].code, "61020");
  EXPECT_EQ(messages[0].arguments, std::vector<Value>{"CDNAL"});
  EXPECT_THAT(session_.host().TakeDebugLines().back(), HasSubstr("GetValidValForParam of CDNAL failed: "));
}

// --- The host of the process.

TEST_F(SessionTest, TheEndOfASessionLeavesTheLibraryWithoutAHost) {
  {
    const auto other = ExampleExchange();
    Session second(*other);
  }
  EXPECT_THAT(Run(gespi_, "SetInfo"), AllOf(StartsWith("failed: "), HasSubstr("NoHost")));
}

}  // namespace
}  // namespace cordboard::workbench
