#include "script/Module.h"

#include <algorithm>

#include "script/HostOperations.h"

namespace cordboard {

namespace {

// The worker of a parameter, null where none serves it.
Worker Find(const std::vector<ParameterWorker>& workers, const std::string& parameter) {
  const auto serves = [&parameter](const ParameterWorker& entry) {
    return std::ranges::find(entry.names.all(), parameter) != entry.names.all().end();
  };
  const auto found = std::ranges::find_if(workers, serves);
  return found == workers.end() ? nullptr : found->worker;
}

}  // namespace

Worker Module::ListOf(const std::string& parameter) const { return Find(ValidValues, parameter); }
Worker Module::CheckOf(const std::string& parameter) const { return Find(StatCheck, parameter); }

bool Module::Run(const Action& action) const {
  if (isTemplate) SetTemplate(true);
  Worker worker = nullptr;
  if (action.FunctionName == "SetInfo") worker = SetInfo;
  if (action.FunctionName == "EditInfo") worker = EditInfo;
  if (action.FunctionName == "DeleteInfo") worker = DeleteInfo;
  if (action.FunctionName == "GenerateCmd") worker = GenerateCmd;
  if (action.FunctionName == "GetValidValForParam") worker = ValidValues.empty() ? nullptr : ListOf(action.Parameter());
  if (action.FunctionName == "StatCheck") worker = StatCheck.empty() ? nullptr : CheckOf(action.Parameter());
  return worker == nullptr ? unserved : worker(action);
}

}  // namespace cordboard
