#include "remote/RemoteHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <sstream>

#include "remote/Conversation.h"
#include "script/Conversions.h"
#include "script/CurrentHost.h"
#include "script/HostOperations.h"
#include "script/RunTimeFailure.h"
#include "script/TracingHost.h"

namespace cordboard::remote {
namespace {

// The library's side of one operation: the remote host is the current one, and the peer's answer to h1 lies ready.
class Peer {
 public:
  explicit Peer(const std::string& answer) : in_(answer + "\n") {
    SetCurrentHost(std::make_shared<RemoteHost>(channel_));
  }
  ~Peer() { SetCurrentHost(nullptr); }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  std::string Written() const { return out_.str(); }

 private:
  std::istringstream in_;
  std::ostringstream out_;
  std::ostringstream diagnostics_;
  Channel channel_{in_, out_, diagnostics_, [](const std::string&, const Json*) { return Message(); }};
};

// --- The form of each operation on the wire.

std::string Of(bool answer) { return answer ? "True" : "False"; }
std::string Of(const Value& answer) { return TraceText(answer); }
// An answer and the out-argument that was filled by then.
template <typename Out>
std::string Of(bool answer, const Out& out) {
  return Of(answer) + " " + TraceText(out);
}

struct Operation {
  std::string method;
  std::string params;
  std::string result;  // the peer's
  std::string answer;  // what the worker sees
  std::function<std::string()> call;
};

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.method << operation.params; }

class RemoteOperation : public testing::TestWithParam<Operation> {};

TEST_P(RemoteOperation, HasItsFormOnTheWire) {
  const auto& [method, params, result, answer, call] = GetParam();
  const Peer peer(AnswerTo("h1", result));
  EXPECT_EQ(call(), answer);
  EXPECT_EQ(peer.Written(), Call("h1", method, params) + "\n");
}

const std::string yes = R"({"return":true})";
const std::string none = R"({"return":{"empty":true}})";

INSTANTIATE_TEST_SUITE_P(
    OnTheForm, RemoteOperation,
    testing::Values(
        Operation{"scGetParamValue", R"(["DIR"])", R"({"return":"100"})", "\"100\"",
                  [] { return Of(scGetParamValue("DIR")); }},
        Operation{"scSetParamValue", R"(["LIM",1])", yes, "True", [] { return Of(scSetParamValue("LIM", 1)); }},
        Operation{"scSetParamValue", R"(["LIM",{"empty":true}])", yes, "True",
                  [] { return Of(scSetParamValue("LIM", Value())); }},
        Operation{"scResetParam", R"(["EQU"])", yes, "True", [] { return Of(scResetParam("EQU")); }},
        Operation{"scSetParamOptional", R"(["CUST",true])", yes, "True",
                  [] { return Of(scSetParamOptional("CUST", true)); }},
        Operation{"scSetCanHaveParamRange", R"(["NUMSE",false])", none, "",
                  [] { return scSetCanHaveParamRange("NUMSE", false), ""; }},
        Operation{"scSetCanHaveParamMultiple", R"(["NUMSE",false])", none, "",
                  [] { return scSetCanHaveParamMultiple("NUMSE", false), ""; }},
        Operation{"scIsValueEqual", R"(["CP"])", R"({"return":null})", "Null", [] { return Of(scIsValueEqual("CP")); }},
        Operation{"scGetValueArray", R"(["DIR",{"out":true}])", R"({"return":true,"out":["100",101]})",
                  "True [\"100\", 101]",
                  [] {
                    List values;
                    return Of(scGetValueArray("DIR", values), values);
                  }},
        Operation{"scGetPreviousValue", R"([{"out":true}])", R"({"out":"7"})", "\"7\"",
                  [] {
                    Value previous;
                    return scGetPreviousValue(previous), Of(previous);
                  }},
        Operation{"scActiveDefinition", R"(["ITYPE",3])", yes, "True",
                  [] { return Of(scActiveDefinition("ITYPE", 3)); }},
        Operation{"SetTemplate", "[true]", none, "", [] { return SetTemplate(true), ""; }}));

INSTANTIATE_TEST_SUITE_P(
    OnListsOfValidValues, RemoteOperation,
    testing::Values(
        Operation{"scCollectSingleValues", R"(["SELECT a"])", yes, "True",
                  [] { return Of(scCollectSingleValues("SELECT a")); }},
        Operation{"scCollectSingleValues", R"(["SELECT a","static"])", yes, "True",
                  [] { return Of(scCollectSingleValues("SELECT a", "static")); }},
        Operation{"scCollectSingleValues", R"(["SELECT a",{"empty":true}])", yes, "True",
                  [] { return Of(scCollectSingleValues("SELECT a", Value())); }},
        Operation{"scAddSingleValues", R"(["SELECT a"])", yes, "True",
                  [] { return Of(scAddSingleValues("SELECT a")); }},
        Operation{"scSubtractSingleValues", R"(["SELECT a"])", yes, "True",
                  [] { return Of(scSubtractSingleValues("SELECT a")); }},
        Operation{"scCollectValuesAndDesc", R"(["SELECT a, b"])", yes, "True",
                  [] { return Of(scCollectValuesAndDesc("SELECT a, b")); }},
        Operation{"scCollectValuesAndDesc", R"(["SELECT a, b","dynamic"])", yes, "True",
                  [] { return Of(scCollectValuesAndDesc("SELECT a, b", "dynamic")); }},
        Operation{"scSQLSelectValuesAndDesc", "[]", yes, "True", [] { return Of(scSQLSelectValuesAndDesc()); }},
        Operation{"scSQLSelectValuesAndDescByDefinition", "[2]", yes, "True",
                  [] { return Of(scSQLSelectValuesAndDescByDefinition(2)); }},
        Operation{"scPushValidValues", R"(["A"])", yes, "True", [] { return Of(scPushValidValues(Value("A"))); }},
        Operation{"scPushValidValues", R"(["A","DIR"])", yes, "True",
                  [] { return Of(scPushValidValues(Value("A"), "DIR")); }},
        Operation{"scPushValidValues", R"([["A",2],"DIR"])", yes, "True",
                  [] {
                    return Of(scPushValidValues(List{"A", 2}, "DIR"));
                  }},
        Operation{"scPushValidRangeValues", "[1,15]", yes, "True", [] { return Of(scPushValidRangeValues(1, 15)); }},
        Operation{"scRemoveFromValidValues", R"(["KEY","3"])", yes, "True",
                  [] { return Of(scRemoveFromValidValues("KEY", "3")); }},
        Operation{"scRemoveFromValidRangeValues", R"(["KEY",1,"9"])", yes, "True",
                  [] { return Of(scRemoveFromValidRangeValues("KEY", 1, "9")); }},
        Operation{"scGetValidValues", R"(["DIR",{"out":true}])", R"({"return":false})", "False Empty",
                  [] {
                    List values;
                    return Of(scGetValidValues("DIR", values), values);
                  }},
        Operation{"scGetNumberOfValidValues", R"(["KEY",1,{"out":true}])", R"({"return":true,"out":0})", "True 0", [] {
                    Value count;
                    return Of(scGetNumberOfValidValues("KEY", 1, count), count);
                  }}));

INSTANTIATE_TEST_SUITE_P(
    OnTheDatabase, RemoteOperation,
    testing::Values(Operation{"scRunQuery", R"(["DELETE * FROM t\r\n WHERE CmdId = 7"])", yes, "True",
                              [] { return Of(scRunQuery("DELETE * FROM t\r\n WHERE CmdId = 7")); }},
                    Operation{"scRunQuery", R"(["SELECT a",{"out":true}])",
                              R"({"return":true,"out":[["1","2"],["3",null]]})", "True [[\"1\", \"2\"], [\"3\", Null]]",
                              [] {
                                RowSet rows;
                                return Of(scRunQuery("SELECT a", rows), rows);
                              }},
                    Operation{"scRunQuery", R"(["SELECT a",{"out":true},"static"])", yes, "True Empty",
                              [] {
                                RowSet rows;
                                return Of(scRunQuery("SELECT a", rows, "static"), rows);
                              }},
                    Operation{"scRunQuery", R"(["DELETE * FROM t",null,"site"])", yes, "True",
                              [] { return Of(scRunQueryOn("site", "DELETE * FROM t")); }},
                    Operation{"scSQLInsert", R"(["KSEXI",["CMDID","DIR"],[1001,{"empty":true}]])", yes, "True",
                              [] {
                                return Of(scSQLInsert("KSEXI", {"CMDID", "DIR"}, {1001, Value()}));
                              }},
                    Operation{"scSQLUpdate", R"(["EXCCS",["CAT"],["1"],["CmdId"],[7]])", yes, "True",
                              [] { return Of(scSQLUpdate("EXCCS", {"CAT"}, {"1"}, {"CmdId"}, {7})); }},
                    Operation{"scSQLUpdate", R"(["EXCCS",{"empty":true},null,[],[]])", yes, "True",
                              [] {
                                const List noElements(std::vector<Value>{});
                                return Of(scSQLUpdate("EXCCS", List(), List::Null(), noElements, noElements));
                              }},
                    Operation{"scSQLSelect", R"(["EXTEI",["EQU"],["DIR"],["100"]])", R"({"return":[["001-0-01-01"]]})",
                              "[[\"001-0-01-01\"]]",
                              [] { return TraceText(scSQLSelect("EXTEI", {"EQU"}, {"DIR"}, {"100"})); }},
                    Operation{"scBuildCmdID", "[]", R"({"return":1001})", "1001", [] { return Of(scBuildCmdID()); }},
                    Operation{"scStartTransaction", "[]", yes, "True", [] { return Of(scStartTransaction()); }},
                    Operation{"scCommitTransaction", "[]", yes, "True", [] { return Of(scCommitTransaction()); }},
                    Operation{"scRollBackTransaction", "[]", yes, "True", [] { return Of(scRollBackTransaction()); }}));

INSTANTIATE_TEST_SUITE_P(
    OfTheExchangeAndReports, RemoteOperation,
    testing::Values(Operation{"scNANSIinitiate", R"(["100&&199","EX",{"out":true}])", R"({"return":false,"out":60010})",
                              "False 60010",
                              [] {
                                Value code;
                                return Of(scNANSIinitiate("100&&199", "EX", code), code);
                              }},
                    Operation{"scNANSIremoveFromBlockedRange", R"(["150","EX"])", yes, "True",
                              [] { return Of(scNANSIremoveFromBlockedRange("150", "EX")); }},
                    Operation{"scGetAutoEquOptionValue", R"([{"out":true}])",
                              R"({"return":true,"out":" ORDER BY LIM"})", "True \" ORDER BY LIM\"",
                              [] {
                                Value clause;
                                return Of(scGetAutoEquOptionValue(clause), clause);
                              }},
                    Operation{"scFilterEQU", R"([2,"2"])", none, "", [] { return scFilterEQU(2, "2"), ""; }},
                    Operation{"scErrorMessage", R"([0,2,2,"Add: NANSI",60010])", none, "",
                              [] { return scErrorMessage(0, 2, 2, "Add: NANSI", 60010), ""; }},
                    Operation{
                        "scErrorMessage", R"([0,3,1,"Edit: IPGDI",60049,"A",7,null,{"empty":true}])", none, "",
                        [] {
                          return scErrorMessage(0, 3, 1, "Edit: IPGDI", 60049, {"A", 7, Value::Null(), Value()}), "";
                        }},
                    Operation{"scPrintToDebugWindow", R"(["  Ignoring \"this\""])", none, "",
                              [] { return scPrintToDebugWindow("  Ignoring \"this\""), ""; }}));

