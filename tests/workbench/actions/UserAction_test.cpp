#include "workbench/actions/UserAction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "script/ForwardingHost.h"
#include "workbench/support/TestExchange.h"
#include "workbench/support/TestForms.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// A host that answers chosen statements itself.
class Meddling : public ForwardingHost {
 public:
  using ForwardingHost::ForwardingHost;
  std::function<std::optional<bool>(const std::string& sql)> meddle;
  std::optional<List> validValues;

  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override {
    const auto answer = meddle ? meddle(sql) : std::nullopt;
    return answer ? *answer : ForwardingHost::scRunQuery(sql, rows, database);
  }
  bool scGetValidValues(const std::string& name, List& values) override {
    if (validValues) values = *validValues;
    return validValues || ForwardingHost::scGetValidValues(name, values);
  }
};

class UserActionTest : public testing::Test {
 protected:
  UserActionTest() {
    // Service profiles, with one digit string that is given digit by digit.
    gespi_ = TestForm("GESPI", {"CMDID", "CSP", "TRAF", "DESCRIPTION"},
                      {Mandatory(Parameter("CSP")), Parameter("TRAF_D1"), Parameter("TRAF_D2"), Parameter("TRAF_D3"),
                       FreeText("DESCRIPTION")});
    gespi_.foldings = {
        {.parameter = "TRAF", .length = 3, .places = {{1, 1, {"TRAF_D1"}}, {2, 1, {"TRAF_D2"}}, {3, 1, {"TRAF_D3"}}}}};
    gespi_.shown = ShownColumns(gespi_);
    sytds_ = TestForm("SYTDS", {"CMDID", "CDNAL", "CDNAS"},
                      {WithList(Parameter("CDNAL")), WithCheck(WithList(Parameter("CDNAS")))});
    roddi_ = TestForm("RODDI", {"CMDID", "ROU", "DEST", "CUST"},
                      {WithCheck(Parameter("ROU")), WithCheck(Parameter("DEST")), Parameter("CUST")});
  }

  // "done", or why not, a line each; warnings stand after that.
  std::string Told(const Outcome& outcome) {
    std::string text = outcome.done ? "done" : "";
    for (const auto* problems : {&outcome.problems, &outcome.warnings}) {
      for (const Problem& problem : *problems) {
        if (!text.empty()) text += "\n";
        if (problems == &outcome.warnings) text += "warning: ";
        if (!problem.parameter.empty()) text += problem.parameter + "=" + problem.value + ": ";
        text += problem.message + (problem.reason.empty() ? "" : " (" + problem.reason + ")") +
                (problem.possible ? " [" + InWords(*problem.possible) + "]" : "");
      }
    }
    return text;
  }

  std::string Add(const FormDefinition& form, const std::vector<Assignment>& values) {
    return Told(Perform(session_, form, {UserAction::Kind::Add, form.command, {}, values}));
  }
  std::string Edit(const FormDefinition& form, const std::vector<Assignment>& selection,
                   const std::vector<Assignment>& values) {
    return Told(Perform(session_, form, {UserAction::Kind::Edit, form.command, selection, values}));
  }
  std::string Delete(const FormDefinition& form, const std::vector<Assignment>& selection) {
    return Told(Perform(session_, form, {UserAction::Kind::Delete, form.command, selection, {}}));
  }
  // The same on the form of the command itself.
  std::string AddNumbers(const std::vector<Assignment>& values) {
    return Told(Perform(session_, {UserAction::Kind::Add, "NANSI", {}, values}));
  }

  std::string Profiles() { return Rows(*exchange_, "SELECT CSP, TRAF, DESCRIPTION FROM GESPI ORDER BY rowid"); }

  FormDefinition gespi_, sytds_, roddi_;
  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  std::shared_ptr<Meddling> host_;
  Session session_{*exchange_, [this](std::shared_ptr<Host> workbench) {
                     return host_ = std::make_shared<Meddling>(std::move(workbench));
                   }};
};

// --- Adding.

