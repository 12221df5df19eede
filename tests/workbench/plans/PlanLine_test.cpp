#include "workbench/plans/PlanLine.h"

#include <gtest/gtest.h>

#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

std::string Written(const std::vector<Assignment>& assignments) {
  std::string text;
  for (const auto& [name, value] : assignments) text += (text.empty() ? "" : " ") + name + "=<" + value + ">";
  return text;
}

// "add NANSI | NUMTYP=<EX>", with the selection in front of the bar; "nothing" for a line without an action.
std::string Parsed(std::string_view line) {
  const auto action = ParsePlanLine(line);
  if (!action) return "nothing";
  const char* const kinds[] = {"add", "edit", "delete"};
  std::string text = std::string(kinds[static_cast<int>(action->kind)]) + " " + action->command;
  if (!action->from.empty()) text += " from <" + action->from + ">";
  if (!action->selection.empty()) text += " " + Written(action->selection);
  if (!action->values.empty()) text += " | " + Written(action->values);
  return text;
}

std::string Refused(std::string_view line) {
  return Refusal<PlanLineError>([&] { ParsePlanLine(line); });
}

// --- Lines that can be read.

TEST(PlanLine, ALineOfTheExchangeAdds) {
  EXPECT_EQ(Parsed("NANSI:NUMTYP=EX,NUMSE=100&&199;"), "add NANSI | NUMTYP=<EX> NUMSE=<100&&199>");
  EXPECT_EQ(Parsed("KSEXI:DIR=100,ITYPE=3,EQU=001-0-10-02,CAT=1;"),
            "add KSEXI | DIR=<100> ITYPE=<3> EQU=<001-0-10-02> CAT=<1>");
}

TEST(PlanLine, AnAddMayGiveNoValue) { EXPECT_EQ(Parsed("SYDAS:;"), "add SYDAS"); }

TEST(PlanLine, AnEditSelectsARecordBeforeTheColonAndChangesItBehind) {
  EXPECT_EQ(Parsed("edit KSEXI DIR=100,CUST=1:CAT=2,CUST=3;"), "edit KSEXI DIR=<100> CUST=<1> | CAT=<2> CUST=<3>");
  EXPECT_EQ(Parsed("edit SYDAS :CDNAL=3;"), "edit SYDAS | CDNAL=<3>");
  EXPECT_EQ(Parsed("edit KSEXI DIR=100:;"), "edit KSEXI DIR=<100>");
}

TEST(PlanLine, ADeleteSelectsARecord) {
  EXPECT_EQ(Parsed("delete KSEXI DIR=100;"), "delete KSEXI DIR=<100>");
  EXPECT_EQ(Parsed("delete SYDAS;"), "delete SYDAS");
}

TEST(PlanLine, AnAddMayBeFromATemplate) {
  EXPECT_EQ(Parsed("KSEXI from Office:DIR=100;"), "add KSEXI from <Office> | DIR=<100>");
  EXPECT_EQ(Parsed("KSEXI\tfrom  Front office :;"), "add KSEXI from <Front office>");
  EXPECT_EQ(Parsed("KSEXI from\"Mill: gate 2\":DIR=100;"), "add KSEXI from <Mill: gate 2> | DIR=<100>");
  EXPECT_EQ(Parsed("from:A=1;"), "add from | A=<1>");
  EXPECT_EQ(Refused("KSEXI from :DIR=100;"), "after from the name of a template is missing");
  EXPECT_EQ(Refused("KSEXI from \"\":DIR=100;"), "after from the name of a template is missing");
  EXPECT_EQ(Refused("KSEXI from Office;"), "a colon is missing at column 18");
  EXPECT_EQ(Refused("KSEXI from:DIR=100;"), "after from the name of a template is missing");
  EXPECT_EQ(Refused("KSEXI fromage:DIR=100;"), "a colon is missing at column 7");
  EXPECT_EQ(Refused("edit KSEXI from Office:CAT=1;"), "only an add is made from a template");
  EXPECT_EQ(Parsed("edit KSEXI from=1:CAT=1;"), "edit KSEXI from=<1> | CAT=<1>");
}

TEST(PlanLine, EditAndDeleteAreWordsOfTheirOwn) {
  EXPECT_EQ(Parsed("editor:A=1;"), "add editor | A=<1>");
  EXPECT_EQ(Parsed("EDIT:A=1;"), "add EDIT | A=<1>");
}

TEST(PlanLine, ALineWithoutAnActionIsNothing) {
  for (const char* line : {"", " ", "\t \r", "# NANSI:NUMTYP=EX;", "   # a comment", "#"})
    EXPECT_EQ(Parsed(line), "nothing") << line;
}

TEST(PlanLine, ACommentMayStandBehindTheSemicolon) {
  EXPECT_EQ(Parsed("A:B=1; # several; things: here"), "add A | B=<1>");
  EXPECT_EQ(Parsed("A:B=1;#x"), "add A | B=<1>");
}

