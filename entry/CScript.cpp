#include "entry/CScript.h"

#include "entry/Registry.h"
#include "script/Action.h"
#include "script/CurrentHost.h"

namespace cordboard {

CScript::~CScript() { Destroy(); }

bool CScript::Run(std::int32_t Definition, const std::string& oaRelease, const std::string& FunctionName,
                  const std::string& CmdName, std::int32_t CmdId, const List& ParamList) {
  const Module* module = FindModule(CmdName);
  return module != nullptr && module->Run({Definition, oaRelease, FunctionName, CmdName, CmdId, ParamList});
}

void CScript::AddObject(std::shared_ptr<Host> MMLObj) { SetCurrentHost(std::move(MMLObj)); }

void CScript::Destroy() { SetCurrentHost(nullptr); }

}  // namespace cordboard
