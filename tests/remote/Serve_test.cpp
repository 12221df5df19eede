#include "remote/Serve.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <sstream>
#include <stdexcept>

#include "remote/Conversation.h"
#include "script/Conversions.h"
#include "script/CurrentHost.h"
#include "script/HostOperations.h"
#include "script/MessageBox.h"
#include "script/RunTimeFailure.h"

namespace cordboard::remote {
namespace {

using testing::ElementsAre;

const std::string added = Result(R"("add")", "null");

// --- The three methods.

TEST(Serve, GeneratesTheLineOfANumberSeries) {
  const Conversation said = Converse(
      {R"({"jsonrpc":"2.0","id":1,"method":"AddObject","params":[]})",
       R"({"jsonrpc":"2.0","id":2,"method":"Run","params":{"Definition":1,"oaRelease":"R7","FunctionName":"GenerateCmd","CmdName":"NANSI","CmdId":0,"ParamList":["12"]}})",
       R"({"jsonrpc":"2.0","id":"h1","result":{"return":true,"out":[["100"],["199"],["EX"]]}})",
       R"({"jsonrpc":"2.0","id":"h2","result":{"return":true}})"});
  EXPECT_THAT(
      said.lines,
      ElementsAre(
          R"({"jsonrpc":"2.0","id":1,"result":null})",
          R"({"jsonrpc":"2.0","id":"h1","method":"scRunQuery","params":["SELECT DISTINCT Start, End, Numtyp From NANSIBlockedRange",{"out":true}]})",
          R"json({"jsonrpc":"2.0","id":"h2","method":"scRunQuery","params":["INSERT INTO BuiltCmd VALUES (12,'NANSI:NUMTYP=EX,NUMSE=100&&199;')"]})json",
          R"({"jsonrpc":"2.0","id":2,"result":true})"));
  EXPECT_EQ(said.status, 0);
  EXPECT_EQ(said.diagnostics, "");
}

TEST(Serve, EndsWithStatusZeroWhereNothingIsSaid) {
  const Conversation said = ConverseBytes("");
  EXPECT_EQ(said.out, "");
  EXPECT_EQ(said.status, 0);
}

TEST(Serve, TakesALastLineWithoutItsEndAndLineEndsOfTwoCharacters) {
  EXPECT_EQ(ConverseBytes(addObject).out, added + "\n");
  EXPECT_EQ(ConverseBytes(addObject + "\r\n").out, added + "\n");
}

TEST(Serve, AnswersFalseForACommandThatNobodyServes) {
  const std::string run =
      R"({"jsonrpc":"2.0","id":1,"method":"Run","params":{"Definition":1,"oaRelease":"R7","FunctionName":"SetInfo","CmdName":"nansi","CmdId":0,"ParamList":[]}})";
  EXPECT_THAT(Converse({run}).lines, ElementsAre(Result("1", "false")));
}

TEST(Serve, FailsARunThatReachesAnOperationWithoutAHost) {
  const std::string check = RunNANSI("1", "StatCheck", R"(["NUMTYP"])");
  const std::string noHost = Failure("1", -32000, "the library has no host: call AddObject first", "NoHost");
  EXPECT_THAT(Converse({check}).lines, ElementsAre(noHost));
  EXPECT_THAT(Converse({addObject, destroy, check}).lines, ElementsAre(added, Result(R"("destroy")", "null"), noHost));
}

TEST(Serve, DropsTheHostAtOnceWhileARunWaits) {
  EXPECT_THAT(Converse({addObject, RunNANSI("1", "StatCheck", R"(["NUMTYP"])"), destroy,
                        AnswerTo("h1", R"({"return":true})"), RunNANSI("2", "EditInfo", "[]")})
                  .lines,
              ElementsAre(added, Call("h1", "scIsValueEqual", R"(["CP"])"), Result(R"("destroy")", "null"),
                          Failure("1", -32000, "the library has no host: call AddObject first", "NoHost"),
                          Result("2", "false")));
}

TEST(Serve, LeavesTheLibraryWithoutAHost) {
  Converse({addObject});
  EXPECT_ANY_THROW(CurrentHost());
}

TEST(Serve, HandsTheActionOnAsItCame) {
  probe = [] { return true; };
  EXPECT_THAT(Converse({RunProbe("1", R"(["a",null,{"empty":true},1.5,true])")}).lines,
              ElementsAre(Result("1", "true")));
  // An element of the list is read as text, and a null has none.
  EXPECT_THAT(Converse({RunNANSI("1", "StatCheck", "[null]")}).lines,
              ElementsAre(Failure("1", -32000, "a null was read as text", "InvalidUseOfNull")));
  EXPECT_THAT(Converse({RunNANSI("1", "StatCheck", "[]")}).lines,
              ElementsAre(Failure("1", -32000, "no element 0 in the list", "SubscriptOutOfRange")));
}

TEST(Serve, AnswersAFailureThatLeavesRunAndGoesOn) {
  EXPECT_THAT(
      Converse({addObject, RunNANSI("1", "DeleteInfo", "[]"), AnswerTo("h1", R"({"return":true})"),
                RunNANSI("2", "StatCheck", R"(["NUMTYP"])"),
                R"({"jsonrpc":"2.0","id":"h2","error":{"code":5,"message":"no \"form\""}})",
                RunNANSI("3", "EditInfo", "[]")})
          .lines,
      ElementsAre(added,
                  Call("h1", "scRunQuery", R"(["SELECT NUMSE, NUMTYP FROM NANSI \r\n WHERE CmdId = 7",{"out":true}])"),
                  Failure("1", -32000, "no column 0 in the row set", "SubscriptOutOfRange"),
                  Call("h2", "scIsValueEqual", R"(["CP"])"),
                  Failure("2", -32000, R"(scIsValueEqual: no \"form\")", "HostFailure"), Result("3", "false")));
}

