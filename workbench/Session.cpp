#include "workbench/Session.h"

#include "script/RunTimeFailure.h"

namespace cordboard::workbench {

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
  const int enclosing = host_->Enclose(openBefore);
  RunResult result;
  try {
    result.answer = script_.Run(definition, exchange_.release(), function, open.definition().command, CmdId, ParamList);
  } catch (const RunTimeFailure& failure) {
    result.failure = std::string(Name(failure.cause())) + ": " + failure.what();
  }
  while (exchange_.OpenTransactions() > openBefore) exchange_.RollBack();
  host_->Enclose(enclosing);
  return result;
}

}  // namespace cordboard::workbench