TEST_F(UserActionTest, AnAddWritesARecordOfTheValues) {
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "Mill, gate 2"}}), "done");
  EXPECT_EQ(Profiles(), R"([["1"], [Null], ["Mill, gate 2"]])");
}

TEST_F(UserActionTest, SubDigitsBecomeTheirWhole) {
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"TRAF_D1", "7"}, {"TRAF_D3", "9"}}), "done");
  EXPECT_EQ(Profiles(), R"([["1"], ["709"], [Null]])");
}

TEST_F(UserActionTest, ACommandThatThereIsNotIsRefusedWithTheNearestOne) {
  EXPECT_EQ(Told(Perform(session_, {UserAction::Kind::Add, "NANSY", {}, {}})),
            "there is no command NANSY. Did you mean NANSI?");
  EXPECT_EQ(Told(Perform(session_, {UserAction::Kind::Delete, "", {}, {}})), "there is no command .");
}

TEST_F(UserActionTest, AnActionThatTheFormDoesNotOfferIsRefused) {
  gespi_.adds = gespi_.edits = gespi_.deletes = false;
  EXPECT_EQ(Add(gespi_, {}), "records of GESPI cannot be added");
  EXPECT_EQ(Edit(gespi_, {}, {}), "records of GESPI cannot be changed");
  EXPECT_EQ(Delete(gespi_, {}), "records of GESPI cannot be deleted");
}

TEST_F(UserActionTest, AParameterThatThereIsNotIsRefusedWithTheNearestOne) {
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"TRAF_D4", "1"}}),
            "TRAF_D4=: there is no parameter TRAF_D4 in GESPI. Did you mean TRAF_D1?");
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"TRAF", "123"}}), "TRAF=123: there is no parameter TRAF in GESPI.")
      << "a column that the form does not show";
  EXPECT_THAT(Add(gespi_, {{"CSP", "1"}, {"CMDID", "1"}}),
              StartsWith("CMDID=1: there is no parameter CMDID in GESPI."));
}

TEST_F(UserActionTest, AParameterIsGivenOnce) {
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"CSP", "1"}, {"CSP", "2"}}),
            "CSP=1: this parameter is given twice\nCSP=2: this parameter is given twice");
}

TEST_F(UserActionTest, AValueHoldsNeitherAQuoteNorControlCharacters) {
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "O'Neill"}}),
            "DESCRIPTION=O'Neill: a value must not hold a quote character (')");
  for (const char* value : {"a\tb", "a\nb", "\x01"})
    EXPECT_THAT(Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", value}}),
                HasSubstr("a value must not hold control characters"));
  EXPECT_EQ(Count(*exchange_, "GESPI"), 0);
}

TEST_F(UserActionTest, WhatHasToBeGivenIsAskedForByItsTitle) {
  const std::string missing = "CSP=: this parameter has to be given (title of CSP)";
  EXPECT_EQ(Add(gespi_, {}), missing);
  EXPECT_EQ(Add(gespi_, {{"CSP", ""}}), missing);
  EXPECT_EQ(Add(gespi_, {{"CSP", "'"}}), "CSP=': a value must not hold a quote character (')") << "told once";
}

TEST_F(UserActionTest, EverythingThatIsWrongIsToldAtOnce) {
  EXPECT_EQ(AddNumbers({{"NUMTIP", "EX"}, {"NUMSE", "5&&4"}}),
            "NUMTIP=: there is no parameter NUMTIP in NANSI. Did you mean NUMTYP?\n"
            "NUMSE=5&&4: the range 5&&4 ends before it begins\n"
            "NUMTYP=: this parameter has to be given (Number type)");
}

// --- Lists.

TEST_F(UserActionTest, AValueOutsideItsListIsRefusedWithWhatWouldBeAllowed) {
  EXPECT_EQ(Add(sytds_, {{"CDNAL", "3"}, {"CDNAS", "3"}}), "CDNAS=3: this value is not possible here [1, 2]");
  EXPECT_EQ(Add(sytds_, {{"CDNAL", "31"}}),
            "CDNAL=31: this value is not possible here [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, ... (30 in all)]");
  EXPECT_EQ(Add(sytds_, {{"CDNAS", "30"}, {"CDNAL", "5"}}),
            "CDNAL=5: this value is not possible here [no value at present; leave it out]");
  EXPECT_EQ(Add(sytds_, {{"CDNAL", "3"}, {"CDNAS", "2"}}), "done");
}

