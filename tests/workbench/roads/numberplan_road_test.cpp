// The commands of the number plan as a user meets them: NASCS, NANLS, NACDS and NAPTS on a real exchange.

#include <gmock/gmock.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string numberInUse =
    "A number is already in use, as it stands or as the beginning of another. Give other numbers.";
const std::string constantRefused =
    "A value of NASCS begins a number that is in use, or no value can be used. Give others; set up a series first if "
    "none stands.";
const std::string constantBlocked =
    "A value of NASCS lies in a range of numbers that is already in use. Give another value.";

// --- NASCS.

const char* const constants =
    "SELECT DDIV, CDDIV, ANSBL, AGP, ANS, ACGN, PGI, PGDMI, PGSI, PGA, PGSA FROM NASCS ORDER BY rowid";
const char* const blocked = "SELECT [Start], [End], [Numtyp] FROM NANSIBlockedRange ORDER BY rowid";

struct NASCSRoad : testing::Test {
  Road road;
  void SetUp() override { ASSERT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=400&&599;"), "done"); }
};

TEST(NASCSRoadWithoutSeries, AConstantIsRefusedUntilASeriesStands) {
  Road road;
  EXPECT_EQ(road.Do("NASCS:PGI=61;"), constantRefused);
  EXPECT_EQ(road.Rows(constants), "");
  EXPECT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=100&&199;"), "done");
  EXPECT_EQ(road.Do("NASCS:PGI=61;"), "done");
  EXPECT_EQ(road.Rows(constants), "-|-|-|-|-|-|61|-|-|-|-");
}

TEST_F(NASCSRoad, ConstantsAreAddedAndBlockTheirNumbersForSeries) {
  EXPECT_EQ(road.Do("NASCS:DDIV=61,PGI=62;"), "done");
  EXPECT_EQ(road.Rows(constants), "61|-|-|-|-|-|62|-|-|-|-");
  EXPECT_EQ(road.Rows(blocked), "400|599|EX 61|-|- 62|-|-");
  EXPECT_THAT(road.Do("NANSI:NUMTYP=EX,NUMSE=600&&619;"),
              StartsWith("NUMSE=600&&619: A number of this series lies in a range"));
  EXPECT_EQ(road.Do("NANSI:NUMTYP=EX,NUMSE=630&&639;"), "done");
}

TEST_F(NASCSRoad, ConstantsThatCannotBeTakenAreRefusedWithTheReason) {
  EXPECT_EQ(road.Do("NASCS:PGI=45;"), "PGI=45: " + constantRefused);
  EXPECT_EQ(road.Do("NASCS:PGI=0500;"), "PGI=0500: " + constantBlocked + "\n" + constantRefused);
  EXPECT_EQ(road.Do("NASCS:PGI=61,PGA=61;"),
            "PGA=61: The value of PGA is already used. Give another value.\n" + constantRefused);
  EXPECT_EQ(road.Do("NASCS:PGI=6A;"),
            "PGI=6A: this value should be a number: digits alone\n"
            "the rules of NASCS need a number where a value is none");
  EXPECT_EQ(road.Rows(constants), "");
  EXPECT_EQ(road.Rows(blocked), "400|599|EX");
}

TEST_F(NASCSRoad, AConstantThatBeginsASeriesCutsTheRecordShortBehindAGoodOne) {
  EXPECT_EQ(road.Do("NASCS:DDIV=61,PGI=45,PGA=62;"), "done\nPGI=45: " + constantRefused);
  EXPECT_EQ(road.Rows(constants), "61|-|-|-|-|-|45|-|-|-|-");
}

TEST_F(NASCSRoad, ASecondAddIsBlockedByItsOwnRowAndPointsToTheEdit) {
  ASSERT_EQ(road.Do("NASCS:DDIV=61,PGI=62;"), "done");
  const std::string refusal =
      constantBlocked + "\nthere is one record of NASCS, and it stands already; change it with: edit NASCS:NAME=value;";
  EXPECT_EQ(road.Do("NASCS:DDIV=61,PGI=63;"), "DDIV=61: " + refusal);
  // The record that stands is on the form, so that what is left out is not lost.
  EXPECT_EQ(road.Do("NASCS:PGI=63;"), refusal);
  EXPECT_EQ(road.Rows(constants), "61|-|-|-|-|-|62|-|-|-|-");
}

TEST_F(NASCSRoad, AnEditMovesTheBlockedNumber) {
  ASSERT_EQ(road.Do("NASCS:DDIV=61,PGI=62;"), "done");
  EXPECT_EQ(road.Do("edit NASCS:PGI=63;"), "done");
  EXPECT_EQ(road.Rows(constants), "61|-|-|-|-|-|63|-|-|-|-");
  EXPECT_EQ(road.Rows(blocked), "400|599|EX 61|-|- 63|-|-");
  EXPECT_EQ(road.Do("edit NASCS:PGI=;"), "done");
  EXPECT_EQ(road.Rows(constants), "61|-|-|-|-|-|-|-|-|-|-");
  EXPECT_EQ(road.Rows(blocked), "400|599|EX 61|-|-");
}

TEST_F(NASCSRoad, AnEditIsRefusedForEveryNumberThatIsSpokenFor) {
  ASSERT_EQ(road.Do("NASCS:DDIV=61,PGI=62;"), "done");
  EXPECT_EQ(road.Do("edit NASCS:PGI=61;"), "PGI=61: The value of PGI is already used. Give another value.");
  EXPECT_EQ(road.Do("edit NASCS:PGI=45;"), "PGI=45: " + constantRefused);
  EXPECT_EQ(road.Do("edit NASCS:PGI=0599;"), "PGI=0599: " + constantBlocked);
  EXPECT_EQ(road.Do("edit NASCS:PGI=62;"), "PGI=62: " + constantBlocked);  // its own row
  EXPECT_EQ(road.Rows(constants), "61|-|-|-|-|-|62|-|-|-|-");
}

TEST_F(NASCSRoad, ADeleteFreesTheNumbers) {
  ASSERT_EQ(road.Do("NASCS:DDIV=61,PGI=62;"), "done");
  EXPECT_EQ(road.Do("delete NASCS;"), "done");
  EXPECT_EQ(road.Rows(constants), "");
  EXPECT_EQ(road.Rows(blocked), "400|599|EX");
  EXPECT_EQ(road.Do("delete NASCS;"), "there is no record of NASCS");
  EXPECT_EQ(road.Do("NASCS:DDIV=61;"), "done");
}

TEST_F(NASCSRoad, ConstantsHaveNoLine) {
  ASSERT_EQ(road.Do("NASCS:DDIV=61,PGI=62;"), "done");
  EXPECT_THAT(road.Lines(), ElementsAre("NANSI:NUMTYP=EX,NUMSE=400&&599;"));
}

// --- NANLS.

const char* const lengths = "SELECT EXL, MIN, MAX FROM NANLS ORDER BY rowid";

TEST(NANLSRoad, TheLengthsAreOffered) {
  Road road;
  EXPECT_EQ(road.Values("NANLS", "MAX"), "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20");
  EXPECT_EQ(road.Values("NANLS", "MIN"), road.Values("NANLS", "MAX"));
  EXPECT_EQ(road.Do("NANLS:EXL=0,MIN=21;"),
            "MIN=21: this value is not possible here [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, ... (20 in all)]");
  EXPECT_EQ(road.Do("NANLS:EXL=0,MAX=5;"), "MIN=: this parameter has to be given (Least length of the whole number)");
}

TEST(NANLSRoad, OneRecordForEachOfSeveralDigitsAndARange) {
  Road road;
  EXPECT_EQ(road.Do("NANLS:EXL=0&01&&03,MIN=4,MAX=12;"), "done");
  EXPECT_EQ(road.Do("NANLS:EXL=9,MIN=3;"), "done");
  EXPECT_EQ(road.Rows(lengths), "0|4|12 01|4|12 02|4|12 03|4|12 9|3|-");
}

TEST(NANLSRoad, LengthsThatDoNotGoTogetherAreRefused) {
  Road road;
  const std::string minimumAboveMaximum = "MIN is greater than MAX. Give a smaller MIN or a greater MAX.";
  const std::string digitsTooLong = "EXL has more digits than MIN tells. Give a greater MIN or a shorter EXL.";
  EXPECT_EQ(road.Do("NANLS:EXL=123,MIN=2;"), "MIN=2: " + digitsTooLong);
  EXPECT_EQ(road.Do("NANLS:EXL=123,MIN=9,MAX=8;"), "MIN=9: " + minimumAboveMaximum);
  EXPECT_EQ(road.Do("NANLS:EXL=1&123&2,MIN=2;"), "MIN=2: " + digitsTooLong);
  EXPECT_EQ(road.Rows(lengths), "");

  ASSERT_EQ(road.Do("NANLS:EXL=123,MIN=3,MAX=8;"), "done");
  EXPECT_EQ(road.Do("edit NANLS EXL=123:MIN=2;"), "MIN=2: " + digitsTooLong);
  EXPECT_EQ(road.Do("edit NANLS EXL=123:MIN=9;"), "MIN=9: " + minimumAboveMaximum);
  EXPECT_EQ(road.Do("edit NANLS EXL=123:MAX=2;"), "MIN=3: " + minimumAboveMaximum);
  EXPECT_EQ(road.Do("edit NANLS EXL=123:EXL=1234;"), "MIN=3: " + digitsTooLong);
  EXPECT_EQ(road.Rows(lengths), "123|3|8");
}

TEST(NANLSRoad, ARecordIsChangedAndDeleted) {
  Road road;
  ASSERT_EQ(road.Do("NANLS:EXL=0&1,MIN=4,MAX=12;"), "done");
  EXPECT_EQ(road.Do("edit NANLS EXL=1:EXL=2,MIN=5,MAX=;"), "done");
  // A value that is cleared is written as the empty text.
  EXPECT_EQ(road.Rows(lengths), "0|4|12 2|5|");
  EXPECT_EQ(road.Do("edit NANLS EXL=2:EXL=3&4;"), "EXL=3&4: several values are not possible here; give one value");
  EXPECT_EQ(road.Do("edit NANLS EXL=2:EXL=3&&4;"), "EXL=3&&4: a range is not possible here; give one value");
  EXPECT_EQ(road.Do("edit NANLS MIN=7:MIN=8;"), "there is no record of NANLS with MIN=7");
  EXPECT_EQ(road.Do("delete NANLS;"), "there are several records of NANLS; select one by more of its parameters");
  EXPECT_EQ(road.Do("delete NANLS EXL=0;"), "done");
  EXPECT_EQ(road.Rows(lengths), "2|5|");
}

// --- NACDS.

const char* const categories = "SELECT NUM, CDCAT FROM NACDS ORDER BY rowid";

TEST(NACDSRoad, NumbersAreAddedWithTheirCategories) {
  Road road;
  EXPECT_EQ(road.Do("NACDS:NUM=110&112,CDCAT=1&3&2;"), "done");
  EXPECT_EQ(road.Rows(categories), "110|1&3&2 112|1&3&2");
  EXPECT_EQ(road.Do("NACDS:NUM=5;"), "CDCAT=: this parameter has to be given (Category of call discrimination)");
}

TEST(NACDSRoad, NoNumberMayBeginAnother) {
  Road road;
  ASSERT_EQ(road.Do("NACDS:NUM=123,CDCAT=1;"), "done");
  EXPECT_EQ(road.Do("NACDS:NUM=12,CDCAT=1;"), "NUM=12: " + numberInUse);
  EXPECT_EQ(road.Do("NACDS:NUM=1234,CDCAT=1;"), numberInUse);
  EXPECT_EQ(road.Do("NACDS:NUM=5&55,CDCAT=1;"), numberInUse);
  EXPECT_EQ(road.Do("NACDS:NUM=13,CDCAT=1;"), "done");
  EXPECT_EQ(road.Rows(categories), "123|1 13|1");
}

TEST(NACDSRoad, ASecondAddOfANumberAddsItsCategories) {
  Road road;
  ASSERT_EQ(road.Do("NACDS:NUM=12,CDCAT=1;"), "done");
  EXPECT_EQ(road.Do("NACDS:NUM=12,CDCAT=2&4;"), "done");
  EXPECT_EQ(road.Rows(categories), "12|1&2&4");
}

TEST(NACDSRoad, AnEditReplacesWhereAnAddMerges) {
  Road road;
  ASSERT_EQ(road.Do("NACDS:NUM=12,CDCAT=1;"), "done");
  ASSERT_EQ(road.Do("NACDS:NUM=13,CDCAT=1;"), "done");
  EXPECT_EQ(road.Do("edit NACDS NUM=12:CDCAT=2&3;"), "done");
  EXPECT_EQ(road.Do("edit NACDS NUM=12:NUM=123;"), "done");  // its own number does not stand in the way
  EXPECT_EQ(road.Do("edit NACDS NUM=123:NUM=1;"), "NUM=1: " + numberInUse);
  EXPECT_EQ(road.Do("edit NACDS NUM=123:NUM=20&21;"),
            "NUM=20&21: several values are not possible here; give one value");
  EXPECT_EQ(road.Do("edit NACDS NUM=123:CDCAT=;"),
            "CDCAT=: this parameter has to be given (Category of call discrimination)");
  EXPECT_EQ(road.Rows(categories), "123|2&3 13|1");
  EXPECT_EQ(road.Do("delete NACDS NUM=13;"), "done");
  EXPECT_EQ(road.Rows(categories), "123|2&3");
}

// --- NAPTS.

const char* const positions = "SELECT EXL, POS, POS1, POS2, POS3, POS4, POS5, POS6 FROM NAPTS ORDER BY rowid";

TEST(NAPTSRoad, PositionsAreGivenAtOnceOrDigitByDigit) {
  Road road;
  EXPECT_EQ(road.Do("NAPTS:EXL=5,POS=021&042&053;"), "done");
  EXPECT_EQ(road.Do("NAPTS:EXL=6,POS1_D1D2=12,POS1_D3=1,POS3_D1D2=13;"), "done");
  EXPECT_EQ(road.Rows(positions), "5|021&042&053|021|042|053|-|-|- 6|121&130|121|-|130|-|-|-");
}

TEST(NAPTSRoad, ACheckLiftsTheDutyToGiveAllPositionsAtOnce) {
  Road road;
  const char* const missing = "POS=: this parameter has to be given (All positions at once, three digits each)";
  EXPECT_EQ(road.Do("NAPTS:EXL=5;"), missing);
  EXPECT_EQ(road.Do("NAPTS:EXL=5,POS1_D3=1;"), missing);
  EXPECT_EQ(road.Do("NAPTS:EXL=5,POS1_D1D2=12;"), "done");
  // The next form asks anew.
  EXPECT_EQ(road.Do("NAPTS:EXL=6;"), missing);
}

TEST(NAPTSRoad, APlaceThatIsTakenLeavesTheListsOfTheOthers) {
  Road road;
  const std::string all = "01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20";
  const std::string without12 = "01 02 03 04 05 06 07 08 09 10 11 13 14 15 16 17 18 19 20";
  EXPECT_EQ(road.Values("NAPTS", "POS1_D1D2"), all);
  EXPECT_EQ(road.Values("NAPTS", "POS1_D3"), "0 1 2 3");
  EXPECT_EQ(road.Values("NAPTS", "POS2_D1D2", {{"POS1_D1D2", "12"}}), without12);
  EXPECT_EQ(road.Offered("POS6_D1D2"), without12);
  EXPECT_EQ(road.Offered("POS1_D1D2"), all);
  EXPECT_EQ(road.Do("NAPTS:EXL=5,POS1_D1D2=12,POS2_D1D2=12;"),
            "POS2_D1D2=12: this value is not possible here [01, 02, 03, 04, 05, 06, 07, 08, 09, 10, ... (19 in all)]");
}

TEST(NAPTSRoad, AnotherChoiceOrNonePutsThePlaceBack) {
  Road road;
  Filling filling(road.session(), *FindForm("NAPTS"));
  const auto choose = [&](const char* value) {
    filling.Set({"POS1_D1D2", value});
    EXPECT_TRUE(filling.problems().empty() && filling.warnings().empty()) << value;
    return road.Offered("POS2_D1D2");
  };
  ASSERT_THAT(road.Offered("POS2_D1D2"), HasSubstr("12"));
  EXPECT_THAT(choose("12"), Not(HasSubstr("12")));
  const std::string after = choose("13");
  EXPECT_THAT(after, HasSubstr("12"));
  EXPECT_THAT(after, Not(HasSubstr("13")));
  EXPECT_THAT(choose(""), HasSubstr("13"));
}

TEST(NAPTSRoad, ANumberHasOneRecord) {
  Road road;
  ASSERT_EQ(road.Do("NAPTS:EXL=5,POS=021;"), "done");
  EXPECT_EQ(road.Do("NAPTS:EXL=5,POS=031;"), "EXL=5: " + numberInUse);
  EXPECT_EQ(road.Do("NAPTS:EXL=4&5&6,POS=031;"), "EXL=4&5&6: " + numberInUse);
  EXPECT_EQ(road.Do("NAPTS:EXL=7&7,POS=031;"), numberInUse);
  EXPECT_EQ(road.Rows("SELECT EXL FROM NAPTS"), "5");
  EXPECT_EQ(road.Do("NAPTS:EXL=6&&8,POS=031;"), "done");
  EXPECT_EQ(road.Rows("SELECT EXL FROM NAPTS ORDER BY rowid"), "5 6 7 8");
}

TEST(NAPTSRoad, MoreThanSixPositionsFailAndLeaveNothing) {
  Road road;
  EXPECT_EQ(road.Do("NAPTS:EXL=5,POS=011&021&031&041&051&061;"), "done");
  EXPECT_EQ(road.Do("NAPTS:EXL=6,POS=011&021&031&041&051&061&071;"),
            "the rules of NAPTS found fewer or more values than they need; check the values and the records that they "
            "refer to");
  EXPECT_EQ(road.Rows("SELECT EXL FROM NAPTS"), "5");
}

TEST(NAPTSRoad, AnEditChangesPositionsOneByOneAndNeverAllAtOnce) {
  Road road;
  ASSERT_EQ(road.Do("NAPTS:EXL=5,POS=021&042;"), "done");
  EXPECT_EQ(road.Do("edit NAPTS EXL=5:POS2_D1D2=05;"), "done");
  EXPECT_EQ(road.Rows(positions), "5|021&052|021|052|-|-|-|-");
  EXPECT_EQ(road.Do("edit NAPTS EXL=5:POS3=061;"), "done");
  EXPECT_EQ(road.Rows(positions), "5|021&052&061|021|052|061|-|-|-");
  EXPECT_EQ(road.Do("edit NAPTS EXL=5:POS=031;"), "done");
  EXPECT_EQ(road.Rows(positions), "5|021&052&061|021|052|061|-|-|-");
  EXPECT_EQ(road.Do("edit NAPTS EXL=5:POS1=;"), "done");
  EXPECT_EQ(road.Rows(positions), "5|052&061||052|061|-|-|-");
}

TEST(NAPTSRoad, AnEditWithAllSixPositionsLeavesTheSixthOutOfTheText) {
  Road road;
  ASSERT_EQ(road.Do("NAPTS:EXL=5,POS=011&021&031&041&051&061;"), "done");
  EXPECT_EQ(road.Do("edit NAPTS EXL=5:POS6_D3=2;"), "done");
  EXPECT_EQ(road.Rows(positions), "5|011&021&031&041&051&|011|021|031|041|051|062");
  EXPECT_EQ(road.Do("delete NAPTS EXL=5;"), "done");
  EXPECT_EQ(road.Rows(positions), "");
}

}  // namespace
}  // namespace cordboard::workbench
