#include "workbench/forms/FormReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "workbench/data/DataFile.h"
#include "workbench/forms/Foldings.h"
#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A form with these parameters and more fields after them.
FormDefinition Read(const std::string& command, const std::string& parameters, const std::string& more = "") {
  const std::string json = R"({"title": "T", "help": "H.", "parameters": [)" + parameters + "]" + more + "}";
  return ReadForm(command, ReadData(json, "forms/" + command + ".json"));
}

std::string Refused(const std::string& command, const std::string& parameters, const std::string& more = "") {
  return Refusal<DataError>([&] { Read(command, parameters, more); });
}

std::string Names(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += R"({"name": ")" + name + R"(", "title": "t"})" + ",";
  return text.substr(0, text.size() - 1);
}

// --- What a form says.

TEST(FormReader, ReadsWhatTheFormSays) {
  const FormDefinition form =
      Read("KSEXI",
           R"({"name": "EQU", "title": "Position", "mandatory": true, "releases": ["R7"],
           "pool": {"table": "Equipment", "column": "EQU"}, "narrowed": {"by": "LOCATION", "without": "SELECT"}})",
           R"(, "ordered": true, "prepared": "DIR", "inStep": [["DIR", "EQU"]], "oneOf": [["CAT"], ["TRAF"]],
           "after": {"removeRowAfterDelete": true, "writeAfterEdit": ["DIR"]})");
  EXPECT_EQ(form.command + form.title + form.help, "KSEXITH.");
  const ParameterDefinition& parameter = form.parameters[0];
  EXPECT_EQ(parameter.name + parameter.title, "EQUPosition");
  EXPECT_THAT(parameter.releases, ElementsAre("R7"));
  EXPECT_EQ(parameter.pool->table + parameter.pool->column, "EquipmentEQU");
  EXPECT_EQ(parameter.narrowing->by + parameter.narrowing->without, "LOCATIONSELECT");
  EXPECT_TRUE(form.ordered);
  EXPECT_EQ(form.prepared, "DIR");
  EXPECT_FALSE(form.single);
  EXPECT_THAT(form.inStep, ElementsAre(ElementsAre("DIR", "EQU")));
  EXPECT_THAT(form.oneOf, ElementsAre(ElementsAre("CAT"), ElementsAre("TRAF")));
  EXPECT_TRUE(form.handling.removeRowAfterDelete);
  EXPECT_THAT(form.handling.writeAfterEdit, ElementsAre("DIR"));
}

TEST(FormReader, ReadsInWhatLinesDiffer) {
  const LineForm lines = Read("KSFKC", Names({"DIR", "KEY", "FCN", "DIG"}),
                              R"(, "lines": {"derived": ["SIG"], "untold": ["FCN"], "from": "ROCAI",
              "release": {"key": ["DIR", "KEY"], "with": {"FCN": "TNS"}},
              "continued": {"key": ["DIR"], "with": {"KEY": "1"}, "further": "DIG"}})")
                             .lines;
  EXPECT_THAT(lines.derived, ElementsAre("SIG"));
  EXPECT_THAT(lines.untold, ElementsAre("FCN"));
  EXPECT_EQ(lines.from, "ROCAI");
  EXPECT_THAT(lines.release.key, ElementsAre("DIR", "KEY"));
  EXPECT_EQ(lines.release.with.name + "=" + lines.release.with.value, "FCN=TNS");
  EXPECT_THAT(lines.continued.key, ElementsAre("DIR"));
  EXPECT_EQ(lines.continued.further, "DIG");
}

TEST(FormReader, LinesDeriveNoParameterOfTheFormAndNameNoOther) {
  const std::string place = "forms/KSFKC.json: lines: ";
  EXPECT_EQ(Refused("KSFKC", Names({"DIR"}), R"(, "lines": {"derived": ["DIR"]})"),
            place + "DIR is a parameter of the form, so that no line derives it");
  for (const char* lines : {R"({"untold": ["KEY"]})", R"({"release": {"key": ["DIR", "KEY"], "with": {"DIR": "1"}}})",
                            R"({"release": {"key": ["DIR"], "with": {"KEY": "1"}}})",
                            R"({"continued": {"key": ["DIR"], "with": {"DIR": "1"}, "further": "KEY"}})"})
    EXPECT_EQ(Refused("KSFKC", Names({"DIR"}), R"(, "lines": )" + std::string(lines)),
              place + "KEY is no parameter of the form");
}