// --- What comes back.

// What a worker sees of an answer: the text that `call` makes, or the cause of the failure.
std::string Seen(const std::string& answer, const std::function<std::string()>& call) {
  const Peer peer(answer);
  try {
    return call();
  } catch (const RunTimeFailure& failure) {
    return std::string(Name(failure.cause()));
  }
}

std::string TruthOf(const std::string& result) {
  return Seen(AnswerTo("h1", result), [] { return Of(scResetParam("EQU")); });
}

TEST(RemoteAnswer, IsReadAsATruthValueByTheLibrarysRule) {
  for (const char* result : {R"({"return":true})", R"({"return":1})", R"({"return":-0.5})", R"({"return":"True"})",
                             R"({"return":"tRUE"})", R"({"return":" 2 "})"})
    EXPECT_EQ(TruthOf(result), "True") << result;
  for (const char* result : {R"({"return":false})", R"({"return":0})", R"({"return":"false"})", R"({"return":"0"})",
                             R"({"return":{"empty":true}})", "{}", R"({"Return":true})"})
    EXPECT_EQ(TruthOf(result), "False") << result;
  EXPECT_EQ(TruthOf(R"({"return":null})"), "InvalidUseOfNull");
  for (const char* result : {R"({"return":"yes"})", R"({"return":""})", R"({"return":[]})", R"({"return":[true]})",
                             R"({"return":{}})", R"({"return":{"out":true}})"})
    EXPECT_EQ(TruthOf(result), "TypeMismatch") << result;
}

