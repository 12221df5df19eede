#include "support/EveryOperation.h"

#include <algorithm>

#include "script/CallHost.h"
#include "script/RunTimeFailure.h"
#include "script/TracingHost.h"

namespace cordboard {

namespace {

class Answering : public CallHost {
 public:
  explicit Answering(Behaviour behaviour) : behaviour_(behaviour) {}

 protected:
  HostAnswer Answer(const HostCall& call) override {
    if (behaviour_ == Behaviour::Fails) throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, "as told");
    HostAnswer answer = std::ranges::find_if(EveryOperation(), [&call](const OperationCall& known) {
                          return known.given.operation == call.operation && known.given.AsksOut() == call.AsksOut();
                        })->returned;
    if (behaviour_ == Behaviour::AnswersFalse && FindOperation(call.operation).CanRefuse()) answer.result = false;
    return answer;
  }

 private:
  Behaviour behaviour_;
};

}  // namespace

std::string OperationCall::perform(Host& host) const { return TraceText(Perform(host, given)); }

const std::vector<OperationCall>& EveryOperation() {
  constexpr OutPlace out;
  const RowSet rows({{"100", "101"}, {"EX", Value::Null()}});
  const std::string rowsText = R"(True, [["100", "101"], ["EX", Null]])";
  static const std::vector<OperationCall> operations = {
      {{"scGetParamValue", {"DIR"}}, R"(scGetParamValue("DIR"))", {"of the form"}, R"("of the form")"},
      {{"scSetParamValue", {"LIM", 1}}, R"(scSetParamValue("LIM", 1))", {true}, "True"},
      {{"scResetParam", {"EQU"}}, R"(scResetParam("EQU"))", {true}, "True"},
      {{"scSetParamOptional", {"CUST", false}}, R"(scSetParamOptional("CUST", False))", {true}, "True"},
      {{"scSetCanHaveParamRange", {"NUMSE", true}}, R"(scSetCanHaveParamRange("NUMSE", True))", {}, ""},
      {{"scSetCanHaveParamMultiple", {"NUMSE", false}}, R"(scSetCanHaveParamMultiple("NUMSE", False))", {}, ""},
      {{"scIsValueEqual", {"CP"}}, R"(scIsValueEqual("CP"))", {Value::Null()}, "Null"},
      {{"scGetValueArray", {"NUM", out}},
       R"(scGetValueArray("NUM", out))",
       {true, List{"1", "2"}},
       R"(True, ["1", "2"])"},
      {{"scGetPreviousValue", {out}}, "scGetPreviousValue(out)", {{}, "before"}, R"("before")"},
      {{"scActiveDefinition", {"KEY", 3}}, R"(scActiveDefinition("KEY", 3))", {true}, "True"},
      {{"SetTemplate", {true}}, "SetTemplate(True)", {}, ""},

      {{"scCollectSingleValues", {"SELECT 1", "static"}},
       R"(scCollectSingleValues("SELECT 1", "static"))",
       {true},
       "True"},
      {{"scAddSingleValues", {"SELECT 2"}}, R"(scAddSingleValues("SELECT 2"))", {true}, "True"},
      {{"scSubtractSingleValues", {"SELECT 3"}}, R"(scSubtractSingleValues("SELECT 3"))", {true}, "True"},
      {{"scCollectValuesAndDesc", {"SELECT 4, 5"}}, R"(scCollectValuesAndDesc("SELECT 4, 5"))", {true}, "True"},
      {{"scSQLSelectValuesAndDesc"}, "scSQLSelectValuesAndDesc()", {true}, "True"},
      {{"scSQLSelectValuesAndDescByDefinition", {2}}, "scSQLSelectValuesAndDescByDefinition(2)", {true}, "True"},
      {{"scPushValidValues", {"9"}}, R"(scPushValidValues("9"))", {true}, "True"},
      {{"scPushValidValues", {List{"1", 2}, "LIM"}}, R"(scPushValidValues(["1", 2], "LIM"))", {true}, "True"},
      {{"scPushValidValues", {List::Null()}}, "scPushValidValues(Null)", {true}, "True"},
      {{"scPushValidRangeValues", {0, "31"}}, R"(scPushValidRangeValues(0, "31"))", {true}, "True"},
      {{"scRemoveFromValidValues", {"KEY", "5"}}, R"(scRemoveFromValidValues("KEY", "5"))", {true}, "True"},
      {{"scRemoveFromValidRangeValues", {"KEY", 1, 4}}, R"(scRemoveFromValidRangeValues("KEY", 1, 4))", {true}, "True"},
      {{"scGetValidValues", {"LIM", out}}, R"(scGetValidValues("LIM", out))", {true, List{"7"}}, R"(True, ["7"])"},
      {{"scGetNumberOfValidValues", {"KEY", 4, out}},
       R"(scGetNumberOfValidValues("KEY", 4, out))",
       {true, 12},
       "True, 12"},

      {{"scRunQuery", {"DELETE * FROM T"}}, R"(scRunQuery("DELETE * FROM T"))", {true}, "True"},
      {{"scRunQuery", {"SELECT A FROM T\r\n WHERE B\n", out}},
       R"(scRunQuery("SELECT A FROM T{NL} WHERE B{LF}", out))",
       {true, rows},
       rowsText},
      {{"scRunQuery", {"SELECT A, B", out, "static"}},
       R"(scRunQuery("SELECT A, B", out, "static"))",
       {true, rows},
       rowsText},
      {{"scRunQuery", {"DELETE * FROM S", Value::Null(), "site"}},
       R"(scRunQuery("DELETE * FROM S", Null, "site"))",
       {true},
       "True"},
      {{"scSQLInsert", {"KSEXI", List{"CMDID", "DIR"}, List{7, Value()}}},
       R"(scSQLInsert("KSEXI", ["CMDID", "DIR"], [7, Empty]))",
       {true},
       "True"},
      {{"scSQLUpdate", {"EXCCS", List{"SERV"}, List{"1"}, List{"CAT"}, List{"0"}}},
       R"(scSQLUpdate("EXCCS", ["SERV"], ["1"], ["CAT"], ["0"]))",
       {true},
       "True"},
      {{"scSQLSelect", {"EXTEI", List{"DIR"}, List{"EQU"}, List{"1-0"}}},
       R"(scSQLSelect("EXTEI", ["DIR"], ["EQU"], ["1-0"]))",
       {RowSet({{"selected"}})},
       R"(rows [["selected"]])"},
      {{"scBuildCmdID"}, "scBuildCmdID()", {1001}, "1001"},
      {{"scStartTransaction"}, "scStartTransaction()", {true}, "True"},
      {{"scCommitTransaction"}, "scCommitTransaction()", {true}, "True"},
      {{"scRollBackTransaction"}, "scRollBackTransaction()", {true}, "True"},

      {{"scNANSIinitiate", {"100&&199", "EX", out}},
       R"(scNANSIinitiate("100&&199", "EX", out))",
       {true, 60010},
       "True, 60010"},
      {{"scNANSIremoveFromBlockedRange", {"100", "EX"}},
       R"(scNANSIremoveFromBlockedRange("100", "EX"))",
       {true},
       "True"},
      {{"scGetAutoEquOptionValue", {out}},
       "scGetAutoEquOptionValue(out)",
       {true, " ORDER BY EQU"},
       R"(True, " ORDER BY EQU")"},
      {{"scFilterEQU", {2, "2"}}, R"(scFilterEQU(2, "2"))", {}, ""},

      {{"scErrorMessage", {0, 3, 1, "Add: IPGDI", 60049, "IP", 2, Value::Null(), Value()}},
       R"(scErrorMessage(0, 3, 1, "Add: IPGDI", 60049, "IP", 2, Null, Empty))",
       {},
       ""},
      {{"scPrintToDebugWindow", {"  a line"}}, R"(scPrintToDebugWindow("  a line"))", {}, ""},
  };
  return operations;
}

std::shared_ptr<Host> AnsweringHost(Behaviour behaviour) { return std::make_shared<Answering>(behaviour); }

std::string ExpectedAnswer(const OperationCall& operation, Behaviour behaviour) {
  if (behaviour == Behaviour::Fails) return "failed";
  const bool truth = operation.answer.starts_with("True");
  return truth && behaviour == Behaviour::AnswersFalse ? "False" + operation.answer.substr(4) : operation.answer;
}

}  // namespace cordboard
