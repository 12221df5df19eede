#include "support/Replayer.h"

#include <gtest/gtest.h>

namespace cordboard {
namespace {

// Plays one run on NANSI: its delete and its add are the rules of these tests.
std::string Play(const std::string& run) {
  const Transcript read = ReadTranscript({"X.transcript", "command NANSI\nrecord 7\n=== A title\n" + run});
  return Replay(read.blocks.at(0));
}

const std::string readRecord = "scRunQuery(\"SELECT NUMSE, NUMTYP FROM NANSI {NL} WHERE CmdId = 7\", out)";
const std::string report = "scErrorMessage(0, 2, 2, \"Delete: NANSI\", 60006, \"NANSI\")";
const std::string isCP = "scIsValueEqual(\"CP\")";
const std::string isAI = "scIsValueEqual(\"AI\")";

TEST(Replayer, HasNothingToSayAboutARunThatIsAsWritten) {
  EXPECT_EQ(Play("run DeleteInfo\n" + readRecord + " -> False\n" + report + "\ngives False\n"), "");
  EXPECT_EQ(Play("run DeleteInfo\n" + readRecord + " -> no rows\nfails SubscriptOutOfRange\n"), "");
  EXPECT_EQ(Play("run DeleteInfo\n" + readRecord + " -> fails\nfails HostFailure\n"), "");
  EXPECT_EQ(Play("run StatCheck \"NUMTYP\"\n" + isCP + " -> Null\n" + isAI + "\ngives False\n"), "");
}

TEST(Replayer, PlaysEachOrAndFindsOneThatIsOtherwise) {
  const std::string head = "run StatCheck \"NUMTYP\"\nform\n" + isCP + "\n  or Null: ";
  EXPECT_EQ(Play(head + isAI + "\n" + isAI + "\ngives False\n"), "");
  EXPECT_EQ(Play(head + isAI + "; gives True\n" + isAI + "\ngives False\n"),
            "X.transcript:7: StatCheck [\"NUMTYP\"]\n    " + isCP + "\n    " + isAI +
                "\n  - gives True   at X.transcript:7\n  + gives False\n");
}

TEST(Replayer, FindsACallThatIsMissing) {
  EXPECT_EQ(Play("run DeleteInfo\n" + readRecord + " -> False\ngives False\n"),
            "X.transcript:4: DeleteInfo Empty\n    " + readRecord +
                "\n  - (the run is over)   at X.transcript:4\n  + " + report + "\n");
}

TEST(Replayer, FindsACallThatIsNotMade) {
  EXPECT_EQ(Play("run StatCheck \"NUMTYP\"\n" + isCP + "\n" + isAI + "\nscResetParam(\"A\")\ngives False\n"),
            "X.transcript:4: StatCheck [\"NUMTYP\"]\n    " + isCP + "\n    " + isAI +
                "\n  - scResetParam(\"A\")   at X.transcript:7\n  + gives False\n");
}

TEST(Replayer, FindsAWrongOrderAndAWrongArgument) {
  EXPECT_EQ(Play("run StatCheck \"NUMTYP\"\n" + isAI + "\n" + isCP + "\ngives False\n"),
            "X.transcript:4: StatCheck [\"NUMTYP\"]\n  - " + isAI + "   at X.transcript:5\n  + " + isCP + "\n");
  EXPECT_EQ(
      Play("run DeleteInfo with record 8\n" + readRecord + " -> False\ngives False\n"),
      "X.transcript:4: DeleteInfo Empty\n  - " + readRecord +
          "   at X.transcript:5\n  + scRunQuery(\"SELECT NUMSE, NUMTYP FROM NANSI {NL} WHERE CmdId = 8\", out)\n");
}

TEST(Replayer, FindsAnotherOutcome) {
  EXPECT_EQ(Play("run EditInfo\ngives True\n"),
            "X.transcript:4: EditInfo Empty\n  - gives True   at X.transcript:4\n  + gives False\n");
  EXPECT_EQ(Play("run EditInfo\nfails Overflow\n"),
            "X.transcript:4: EditInfo Empty\n  - fails Overflow   at X.transcript:4\n  + gives False\n");
}

TEST(Replayer, TellsWhatStandsForTheNamesOfALoop) {
  EXPECT_EQ(Play("for record in 7 8\nrun EditInfo with record {record}\ngives True\n"),
            "X.transcript:5: EditInfo Empty, where record = 7\n  - gives True   at X.transcript:5\n  + gives False\n"
            "X.transcript:5: EditInfo Empty, where record = 8\n  - gives True   at X.transcript:5\n  + gives False\n");
}

TEST(Replayer, AnswersReadsFromTheFormAndFindsAValueThatIsNeverRead) {
  const std::string ask = "scNANSIinitiate(\"7\", \"CP\", out)";
  EXPECT_EQ(Play("run SetInfo\nform NUMTYP=\"CP\", NUMSE=\"7\"\n" + ask + "\ngives True\n"), "");
  EXPECT_EQ(Play("run SetInfo\nread NUMTYP=\"CP\", NUMSE=\"7\"\n" + ask + "\ngives True\n"), "");
  EXPECT_EQ(Play("run SetInfo\nread NUMSE=\"7\", NUMTYP=\"CP\"\n" + ask + "\ngives True\n"),
            "X.transcript:4: SetInfo Empty\n  - scGetParamValue(\"NUMSE\")   at X.transcript:5\n"
            "  + scGetParamValue(\"NUMTYP\")\n");
  EXPECT_EQ(Play("run SetInfo\n" + ask + "\ngives True\n"),
            "X.transcript:4: SetInfo Empty\n  - " + ask + "   at X.transcript:5\n  + scGetParamValue(\"NUMTYP\")\n");
  EXPECT_EQ(Play("run EditInfo\nform NUMSE=\"7\"\ngives False\n"),
            "X.transcript:4: EditInfo Empty\n  - form NUMSE=\"7\"   at X.transcript:4\n  + (it is never read)\n");
}

TEST(Replayer, WantsRowsToBeWrittenAndAnswersToSuitTheCall) {
  EXPECT_EQ(Play("run DeleteInfo\n" + readRecord + "\ngives False\n"),
            "X.transcript:5: the answer has to be written, such as: -> no rows, -> Empty, -> False\n");
  EXPECT_EQ(Play("run DeleteInfo\n" + readRecord + " -> False, no rows, 3\ngives False\n"),
            "X.transcript:5: no answer of this call: False, no rows, 3\n");
  EXPECT_EQ(Play("run DeleteInfo\n" + readRecord + " -> False\n" + report + " -> True\ngives False\n"),
            "X.transcript:6: no answer of this call: True\n");
  EXPECT_EQ(Play("run StatCheck \"NUMTYP\"\n" + isCP + " -> yes\ngives False\n"), "X.transcript:5: no value: yes\n");
}

}  // namespace
}  // namespace cordboard