TEST(PlanLine, BlanksAndTabsCountNowhereButInsideAValue) {
  EXPECT_EQ(Parsed(" \tA : B = 1 ,\tC\t=\t2 3\t; "), "add A | B=<1> C=<2 3>");
  EXPECT_EQ(Parsed("edit  A  B = 1 : C = 2 ;"), "edit A B=<1> | C=<2>");
}

TEST(PlanLine, LineEndsOfWindowsDoNotCount) {
  EXPECT_EQ(Parsed("A:B=1;\r"), "add A | B=<1>");
  EXPECT_EQ(Parsed("A:B=1; # x\r"), "add A | B=<1>");
  EXPECT_EQ(Refused("A:B=1\r"), "the line is not ended: a semicolon is missing");
}

TEST(PlanLine, NothingBehindTheEqualsSignIsAnEmptyValue) {
  EXPECT_EQ(Parsed("A:B=,C= ;"), "add A | B=<> C=<>");
  EXPECT_EQ(Parsed("A:B=\"\";"), "add A | B=<>");
}

TEST(PlanLine, AValueInDoubleQuotesHoldsAnything) {
  EXPECT_EQ(Parsed("A:B=\"Mill, gate 2; x: #1\",C=\" 1 \";"), "add A | B=<Mill, gate 2; x: #1> C=< 1 >");
  EXPECT_EQ(Parsed("A:B=\"the \"\"old\"\" mill\";"), "add A | B=<the \"old\" mill>");
  EXPECT_EQ(Parsed("A:B=\"\"\"\";"), "add A | B=<\">");
  EXPECT_EQ(Parsed("delete A B=\"x:y\";"), "delete A B=<x:y>");
}

TEST(PlanLine, ADoubleQuoteInsideAValueIsACharacterLikeOthers) {
  EXPECT_EQ(Parsed("A:B=3\" pipe;"), "add A | B=<3\" pipe>");
}

TEST(PlanLine, ASingleQuoteIsLeftToTheForm) { EXPECT_EQ(Parsed("A:B=O'Neill;"), "add A | B=<O'Neill>"); }

TEST(PlanLine, ValuesAreUtf8) { EXPECT_EQ(Parsed("A:B=Zürich;"), "add A | B=<Zürich>"); }

TEST(PlanLine, ALineMayBeSixtyFourKilobytesLong) {
  const std::string value(longestLine - 5, 'x');
  EXPECT_EQ(Parsed("A:B=" + value + ";"), "add A | B=<" + value + ">");
  EXPECT_EQ(Refused("A:B=" + value + "x;"), "the line is longer than 65536 bytes");
}

// --- Lines that cannot.

TEST(PlanLine, EveryLineEndsWithASemicolon) {
  const std::string missing = "the line is not ended: a semicolon is missing";
  for (const char* line :
       {"A:B=1", "A:B=", "A:", "delete A", "delete A B=1", "edit A B=1:C=2", "A:B=\"x\"", "A:B=1 # x"})
    EXPECT_EQ(Refused(line), missing) << line;
}

TEST(PlanLine, AColonStandsBehindTheCommandOfAnAddAndTheSelectionOfAnEdit) {
  EXPECT_EQ(Refused("EDIT A B=1:C=2;"), "a colon is missing at column 6; the word edit is written in small letters");
  EXPECT_EQ(Refused("Delete A B=1;"), "a colon is missing at column 8; the word delete is written in small letters");
  EXPECT_EQ(Refused("A;"), "a colon is missing at column 2");
  EXPECT_EQ(Refused("A B=1;"), "a colon is missing at column 3");
  EXPECT_EQ(Refused("edit A B=1;"), "a colon is missing at column 11");
}

TEST(PlanLine, ACommandIsNamed) {
  EXPECT_EQ(Refused(":B=1;"), "a command is missing at the beginning");
  EXPECT_EQ(Refused(";"), "a command is missing at the beginning");
  EXPECT_EQ(Refused("=1;"), "a command is missing at the beginning");
  EXPECT_EQ(Refused("edit"), "after edit or delete a command is missing");
  EXPECT_EQ(Refused("edit ;"), "after edit or delete a command is missing");
  EXPECT_EQ(Refused("delete :B=1;"), "after edit or delete a command is missing");
}

TEST(PlanLine, AParameterIsNamed) {
  EXPECT_EQ(Refused("A:=1;"), "a parameter name is missing at column 3");
  EXPECT_EQ(Refused("A:B=1,;"), "a parameter name is missing at column 7");
  EXPECT_EQ(Refused("A:,B=1;"), "a parameter name is missing at column 3");
}

TEST(PlanLine, AnEqualsSignStandsBehindAName) {
  EXPECT_EQ(Refused("A:B;"), "an equals sign is missing at column 4");
  EXPECT_EQ(Refused("A:B 1;"), "an equals sign is missing at column 5");
  EXPECT_EQ(Refused("A:B=1,C;"),
            "an equals sign is missing at column 8; a value that holds a comma stands in double quotes");
  EXPECT_EQ(Refused("delete A B;"), "an equals sign is missing at column 11");
}

TEST(PlanLine, BetweenValuesStandsAComma) {
  EXPECT_EQ(Refused("A:B=\"x\"y;"), "a comma or the semicolon is missing at column 8");
  EXPECT_EQ(Refused("A:B=\"x\" C=1;"), "a comma or the semicolon is missing at column 9");
  EXPECT_EQ(Refused("delete A B=1:C=2;"), "a comma or the semicolon is missing at column 13");
}

