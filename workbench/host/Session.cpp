#include "workbench/host/Session.h"

#include <regex>
#include <string_view>
#include <utility>

#include "script/MessageBox.h"
#include "script/MessageCodes.h"
#include "script/RunTimeFailure.h"

namespace cordboard::workbench {

namespace {

// Of an action that is not about one parameter.
constexpr int usualDefinition = 1;
// The expression takes stack for each sign of a query, and nobody reads more than this.
constexpr std::size_t longestQuery = 1000;

// What a query looked for, where it asks one table: "ROUTEDATA with PROTOCOL='CAS' AND MARKET='NO'".
std::string LookedFor(const std::string& query) {
  if (query.size() > longestQuery) return "";
  static const std::regex plain(R"(\s*SELECT .* FROM\s+(\w+)\s+WHERE\s+(.*?)\s*(ORDER BY.*)?)", std::regex::icase);
  std::smatch parts;
  return std::regex_match(query, parts, plain) ? parts[1].str() + " with " + parts[2].str() : "";
}

// What a failure means for the user whose action it ended. A rule that counts on a row fails at the first look at what
// its query found: `foundNothing` is such a query, or nothing.
std::string InWords(RunTimeFailure::Cause cause, const std::string& foundNothing) {
  switch (cause) {
    case RunTimeFailure::Cause::Overflow: return "take no number as large as one of these";
    case RunTimeFailure::Cause::SubscriptOutOfRange: {
      if (foundNothing.empty())
        return "found fewer or more values than they need; check the values and the records that they refer to";
      const std::string what = LookedFor(foundNothing);
      return "found no row of " + (what.empty() ? "those that they need" : what) +
             "; a record that it belongs to may be missing, or have been changed by hand";
    }
    case RunTimeFailure::Cause::TypeMismatch: return "need a number where a value is none";
    case RunTimeFailure::Cause::InvalidUseOfNull:
      return "need a value that is not given, or that a record does not have";
    default: return "broke off";
  }
}

Failure Explained(const RunTimeFailure& failure, const std::string& command, std::string foundNothing) {
  if (std::string_view(failure.what()).find("row set") == std::string_view::npos) foundNothing.clear();
  for (std::size_t at = foundNothing.find("\r\n"); at != foundNothing.npos; at = foundNothing.find("\r\n", at))
    foundNothing.replace(at, 2, " ");
  return {.inWords = "the rules of " + command + " " + InWords(failure.cause(), foundNothing),
          .cause = std::string(Name(failure.cause())) + ": " + failure.what() +
                   (foundNothing.empty() ? "" : "; nothing was found by " + foundNothing)};
}

// Shows the library's boxes elsewhere while it lives.
class BoxesGoTo {
 public:
  explicit BoxesGoTo(MessageBoxHook hook) : before_(SetMessageBox(std::move(hook))) {}
  ~BoxesGoTo() { SetMessageBox(std::move(before_)); }
  BoxesGoTo(const BoxesGoTo&) = delete;
  BoxesGoTo& operator=(const BoxesGoTo&) = delete;

 private:
  MessageBoxHook before_;
};

}  // namespace

Session::Session(Exchange& exchange, const Decorate& decorate)
    : exchange_(exchange), host_(std::make_shared<WorkbenchHost>(exchange)) {
  script_.AddObject(decorate ? decorate(host_) : host_);
  host_->SetBuildList([this](const std::string& parameter) {
    const std::string action = "GetValidValForParam";
    const RunResult result = Run(action, 0, {parameter}, parameter);
    // A list that failed is not a list that was left to the form.
    if (result.failure) {
      host_->scPrintToDebugWindow(action + " of " + parameter + " failed: " + result.failure->cause);
      host_->scErrorMessage(0, 2, 2, action, static_cast<int>(Message::ListNotBuilt), {parameter});
    }
    return result.answer;
  });
}

RunResult Session::Run(const std::string& function, std::int32_t CmdId, const List& ParamList,
                       const std::string& parameter) {
  const Form& open = host_->form();
  const int definition = parameter.empty() ? usualDefinition : open.ActiveDefinition(parameter);
  return RunCommand(open.definition().command, definition, function, CmdId, ParamList);
}

RunResult Session::Check(const std::string& parameter) {
  host_->Checking(parameter);
  return Run("StatCheck", 0, {parameter}, parameter);
}

RunResult Session::Generate(const std::string& command, int number) {
  host_->CloseForm();
  return RunCommand(command, usualDefinition, "GenerateCmd", 0, {std::to_string(number)});
}

RunResult Session::RunCommand(const std::string& command, int definition, const std::string& function,
                              std::int32_t CmdId, const List& ParamList) {
  const int openBefore = exchange_.OpenTransactions();
  const int enclosing = host_->Enclose(openBefore);
  const BoxesGoTo host([this](const std::string& text, const std::string&, int) { host_->ShowBox(text); });
  RunResult result;
  host_->ForgetQueries();
  try {
    result.answer = script_.Run(definition, exchange_.release(), function, command, CmdId, ParamList);
  } catch (const RunTimeFailure& failure) {
    result.failure = Explained(failure, command, host_->FoundNothing());
  }
  while (exchange_.OpenTransactions() > openBefore) exchange_.RollBack();
  host_->Enclose(enclosing);
  return result;
}

}  // namespace cordboard::workbench