TEST(FormReader, EveryFlagOfTheFormIsReadAndNoOther) {
  for (const ParameterFlag& flag : ParameterFlags()) {
    const std::string json = R"({"name": "NONE", "title": "t", ")" + std::string(flag.key) + R"(": true})";
    if (flag.source == ParameterFlag::Source::Form) {
      const ParameterDefinition parameter = Read("KSEXI", json).parameters[0];
      for (const ParameterFlag& other : ParameterFlags())
        EXPECT_EQ(parameter.*other.flag, &other == &flag) << flag.key << " " << other.key;
    } else {
      EXPECT_THAT(Refused("KSEXI", json), HasSubstr("unknown key \"" + std::string(flag.key) + "\"")) << flag.key;
    }
  }
}

// --- What is known elsewhere.

TEST(FormReader, ListsChecksAndActionsFollowFromTheModule) {
  const FormDefinition form = Read("NANSI", Names({"NUMTYP", "NUMSE"}));
  EXPECT_TRUE(form.adds && form.deletes && form.generates);
  EXPECT_FALSE(form.edits);
  EXPECT_TRUE(form.Find("NUMTYP")->list && form.Find("NUMTYP")->check);
  EXPECT_FALSE(form.Find("NUMSE")->list || form.Find("NUMSE")->check);
}

TEST(FormReader, AValueIsFixedWhereTheCommandBuildsNoListAndThereAreFixedValues) {
  const FormDefinition form = Read("NANLS", Names({"EXL", "MIN", "MAX"}));
  EXPECT_FALSE(form.Find("EXL")->fixed);
  EXPECT_TRUE(form.Find("MIN")->fixed);
  EXPECT_FALSE(form.Find("MAX")->fixed) << "the command builds its list";
}

TEST(FormReader, ATemplateStandsInADatabaseOfItsOwn) {
  const FormDefinition form = Read("KSEXITEMPLATE", "", R"(, "database": "site")");
  EXPECT_EQ(form.Rows(), "[site.KSEXITEMPLATE]");
  EXPECT_EQ(form.columns.at(2), "TEMPLATENAME");
  EXPECT_EQ(Refused("NACDS", "", R"(, "database": "static")"),
            "forms/NACDS.json: database: records stand in \"dynamic\" or \"site\"");
}

TEST(FormReader, TheRecordIsTheTableOfTheCommandUnlessTheFormSaysAnother) {
  EXPECT_EQ(Read("NACDS", "").table, "NACDS");
  EXPECT_THAT(Read("NACDS", "").columns, ElementsAre("CMDID", "NUM", "CDCAT")) << "the identifier in capitals";
  const FormDefinition other = Read("NACDS", "", R"(, "table": "NANLS", "columns": ["CMDID", "EXL"])");
  EXPECT_EQ(other.table, "NANLS");
  EXPECT_THAT(other.columns, ElementsAre("CMDID", "EXL"));
  EXPECT_THAT(Read("NONE", "", R"(, "table": "NIINI_DNUM")").columns, testing::Not(testing::Contains("AUX")))
      << "further columns are not given";
}

TEST(FormReader, ASecondTableHasAFormOfItsOwnWithTheSameParameters) {
  const std::string second = R"(, "table": "AUCOI_Central", "second": {"table": "AUCOI_Regional", "with": "DIR"})";
  const FormDefinition form = Read("AUCOI", Names({"AUTH", "DIR", "CHECK"}), second);
  ASSERT_THAT(form.OfEachTable(), ElementsAre(&form, form.second.get()));
  EXPECT_EQ(form.second->table, "AUCOI_Regional");
  EXPECT_THAT(form.second->columns, ElementsAre("CMDID", "NUMTYP", "AUTH", "DIR", "CAT", "CSP", "CUST"));
  EXPECT_THAT(form.shown, ElementsAre("AUTH", "CHECK"));
  EXPECT_THAT(form.second->shown, ElementsAre("AUTH", "DIR"));
  EXPECT_EQ(form.second->parameters.size(), 3);
  EXPECT_TRUE(form.second->adds);
  EXPECT_THAT(form.elsewhere, ElementsAre("DIR"));
  EXPECT_THAT(form.second->elsewhere, ElementsAre("CHECK"));
  EXPECT_THAT(form.second->OfEachTable(), ElementsAre(form.second.get()));
  EXPECT_EQ(&form.OfRecordWith({{"AUTH", "1"}, {"DIR", ""}}), &form);
  EXPECT_EQ(&form.OfRecordWith({{"AUTH", "1"}, {"DIR", "200"}}), form.second.get());
}

