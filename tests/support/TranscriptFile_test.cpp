#include "support/TranscriptFile.h"

#include <gtest/gtest.h>

#include "script/TracingHost.h"

namespace cordboard {
namespace {

Transcript Read(const std::string& text, const std::string& common = "") {
  return ReadTranscript({"X.transcript", text}, {{"common.transcript", common}});
}

// A block with one run of these lines, and what its calls are.
std::string Calls(const std::string& definitions, const std::string& lines, const std::string& common = "") {
  const Transcript read =
      Read("command X\n" + definitions + "=== A title\nrun SetInfo\n" + lines + "gives True\n", common);
  std::string calls;
  for (const ExpectedCall& call : read.blocks.at(0).runs.at(0).calls)
    calls += call.call + (call.answer.empty() ? "" : " -> " + call.answer) + "\n";
  return calls;
}

std::string Refusal(const std::string& text, const std::string& common = "") {
  try {
    Read(text, common);
    return "read";
  } catch (const TranscriptError& error) {
    return error.what();
  }
}

TEST(TranscriptFile, AnActionHasTheDefaultsOfItsFileAndSaysWhatDiffers) {
  const Transcript read = Read(
      "command X\nrelease \"R7\"\nrecord 7\ndefinition 13\n=== A title\n"
      "run SetInfo \"A\", 2\ngives True\n"
      "run EditInfo with release \"R6/1\", record 8, definition 1, command Y\ngives False\n"
      "run SetInfo []\nfails Overflow\n");
  const std::vector<TranscriptRun>& runs = read.blocks.at(0).runs;
  EXPECT_EQ(read.command, "X");
  EXPECT_EQ(runs.at(0).action.CmdName, "X");
  EXPECT_EQ(runs.at(0).action.FunctionName, "SetInfo");
  EXPECT_EQ(runs.at(0).action.oaRelease, "R7");
  EXPECT_EQ(runs.at(0).action.CmdId, 7);
  EXPECT_EQ(runs.at(0).action.Definition, 13);
  EXPECT_EQ(runs.at(0).action.ParamList, (List{"A", 2}));
  EXPECT_EQ(runs.at(0).outcome, "True");
  EXPECT_EQ(runs.at(1).action.CmdName, "Y");
  EXPECT_EQ(runs.at(1).action.oaRelease, "R6/1");
  EXPECT_EQ(runs.at(1).action.CmdId, 8);
  EXPECT_EQ(runs.at(1).action.Definition, 1);
  EXPECT_EQ(runs.at(1).action.ParamList, List());
  EXPECT_EQ(runs.at(2).action.ParamList, List(std::vector<Value>{}));
  EXPECT_EQ(runs.at(2).outcome, "Overflow");
  EXPECT_EQ(runs.at(2).place.line, 10);
}

TEST(TranscriptFile, LinesGoOnInOpenBracketsAndAfterAPlusOrAStroke) {
  EXPECT_EQ(Calls("", "  scSQLInsert(\"X\",\n    [\"A\"],\n    # between\n    [1]\n  ) -> False\n"),
            "scSQLInsert(\"X\", [\"A\"], [1]) -> False\n");
  EXPECT_EQ(Calls("", "scRunQuery(\"SELECT \" +\n  \"A\")\n"), "scRunQuery(\"SELECT A\")\n");
  EXPECT_EQ(Calls("Both = 1, \\\n  2\n", "scPushValidRangeValues({Both})\n"), "scPushValidRangeValues(1, 2)\n");
}

TEST(TranscriptFile, NamesStandForTextsCallsAndSeveralCalls) {
  const std::string definitions =
      "Table = \"KSEXI\"\n"
      "Read(DIR) = scRunQuery(\"SELECT A FROM {Table} WHERE DIR = '{DIR}'\", out)\n"
      "Say(code, rest...) = scErrorMessage(0, 2, 2, \"X\", {code}, {rest})\n"
      "Both(a, b) =\n  Read({a})\n  Read({b}) -> no rows\n";
  EXPECT_EQ(Calls(definitions, "Read(\"100\") -> [[1]]\n"),
            "scRunQuery(\"SELECT A FROM KSEXI WHERE DIR = '100'\", out) -> [[1]]\n");
  EXPECT_EQ(Calls(definitions, "Read(7)\n"), "scRunQuery(\"SELECT A FROM KSEXI WHERE DIR = '7'\", out)\n");
  EXPECT_EQ(Calls(definitions, "Say(60000, {Table}, Null)\n"),
            "scErrorMessage(0, 2, 2, \"X\", 60000, \"KSEXI\", Null)\n");
  EXPECT_EQ(Calls(definitions, "Both(\"1\", \"2\")\n"),
            "scRunQuery(\"SELECT A FROM KSEXI WHERE DIR = '1'\", out)\n"
            "scRunQuery(\"SELECT A FROM KSEXI WHERE DIR = '2'\", out) -> no rows\n");
  EXPECT_EQ(Calls(definitions, "Both(\"1\", \"2\") -> False\n"),
            "scRunQuery(\"SELECT A FROM KSEXI WHERE DIR = '1'\", out)\n"
            "scRunQuery(\"SELECT A FROM KSEXI WHERE DIR = '2'\", out) -> False\n");
  EXPECT_EQ(Calls("", "Start\n", "Start = scStartTransaction()\n"), "scStartTransaction()\n");
}

TEST(TranscriptFile, ReadsAreCallsAndAFormIsNot) {
  EXPECT_EQ(Calls("", "read A=\"1\", B\n"), "scGetParamValue(\"A\") -> \"1\"\nscGetParamValue(\"B\") -> Empty\n");
  const Transcript read =
      Read("command X\n=== A title\nrun SetInfo\n  form A=\"1\", B=Null\ngives True\nrun SetInfo\ngives True\n");
  EXPECT_TRUE(read.blocks[0].runs[0].hasForm);
  EXPECT_EQ(read.blocks[0].runs[0].form, (std::map<std::string, Value>{{"A", "1"}, {"B", Value::Null()}}));
  EXPECT_FALSE(read.blocks[0].runs[1].hasForm);
}

TEST(TranscriptFile, LoopsRepeatTheRunsAfterThem) {
  const Transcript read = Read(
      "command X\n=== A title\n"
      "for P in \"A\" \"B\"\nfor v, answer in\n  | \"a b\" | True\n  | Null  | False\n"
      "run StatCheck {P}\n  scResetParam({v})\ngives {answer}\n"
      "once\nrun EditInfo\ngives True\n"
      "for F in SetInfo EditInfo\nrun {F}\ngives True\nrun DeleteInfo\ngives True\n");
  std::string runs;
  for (const TranscriptRun& run : read.blocks.at(0).runs)
    runs += run.action.FunctionName + TraceText(run.action.ParamList) + (run.calls.empty() ? "" : run.calls[0].call) +
            run.outcome + "\n";
  EXPECT_EQ(runs,
            "StatCheck[\"A\"]scResetParam(\"a b\")True\nStatCheck[\"A\"]scResetParam(Null)False\n"
            "StatCheck[\"B\"]scResetParam(\"a b\")True\nStatCheck[\"B\"]scResetParam(Null)False\n"
            "EditInfoEmptyTrue\nSetInfoEmptyTrue\nDeleteInfoEmptyTrue\nEditInfoEmptyTrue\nDeleteInfoEmptyTrue\n");
  EXPECT_EQ(read.blocks[0].runs[1].variables, "P = \"A\", v = Null, answer = False");
}

TEST(TranscriptFile, AnOrIsARunOfItsOwn) {
  const Transcript read = Read(
      "command X\nBegin = scStartTransaction()\nEnd = scRollBackTransaction()\n=== A title\n"
      "for A in \"1\" \"2\"\nrun SetInfo\n  Begin\n    or False:\n  scResetParam({A})\n"
      "    or False: scResetParam(\"B; C\") -> False; End\n    or fails: fails HostFailure\n  scBuildCmdID()\ngives "
      "True\n");
  std::string runs;
  for (const TranscriptRun& run : read.blocks.at(0).runs) {
    runs += std::to_string(run.place.line) + ":";
    for (const ExpectedCall& call : run.calls)
      runs += " " + call.call + (call.answer.empty() ? "" : " -> " + call.answer);
    runs += " " + run.outcome + (run.isAlternative ? " early" : "") + "\n";
  }
  const std::string begin = " scStartTransaction() ";
  const auto ofEach = [&begin](const std::string& reset) {
    return "6:" + begin + reset + " scBuildCmdID() True\n8: scStartTransaction() -> False False early\n10:" + begin +
           reset + " -> False scResetParam(\"B; C\") -> False scRollBackTransaction() False early\n11:" + begin +
           reset + " -> fails HostFailure early\n";
  };
  EXPECT_EQ(runs, ofEach("scResetParam(\"1\")") + ofEach("scResetParam(\"2\")"));
}

TEST(TranscriptFile, KnowsWhatIsAgainstTheGeneralOrder) {
  const Transcript read = Read(
      "command X\n=== A title\nrun SetInfo\ngives True\n"
      "silence SetInfo at f(\"A\", B: a reason: it is so\nsilence EditInfo: another\n"
      "leaves-behind SetInfo: what isn't undone\nnests EditInfo: within\n");
  ASSERT_EQ(read.silences.size(), 2U);
  EXPECT_EQ(read.silences[0].action, "SetInfo");
  EXPECT_EQ(read.silences[0].refused, "f(\"A\", B");
  EXPECT_EQ(read.silences[0].reason, "a reason: it is so");
  EXPECT_EQ(read.silences[1].refused, "");
  ASSERT_EQ(read.leavesBehind.size(), 1U);
  EXPECT_EQ(read.leavesBehind[0].action, "SetInfo");
  EXPECT_EQ(read.leavesBehind[0].reason, "what isn't undone");
  ASSERT_EQ(read.nests.size(), 1U);
  EXPECT_EQ(read.nests[0].action, "EditInfo");
}

TEST(TranscriptFile, SaysWhereItCannotBeRead) {
  const std::string head = "command X\n=== A title\n";
  const std::string run = head + "run SetInfo\n";
  for (const auto& [text, refusal] : std::vector<std::pair<std::string, std::string>>{
           {"=== A title\n", "X.transcript:1: a block stands after the name of the command"},
           {"command X\n===\nrun SetInfo\ngives True\n", "X.transcript:2: the block has no title"},
           {run + "gives True\n=== A title\n", "X.transcript:5: this title is given already: A title"},
           {head, "X.transcript:2: the block has no run"},
           {run, "X.transcript:3: the run ends with neither gives nor fails"},
           {run + "run EditInfo\ngives True\n", "X.transcript:3: the run ends with neither gives nor fails"},
           {run + "gives Yes\n", "X.transcript:4: a run gives True or False, or fails with a cause"},
           {run + "fails True\n", "X.transcript:4: a run gives True or False, or fails with a cause"},
           {head + "run\ngives True\n", "X.transcript:3: a run needs the function of its action"},
           {head + "run SetInfo A\ngives True\n", "X.transcript:3: no value: A"},
           {head + "run SetInfo with speed 3\ngives True\n",
            "X.transcript:3: neither a definition nor a default: speed 3"},
           {run + "Nothing(1)\ngives True\n", "X.transcript:4: nothing is defined by the name Nothing"},
           {run + "scResetParam({A})\ngives True\n", "X.transcript:4: the name stands for nothing here: {A}"},
           {run + "scResetParam\ngives True\n", "X.transcript:4: a call of the host has brackets: scResetParam"},
           {run + "scResett(\"A\")\ngives True\n", "X.transcript:4: the host has no operation scResett"},
           {run + "scResetParam(\"A\") ->\ngives True\n", "X.transcript:4: there is no answer after ->"},
           {run + "scResetParam(\"A\"\ngives True\n", "X.transcript:4: the file ends in the middle of this line"},
           {run + "scResetParam(\"A)\ngives True\n", "X.transcript:4: a text is not closed"},
           {run + "read A=1\nform A=1\ngives True\n",
            "X.transcript:3: a run has a form or writes its reads, and not both"},
           {run + "form A=1, A=2\ngives True\n", "X.transcript:4: the form holds this value already: A=2"},
           {run + "form A\ngives True\n", "X.transcript:4: a form reads: form NAME=value, NAME=value"},
           {run + "or False:\ngives True\n", "X.transcript:4: there is no call before this or"},
           {run + "scBuildCmdID()\nor False\ngives True\n", "X.transcript:5: an or reads: or answer: calls"},
           {run + "scBuildCmdID()\nor : scBuildCmdID()\ngives True\n", "X.transcript:5: an or reads: or answer: calls"},
           {head + "for A in\nrun SetInfo\ngives True\n", "X.transcript:3: the loop has no values"},
           {head + "for A, B in\n | 1 | 2 | 3\n", "X.transcript:4: the row has 3 values, and not 2"},
           {head + "for A of 1\n", "X.transcript:3: a loop reads: for NAME in values"},
           {head + "for A in 1\ngives True\n", "X.transcript:2: a loop stands before a run"},
           {"Name =\n", "X.transcript:1: a definition has its text on its line, or calls on indented lines after it"},
           {"A = 1\nA = 2\n", "X.transcript:2: the name is defined already: A"},
           {"scA = 1\n", "X.transcript:1: this name is the host's: scA"},
           {"Self = Self\n" + run + "Self\ngives True\n", "X.transcript:1: the names stand for each other"},
           {"A = B\nB =\n  A\n" + run + "A\ngives True\n", "X.transcript:1: the names stand for each other"},
           {"A = {A}\n" + run + "scResetParam({A})\ngives True\n", "X.transcript:1: the names stand for each other"},
           {"A(b) = scResetParam({b})\n" + run + "A\ngives True\n", "X.transcript:5: A takes 1 arguments, and not 0"},
           {"A(b) = scResetParam({b})\n" + run + "A(1, 2)\ngives True\n",
            "X.transcript:5: A takes 1 arguments, and not 2"},
           {"command X\nsilence SetInfo\n", "X.transcript:2: silence needs its reason after a colon"},
           {"command X\nnests SetInfo at A: so\n",
            "X.transcript:2: nests needs an action, and a silence may have the call after \"at\""},
           {"command X\nsilence SetInfo A: so\n",
            "X.transcript:2: silence needs an action, and a silence may have the call after \"at\""},
           {"command X\nwhatever\n", "X.transcript:2: neither a definition nor a default: whatever "},
       })
    EXPECT_EQ(Refusal(text), refusal) << text;
  EXPECT_EQ(Refusal("command X\n", "command Y\n"), "common.transcript:1: a common file holds definitions alone");
}

}  // namespace
}  // namespace cordboard
