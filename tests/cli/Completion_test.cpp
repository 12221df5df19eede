#include "cli/shell/Completion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/shell/Words.h"
#include "support/Road.h"

namespace cordboard::cli::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Completion : testing::Test {
  static void SetUpTestSuite() {
    road = std::make_unique<workbench::Road>();
    for (const char* line :
         {"NANSI:NUMTYP=EX,NUMSE=100&&199;", "NANSI:NUMTYP=AC,NUMSE=70;", "EXCCS:CAT=1,TRAF=11,SERV_D6=1;",
          "KSEXI:DIR=100&&101,ITYPE=12,EQU=next,CAT=1;", "ADCOI:ABB=70,TRA=4711,DESCRIPTION=\"Mill, gate 2\";",
          "KSEXITEMPLATE:TEMPLATENAME=Office,CAT=1;", "KSEXITEMPLATE:TEMPLATENAME=\"Of:it\",CAT=1;"})
      ASSERT_EQ(road->Do(line), "done") << line;
  }
  static void TearDownTestSuite() { road.reset(); }

  // What may stand where something is typed, without what is typed.
  static std::vector<std::string> After(const std::string& typed, std::size_t most = 20) {
    std::vector<std::string> words;
    const LookUp lookUp{.exchange = []() -> workbench::Exchange& { return road->exchange(); }, .most = most};
    for (const auto& [value, description] : Continuations(lookUp, typed))
      if (value.starts_with(typed)) words.push_back(value.substr(typed.size()));
    return words;
  }

  static std::unique_ptr<workbench::Road> road;
};
std::unique_ptr<workbench::Road> Completion::road;

TEST_F(Completion, WordsVerbsAndCommandsStandAtTheBeginning) {
  EXPECT_THAT(After("KSEXI"), ElementsAre(":", "TEMPLATE:"));
  EXPECT_THAT(After("ed"), ElementsAre("it "));
  EXPECT_THAT(After("t"), ElementsAre("ry "));
  EXPECT_THAT(After("  qu"), ElementsAre("it"));
  EXPECT_THAT(After("edit KSEXIT"), ElementsAre("EMPLATE "));
  EXPECT_THAT(After("delete NANS"), ElementsAre("I "));
}

TEST_F(Completion, ParametersThatAreGivenAreLeftOut) {
  EXPECT_THAT(After("NANSI:"), ElementsAre("NUMTYP=", "NUMSE="));
  EXPECT_THAT(After("NANSI:NUMSE=\"1\", "), ElementsAre("NUMTYP="));
  EXPECT_THAT(After("delete NANSI NUMSE=150,"), ElementsAre("NUMTYP=", "USED="));
}

TEST_F(Completion, ValuesAreThoseThatAreValidNow) {
  EXPECT_THAT(After("KSEXI:DIR=10", 3), ElementsAre("2", "3", "4"));
  EXPECT_THAT(After("KSEXI:DIR=102&&10", 2), ElementsAre("2", "3"));
  EXPECT_THAT(After("KSEXI:ITYPE=12,EQU=001-0-11-0", 2), ElementsAre("2", "3"));
  EXPECT_THAT(After("KSEXI:DIR=n"), ElementsAre("ext"));
  EXPECT_THAT(After("KSEXI:CAT="), ElementsAre("1"));
  EXPECT_THAT(After("KSEXI:CAT=7,DIR="), IsEmpty()) << "the form refuses what is given";
}

TEST_F(Completion, ASelectionHasWhatIsStored) {
  EXPECT_THAT(After("edit KSEXI DIR="), ElementsAre("100", "101"));
  EXPECT_THAT(After("delete KSEXI CAT=1,DIR=10", 1), ElementsAre("0"));
  EXPECT_THAT(After("edit KSEXI DIR=100&&10"), ElementsAre("0", "1"));
  EXPECT_THAT(After("delete KSEXI DIR=1' OR '1"), IsEmpty());
  EXPECT_THAT(After("edit ADCOI DESCRIPTION=\"Mi"), ElementsAre("ll, gate 2\""));
  EXPECT_THAT(After("edit ADCOI DESCRIPTION="), ElementsAre("\"Mill, gate 2\""));
}

TEST_F(Completion, TheNewValuesOfAnEditAreThoseOfItsRecord) {
  EXPECT_THAT(After("edit KSEXI DIR=100:EQU=001-0-11-0", 2), ElementsAre("2", "3"));
  EXPECT_THAT(After("edit KSEXI DIR=100&101:CAT="), ElementsAre("1"));
  EXPECT_THAT(After("EXCCS:CAT"), ElementsAre("=", "TYP="));
  EXPECT_THAT(After("edit EXCCS CAT=1:CAT"), ElementsAre("TYP=")) << "an edit cannot change it";
}