TEST_F(UserActionTest, OfSeveralValuesThoseThatAreNotPossibleAreNamed) {
  sytds_.parameters[0] = WithElements(sytds_.parameters[0]);
  EXPECT_THAT(Add(sytds_, {{"CDNAL", "5&29&&31&40"}}), StartsWith("CDNAL=31&40: these values are not possible here"));
}

TEST_F(UserActionTest, AnAmpersandIsPartOfAValueThatIsNotTakenApart) {
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "Smith && Sons & Co"}}), "done");
  EXPECT_EQ(Profiles(), R"([["1"], [Null], ["Smith && Sons & Co"]])");
}

TEST_F(UserActionTest, FixedValuesAreAListToo) {
  exchange_->Database("static")->Execute(
      "PRAGMA query_only = 0; INSERT INTO ParamValueDesc ([Command], [Param], [Value], [ValDesc], [DefinitionNo]) "
      "VALUES ('GESPI', 'DESCRIPTION', 'a', 'first', 1)");
  gespi_.parameters.back() = WithFixedList(gespi_.parameters.back());
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "b"}}), "DESCRIPTION=b: this value is not possible here [a]");
  EXPECT_EQ(Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "a"}}), "done");
}

TEST_F(UserActionTest, AListThatIsNotBuiltInSilenceLeavesTheValueToTheForm) {
  sytds_.columns.push_back("OPTL");
  sytds_.parameters.push_back(WithList(Parameter("OPTL")));
  sytds_.shown.push_back("OPTL");
  EXPECT_EQ(Add(sytds_, {{"OPTL", "anything"}}), "done");
}

TEST_F(UserActionTest, AListThatCannotBeBuiltRefusesTheValue) {
  gespi_.parameters.front() = WithList(gespi_.parameters.front());
  host_->meddle = [](const std::string& sql) {
    return sql.starts_with(" SELECT CSP") ? std::optional(false) : std::nullopt;
  };
  EXPECT_THAT(Add(gespi_, {{"CSP", "0"}}), StartsWith("CSP=0: The database refused what the rules asked of it."));
  EXPECT_EQ(Count(*exchange_, "GESPI"), 0);
}

TEST_F(UserActionTest, AListThatFailsRefusesTheValue) {
  sytds_.parameters[1].list = sytds_.parameters[1].check = false;
  EXPECT_THAT(Add(sytds_, {{"CDNAS", "7x"}, {"CDNAL", "9"}}),
              StartsWith("CDNAL=9: The values of CDNAL could not be read."));
}

// --- Checks.

TEST_F(UserActionTest, ACheckMayForbidARangeOrSeveralValues) {
  EXPECT_EQ(AddNumbers({{"NUMTYP", "AI"}, {"NUMSE", "1&&2"}}),
            "NUMSE=1&&2: a range is not possible here; give one value");
  EXPECT_EQ(AddNumbers({{"NUMSE", "1&&2"}, {"NUMTYP", "AI"}}),
            "NUMSE=1&&2: a range is not possible here; give one value")
      << "in either order";
  EXPECT_EQ(AddNumbers({{"NUMTYP", "CP"}, {"NUMSE", "1&2"}}),
            "NUMSE=1&2: several values are not possible here; give one value");
  EXPECT_EQ(AddNumbers({{"NUMTYP", "AI"}, {"NUMSE", "1&2"}}), "done");
}

TEST_F(UserActionTest, ACheckThatAnswersFalseInSilenceFoundNothing) {
  EXPECT_EQ(AddNumbers({{"NUMTYP", "EX"}, {"NUMSE", "100&&199"}}), "done");
}