TEST(RemoteAnswer, WithoutAResultObjectFailsTheCall) {
  for (const char* result : {"true", "null", "[]", "\"True\"", "1"}) EXPECT_EQ(TruthOf(result), "TypeMismatch");
  const auto reset = [] { return Of(scResetParam("EQU")); };
  EXPECT_EQ(Seen(R"({"jsonrpc":"2.0","id":"h1"})", reset), "TypeMismatch");
  EXPECT_EQ(Seen(R"({"id":"h1","error":null})", reset), "TypeMismatch");
  EXPECT_EQ(Seen(R"({"id":"h1","result":{"return":true},"error":null})", reset), "True");
  EXPECT_EQ(Seen(AnswerTo("h1", "null"), [] { return SetTemplate(true), "done"; }), "TypeMismatch");
}

TEST(RemoteAnswer, OfAnOperationWithoutResultIsNotLookedAt) {
  for (const char* result : {"{}", R"({"return":null})", R"({"return":[[]]})", R"({"out":{}})"})
    EXPECT_EQ(Seen(AnswerTo("h1", result), [] { return SetTemplate(true), "done"; }), "done");
}

TEST(RemoteAnswer, ThatIsAValueIsGivenAsItIs) {
  const auto read = [](const std::string& result) {
    return Seen(AnswerTo("h1", result), [] { return Of(scGetParamValue("DIR")); });
  };
  EXPECT_EQ(read(R"({"return":""})"), "\"\"");
  EXPECT_EQ(read(R"({"return":null})"), "Null");
  EXPECT_EQ(read(R"({"return":{"empty":true}})"), "Empty");
  EXPECT_EQ(read("{}"), "Empty");
  EXPECT_EQ(read(R"({"return":false})"), "False");
  EXPECT_EQ(read(R"({"return":1.5})"), "1.5");
  EXPECT_EQ(read(R"({"return":["100"]})"), "TypeMismatch");
}

