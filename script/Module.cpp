#include "script/Module.h"

#include <algorithm>

namespace cordboard {

namespace {

bool Call(Worker worker, const Action& action) { return worker != nullptr && worker(action); }

bool CallForParameter(const std::vector<ParameterWorker>& workers, const Action& action) {
  if (workers.empty()) return false;
  const std::string parameter = action.Parameter();
  for (const auto& [names, worker] : workers) {
    if (std::ranges::find(names.all(), parameter) != names.all().end()) return worker(action);
  }
  return false;
}

}  // namespace

bool Module::Run(const Action& action) const {
  if (action.FunctionName == "SetInfo") return Call(SetInfo, action);
  if (action.FunctionName == "EditInfo") return Call(EditInfo, action);
  if (action.FunctionName == "DeleteInfo") return Call(DeleteInfo, action);
  if (action.FunctionName == "GenerateCmd") return Call(GenerateCmd, action);
  if (action.FunctionName == "GetValidValForParam") return CallForParameter(ValidValues, action);
  if (action.FunctionName == "StatCheck") return CallForParameter(StatCheck, action);
  return false;
}

}  // namespace cordboard