TEST_F(UserActionTest, ACheckThatFailsRefusesTheValue) {
  sytds_.parameters[1].list = false;
  EXPECT_THAT(Add(sytds_, {{"CDNAS", "x"}}),
              StartsWith("CDNAS=x: the check of this value came to no end: the rules of SYTDS need a number"));
}

TEST_F(UserActionTest, AStoredValueIsNotClearedInSilence) {
  EXPECT_EQ(Add(roddi_, {{"CUST", "1"}, {"ROU", "1"}, {"DEST", "80"}}),
            "CUST=1: a check of the values after it has cleared this value, since the two do not go together");
  EXPECT_EQ(Add(roddi_, {{"ROU", "1"}, {"DEST", "80"}, {"CUST", "1"}}), "done");
}

TEST_F(UserActionTest, AStoredValueIsNotChangedInSilence) {
  sytds_.parameters[1].list = false;
  host_->validValues = List{"4", "5", "6"};
  EXPECT_EQ(Add(sytds_, {{"CDNAS", "5.4"}}),
            "CDNAS=5.4: a check has changed this value to 5; give that, or leave it out");
}

TEST_F(UserActionTest, AMessageOfAnActionThatWasDoneIsAWarning) {
  EXPECT_EQ(Add(roddi_, {{"ROU", "1"}, {"DEST", "80"}}), "done");
  host_->meddle = [](const std::string& sql) {
    return sql.starts_with("SELECT DEST FROM RODDI") ? std::optional(false) : std::nullopt;
  };
  EXPECT_THAT(Delete(roddi_, {{"DEST", "80"}}), StartsWith("done\nwarning: "));
  EXPECT_EQ(Count(*exchange_, "RODDI"), 0);
}

// --- Refusals of the action itself.

TEST_F(UserActionTest, AnActionThatIsRefusedTellsItsMessages) {
  EXPECT_EQ(AddNumbers({{"NUMTYP", "EC"}, {"NUMSE", "1000"}}),
            "NUMSE=1000: The number is too long. Type EC takes at most 3 digits.");
  AddNumbers({{"NUMTYP", "EX"}, {"NUMSE", "100&&199"}});
  EXPECT_EQ(AddNumbers({{"NUMTYP", "EX"}, {"NUMSE", "150"}}),
            "NUMSE=150: A number of this series lies in a range that is already in use. Give other numbers. "
            "(150 collides with the series 100&&199)");
}

TEST_F(UserActionTest, AnActionThatIsRefusedInSilenceSaysSo) {
  Add(sytds_, {{"CDNAL", "3"}});
  host_->meddle = [](const std::string& sql) {
    return sql.starts_with("SELECT CDNAL, CDNAS") ? std::optional(false) : std::nullopt;
  };
  EXPECT_EQ(Edit(sytds_, {}, {{"CDNAL", "4"}}), "the rules of SYTDS refuse this and do not say why");
}

TEST_F(UserActionTest, AnActionThatFailsSaysWhy) {
  const FormDefinition sydas =
      TestForm("SYDAS", {"CMDID", "NTC", "PGJOB", "PGSTA", "DIVPRI", "TBA", "CNFREL"}, {Parameter("NTC")});
  EXPECT_EQ(Add(sydas, {{"NTC", "1"}}), "done");
  EXPECT_THAT(Add(sydas, {{"NTC", "1"}}), StartsWith("the rules of SYDAS found fewer or more values than they need"));
  EXPECT_EQ(exchange_->OpenTransactions(), 0);
}

TEST_F(UserActionTest, TheDebugLinesOfAnActionComeWithItsOutcome) {
  const Outcome outcome = Perform(session_, {UserAction::Kind::Add, "NANSI", {}, {{"NUMTYP", "EX"}, {"NUMSE", "100"}}});
  EXPECT_THAT(outcome.debugLines, IsEmpty());
  host_->meddle = [this](const std::string& sql) {
    host_->scPrintToDebugWindow("asked: " + sql.substr(0, 6));
    return std::nullopt;
  };
  const Outcome deleted = Perform(session_, {UserAction::Kind::Delete, "NANSI", {{"NUMSE", "100"}}, {}});
  EXPECT_THAT(deleted.debugLines, ElementsAre("asked: SELECT", "asked: DELETE", "asked:  UPDAT"));
}