TEST(FormReader, WhatOnlyOneOfTwoTablesHasIsOfItsFormAlone) {
  const FormDefinition form = Read("EXTEI", Names({"DIR", "AUX", "ICAT_D1", "CAT"}),
                                   R"(, "table": "EXTEIDIR", "second": {"table": "EXTEIAUX", "with": "AUX"},
                                      "after": {"writeAfterEdit": ["DIR", "CAT", "AUX"]})");
  EXPECT_THAT(form.handling.writeAfterEdit, ElementsAre("DIR", "CAT"));
  EXPECT_THAT(form.second->handling.writeAfterEdit, ElementsAre("CAT", "AUX"));
  const auto elsewhere = [](const FormDefinition& table, const char* name) { return table.IsElsewhere(name); };
  EXPECT_TRUE(elsewhere(form, "AUX"));
  EXPECT_FALSE(elsewhere(form, "DIR") || elsewhere(form, "ICAT_D1") || elsewhere(form, "CAT"));
  EXPECT_TRUE(elsewhere(*form.second, "DIR") && elsewhere(*form.second, "ICAT_D1")) << "a digit goes with its whole";
  EXPECT_FALSE(elsewhere(*form.second, "AUX") || elsewhere(*form.second, "CAT") || elsewhere(*form.second, "NONE"));
}

TEST(FormReader, ASecondTableIsThereAndItsParameterIsItsOwn) {
  const auto refused = [](const std::string& second) {
    return Refused("AUCOI", Names({"AUTH"}), R"(, "table": "AUCOI_Central", "second": )" + second);
  };
  EXPECT_THAT(refused(R"({"table": "AUCOI_Local", "with": "DIR"})"), HasSubstr("there is no table AUCOI_Local"));
  EXPECT_THAT(refused(R"({"table": "AUCOI_Regional", "with": "AUTH"})"),
              HasSubstr("only the records of AUCOI_Regional may have AUTH"));
}

TEST(FormReader, ARecordIsToldByTheFirstParameterThatIsStoredUnlessTheFormSaysAnother) {
  const std::string parameters = Names({"ITYPE", "KEY", "DIR"});
  EXPECT_THAT(Read("KSANI", parameters).key, ElementsAre("KEY"));
  EXPECT_THAT(Read("KSANI", parameters, R"(, "key": ["DIR", "KEY"])").key, ElementsAre("DIR", "KEY"));
  EXPECT_THAT(Read("KSANI", parameters, R"(, "single": true)").key, IsEmpty()) << "there is no other";
  EXPECT_EQ(Refused("KSANI", parameters, R"(, "key": ["DIR", "KEI"])"),
            "forms/KSANI.json: key[1]: there is no parameter KEI");
  const FormDefinition two = Read("AUCOI", Names({"AUTH", "DIR"}),
                                  R"(, "key": ["AUTH", "DIR"], "table": "AUCOI_Central",
                                       "second": {"table": "AUCOI_Regional", "with": "DIR"})");
  EXPECT_EQ(two.second->key, two.key);
}

TEST(FormReader, AFormMayAssumeAValueThatItDoesNotShow) {
  const FormDefinition form = Read("NONE", Names({"NUM"}), R"(, "table": "NACDS", "assumed": {"DIR": "True"})");
  ASSERT_EQ(form.assumed.size(), 1);
  EXPECT_EQ(form.assumed[0].name, "DIR");
  EXPECT_EQ(form.assumed[0].value, "True");
}

TEST(FormReader, AFormOfACommandThatIsNotBuiltServesNothing) {
  const FormDefinition form = Read("NONE", Names({"NUM"}), R"(, "table": "NACDS")");
  EXPECT_FALSE(form.adds || form.edits || form.deletes || form.generates);
  EXPECT_FALSE(form.parameters[0].list || form.parameters[0].check || form.parameters[0].fixed);
}

