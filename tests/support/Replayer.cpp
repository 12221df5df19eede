#include "support/Replayer.h"

#include <map>
#include <memory>
#include <set>
#include <vector>

#include "entry/CScript.h"
#include "script/CallHost.h"
#include "script/CommandLine.h"
#include "script/MessageBox.h"
#include "script/RunTimeFailure.h"
#include "script/TracingHost.h"

namespace cordboard {

namespace {

Answered ReadAnswered(AnswerKind kind, const std::string& text, const Place& place) {
  if (kind == AnswerKind::Rows) return ReadRows(text, place);
  if (kind == AnswerKind::List) return ReadList(text, place);
  return ReadValue(text, place);
}

// An answer as it is written: `False`, `True`, what the out-argument gets (with True), or both: `False, [["7"]]`.
HostAnswer WrittenAnswer(AnswerKind result, AnswerKind out, const ExpectedCall& call) {
  std::vector<std::string> parts = Parts(call.answer, ',');
  HostAnswer answer;
  if (result == AnswerKind::Truth) {
    const bool given = parts.front() == "True" || parts.front() == "False";
    answer.result = Value(parts.front() != "False");
    if (given) parts.erase(parts.begin());
  } else if (result != AnswerKind::Nothing) {
    answer.result = ReadAnswered(result, parts.front(), call.place);
    parts.erase(parts.begin());
  }
  if (!parts.empty() && out != AnswerKind::Nothing) {
    answer.out = ReadAnswered(out, parts.front(), call.place);
    parts.erase(parts.begin());
  }
  if (!parts.empty()) throw TranscriptError(call.place, "no answer of this call: " + call.answer);
  return answer;
}

// What ends a run whose calls have left the transcript; no rule knows it.
struct Left {};

class Replayer : public CallHost {
 public:
  explicit Replayer(const TranscriptRun& run) : run_(run), form_(run.form) {}

  const std::string& difference() const { return difference_; }

  // A plain message box is written as a call, though no host sees it.
  void Box(const std::string& text, const std::string& title, int style) {
    Expect("ShowMessageBox(" + TraceText(Value(text)) + ", " + TraceText(Value(title)) + ", " + std::to_string(style) +
           ")");
  }

  // The run is over: nothing more may be expected.
  void End(const std::string& came) {
    const std::string written =
        (run_.outcome == "True" || run_.outcome == "False" ? "gives " : "fails ") + run_.outcome;
    if (at_ < run_.calls.size()) return Differ(run_.calls[at_].call, run_.calls[at_].place, came);
    if (came != written) return Differ(written, run_.place, came);
    for (const auto& [name, value] : run_.form) {
      if (!read_.contains(name) && !run_.isAlternative)
        Differ("form " + name + "=" + TraceText(value), run_.place, "(it is never read)");
    }
  }

 protected:
  HostAnswer Answer(const HostCall& call) override {
    const std::string text = TraceText(call);
    if (call.operation == "scGetParamValue" && run_.hasForm &&
        !(at_ < run_.calls.size() && run_.calls[at_].call == text))
      return {.result = Read(std::get<Value>(call.arguments.front()).text())};
    const ExpectedCall& expected = Expect(text);
    if (expected.answer == "fails")
      throw RunTimeFailure(RunTimeFailure::Cause::HostFailure, text + " failed as written");
    const Operation& operation = FindOperation(call.operation);
    const AnswerKind out = operation.out != AnswerKind::Rows || call.AsksOut() ? operation.out : AnswerKind::Nothing;
    const HostAnswer answer = expected.answer.empty() ? UsualAnswer(operation, out, expected.place)
                                                      : WrittenAnswer(operation.result, out, expected);
    ChangeForm(call, answer);
    return answer;
  }

 private:
  Value Read(const std::string& name) {
    read_.insert(name);
    const auto found = form_.find(name);
    return found == form_.end() ? Value() : found->second;
  }

  void ChangeForm(const HostCall& call, const HostAnswer& answer) {
    const bool sets = call.operation == "scSetParamValue";
    if ((!sets && call.operation != "scResetParam") || answer.result != Answered(Value(true))) return;
    const std::string& name = std::get<Value>(call.arguments.front()).text();
    if (sets) {
      form_[name] = std::get<Value>(call.arguments[1]);
    } else {
      form_.erase(name);
    }
  }

  HostAnswer UsualAnswer(const Operation& operation, AnswerKind out, const Place& place) {
    if (out == AnswerKind::Rows || out == AnswerKind::List || operation.result == AnswerKind::Rows)
      throw TranscriptError(place, "the answer has to be written, such as: -> no rows, -> Empty, -> False");
    if (operation.name == "scBuildCmdID") return {.result = Value(++lastRecord_)};
    if (operation.result == AnswerKind::Truth) return {.result = Value(true)};
    return {};
  }

  const ExpectedCall& Expect(const std::string& call) {
    const bool more = at_ < run_.calls.size();
    if (more && run_.calls[at_].call == call) return run_.calls[at_++];
    const std::string end = "(the run is over)";
    Differ(more ? run_.calls[at_].call : end, more ? run_.calls[at_].place : run_.place, call);
    throw Left();
  }

  void Differ(const std::string& expected, const Place& place, const std::string& came) {
    difference_.clear();
    for (std::size_t i = 0; i < at_; ++i) difference_ += "    " + run_.calls[i].call + "\n";
    difference_ += "  - " + expected + "   at " + place.Text() + "\n  + " + came + "\n";
  }

  const TranscriptRun& run_;
  std::map<std::string, Value> form_;
  std::set<std::string> read_;
  std::size_t at_ = 0;
  int lastRecord_ = 1000;
  std::string difference_;
};

// The process as a run knows it: message boxes come to the host, and the command line is always the same.
class ProcessOfRun {
 public:
  explicit ProcessOfRun(Replayer& host)
      : boxes_(SetMessageBox(
            [&host](const std::string& text, const std::string& title, int style) { host.Box(text, title, style); })),
        commandLine_(SetCommandLine([] { return std::string("host example"); })) {}
  ~ProcessOfRun() {
    SetMessageBox(boxes_);
    SetCommandLine(commandLine_);
  }
  ProcessOfRun(const ProcessOfRun&) = delete;
  ProcessOfRun& operator=(const ProcessOfRun&) = delete;

 private:
  MessageBoxHook boxes_;
  CommandLineHook commandLine_;
};

std::string Outcome(CScript& script, const Action& action) {
  try {
    const bool answer = script.Run(action.Definition, action.oaRelease, action.FunctionName, action.CmdName,
                                   action.CmdId, action.ParamList);
    return answer ? "gives True" : "gives False";
  } catch (const RunTimeFailure& failure) {
    return "fails " + std::string(Name(failure.cause()));
  }
}

std::string Replay(const TranscriptRun& run) {
  const auto host = std::make_shared<Replayer>(run);
  CScript script;
  script.AddObject(host);
  const ProcessOfRun process(*host);
  try {
    host->End(Outcome(script, run.action));
  } catch (const Left&) {
    // The host has noted the difference.
  }
  if (host->difference().empty()) return "";
  return run.place.Text() + ": " + run.action.FunctionName + " " + TraceText(run.action.ParamList) +
         (run.variables.empty() ? "" : ", where " + run.variables) + "\n" + host->difference();
}

}  // namespace

std::string Replay(const TranscriptBlock& block) {
  try {
    std::string differences;
    for (const TranscriptRun& run : block.runs) differences += Replay(run);
    return differences;
  } catch (const TranscriptError& error) {
    return std::string(error.what()) + "\n";
  }
}

}  // namespace cordboard