// --- Editing.

TEST_F(UserActionTest, AnEditChangesTheRecordThatIsSelected) {
  Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "one"}});
  Add(gespi_, {{"CSP", "2"}, {"DESCRIPTION", "two"}});
  EXPECT_EQ(Edit(gespi_, {{"CSP", "2"}}, {{"DESCRIPTION", "second"}}), "done");
  EXPECT_EQ(Profiles(), R"([["1", "2"], [Null, Null], ["one", "second"]])");
}

TEST_F(UserActionTest, NothingBehindTheEqualsSignClearsAColumn) {
  Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "one"}});
  EXPECT_EQ(Edit(gespi_, {{"CSP", "1"}}, {{"DESCRIPTION", ""}}), "done");
  EXPECT_EQ(Profiles(), R"([["1"], [Null], [Null]])");
}

TEST_F(UserActionTest, AnEditOfADigitKeepsTheOtherDigits) {
  Add(gespi_, {{"CSP", "1"}, {"TRAF_D1", "1"}, {"TRAF_D2", "2"}, {"TRAF_D3", "3"}});
  EXPECT_EQ(Edit(gespi_, {{"CSP", "1"}}, {{"TRAF_D2", "9"}}), "done");
  EXPECT_EQ(Profiles(), R"([["1"], ["193"], [Null]])");
  EXPECT_EQ(Edit(gespi_, {{"CSP", "1"}}, {{"TRAF_D1", ""}}), "done");
  EXPECT_EQ(Profiles(), R"([["1"], ["093"], [Null]])");
}

TEST_F(UserActionTest, AnEditFillsTheFormWithTheRecordFirst) {
  Add(sytds_, {{"CDNAL", "20"}, {"CDNAS", "10"}});
  EXPECT_THAT(Edit(sytds_, {}, {{"CDNAS", "20"}}), HasSubstr("this value is not possible here"));
  EXPECT_EQ(Edit(sytds_, {}, {{"CDNAS", "19"}}), "done");
  EXPECT_EQ(Rows(*exchange_, "SELECT CDNAL, CDNAS FROM SYTDS"), R"([["20"], ["19"]])");
}

TEST_F(UserActionTest, ARecordIsSelectedByColumnsAndHasToBeOneAlone) {
  Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "same"}});
  Add(gespi_, {{"CSP", "2"}, {"DESCRIPTION", "same"}});
  const std::vector<Assignment> change = {{"DESCRIPTION", "new"}};
  EXPECT_EQ(Edit(gespi_, {{"CSP", "3"}}, change), "there is no record of GESPI with CSP=3");
  EXPECT_EQ(Edit(gespi_, {{"DESCRIPTION", "same"}}, change),
            "there are several records of GESPI with DESCRIPTION=same; select one by more of its parameters");
  EXPECT_EQ(Edit(gespi_, {}, change), "there are several records of GESPI; select one by more of its parameters");
  EXPECT_EQ(Edit(gespi_, {{"CSQ", "1"}}, change), "CSQ=: a record of GESPI has no CSQ. Did you mean CSP?");
  EXPECT_EQ(Edit(gespi_, {{"TRAF_D1", "1"}}, change), "TRAF_D1=1: a record of GESPI has no TRAF_D1.");
  EXPECT_EQ(Edit(gespi_, {{"CSP", "x' OR '1' = '1"}}, change), "there is no record of GESPI with CSP=x' OR '1' = '1");
  EXPECT_EQ(Edit(gespi_, {{"DESCRIPTION", "same"}, {"CSP", "2"}}, change), "done");
  EXPECT_EQ(Edit(gespi_, {{"CMDID", Rows(*exchange_, "SELECT CMDID FROM GESPI WHERE CSP = '1'").substr(2, 2)}}, change),
            "done");
}