// --- Foldings.

std::string Written(const FoldingList& foldings) {
  std::string text;
  for (const Folding& folding : foldings) {
    text += folding.parameter + " " + std::to_string(folding.length) + folding.fill + folding.separator + ":";
    for (const DigitPlace& place : folding.places) {
      text += " " + std::to_string(place.first) + "+" + std::to_string(place.width);
      if (!place.digit.empty()) text += "," + place.digit + "=";
      for (const std::string& name : place.parameters) text += "," + name;
    }
    if (folding.definition != 0) text += " in " + std::to_string(folding.definition);
    text += "\n";
  }
  return text;
}

std::string FoldingsIn(const std::string& command, const std::vector<std::string>& names,
                       const std::string& more = "") {
  return Written(Read(command, Names(names), more.empty() ? "" : R"(, "folding": )" + more).foldings);
}

TEST(FormReader, ASubDigitIsToldByItsName) {
  const auto told = [](const std::string& name) {
    const auto digits = SubDigitOf(name);
    return digits ? digits->whole + " " + std::to_string(digits->first) + "+" + std::to_string(digits->width) : "none";
  };
  EXPECT_EQ(told("CDIV_D1"), "CDIV 1+1");
  EXPECT_EQ(told("SERV_D7D8_SUB1"), "SERV 7+2");
  EXPECT_EQ(told("ADC_D10"), "ADC 10+1");
  EXPECT_EQ(told("DIRK_D1D2D3D4D5"), "DIRK 1+5");
  EXPECT_EQ(told("POS1_D1D2"), "POS1 1+2");
  for (const char* name : {"DIR", "_D1", "CDIV_", "CDIV_D", "CDIV_D0", "CDIV_D1D3", "CDIV_D2D1", "CDIV_D1_SUB",
                           "CDIV_D1_X", "DATE", "NIINI_DIR", "CDIV_D111"})
    EXPECT_EQ(told(name), "none") << name;
}

TEST(FormReader, FoldingsFollowFromTheNames) {
  EXPECT_EQ(FoldingsIn("EXCCS", {"SERV", "SERV_D2", "SERV_D1", "SERV_D3D4_SUB1", "SERV_D3D4_SUB2", "CDIV_D9"}),
            "SERV 40: 1+1,SERV_D1 2+1,SERV_D2 3+2,SERV_D3D4_SUB1,SERV_D3D4_SUB2\nCDIV 90: 9+1,CDIV_D9\n");
  const FormDefinition form =
      Read("EXTEI", Names({"ICAT_D1", "ICAT_D1_SUB1", "ICAT_D1_SUB2"}), R"(, "table": "EXTEIDIR")");
  EXPECT_EQ(Written(form.foldings), "ICAT 10: 1+1,ICAT_D1=,ICAT_D1_SUB1,ICAT_D1_SUB2\n")
      << "the digit as a whole, and its parts";
  EXPECT_THAT(form.shown, ElementsAre("ICAT")) << "by its digits";
}

TEST(FormReader, AFormSaysOfAFoldingWhatNamesCannotTell) {
  EXPECT_EQ(FoldingsIn("KSMDI", {"DIRK_D1D2D3D4D5", "DIRK_D6D7D8"}, R"([{"wholes": ["DIRK"], "separator": "-"}])"),
            "DIRK 80-: 1+5,DIRK_D1D2D3D4D5 6+3,DIRK_D6D7D8\n");
  EXPECT_EQ(FoldingsIn("EXCCS", {"CDIV_D1", "ROC_D2"}, R"([{"wholes": ["ROC", "CDIV"], "length": 8, "fill": "1"}])"),
            "CDIV 81: 1+1,CDIV_D1\nROC 81: 2+1,ROC_D2\n");
}