TEST(Serve, AnswersAnyOtherExceptionAndGoesOn) {
  int runs = 0;
  probe = [&runs]() -> bool {
    if (++runs == 1) throw std::bad_alloc();
    throw std::logic_error("a fault");
  };
  EXPECT_THAT(Converse({RunProbe("1"), RunProbe("2"), addObject}).lines,
              ElementsAre(Failure("1", -32603, "std::bad_alloc"), Failure("2", -32603, "a fault"), added));
}

// --- Requests.

TEST(Serve, EchoesEveryKindOfIdAsItCame) {
  for (const char* id :
       {R"("")", R"("h1")", R"("Å\"\n")", "0", "-7", "1.5", "9223372036854775807", "18446744073709551615", "null"})
    EXPECT_THAT(Converse({R"({"jsonrpc":"2.0","id":)" + std::string(id) + R"(,"method":"AddObject"})"}).lines,
                ElementsAre(Result(id, "null")));
}

TEST(Serve, CarriesOutANotificationWithoutAnAnswer) {
  const Conversation said =
      Converse({R"({"jsonrpc":"2.0","method":"AddObject"})", R"({"jsonrpc":"2.0","method":"Nonsense"})",
                R"({"jsonrpc":"2.0","method":"Run","params":7})", RunNANSI("1", "StatCheck", R"(["NUMTYP"])")});
  EXPECT_THAT(said.lines, ElementsAre(Call("h1", "scIsValueEqual", R"(["CP"])")));
  EXPECT_THAT(said.diagnostics, testing::HasSubstr("a notification failed"));
}

TEST(Serve, RefusesALineThatIsNotJson) {
  for (const char* line : {"", "  ", "hello", "{", R"({"jsonrpc":"2.0")", "\xff\xfe", "[1e400]", "{}{}"}) {
    const Conversation said = Converse({line, addObject});
    ASSERT_EQ(said.lines.size(), 2u) << line;
    EXPECT_THAT(said.lines[0], testing::StartsWith(R"({"jsonrpc":"2.0","id":null,"error":{"code":-32700,)"));
    EXPECT_EQ(said.lines[1], added);
  }
}

TEST(Serve, RefusesALineThatIsNoRequest) {
  const auto refusal = [](const std::string& line) {
    const Conversation said = Converse({line, addObject});
    EXPECT_EQ(said.lines.back(), added);
    return said.lines.size() == 2 ? said.lines.front() : "";
  };
  const std::string neither = "the line is neither a request nor an answer";
  const std::string none = "the line is no request of JSON-RPC 2.0";
  for (const char* line :
       {"[]", "1", "null", "\"AddObject\"", "{}", R"([{"jsonrpc":"2.0","id":1,"method":"AddObject"}])"})
    EXPECT_EQ(refusal(line), Failure("null", -32600, neither)) << line;
  EXPECT_EQ(refusal(R"({"jsonrpc":"2.0","id":5})"), Failure("5", -32600, neither));
  EXPECT_EQ(refusal(R"({"jsonrpc":"2.0","id":5,"method":7})"), Failure("5", -32600, none));
  EXPECT_EQ(refusal(R"({"jsonrpc":"2.0","method":7})"), Failure("null", -32600, none));
  EXPECT_EQ(refusal(R"({"id":5,"method":"AddObject"})"), Failure("5", -32600, none));
  EXPECT_EQ(refusal(R"({"jsonrpc":"1.0","id":5,"method":"AddObject"})"), Failure("5", -32600, none));
  EXPECT_EQ(refusal(R"({"jsonrpc":2.0,"id":5,"method":"AddObject"})"), Failure("5", -32600, none));
  for (const char* id : {"true", "[]", "{}", "123456789012345678901234567890"})
    EXPECT_EQ(refusal(R"({"jsonrpc":"2.0","method":"AddObject","id":)" + std::string(id) + "}"),
              Failure("null", -32600, none));
}

TEST(Serve, KnowsItsMethodsByTheirExactNames) {
  for (const char* method : {"", "run", "addObject", "Run ", "rpc.discover", "scRunQuery", "MessageBox"})
    EXPECT_THAT(Converse({R"({"jsonrpc":"2.0","id":1,"params":5,"method":")" + std::string(method) + "\"}"}).lines,
                ElementsAre(Failure("1", -32601, "the methods are AddObject, Run and Destroy")));
}