TEST_F(UserActionTest, AnEditChangesSomething) {
  Add(gespi_, {{"CSP", "1"}});
  EXPECT_EQ(Edit(gespi_, {{"CSP", "1"}}, {}), "nothing is changed: give the new values after the colon");
}

TEST_F(UserActionTest, AnEditIsCheckedAsAnAddIs) {
  Add(gespi_, {{"CSP", "1"}});
  EXPECT_EQ(Edit(gespi_, {{"CSP", "1"}}, {{"CSP", ""}}), "CSP=: this parameter has to be given (title of CSP)");
  EXPECT_EQ(Edit(gespi_, {{"CSP", "1"}}, {{"DESCRIPTION", "'"}, {"DESCRIPTION", "x"}}),
            "DESCRIPTION=': a value must not hold a quote character (')\nDESCRIPTION=x: this parameter is given twice");
}

TEST_F(UserActionTest, AKeyThatTheRulesLeaveToTheHostIsWrittenAfterAnEdit) {
  Add(gespi_, {{"CSP", "1"}, {"DESCRIPTION", "one"}});
  gespi_.handling.writeAfterEdit = {"CSP"};
  host_->meddle = [](const std::string& sql) {
    return sql.starts_with("UPDATE") ? std::optional(true) : std::nullopt;  // rules that write nothing themselves
  };
  EXPECT_EQ(Edit(gespi_, {{"CSP", "1"}}, {{"CSP", "2"}, {"DESCRIPTION", "two"}}), "done");
  EXPECT_EQ(Profiles(), R"([["2"], [Null], ["one"]])");
  EXPECT_EQ(Edit(gespi_, {{"CSP", "2"}}, {{"DESCRIPTION", "two"}}), "done");
  host_->meddle = [](const std::string& sql) {
    return sql.starts_with("UPDATE") ? std::optional(false) : std::nullopt;
  };
  EXPECT_NE(Edit(gespi_, {{"CSP", "2"}}, {{"CSP", "3"}}), "done");
  EXPECT_EQ(Profiles(), R"([["2"], [Null], ["one"]])") << "an edit that was refused writes no key";
}

// --- Deleting.

TEST_F(UserActionTest, ADeleteRemovesTheRecordThatIsSelected) {
  Add(gespi_, {{"CSP", "1"}});
  Add(gespi_, {{"CSP", "2"}});
  EXPECT_EQ(Delete(gespi_, {{"CSP", "1"}}), "done");
  EXPECT_EQ(Profiles(), R"([["2"], [Null], [Null]])");
  EXPECT_EQ(Delete(gespi_, {{"CSP", "1"}}), "there is no record of GESPI with CSP=1");
  EXPECT_EQ(Delete(gespi_, {}), "done") << "the one record that is left";
}

TEST_F(UserActionTest, ARowThatTheRulesLeaveToTheHostIsRemovedAfterADelete) {
  Add(gespi_, {{"CSP", "1"}});
  host_->meddle = [](const std::string& sql) {
    return sql.starts_with("DELETE") ? std::optional(true) : std::nullopt;  // rules that remove nothing themselves
  };
  EXPECT_EQ(Delete(gespi_, {{"CSP", "1"}}), "done");
  EXPECT_EQ(Count(*exchange_, "GESPI"), 1);
  gespi_.handling.removeRowAfterDelete = true;
  host_->meddle = [](const std::string& sql) {
    return sql.starts_with("DELETE") ? std::optional(false) : std::nullopt;
  };
  EXPECT_NE(Delete(gespi_, {{"CSP", "1"}}), "done");
  EXPECT_EQ(Count(*exchange_, "GESPI"), 1) << "a delete that was refused removes no row";
  host_->meddle = [](const std::string& sql) { return sql.starts_with("DELETE") ? std::optional(true) : std::nullopt; };
  EXPECT_EQ(Delete(gespi_, {{"CSP", "1"}}), "done");
  EXPECT_EQ(Count(*exchange_, "GESPI"), 0);
}

}  // namespace
}  // namespace cordboard::workbench
