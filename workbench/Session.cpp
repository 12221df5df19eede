#include "workbench/Session.h"

#include <utility>

#include "script/MessageBox.h"
#include "script/RunTimeFailure.h"

namespace cordboard::workbench {

namespace {

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
  host_->SetBuildList(
      [this](const std::string& parameter) { return Run("GetValidValForParam", 0, {parameter}, parameter).answer; });
}

RunResult Session::Run(const std::string& function, std::int32_t CmdId, const List& ParamList,
                       const std::string& parameter) {
  const Form& open = host_->form();
  const int definition = parameter.empty() ? 1 : open.ActiveDefinition(parameter);
  const int openBefore = exchange_.OpenTransactions();
  const BoxesGoTo host([this](const std::string& text, const std::string&, int) { host_->ShowBox(text); });
  RunResult result;
  try {
    result.answer = script_.Run(definition, exchange_.release(), function, open.definition().command, CmdId, ParamList);
  } catch (const RunTimeFailure& failure) {
    result.failure = std::string(Name(failure.cause())) + ": " + failure.what();
  }
  while (exchange_.OpenTransactions() > openBefore) exchange_.RollBack();
  return result;
}

}  // namespace cordboard::workbench