TEST(PlanLine, AColumnCountsCharactersFromTheBeginningOfTheLine) {
  EXPECT_EQ(Refused("A:B=\"äöü\"x;"), "a comma or the semicolon is missing at column 10");
  EXPECT_EQ(Refused(" \tA:B;"), "an equals sign is missing at column 6");
}

TEST(PlanLine, TheTextOfALineThatCannotBeReadIsNotTold) {
  EXPECT_EQ(Refused("A:B=red,green#blue;"),
            "an equals sign is missing at column 14; a value that holds a comma stands in double quotes");
  EXPECT_EQ(Refused("A:B=\"red\"\"gre\"en;"), "a comma or the semicolon is missing at column 15");
  EXPECT_EQ(Refused("green\";"), "a colon is missing at column 6");
}

TEST(PlanLine, AnOpenDoubleQuoteIsClosed) {
  for (const char* line : {"A:B=\"", "A:B=\"x;", "A:B=\"x\"\"", "A:B=\"x\"\";"})
    EXPECT_EQ(Refused(line), "a double quote is opened and not closed at column 5") << line;
  EXPECT_EQ(Refused("delete A B=\"x;"), "a double quote is opened and not closed at column 12");
}

TEST(PlanLine, OneActionALine) {
  const std::string refusal = "after the semicolon stands more than a comment; give one action a line";
  EXPECT_EQ(Refused("A:B=1; C:D=2;"), refusal);
  EXPECT_EQ(Refused("A:B=1;;"), refusal);
}

TEST(PlanLine, ALineOfAMegabyteIsRefused) {
  EXPECT_EQ(Refused(std::string(1 << 20, 'x')), "the line is longer than 65536 bytes");
  EXPECT_EQ(Refused("# " + std::string(1 << 20, 'x')), "the line is longer than 65536 bytes");
}

TEST(PlanLine, AZeroCharacterIsRefusedWhereverItStands) {
  for (const std::string_view line : {std::string_view("\0", 1), std::string_view("A:B=\0;", 6),
                                      std::string_view("A:B=1;\0", 7), std::string_view("#\0", 2)})
    EXPECT_EQ(Refused(line), "the line holds a zero character");
}

TEST(PlanLine, BytesThatAreNotUtf8AreRefusedWhereverTheyStand) {
  for (const char* line : {"A:B=Z\xFCrich;", "\xFF\xFE", "# Z\xFCrich", "A:B=1; # \xC3"})
    EXPECT_EQ(Refused(line), "the line is not UTF-8 text");
}

// --- Parameters of a command line.

TEST(Assignment, ANameAndAValueStandOnBothSidesOfTheFirstEqualsSign) {
  const auto parsed = [](std::string_view text) { return Written({ParseAssignment(text)}); };
  EXPECT_EQ(parsed("NUMTYP=EX"), "NUMTYP=<EX>");
  EXPECT_EQ(parsed("A=b=c"), "A=<b=c>");
  EXPECT_EQ(parsed(" A = b "), "A=< b >");
  EXPECT_EQ(parsed("A="), "A=<>");
}

TEST(Assignment, OneWithoutANameOrWithoutAnEqualsSignIsRefused) {
  const auto refused = [](std::string_view text) { return Refusal<PlanLineError>([&] { ParseAssignment(text); }); };
  EXPECT_EQ(refused("NUMTYP"), "is not of the form NAME=value");
  EXPECT_EQ(refused("=EX"), "is not of the form NAME=value");
  EXPECT_EQ(refused(""), "is not of the form NAME=value");
  EXPECT_EQ(refused("A=\xFF"), "is not UTF-8 text");
}

TEST(PlanLine, AValueIsWrittenAsItIsRead) {
  EXPECT_EQ(WrittenValue("100&&199"), "100&&199");
  EXPECT_EQ(WrittenValue(" Mill"), "\" Mill\"");
  EXPECT_EQ(WrittenValue("Mill, gate 2"), "\"Mill, gate 2\"");
  for (const std::string value : {"", "a b", "a,b", "a:b", "a;b", "a#b", "say \"so\"", "\"", "10.0.0.1"})
    EXPECT_EQ(ParsePlanLine("GESPI:CSP=1,DESCRIPTION=" + WrittenValue(value) + ";")->values[1].value, value);
}

TEST(PlanLine, AnActionIsWrittenAsTheLineThatIsReadAsIt) {
  for (const char* line :
       {"GESPI:CSP=1,DESCRIPTION=\"Mill, gate 2\";", "KSEXI from \"A:b\":DIR=100;", "edit SYTDS:PGIV=;",
        "edit KSEXI DIR=100,EQU=001-0-10-00:CUST=3,LANG=;", "delete KSEXI DIR=100;", "delete SYTDS;", "SYTDS:;"})
    EXPECT_EQ(WrittenLine(*ParsePlanLine(line)), line);
}

}  // namespace
}  // namespace cordboard::workbench
