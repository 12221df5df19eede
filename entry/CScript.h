// The library's one public object. Create it, give it the host, call Run once for every user action.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "script/Host.h"
#include "script/List.h"

namespace cordboard {

class CScript {
 public:
  CScript() = default;
  // Ending any one object drops the process-wide host, for every other object as well.
  ~CScript();
  CScript(const CScript&) = delete;
  CScript& operator=(const CScript&) = delete;

  // Runs one action on a command and gives its truth value. A CmdName that no module serves gives False, and nothing
  // else happens. What no worker tests for leaves as a RunTimeFailure, with a transaction that was open still open.
  bool Run(std::int32_t Definition, const std::string& oaRelease, const std::string& FunctionName,
           const std::string& CmdName, std::int32_t CmdId, const List& ParamList);

  // The host for all objects of the process, from now on.
  void AddObject(std::shared_ptr<Host> MMLObj);
  void Destroy();
};

}  // namespace cordboard
