#include "workbench/Session.h"

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
  RunResult result;
  try {
    result.answer = script_.Run(definition, exchange_.release(), function, open.definition().command, CmdId, ParamList);
  } catch (const RunTimeFailure& failure) {
    result.failure =
        std::string(InWords(failure.cause())) + "; " + std::string(Name(failure.cause())) + ": " + failure.what();
  }
  while (exchange_.OpenTransactions() > openBefore) exchange_.RollBack();
  return result;
}

}  // namespace cordboard::workbench
