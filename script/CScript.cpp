#include "script/CScript.h"

#include "script/Action.h"
#include "script/CurrentHost.h"
#include "script/Registry.h"

namespace cordboard {

CScript::~CScript() { Destroy(); }

bool CScript::Run(std::int32_t Definition, const std::string& oaRelease, const std::string& FunctionName,
                  const std::string& CmdName, std::int32_t CmdId, const List& ParamList) {
  for (const Command& command : Registry()) {
    if (command.name == CmdName) return command.entry({Definition, oaRelease, FunctionName, CmdName, CmdId, ParamList});
  }
  return false;
}

void CScript::AddObject(std::shared_ptr<Host> MMLObj) { SetCurrentHost(std::move(MMLObj)); }

void CScript::Destroy() { SetCurrentHost(nullptr); }

}  // namespace cordboard