TEST_F(Completion, TemplatesStandBehindFrom) {
  EXPECT_THAT(After("KSEXI "), ElementsAre("from "));
  EXPECT_THAT(After("KSEXI from O"), ElementsAre("ffice:"));
  EXPECT_THAT(After("KSEXI from \"O"), ElementsAre("f:it\":", "ffice\":"));
  EXPECT_THAT(After("KSEXI from Office:CAT"), ElementsAre("="));
  EXPECT_THAT(After("NANSI f"), IsEmpty());
}

TEST_F(Completion, WordsAreGivenWhatTheyTake) {
  EXPECT_THAT(After("show KSEXIT"), ElementsAre("EMPLATE"));
  EXPECT_THAT(After("show KSEXI DIR="), ElementsAre("100", "101"));
  EXPECT_THAT(After("values KSEXI CU"), ElementsAre("ST"));
  EXPECT_THAT(After("values KSEXI EQU CAT=1 ITYP"), ElementsAre("E="));
  EXPECT_THAT(After("help k"), ElementsAre("eep"));
  EXPECT_THAT(After("try "), ElementsAre("again"));
  EXPECT_THAT(After("used 100 pos"), ElementsAre("ition"));
  EXPECT_THAT(After("quit "), IsEmpty());
  EXPECT_THAT(After("nothing "), IsEmpty());
}

// --- What Tab does.

TEST(Tab, PutsInWhatAllHaveInCommonAndListsThemOtherwise) {
  const Candidates candidates = {{"KSEXI:", "a"}, {"KSEXITEMPLATE:", "b"}, {"NANSI:", "c"}};
  EXPECT_EQ(Complete("K", candidates, {20, 80}).insert, "SEXI");
  const Completed listed = Complete("KSEXI", candidates, {20, 80});
  EXPECT_EQ(listed.insert, "");
  EXPECT_EQ(listed.list, "KSEXI:          a\nKSEXITEMPLATE:  b");
  EXPECT_EQ(Complete("N", candidates, {20, 80}).insert, "ANSI:");
  EXPECT_EQ(Complete("X", candidates, {20, 80}).insert + Complete("X", candidates, {20, 80}).list, "");
}

TEST(Tab, OfALongListTheFirstAreShown) {
  Candidates numbers;
  for (int i = 10; i < 50; ++i) numbers.push_back({"DIR=" + std::to_string(i), ""});
  EXPECT_EQ(Complete("DIR=", numbers, {2, 12}).list, "10  11  12\n13  14  15\n... and 34 more");
  while (numbers.size() < mostLookedFor) numbers.push_back(numbers.back());
  EXPECT_EQ(Complete("DIR=", numbers, {1, 12}).list, "10  11  12\n... and more");
}

TEST(Tab, AListFitsOnANarrowTerminalAndCannotSteerIt) {
  const Candidates candidates = {{"A=\u00e41", "a long description"}, {"A=\u00e42", "\x1b[2J"}, {"A=\u00fc", ""}};
  EXPECT_EQ(Complete("A=", candidates, {20, 10}).insert, "") << "two characters that begin with the same byte";
  EXPECT_EQ(Complete("A=", candidates, {20, 10}).list, "\u00e41  a lon\n\u00e42  \\u001\n\u00fc");
}

TEST(Words, WhatTheyAreGivenIsPartedAtBlanks) {
  EXPECT_THAT(Split("  show  KSEXI\tNAME=\"a b\"\"c\"  \"\" "), ElementsAre("show", "KSEXI", "NAME=a b\"c", ""));
  EXPECT_THAT(Split("keep \"a b"), ElementsAre("keep", "a b"));
  EXPECT_THAT(Split(" "), IsEmpty());
}

TEST(Words, EachHasItsHelpAndSaysWhatItTakes) {
  for (const Word& word : Words()) {
    EXPECT_NE(std::string(word.help), "") << word.name;
    EXPECT_EQ(FindWord(word.name), &word);
  }
  const Word::Kinds kinds = FindWord("values")->ArgumentKinds();
  EXPECT_EQ(kinds.least, 2U);
  EXPECT_EQ(kinds.At(1), "PARAM");
  EXPECT_EQ(kinds.At(7), "NAME=VALUE");
  EXPECT_EQ(FindWord("undo")->ArgumentKinds().At(1), "--with-later");
  EXPECT_EQ(FindWord("undo")->ArgumentKinds().At(2), "");
}

}  // namespace
}  // namespace cordboard::cli::shell
