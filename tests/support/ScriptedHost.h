// A host for the tests of single routines: its answers are scripted before, every call is noted, and a query or a list
// that no script answers fails the test. What a command does is told by transcripts.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entry/CScript.h"
#include "script/Action.h"
#include "script/CallHost.h"
#include "script/TracingHost.h"

namespace cordboard {

// Joins the lines of an expected transcript, so that a difference is shown line by line.
std::string Lines(std::initializer_list<std::string> lines);

class ScriptedHost : public CallHost {
 public:
  ScriptedHost();
  ~ScriptedHost() override;

  // --- The script.

  // The form: what scGetParamValue gives; empty for every other name. scSetParamValue and scResetParam change it.
  void Param(const std::string& name, Value value) { params_[name] = std::move(value); }
  // What scGetValidValues gives, with True.
  void ValidValues(const std::string& name, List values) { validValues_[name] = std::move(values); }
  // What scGetNumberOfValidValues gives, with True.
  void NumberOfValidValues(const std::string& name, Value count) { counts_[name] = std::move(count); }
  // The rows that a statement gives, [column][row]; none at all for {}. Given several times, the answers follow each
  // other, and the last stays. NL in a statement is written as CR LF.
  void Rows(const std::string& sql, std::vector<std::vector<Value>> columns);
  // The operation answers False: always, or for one first argument. A refused query may still give Rows.
  void Refuse(const std::string& operation) { refused_.insert({operation, ""}); }
  void Refuse(const std::string& operation, const std::string& first) { refused_.insert({operation, first}); }
  // The operation throws HostFailure.
  void Fail(const std::string& operation, const std::string& first) { failed_.insert({operation, first}); }
  void AutoEquOption(Value clause) { autoEqu_ = std::move(clause); }

  // --- The action and its transcript.

  // Runs the action with this host. A failure leaves as a RunTimeFailure.
  bool Run(const Action& action);
  // Calls a routine that takes no action with this host, and gives its answer.
  template <typename Routine>
  auto With(Routine routine) {
    CScript script;
    script.AddObject(trace_);
    return routine();
  }
  // All calls so far, a line each.
  std::string Calls() const;
  // The calls but for the reads of the form.
  std::string Effects() const;

  // --- The operations that do more than succeed or not.

  Value scGetParamValue(const std::string& name) override;
  bool scSetParamValue(const std::string& name, const Value& value) override;
  bool scResetParam(const std::string& name) override;
  bool scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) override;
  bool scGetValidValues(const std::string& name, List& values) override;
  bool scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) override;
  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override;
  Value scBuildCmdID() override;
  bool scGetAutoEquOptionValue(Value& clause) override;

 protected:
  // All others, which are refused by a text that is their first argument.
  HostAnswer Answer(const HostCall& call) override;

 private:
  // Whether the operation is done. Where it is to fail, it fails.
  bool Done(std::string_view operation, const std::string& first = "");

  std::shared_ptr<TracingHost> trace_;
  std::map<std::string, Value> params_;
  std::map<std::string, List> validValues_;
  std::map<std::string, Value> counts_;
  std::map<std::string, std::deque<RowSet>> rows_;
  std::set<std::pair<std::string, std::string>> refused_;
  std::set<std::pair<std::string, std::string>> failed_;
  Value autoEqu_;
  int lastCmdId_ = 1000;
};

}  // namespace cordboard