TEST(RemoteAnswer, GivesAListItsThreeStates) {
  const auto read = [](const std::string& result) {
    return Seen(AnswerTo("h1", result), [] {
      List values{"before"};
      return Of(scGetValidValues("DIR", values), values);
    });
  };
  EXPECT_EQ(read(R"({"return":true})"), "True Empty");
  EXPECT_EQ(read(R"({"return":true,"out":{"empty":true}})"), "True Empty");
  EXPECT_EQ(read(R"({"return":true,"out":null})"), "True Null");
  EXPECT_EQ(read(R"({"return":true,"out":[]})"), "True []");
  EXPECT_EQ(read(R"({"return":false,"out":["1",2]})"), "False [\"1\", 2]");
  EXPECT_EQ(read(R"({"return":true,"out":"100"})"), "TypeMismatch");
  EXPECT_EQ(read(R"({"return":true,"out":[["100"]]})"), "TypeMismatch");
}

TEST(RemoteAnswer, ThatIsNoRowSetFailsTheCall) {
  const auto read = [](const std::string& out) {
    return Seen(AnswerTo("h1", R"({"return":true,"out":)" + out + "}"), [] {
      RowSet rows;
      return Of(scRunQuery("SELECT a", rows), rows);
    });
  };
  EXPECT_EQ(read(R"({"empty":true})"), "True Empty");
  EXPECT_EQ(read("[]"), "True Empty");
  EXPECT_EQ(read("[[],[]]"), "True Empty");
  for (const char* out : {"null", R"(["100"])", R"([["1"],["2","3"]])", R"("100")", "1", R"([["1"],null])"})
    EXPECT_EQ(read(out), "TypeMismatch") << out;
}

TEST(RemoteAnswer, OfASelectionIsARowSetOrEmpty) {
  const auto read = [](const std::string& result) {
    return Seen(AnswerTo("h1", result), [] { return TraceText(scSQLSelect("EXTEI", {"EQU"}, {"DIR"}, {"100"})); });
  };
  EXPECT_EQ(read(R"({"return":{"empty":true}})"), "Empty");
  EXPECT_EQ(read("{}"), "Empty");
  EXPECT_EQ(read(R"({"return":[["1"],[2]]})"), "[[\"1\"], [2]]");
  EXPECT_EQ(read(R"({"return":null})"), "TypeMismatch");
  EXPECT_EQ(read(R"({"return":true})"), "TypeMismatch");
}

TEST(RemoteAnswer, ThatIsAnErrorFailsTheCallWithThePeersMessage) {
  const auto message = [](const std::string& error) -> std::string {
    const Peer peer(R"({"jsonrpc":"2.0","id":"h1","error":)" + error + "}");
    try {
      scResetParam("EQU");
    } catch (const RunTimeFailure& failure) {
      return std::string(Name(failure.cause())) + " " + failure.what();
    }
    return "";
  };
  EXPECT_EQ(message(R"({"code":1,"message":"the form is closed"})"), "HostFailure scResetParam: the form is closed");
  EXPECT_EQ(message(R"({"code":1,"message":7})"), R"(HostFailure scResetParam: {"code":1,"message":7})");
  EXPECT_EQ(message(R"("closed")"), R"(HostFailure scResetParam: "closed")");
}

TEST(RemoteCall, OfANumberThatIsNotFiniteFailsAndIsNotSent) {
  const Peer peer("");
  try {
    scSetParamValue("LIM", std::numeric_limits<double>::infinity());
    FAIL() << "no failure";
  } catch (const RunTimeFailure& failure) {
    EXPECT_EQ(failure.cause(), RunTimeFailure::Cause::Overflow);
  }
  EXPECT_EQ(peer.Written(), "");
}

}  // namespace
}  // namespace cordboard::remote
