#include "workbench/actions/Templates.h"

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

class TemplatesTest : public testing::Test {
 protected:
  TemplatesTest() {
    EXPECT_EQ(road_.Do("NANSI:NUMTYP=EX,NUMSE=200&&249;"), "done");
    EXPECT_EQ(road_.Do("EXCCS:CAT=1,TRAF=11,SERV_D6=1,CDIV_D1=1,ROC_D2=1;"), "done");
    EXPECT_EQ(road_.Do("EXCCS:CAT=2,TRAF=77,SERV_D6=1,CDIV_D1=1,ROC_D2=1;"), "done");
    EXPECT_EQ(road_.Do("KSEXITEMPLATE:TEMPLATENAME=Office,CAT=1,CUST=1,ADC_D1=1,ADC_D3=2,CALALT=1;"), "done");
  }

  std::string Extensions() { return road_.Rows("SELECT DIR, CAT, CUST, ADC, CALALT FROM KSEXI"); }

  Road road_;
};

TEST_F(TemplatesTest, TwentyExtensionsAreMadeInOneLine) {
  EXPECT_EQ(road_.Do("KSEXI from Office:DIR=200&&211,ITYPE=3,EQU=next;"), "done");
  EXPECT_EQ(road_.Rows("SELECT COUNT(*), MIN(CAT), MAX(CUST), MIN(ADC) FROM KSEXI"), "12|1|1|10200000000");
}

TEST_F(TemplatesTest, WhatTheLineGivesGoesOverTheTemplate) {
  EXPECT_EQ(road_.Do("KSEXI from Office:EQU=next,CALALT=2,ADC_D2=1,DIR=200,CUST=,ITYPE=3,CAT=2;"), "done");
  EXPECT_EQ(Extensions(), "200|2|-|11200000000|2");
}

TEST_F(TemplatesTest, ATemplateThatIsNotThereIsToldWithThoseThatAre) {
  EXPECT_EQ(road_.Do("ITNUI from Fax:DIR=200,EQU=002-0-12-00;"),
            "there is no record of ITNUITEMPLATE with TEMPLATENAME=Fax [no value at present]");
  EXPECT_EQ(road_.Do("KSEXITEMPLATE:TEMPLATENAME=Shop,CAT=1;"), "done");
  EXPECT_EQ(road_.Do("KSEXI from office:DIR=200,ITYPE=3,EQU=next;"),
            "there is no record of KSEXITEMPLATE with TEMPLATENAME=office [Office, Shop]");
  EXPECT_EQ(road_.Do("NANSI from Office:NUMTYP=EX,NUMSE=7;"), "records of NANSI are not made from templates");
  EXPECT_EQ(Extensions(), "");
}

TEST_F(TemplatesTest, NoTwoTemplatesHaveOneName) {
  EXPECT_EQ(road_.Do("KSEXITEMPLATE:TEMPLATENAME=Office,CAT=2;"),
            "TEMPLATENAME=Office: there is a record with this value already; give another one");
  EXPECT_EQ(road_.Do("KSEXITEMPLATE:TEMPLATENAME=Shop,CAT=2;"), "done");
  EXPECT_EQ(road_.Do("edit KSEXITEMPLATE TEMPLATENAME=Shop:TEMPLATENAME=Office;"),
            "TEMPLATENAME=Office: there is a record with this value already; give another one");
}

// The instrument of a template comes before what hangs on it, whatever the order typed.
TEST_F(TemplatesTest, ADigitThatACheckWouldClearIsNotLost) {
  EXPECT_EQ(road_.Do("KSEXITEMPLATE:TEMPLATENAME=Q,ADC_D1=2,SERV_D7D8_SUB2=02,TRAF=00,CDIV_D6=0,ROC_D2=1;"),
            "ADC_D1=2: this value is not possible here [0, 1]");
  EXPECT_EQ(road_.Do("KSEXITEMPLATE:TEMPLATENAME=Q,ADC_D11=1,ACCTYP=1,CAT=1;"), "done");
}

