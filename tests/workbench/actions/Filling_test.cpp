#include "workbench/actions/Filling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/actions/FormRules.h"
#include "workbench/support/TestExchange.h"
#include "workbench/support/TestForms.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class FillingTest : public testing::Test {
 protected:
  FillingTest() {
    sytds_ = TestForm("SYTDS", {"CMDID", "CDNAL", "CDNAS"},
                      {WithList(Parameter("CDNAL")), WithCheck(WithList(Parameter("CDNAS"))), Parameter("NOTE")});
  }

  // "CDNAL=99: this value ...", one for each.
  static std::vector<std::string> Told(const std::vector<Problem>& problems) {
    std::vector<std::string> told;
    for (const Problem& problem : problems)
      told.push_back(problem.parameter + "=" + problem.value + ": " + problem.message);
    return told;
  }

  std::string Get(const std::string& name) { return TraceText(session_.form().Get(name)); }

  FormDefinition sytds_;
  std::unique_ptr<Exchange> exchange_ = ExampleExchange();
  Session session_{*exchange_};
};

TEST_F(FillingTest, AFormCanBeFilledWithoutActing) {
  EXPECT_THAT(FillForm(session_, sytds_, {{"CDNAL", "5"}}).problems(), IsEmpty());
  EXPECT_EQ(Get("CDNAL"), "\"5\"");
  EXPECT_EQ(session_.host().FreshList("CDNAS")->All().size(), 4u);
  EXPECT_EQ(Count(*exchange_, "SYTDS"), 0);
}

TEST_F(FillingTest, EveryValueThatIsRefusedIsToldAndTheOthersAreSet) {
  const Filling filling = FillForm(session_, sytds_, {{"CDNAL", "99"}, {"OTHER", "1"}, {"NOTE", "x"}, {"NOTE", "y"}});
  EXPECT_THAT(Told(filling.problems()),
              ElementsAre("CDNAL=99: this value is not possible here", "OTHER=: there is no parameter OTHER in SYTDS.",
                          "NOTE=y: this parameter is given twice"));
  EXPECT_EQ(Get("CDNAL"), "Empty");
  EXPECT_EQ(Get("NOTE"), "\"x\"");
}

TEST_F(FillingTest, AParameterMayTakeNumbersBesideItsList) {
  sytds_.parameters[0].beside = Numbers{.from = 90, .to = 99};
  EXPECT_THAT(FillForm(session_, sytds_, {{"CDNAL", "99"}}).problems(), IsEmpty());
  EXPECT_EQ(Get("CDNAL"), "\"99\"");
  for (const char* other : {"100", "89", "99 ", "9x", "-95", "95&96"}) {
    const Filling filling = FillForm(session_, sytds_, {{"CDNAL", other}});
    ASSERT_EQ(filling.problems().size(), 1u) << other;
    EXPECT_THAT(InWords(filling.problems()[0].possible.value()), EndsWith(", or a number from 90 to 99")) << other;
  }
}

TEST_F(FillingTest, SeveralValuesOfAParameterThatTakesOneAreToldAsThat) {
  EXPECT_THAT(Told(FillForm(session_, sytds_, {{"CDNAL", "5&7"}}).problems()),
              ElementsAre("CDNAL=5&7: several values are not possible here; give one value"));
}

TEST_F(FillingTest, AUniqueValueThatARecordHasIsRefused) {
  sytds_.parameters[0].unique = true;
  exchange_->Dynamic().Run("INSERT INTO [SYTDS] (CDNAL) VALUES ('5')");
  EXPECT_THAT(Told(FillForm(session_, sytds_, {{"CDNAL", "5"}}).problems()),
              ElementsAre("CDNAL=5: there is a record with this value already; give another one"));
  EXPECT_THAT(FillForm(session_, sytds_, {{"CDNAL", "7"}}).problems(), IsEmpty());
}

// A whole that is given after one of its digits would take its place.
TEST_F(FillingTest, ADigitThatAnotherValueHasChangedIsRefused) {
  FormDefinition groups = *FindForm("ACGRI");
  for (std::size_t i = 0; i < groups.parameters.size(); ++i) groups.parameters[i].mandatory = false;
  groups.ordered = false;
  Filling filling = FillForm(session_, groups, {{"SERV_D2", "1"}, {"SERV", "0000"}});
  CheckWholeForm(filling);
  EXPECT_THAT(Told(filling.problems()), testing::Contains(testing::StartsWith("SERV_D2=1: a check ")));
}

TEST_F(FillingTest, ParametersInStepHaveAsManyValues) {
  for (const char* name : {"LEFT", "RIGHT"})
    sytds_.parameters.push_back({.name = name, .title = name, .multiple = true});
  sytds_.inStep = {{}, {"NOTE"}, {"LEFT", "RIGHT"}};
  const auto told = [this](const char* right) {
    Filling filling = FillForm(session_, sytds_, {{"LEFT", "1&2"}, {"RIGHT", right}});
    CheckWholeForm(filling);
    return Told(filling.problems());
  };
  EXPECT_THAT(told("3&4"), IsEmpty());
  const std::string inPairs = "RIGHT=: LEFT and RIGHT go in pairs, and there are 2 and ";
  EXPECT_THAT(told("3"), ElementsAre(inPairs + "1 of them; give as many of each"));
  EXPECT_THAT(told(""), ElementsAre(inPairs + "0 of them; give as many of each"));
}

TEST_F(FillingTest, ValuesCanBeSetOneByOneAndAnew) {
  Filling filling(session_, sytds_);
  filling.Set({"CDNAL", "5"});
  filling.Set({"CDNAL", "7"});
  EXPECT_EQ(Get("CDNAL"), "\"7\"");
  filling.Set({"CDNAL", ""});
  EXPECT_EQ(Get("CDNAL"), "Empty");
  EXPECT_FALSE(filling.IsRefused());
  filling.Set({"CDNAL", "a'b"});
  EXPECT_THAT(Told(filling.problems()), ElementsAre("CDNAL=a'b: a value must not hold a quote character (')"));
  EXPECT_EQ(Get("CDNAL"), "Empty");
}

TEST_F(FillingTest, AListIsThatOfTheFormAsItIs) {
  Filling filling(session_, sytds_);
  EXPECT_EQ(filling.ListOf("CDNAS")->All().size(), 30u);
  filling.Set({"CDNAL", "5"});
  EXPECT_EQ(filling.ListOf("CDNAS")->All().size(), 4u);
  EXPECT_EQ(filling.ListOf("NOTE"), nullptr);
  EXPECT_FALSE(filling.IsRefused());
}

TEST_F(FillingTest, AListThatIsReportedIsNoListAndAProblemOfItsValue) {
  session_.host().SetBuildList([this](const std::string&) {
    session_.host().ShowBox("no board");
    return true;
  });
  Filling filling(session_, sytds_);
  EXPECT_EQ(filling.ListOf("CDNAL", "5"), nullptr);
  EXPECT_THAT(Told(filling.problems()), ElementsAre("CDNAL=5: no board"));
}

TEST_F(FillingTest, ANewFillingOpensAnEmptyForm) {
  Filling(session_, sytds_).Set({"NOTE", "x"});
  const Filling next(session_, sytds_, {{"NOTE", "y"}});
  EXPECT_EQ(Get("NOTE"), "Empty") << "what is given is not set yet";
  EXPECT_TRUE(next.IsGiven("NOTE"));
  EXPECT_FALSE(next.IsGiven("CDNAL"));
}

}  // namespace
}  // namespace cordboard::workbench
