#include "support/EveryOperation.h"

#include "script/RunTimeFailure.h"
#include "script/TracingHost.h"

namespace cordboard {

namespace {

class Answering : public Host {
 public:
  explicit Answering(Behaviour behaviour) : behaviour_(behaviour) {}

  Value scGetParamValue(const std::string&) override { return Given("of the form"); }
  bool scSetParamValue(const std::string&, const Value&) override { return Answer(); }
  bool scResetParam(const std::string&) override { return Answer(); }
  bool scSetParamOptional(const std::string&, bool) override { return Answer(); }
  void scSetCanHaveParamRange(const std::string&, bool) override { Answer(); }
  void scSetCanHaveParamMultiple(const std::string&, bool) override { Answer(); }
  Value scIsValueEqual(const Value&) override { return Given(Value::Null()); }
  bool scGetValueArray(const std::string&, List& values) override { return Fill(values, List{"1", "2"}); }
  void scGetPreviousValue(Value& previous) override { Fill(previous, Value("before")); }
  bool scActiveDefinition(const std::string&, const Value&) override { return Answer(); }
  void SetTemplate(bool) override { Answer(); }

  bool scCollectSingleValues(const std::string&, const Selector&) override { return Answer(); }
  bool scAddSingleValues(const std::string&) override { return Answer(); }
  bool scSubtractSingleValues(const std::string&) override { return Answer(); }
  bool scCollectValuesAndDesc(const std::string&, const Selector&) override { return Answer(); }
  bool scSQLSelectValuesAndDesc() override { return Answer(); }
  bool scSQLSelectValuesAndDescByDefinition(const Value&) override { return Answer(); }
  bool scPushValidValues(const std::variant<Value, List>&, const std::optional<std::string>&) override {
    return Answer();
  }
  bool scPushValidRangeValues(const Value&, const Value&) override { return Answer(); }
  bool scRemoveFromValidValues(const std::string&, const Value&) override { return Answer(); }
  bool scRemoveFromValidRangeValues(const std::string&, const Value&, const Value&) override { return Answer(); }
  bool scGetValidValues(const std::string&, List& values) override { return Fill(values, List{"7"}); }
  bool scGetNumberOfValidValues(const std::string&, const Value&, Value& count) override {
    return Fill(count, Value(12));
  }

  bool scRunQuery(const std::string&, RowSet* rows, const Selector&) override {
    return rows == nullptr ? Answer() : Fill(*rows, RowSet({{"100", "101"}, {"EX", Value::Null()}}));
  }
  bool scSQLInsert(const std::string&, const List&, const List&) override { return Answer(); }
  bool scSQLUpdate(const std::string&, const List&, const List&, const List&, const List&) override { return Answer(); }
  RowSet scSQLSelect(const std::string&, const List&, const List&, const List&) override {
    return Given(RowSet({{"selected"}}));
  }
  Value scBuildCmdID() override { return Given(1001); }
  bool scStartTransaction() override { return Answer(); }
  bool scCommitTransaction() override { return Answer(); }
  bool scRollBackTransaction() override { return Answer(); }

  bool scNANSIinitiate(const Value&, const Value&, Value& code) override { return Fill(code, Value(60010)); }
  bool scNANSIremoveFromBlockedRange(const Value&, const Value&) override { return Answer(); }
  bool scGetAutoEquOptionValue(Value& clause) override { return Fill(clause, Value(" ORDER BY EQU")); }
  void scFilterEQU(const Value&, const Value&) override { Answer(); }

  void scErrorMessage(int, int, int, const std::string&, const Value&, const std::vector<Value>&) override { Answer(); }
  void scPrintToDebugWindow(const std::string&) override { Answer(); }

 private:
  bool Answer() const {
    if (behaviour_ == Behaviour::Fails) throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, "as told");
    return behaviour_ == Behaviour::AnswersTrue;
  }
  template <typename Result>
  Result Given(Result result) const {
    Answer();
    return result;
  }
  template <typename Out>
  bool Fill(Out& out, Out content) const {
    const bool answer = Answer();
    out = std::move(content);
    return answer;
  }

  Behaviour behaviour_;
};

std::string Text(bool answer) { return TraceText(Value(answer)); }
std::string Text(const Value& answer) { return TraceText(answer); }
template <typename Out>
std::string Text(bool answer, const Out& out) {
  return TraceText(Value(answer)) + ", " + TraceText(out);
}

}  // namespace