TEST(Serve, TakesNoParametersForAddObjectAndDestroy) {
  for (const std::string method : {"AddObject", "Destroy"}) {
    const auto with = [&method](const std::string& params) {
      return Converse({R"({"jsonrpc":"2.0","id":1,"method":")" + method + "\"" + params + "}"}).lines;
    };
    EXPECT_THAT(with(""), ElementsAre(Result("1", "null")));
    EXPECT_THAT(with(R"(,"params":[])"), ElementsAre(Result("1", "null")));
    for (const char* params : {"[1]", "{}", "null", "7", "\"\""})
      EXPECT_THAT(with(R"(,"params":)" + std::string(params)),
                  ElementsAre(Failure("1", -32602, method + " takes no parameters")));
  }
}

// --- The parameters of Run.

std::string RunWith(const std::string& params) {
  const Conversation said = Converse({R"({"jsonrpc":"2.0","id":1,"method":"Run")" + params + "}", addObject});
  EXPECT_EQ(said.lines.back(), added);
  return said.lines.size() == 2 ? said.lines.front() : "";
}

// The parameters of an edit that answers False, with one of them in place of the usual.
std::string RunWithOther(const std::string& name, const std::string& value) {
  std::string params;
  const std::pair<const char*, const char*> usual[] = {
      {"Definition", "1"},       {"oaRelease", R"("R7")"}, {"FunctionName", R"("EditInfo")"},
      {"CmdName", R"("NANSI")"}, {"CmdId", "0"},           {"ParamList", "[]"}};
  for (const auto& [known, ordinary] : usual)
    params += (params.empty() ? "\"" : ",\"") + std::string(known) + "\":" + (name == known ? value : ordinary);
  return RunWith(R"(,"params":{)" + params + "}");
}

TEST(ServeRun, TakesAnObjectAlone) {
  const std::string refused = Failure("1", -32602, "the parameters of Run are an object");
  for (const char* params : {"", R"(,"params":[1,"R7","EditInfo","NANSI",0,[]])", R"(,"params":null)",
                             R"(,"params":[])", R"(,"params":"x")"})
    EXPECT_EQ(RunWith(params), refused) << params;
}

TEST(ServeRun, TakesExactlySixMembers) {
  EXPECT_EQ(RunWith(R"(,"params":{})"), Failure("1", -32602, "Run has no Definition"));
  EXPECT_EQ(
      RunWith(R"(,"params":{"Definition":1,"oaRelease":"R7","FunctionName":"EditInfo","CmdName":"NANSI","CmdId":0})"),
      Failure("1", -32602, "Run has no ParamList"));
  EXPECT_EQ(
      RunWith(
          R"(,"params":{"definition":1,"oaRelease":"R7","FunctionName":"EditInfo","CmdName":"NANSI","CmdId":0,"ParamList":[]})"),
      Failure("1", -32602, "Run has no Definition"));
  EXPECT_EQ(RunWithOther("ParamList", R"([],"More":1)"),
            Failure("1", -32602, "Run has a parameter that it does not know"));
  EXPECT_EQ(RunWithOther("", ""), Result("1", "false"));
}