TEST(FormReader, ParametersThatOverlapAreAlternatives) {
  const std::vector<std::string> names = {"QUE_D1", "QUE_D2D3", "QUE_D4D5", "QUE_D2D3D4", "QUE_D5D6D7"};
  EXPECT_EQ(FoldingsIn("ACGRI", names,
                       R"([{"wholes": ["QUE"],
                            "alternatives": [["QUE_D2D3", "QUE_D4D5"], ["QUE_D2D3D4", "QUE_D5D6D7"]]}])"),
            "QUE 50: 1+1,QUE_D1 2+2,QUE_D2D3 4+2,QUE_D4D5\nQUE 70: 1+1,QUE_D1 2+3,QUE_D2D3D4 5+3,QUE_D5D6D7\n");
  EXPECT_EQ(Refused("ACGRI", Names(names)),
            "forms/ACGRI.json: QUE_D2D3 and QUE_D2D3D4 overlap: say in \"folding\" what are alternatives");
  EXPECT_EQ(Refused("ACGRI", Names({"QUE_D2D3D4", "QUE_D4D5"})),
            "forms/ACGRI.json: QUE_D2D3D4 and QUE_D4D5 overlap: say in \"folding\" what are alternatives");
}

TEST(FormReader, AFoldingMayHoldInADefinition) {
  const FormDefinition form = Read("EXTEI", Names({"ICAT_D1", "ICAT_D1_SUB1", "ICAT_D1_SUB2", "ICAT_D2", "ICAT_D4"}),
                                   R"(, "table": "EXTEIDIR", "folding": [{"wholes": ["ICAT"], "length": 4,
                                      "definitions": [["ICAT_D1", "ICAT_D2"], ["ICAT_D1_SUB1", "ICAT_D1_SUB2"]]}])");
  EXPECT_EQ(
      Written(form.foldings),
      "ICAT 40: 1+1,ICAT_D1 2+1,ICAT_D2 4+1,ICAT_D4 in 1\nICAT 40: 1+1,ICAT_D1_SUB1,ICAT_D1_SUB2 4+1,ICAT_D4 in 2\n");
}

// --- Mistakes.

TEST(FormReader, MistakesAreRefusedWithTheirPlace) {
  const std::string good = R"({"name": "NUM", "title": "t"})";
  const auto parameter = [&](const std::string& more) {
    return Refused("NACDS", good + R"(, {"name": "CDCAT", )" + more + "}");
  };
  EXPECT_EQ(parameter(R"("titel": "t")"), "forms/NACDS.json: parameters[1] (CDCAT): the key \"title\" is missing");
  EXPECT_EQ(parameter(R"("title": "t", "mutliple": true)"),
            "forms/NACDS.json: parameters[1] (CDCAT): unknown key \"mutliple\". Did you mean multiple?");
  EXPECT_EQ(parameter(R"("title": "t", "range": 1)"),
            "forms/NACDS.json: parameters[1] (CDCAT).range: a truth value is wanted, not a number");
  EXPECT_EQ(parameter(R"("title": "t", "releases": ["R5"])"),
            "forms/NACDS.json: parameters[1] (CDCAT).releases[0]: there is no release R5");
  EXPECT_EQ(parameter(R"("title": "t", "pool": {"table": "T"})"),
            "forms/NACDS.json: parameters[1] (CDCAT).pool: the key \"column\" is missing");
  EXPECT_EQ(Refused("NACDS", good, R"(, "after": {"writeAfterEdits": []})"),
            "forms/NACDS.json: after: unknown key \"writeAfterEdits\". Did you mean writeAfterEdit?");
  EXPECT_EQ(Refused("NACDS", good, R"(, "orderd": true)"),
            "forms/NACDS.json: unknown key \"orderd\". Did you mean ordered?");
  EXPECT_EQ(Refused("NACDS", good, R"(, "table": "NADCS")"), "forms/NACDS.json: there is no table NADCS");
  EXPECT_EQ(Refused("NACDS", good, R"(, "columns": ["CMDID", "NUMM"])"),
            "forms/NACDS.json: the table NACDS has no column NUMM");
}

