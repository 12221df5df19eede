#include "workbench/host/Session.h"

#include <string_view>
#include <utility>

#include "script/MessageBox.h"
#include "script/MessageCodes.h"
#include "script/RunTimeFailure.h"

namespace cordboard::workbench {

namespace {

// What a failure means for the user whose action it ended.
const char* InWords(RunTimeFailure::Cause cause) {
  switch (cause) {
    case RunTimeFailure::Cause::Overflow: return "a number is too large";
    case RunTimeFailure::Cause::SubscriptOutOfRange:
      return "a value that it needs was not found, or there are too many";
    case RunTimeFailure::Cause::TypeMismatch: return "a value is not a number";
    case RunTimeFailure::Cause::InvalidUseOfNull: return "a value that it needs is missing";
    default: return "its rules broke off";
  }
}

// Why a call failed, for its user. A rule that counts on a row fails at the first look at what its query found: the
// query tells what is missing.
std::string Reason(const RunTimeFailure& failure, std::string foundNothing) {
  const bool inRows = std::string_view(failure.what()).find("row set") != std::string_view::npos;
  if (!inRows || foundNothing.empty())
    return std::string(InWords(failure.cause())) + "; " + std::string(Name(failure.cause())) + ": " + failure.what();
  for (std::size_t at = foundNothing.find("\r\n"); at != foundNothing.npos; at = foundNothing.find("\r\n", at))
    foundNothing.replace(at, 2, " ");
  return "a row that has to be there was not found by " + foundNothing;
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
      host_->scPrintToDebugWindow(action + " of " + parameter + " failed (" + *result.failure + ")");
      host_->scErrorMessage(0, 2, 2, action, static_cast<int>(Message::ListNotBuilt), {parameter});
    }
    return result.answer;
  });
}

RunResult Session::Run(const std::string& function, std::int32_t CmdId, const List& ParamList,
                       const std::string& parameter) {
  const Form& open = host_->form();
  const int definition = parameter.empty() ? 1 : open.ActiveDefinition(parameter);
  const int openBefore = exchange_.OpenTransactions();
  const int enclosing = host_->Enclose(openBefore);
  const BoxesGoTo host([this](const std::string& text, const std::string&, int) { host_->ShowBox(text); });
  RunResult result;
  host_->ForgetQueries();
  try {
    result.answer = script_.Run(definition, exchange_.release(), function, open.definition().command, CmdId, ParamList);
  } catch (const RunTimeFailure& failure) {
    result.failure = Reason(failure, host_->FoundNothing());
  }
  while (exchange_.OpenTransactions() > openBefore) exchange_.RollBack();
  host_->Enclose(enclosing);
  return result;
}

RunResult Session::Check(const std::string& parameter) {
  host_->Checking(parameter);
  return Run("StatCheck", 0, {parameter}, parameter);
}

}  // namespace cordboard::workbench