const std::vector<OperationCall>& EveryOperation() {
  static const std::vector<OperationCall> operations = {
      {"scGetParamValue", [](Host& h) { return Text(h.scGetParamValue("DIR")); }, "scGetParamValue(\"DIR\")",
       "\"of the form\""},
      {"scSetParamValue", [](Host& h) { return Text(h.scSetParamValue("LIM", 1)); }, "scSetParamValue(\"LIM\", 1)",
       "True"},
      {"scResetParam", [](Host& h) { return Text(h.scResetParam("EQU")); }, "scResetParam(\"EQU\")", "True"},
      {"scSetParamOptional", [](Host& h) { return Text(h.scSetParamOptional("CUST", false)); },
       "scSetParamOptional(\"CUST\", False)", "True"},
      {"scSetCanHaveParamRange",
       [](Host& h) {
         h.scSetCanHaveParamRange("NUMSE", true);
         return "";
       },
       "scSetCanHaveParamRange(\"NUMSE\", True)", ""},
      {"scSetCanHaveParamMultiple",
       [](Host& h) {
         h.scSetCanHaveParamMultiple("NUMSE", false);
         return "";
       },
       "scSetCanHaveParamMultiple(\"NUMSE\", False)", ""},
      {"scIsValueEqual", [](Host& h) { return Text(h.scIsValueEqual("CP")); }, "scIsValueEqual(\"CP\")", "Null"},
      {"scGetValueArray",
       [](Host& h) {
         List values;
         return Text(h.scGetValueArray("NUM", values), values);
       },
       "scGetValueArray(\"NUM\", out)", "True, [\"1\", \"2\"]"},
      {"scGetPreviousValue",
       [](Host& h) {
         Value previous;
         h.scGetPreviousValue(previous);
         return Text(previous);
       },
       "scGetPreviousValue(out)", "\"before\""},
      {"scActiveDefinition", [](Host& h) { return Text(h.scActiveDefinition("KEY", 3)); },
       "scActiveDefinition(\"KEY\", 3)", "True"},
      {"SetTemplate",
       [](Host& h) {
         h.SetTemplate(true);
         return "";
       },
       "SetTemplate(True)", ""},

      {"scCollectSingleValues", [](Host& h) { return Text(h.scCollectSingleValues("SELECT 1", Value("static"))); },
       "scCollectSingleValues(\"SELECT 1\", \"static\")", "True"},
      {"scAddSingleValues", [](Host& h) { return Text(h.scAddSingleValues("SELECT 2")); },
       "scAddSingleValues(\"SELECT 2\")", "True"},
      {"scSubtractSingleValues", [](Host& h) { return Text(h.scSubtractSingleValues("SELECT 3")); },
       "scSubtractSingleValues(\"SELECT 3\")", "True"},
      {"scCollectValuesAndDesc", [](Host& h) { return Text(h.scCollectValuesAndDesc("SELECT 4, 5", std::nullopt)); },
       "scCollectValuesAndDesc(\"SELECT 4, 5\")", "True"},
      {"scSQLSelectValuesAndDesc", [](Host& h) { return Text(h.scSQLSelectValuesAndDesc()); },
       "scSQLSelectValuesAndDesc()", "True"},
      {"scSQLSelectValuesAndDescByDefinition", [](Host& h) { return Text(h.scSQLSelectValuesAndDescByDefinition(2)); },
       "scSQLSelectValuesAndDescByDefinition(2)", "True"},
      {"scPushValidValues", [](Host& h) { return Text(h.scPushValidValues(Value("9"), std::nullopt)); },
       "scPushValidValues(\"9\")", "True"},
      {"scPushValidValues",
       [](Host& h) {
         return Text(h.scPushValidValues(List{"1", 2}, "LIM"));
       },
       "scPushValidValues([\"1\", 2], \"LIM\")", "True"},
      {"scPushValidValues", [](Host& h) { return Text(h.scPushValidValues(List::Null(), std::nullopt)); },
       "scPushValidValues(Null)", "True"},
      {"scPushValidRangeValues", [](Host& h) { return Text(h.scPushValidRangeValues(0, "31")); },
       "scPushValidRangeValues(0, \"31\")", "True"},
      {"scRemoveFromValidValues", [](Host& h) { return Text(h.scRemoveFromValidValues("KEY", "5")); },
       "scRemoveFromValidValues(\"KEY\", \"5\")", "True"},
      {"scRemoveFromValidRangeValues", [](Host& h) { return Text(h.scRemoveFromValidRangeValues("KEY", 1, 4)); },
       "scRemoveFromValidRangeValues(\"KEY\", 1, 4)", "True"},
      {"scGetValidValues",
       [](Host& h) {
         List values;
         return Text(h.scGetValidValues("LIM", values), values);
       },
       "scGetValidValues(\"LIM\", out)", "True, [\"7\"]"},
      {"scGetNumberOfValidValues",
       [](Host& h) {
         Value count;
         return Text(h.scGetNumberOfValidValues("KEY", 4, count), count);
       },
       "scGetNumberOfValidValues(\"KEY\", 4, out)", "True, 12"},

      {"scRunQuery", [](Host& h) { return Text(h.scRunQuery("DELETE * FROM T", nullptr, std::nullopt)); },
       "scRunQuery(\"DELETE * FROM T\")", "True"},
      {"scRunQuery",
       [](Host& h) {
         RowSet rows;
         return Text(h.scRunQuery("SELECT A FROM T\r\n WHERE B\n", &rows, std::nullopt), rows);
       },
       "scRunQuery(\"SELECT A FROM T{NL} WHERE B{LF}\", out)", "True, [[\"100\", \"101\"], [\"EX\", Null]]"},
      {"scRunQuery",
       [](Host& h) {
         RowSet rows;
         return Text(h.scRunQuery("SELECT A, B", &rows, Value("static")), rows);
       },
       "scRunQuery(\"SELECT A, B\", out, \"static\")", "True, [[\"100\", \"101\"], [\"EX\", Null]]"},
      {"scRunQuery", [](Host& h) { return Text(h.scRunQuery("DELETE * FROM S", nullptr, Value("site"))); },
       "scRunQuery(\"DELETE * FROM S\", Null, \"site\")", "True"},
      {"scSQLInsert",
       [](Host& h) {
         return Text(h.scSQLInsert("KSEXI", {"CMDID", "DIR"}, {7, Value()}));
       },
       "scSQLInsert(\"KSEXI\", [\"CMDID\", \"DIR\"], [7, Empty])", "True"},
      {"scSQLUpdate", [](Host& h) { return Text(h.scSQLUpdate("EXCCS", {"SERV"}, {"1"}, {"CAT"}, {"0"})); },
       "scSQLUpdate(\"EXCCS\", [\"SERV\"], [\"1\"], [\"CAT\"], [\"0\"])", "True"},
      {"scSQLSelect", [](Host& h) { return "rows " + TraceText(h.scSQLSelect("EXTEI", {"DIR"}, {"EQU"}, {"1-0"})); },
       "scSQLSelect(\"EXTEI\", [\"DIR\"], [\"EQU\"], [\"1-0\"])", "rows [[\"selected\"]]"},
      {"scBuildCmdID", [](Host& h) { return Text(h.scBuildCmdID()); }, "scBuildCmdID()", "1001"},
      {"scStartTransaction", [](Host& h) { return Text(h.scStartTransaction()); }, "scStartTransaction()", "True"},
      {"scCommitTransaction", [](Host& h) { return Text(h.scCommitTransaction()); }, "scCommitTransaction()", "True"},
      {"scRollBackTransaction", [](Host& h) { return Text(h.scRollBackTransaction()); }, "scRollBackTransaction()",
       "True"},

      {"scNANSIinitiate",
       [](Host& h) {
         Value code;
         return Text(h.scNANSIinitiate("100&&199", "EX", code), code);
       },
       "scNANSIinitiate(\"100&&199\", \"EX\", out)", "True, 60010"},
      {"scNANSIremoveFromBlockedRange", [](Host& h) { return Text(h.scNANSIremoveFromBlockedRange("100", "EX")); },
       "scNANSIremoveFromBlockedRange(\"100\", \"EX\")", "True"},
      {"scGetAutoEquOptionValue",
       [](Host& h) {
         Value clause;
         return Text(h.scGetAutoEquOptionValue(clause), clause);
       },
       "scGetAutoEquOptionValue(out)", "True, \" ORDER BY EQU\""},
      {"scFilterEQU",
       [](Host& h) {
         h.scFilterEQU(2, "2");
         return "";
       },
       "scFilterEQU(2, \"2\")", ""},

      {"scErrorMessage",
       [](Host& h) {
         h.scErrorMessage(0, 3, 1, "Add: IPGDI", 60049, {"IP", 2, Value::Null(), Value()});
         return "";
       },
       "scErrorMessage(0, 3, 1, \"Add: IPGDI\", 60049, \"IP\", 2, Null, Empty)", ""},
      {"scPrintToDebugWindow",
       [](Host& h) {
         h.scPrintToDebugWindow("  a line");
         return "";
       },
       "scPrintToDebugWindow(\"  a line\")", ""},
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