TEST(ServeRun, TakesWholeNumbersOf32Bits) {
  for (const char* name : {"Definition", "CmdId"}) {
    for (const char* number : {"-2147483648", "2147483647", "7.0", "1e3", "-0"})
      EXPECT_EQ(RunWithOther(name, number), Result("1", "false")) << number;
    for (const char* number :
         {"2147483648", "-2147483649", "1.5", "1e300", "9223372036854775807", "18446744073709551615",
          "99999999999999999999999", "\"1\"", "null", "true", "[]", "{}", R"({"empty":true})"})
      EXPECT_EQ(RunWithOther(name, number), Failure("1", -32602, name + std::string(" is a whole number of 32 bits")));
  }
}

TEST(ServeRun, TakesTexts) {
  for (const char* name : {"oaRelease", "FunctionName", "CmdName"}) {
    EXPECT_EQ(RunWithOther(name, R"("")"), Result("1", "false"));
    for (const char* text : {"7", "null", "true", R"(["R7"])", R"({"empty":true})"})
      EXPECT_EQ(RunWithOther(name, text), Failure("1", -32602, name + std::string(" is a text")));
  }
}

TEST(ServeRun, TakesAnArrayOfValues) {
  EXPECT_EQ(RunWithOther("ParamList", R"(["",null,1,true,{"empty":true}])"), Result("1", "false"));
  for (const char* list : {"null", R"({"empty":true})", "\"DIR\"", "7", "{}", R"([["DIR"]])", "[{}]",
                           R"([{"empty":false}])", R"([{"empty":true,"more":1}])", R"([{"out":true}])"})
    EXPECT_EQ(RunWithOther("ParamList", list), Failure("1", -32602, "ParamList is an array of values")) << list;
}

// --- Message boxes.

TEST(ServeMessageBox, IsShownByThePeerAndWaitedFor) {
  probe = [] {
    ShowMessageBox(" SHOULDNT GET HERE... ", "", PlainBox);
    ShowMessageBox("Cannot delete", "Error", InformationBox);
    return true;
  };
  EXPECT_THAT(
      Converse({RunProbe("1"), AnswerTo("h1", "7"), addObject, R"({"id":"h2","error":{"message":"no display"}})"})
          .lines,
      ElementsAre(Call("h1", "MessageBox", R"([" SHOULDNT GET HERE... ","",0])"),
                  Call("h2", "MessageBox", R"(["Cannot delete","Error",64])"), added, Result("1", "true")));
}

TEST(ServeMessageBox, FailsTheRunAtTheEndOfInput) {
  bool after = false;
  probe = [&after] {
    ShowMessageBox("text", "title", PlainBox);
    return after = true;
  };
  EXPECT_EQ(Converse({RunProbe("1")}).status, 0);
  EXPECT_FALSE(after);
}

TEST(ServeMessageBox, IsShownAsBeforeOnceServingEnds) {
  std::string shown;
  const MessageBoxHook before =
      SetMessageBox([&shown](const std::string& text, const std::string&, int) { shown = text; });
  Converse({addObject});
  ShowMessageBox("text", "", PlainBox);
  SetMessageBox(before);
  EXPECT_EQ(shown, "text");
}

// --- The end of the peer.

TEST(Serve, UnwindsARunAtTheEndOfInputAndWritesNoMore) {
  std::string cause;
  probe = [&cause] {
    try {
      return scResetParam("EQU");
    } catch (const RunTimeFailure& failure) {
      cause = std::string(Name(failure.cause())) + " " + failure.what();
      throw;
    }
  };
  const Conversation said = Converse({addObject, RunProbe("1")});
  EXPECT_THAT(said.lines, ElementsAre(added, Call("h1", "scResetParam", R"(["EQU"])")));
  EXPECT_EQ(said.status, 0);
  EXPECT_EQ(cause, "HostFailure scResetParam: the peer went before it answered");
}

TEST(Serve, EndsWhereThePeerNoLongerReads) {
  std::istringstream in(addObject + "\n" + addObject + "\n");
  std::ostringstream out;
  std::ostringstream diagnostics;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(Serve(in, out, diagnostics), 1);
  EXPECT_EQ(diagnostics.str(), "the peer no longer reads\n");
}

}  // namespace
}  // namespace cordboard::remote