// Its values are checked as if they were typed; one that the line gives anew does not count.
TEST_F(TemplatesTest, AValueThatIsNotPossibleAnyMoreIsRefused) {
  EXPECT_EQ(road_.Do("edit KSEXITEMPLATE TEMPLATENAME=Office:CAT=2;"), "done");
  road_.exchange().Dynamic().Run("UPDATE [EXCCS] SET [SERV] = NULL WHERE [CAT] = '2'");
  EXPECT_EQ(road_.Do("KSEXI from Office:DIR=200,ITYPE=3,EQU=next;"),
            "CAT=2: this value is not possible here [1]\n"
            "CAT=2: this value is the template's (Office); give another one, or change the template");
  EXPECT_EQ(road_.Do("KSEXI from Office:DIR=200,ITYPE=3,EQU=next,CAT=1;"), "done");
}

// Parameters that add up to one place cannot be told apart in the template.
TEST_F(TemplatesTest, ADigitThatIsGivenAnewNeedsThoseThatAddUpWithIt) {
  EXPECT_EQ(road_.Do("KSEXITEMPLATE:TEMPLATENAME=Own,TRAF=00,SERV_D3D4_SUB1=02,SERV_D3D4_SUB2=04,CDIV_D1=1,ROC_D2=1;"),
            "done");
  EXPECT_EQ(road_.Do("KSEXI from Own:DIR=200,ITYPE=3,EQU=next,SERV_D3D4_SUB1=02;").substr(0, 55),
            "SERV_D3D4_SUB2=: this parameter has to be given as well");
  EXPECT_EQ(road_.Do("KSEXI from Own:DIR=200,ITYPE=3,EQU=next,SERV_D6=1;"), "done");
  EXPECT_EQ(road_.Rows("SELECT SERV FROM KSEXI"), "000601000");
}

// A check of a value that the line gives may change one of the template.
TEST_F(TemplatesTest, WhatACheckChangesIsTold) {
  EXPECT_EQ(road_.Do("KSEXITEMPLATE:TEMPLATENAME=Terminals,CAT=1,ACCTYP=1,ADC_D11=1;"), "done");
  EXPECT_EQ(road_.Do("KSEXI from Terminals:DIR=200,ITYPE=12,EQU=next,ACCTYP=;"),
            "done\nADC=00000000001: a check has changed this value to 00000000000");
  EXPECT_EQ(Extensions(), "200|1|-|00000000000|-");
}

TEST_F(TemplatesTest, WhatTheFormDoesNotTakeIsTold) {
  FormDefinition form = *FindForm("KSEXI");
  form.parameters = {};
  for (const ParameterDefinition& parameter : FindForm("KSEXI")->parameters) {
    if (parameter.name != "CALALT") form.parameters.push_back(parameter);
  }
  std::erase(form.shown, "CALALT");
  const Filling filling = FillForm(road_.session(), form, {{"DIR", "200"}}, "Office");
  ASSERT_EQ(filling.warnings().size(), 1u);
  EXPECT_EQ(filling.warnings()[0].parameter, "CALALT");
  EXPECT_EQ(filling.warnings()[0].message,
            "the template Office has this value, and KSEXI does not take it here; it is left out");
  EXPECT_EQ(filling.form().Get("CAT"), Value("1"));
}

// An extension keeps what it was made with.
TEST_F(TemplatesTest, ATemplateIsChangedAndDeletedWithoutItsExtensions) {
  EXPECT_EQ(road_.Do("KSEXI from Office:DIR=200,ITYPE=3,EQU=next;"), "done");
  EXPECT_EQ(road_.Do("edit KSEXITEMPLATE TEMPLATENAME=Office:CALALT=2;"), "done");
  EXPECT_EQ(road_.Do("delete KSEXITEMPLATE TEMPLATENAME=Office;"), "done");
  EXPECT_EQ(Extensions(), "200|1|1|10200000000|1");
  EXPECT_EQ(road_.Rows("SELECT COUNT(*) FROM [site.KSEXITemplate]"), "0");
}

}  // namespace
}  // namespace cordboard::workbench