TEST(FormReader, MistakesInFoldingsAreRefused) {
  EXPECT_EQ(Refused("NACDS", Names({"NUMM_D1"})), "forms/NACDS.json: NUMM_D1 is a digit of NUMM, which is no column");
  const auto folding = [](const std::string& entry) {
    return Refused("NACDS", Names({"NUM_D1", "NUM_D2D3"}), R"(, "folding": [)" + entry + "]");
  };
  EXPECT_EQ(folding(R"({"wholes": ["CDCAT"]})"),
            "forms/NACDS.json: folding[0].wholes[0]: no parameter is a digit of CDCAT");
  EXPECT_EQ(folding(R"({"wholes": ["NUM"]}, {"wholes": ["NUM"]})"),
            "forms/NACDS.json: folding[1].wholes[0]: NUM stands there twice");
  EXPECT_EQ(folding(R"({"wholes": ["NUM"], "length": 2})"), "forms/NACDS.json: NUM is shorter than its digits");
  EXPECT_EQ(folding(R"({"wholes": ["NUM"], "fill": "00"})"),
            "forms/NACDS.json: folding[0].fill: a fill is one character");
  EXPECT_EQ(folding(R"({"wholes": ["NUM"], "alternatives": [["NUM_D4"]]})"),
            "forms/NACDS.json: NUM_D4 is no digit of NUM");
  EXPECT_EQ(folding(R"({"wholes": ["NUM"], "alternatives": [["NUM_D1", "NUM_D2D3"], []]})"),
            "forms/NACDS.json: an alternative of NUM has no parameter");
  EXPECT_EQ(folding(R"({"wholes": ["NUM"], "seperator": "-"})"),
            "forms/NACDS.json: folding[0]: unknown key \"seperator\". Did you mean separator?");
}

// --- Parameters that differ in a number alone.

const char* const items = R"({"each": "08&&10", "name": "DATA%_D5", "title": "Kind"},
    {"each": "08&&10", "name": "DATA%_D1D2", "title": "Position"}, {"each": "08&&10", "name": "DATA%", "title": "Item"},
    {"name": "DATA", "title": "Items"})";

TEST(FormReader, AnEntryStandsForAParameterOfEachNumber) {
  const FormDefinition form = Read("CLFOC", items);
  std::string names;
  for (const ParameterDefinition& parameter : form.parameters)
    names += parameter.name + "/" + std::to_string(parameter.ofSeries) + (parameter.list ? "! " : " ");
  EXPECT_EQ(names,
            "DATA8_D5/3! DATA9_D5/3! DATA10_D5/3! DATA8_D1D2/3! DATA9_D1D2/3! DATA10_D1D2/3! DATA8/3 DATA9/3 DATA10/3 "
            "DATA/1 ");
}

TEST(FormReader, AListIsMadeOfParametersThatMayBeWholes) {
  const FormDefinition form =
      Read("CLFOC", items, R"(, "folding": [{"each": "09&&10", "wholes": ["DATA%"], "separator": "-"},
      {"wholes": ["DATA"], "separator": "&", "list": {"each": "08&&10", "of": "DATA%", "sum": "DATA%_D1D2"}}])");
  EXPECT_EQ(Written(form.foldings),
            "DATA8 50: 1+2,DATA8_D1D2 5+1,DATA8_D5\nDATA9 50-: 1+2,DATA9_D1D2 5+1,DATA9_D5\n"
            "DATA10 50-: 1+2,DATA10_D1D2 5+1,DATA10_D5\nDATA 30&: 1+1,DATA8 2+1,DATA9 3+1,DATA10\n");
  EXPECT_TRUE(form.foldings.back().isList);
  EXPECT_THAT(form.shown, testing::Contains("DATA"));
  EXPECT_THAT(form.shown, testing::Not(testing::Contains("DATA9"))) << "a part is shown by its list";
  EXPECT_THAT(form.foldings.back().sum, ElementsAre("DATA8_D1D2", "DATA9_D1D2", "DATA10_D1D2"));
}

TEST(FormReader, RefusesAListThatIsNone) {
  const auto list = [](const std::string& entry) { return Refused("CLFOC", items, R"(, "folding": [)" + entry + "]"); };
  EXPECT_EQ(list(R"({"wholes": ["DATA"], "list": {"of": "DATA8"}})"),
            "forms/CLFOC.json: the list DATA has no separator");
  EXPECT_EQ(list(R"({"wholes": ["DATA"], "separator": "&", "list": {"each": "08&&11", "of": "DATA%"}})"),
            "forms/CLFOC.json: the list DATA has a part DATA11, which is no parameter");
  EXPECT_EQ(list(R"({"wholes": ["DATA"], "separator": "&", "list": {"of": "DATA8", "add": ""}})"),
            "forms/CLFOC.json: folding[0].list: unknown key \"add\".");
}

}  // namespace
}  // namespace cordboard::workbench
